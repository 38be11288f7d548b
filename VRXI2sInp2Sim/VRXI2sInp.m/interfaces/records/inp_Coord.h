#pragma once

class gsl_Matrix;

/// One node: its position and its normal. A plain value of 56 bytes.
///
/// Lengths are in the deck's units, angles in degrees. The normal has length 1, or is zero when the
/// node has none.
class inp_Coord
{
public:
  inp_Coord() = default; // the origin, without a normal
  inp_Coord(double atX, double atY, double atZ) : x(atX), y(atY), z(atZ) {}
  inp_Coord(double atX, double atY, double atZ, double normalX, double normalY, double normalZ)
    : x(atX), y(atY), z(atZ), nx(normalX), ny(normalY), nz(normalZ)
  {
  }

  /// Takes the direction as normal; one without length leaves the normal as it was.
  void AttachNormalComponents(double normalX, double normalY, double normalZ);

  /// Brings the normal to length 1 and rotates it; one without length becomes zero.
  void NormalizePlusRotate(gsl_Matrix const& matrix);

  /// Moves the node: its position as a point, its normal as NormalizePlusRotate does. Nothing for the
  /// identity, or for a node that is not defined.
  void Transform(gsl_Matrix const& matrix);

  /// Sets to 0.0 each component of the position that is below the rounding of the largest one.
  void ZeroSmallerThanTolerance();

  /// Take position and normal for cylindrical (r, theta, z) or spherical (r, theta, phi) components, theta
  /// from the x-axis in the xy-plane and phi from that plane up, and turn them into rectangular ones.
  void Cylindrical2Rectangular();
  void Spherical2Rectangular();

  static void CylindricalConversion(double& r, double& theta);
  static void SphericalConversion(double& r, double& theta, double& phi);

  /// Turn increments at a point into the way between both converted ends.
  static void DifferentialCylindricalConversion(double r, double theta, double& dr, double& dtheta);
  static void DifferentialSphericalConversion(double r, double theta, double phi, double& dr,
                                              double& dtheta, double& dphi);

  bool defined{true};
  double x{0.0};
  double y{0.0};
  double z{0.0};
  double nx{0.0};
  double ny{0.0};
  double nz{0.0};
};

#include "inp_Coord.h"

#include "gsl_Matrix.h"
#include "gsl_Point.h"
#include "gsl_Vector.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
double const radiansPerDegree = 3.141592653589793 / 180.0;
} // namespace

void inp_Coord::AttachNormalComponents(double normalX, double normalY, double normalZ)
{
  gsl_Vector normal(normalX, normalY, normalZ);
  if (normal.Normalize())
  {
    nx = normal.X();
    ny = normal.Y();
    nz = normal.Z();
  }
}

void inp_Coord::NormalizePlusRotate(gsl_Matrix const& matrix)
{
  gsl_Vector normal(nx, ny, nz);
  if (!normal.Normalize())
  {
    nx = ny = nz = 0.0;
    return;
  }
  if (!matrix.IsIdentity())
  {
    matrix.Transform(normal);
  }
  nx = normal.X();
  ny = normal.Y();
  nz = normal.Z();
}

void inp_Coord::Transform(gsl_Matrix const& matrix)
{
  if (!defined || matrix.IsIdentity())
  {
    return;
  }
  gsl_Point position(x, y, z);
  matrix.Transform(position);
  x = position.X();
  y = position.Y();
  z = position.Z();
  NormalizePlusRotate(matrix);
}

void inp_Coord::ZeroSmallerThanTolerance()
{
  double const largest = std::max({std::abs(x), std::abs(y), std::abs(z)});
  double const tolerance = largest * std::numeric_limits<double>::epsilon();
  for (double* component : {&x, &y, &z})
  {
    if (std::abs(*component) < tolerance)
    {
      *component = 0.0;
    }
  }
}

void inp_Coord::Cylindrical2Rectangular()
{
  CylindricalConversion(x, y);
  CylindricalConversion(nx, ny);
}

void inp_Coord::Spherical2Rectangular()
{
  SphericalConversion(x, y, z);
  SphericalConversion(nx, ny, nz);
}

void inp_Coord::CylindricalConversion(double& r, double& theta)
{
  double const radius = r;
  double const angle = theta * radiansPerDegree;
  r = radius * std::cos(angle);
  theta = radius * std::sin(angle);
}

void inp_Coord::SphericalConversion(double& r, double& theta, double& phi)
{
  double const radius = r;
  double const around = theta * radiansPerDegree;
  double const up = phi * radiansPerDegree;
  r = radius * std::cos(up) * std::cos(around);
  theta = radius * std::cos(up) * std::sin(around);
  phi = radius * std::sin(up);
}

void inp_Coord::DifferentialCylindricalConversion(double r, double theta, double& dr,
                                                  double& dtheta)
{
  dr += r;
  dtheta += theta;
  CylindricalConversion(dr, dtheta);
  CylindricalConversion(r, theta);
  dr -= r;
  dtheta -= theta;
}

void inp_Coord::DifferentialSphericalConversion(double r, double theta, double phi, double& dr,
                                                double& dtheta, double& dphi)
{
  dr += r;
  dtheta += theta;
  dphi += phi;
  SphericalConversion(dr, dtheta, dphi);
  SphericalConversion(r, theta, phi);
  dr -= r;
  dtheta -= theta;
  dphi -= phi;
}

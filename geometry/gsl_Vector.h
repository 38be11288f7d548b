#pragma once

#include "gsl_Point.h"

class gsl_Matrix;

/// A direction with a length; zero at construction.
///
/// The length is computed when it is first asked for and kept until the vector changes, also in a
/// const vector: a vector belongs to one thread.
class gsl_Vector
{
public:
  gsl_Vector() = default;
  gsl_Vector(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}

  /// The way from the origin to a point.
  explicit gsl_Vector(gsl_Point const& tip) : gsl_Vector(tip.X(), tip.Y(), tip.Z()) {}

  /// The way from one point to another, to - from.
  gsl_Vector(gsl_Point const& from, gsl_Point const& to)
    : gsl_Vector(to.X() - from.X(), to.Y() - from.Y(), to.Z() - from.Z())
  {
  }

  /// The normal of the plane through three points, on the side from which a, b, c run
  /// counter-clockwise. Its length is the sine of the angle at `a`, whatever the size of the triangle,
  /// so Normalize tells whether the points span a plane; zero when b or c coincides with a.
  gsl_Vector(gsl_Point const& a, gsl_Point const& b, gsl_Point const& c);

  double X() const { return m_x; }
  double Y() const { return m_y; }
  double Z() const { return m_z; }

  void Set(double x, double y, double z)
  {
    m_x = x;
    m_y = y;
    m_z = z;
    m_magnitude = staleMagnitude;
  }

  /// The length; right also where the squares of the components overflow or vanish.
  double ComputeMagnitude() const;

  /// Makes the length 1. False, and the vector as it was, when its length is zero within the tolerance
  /// of gsl_Util or is no finite number.
  bool Normalize();

  double DotProduct(gsl_Vector const& other) const
  {
    return m_x * other.m_x + m_y * other.m_y + m_z * other.m_z;
  }

  gsl_Vector CrossProduct(gsl_Vector const& other) const;

  /// The angle between two vectors of any length, in radians from 0 to pi, good to rounding also when
  /// they are nearly parallel. With `ofLines` the angle between the lines along them, from 0 to pi/2.
  /// 0 when either is the zero vector.
  double AngleWith(gsl_Vector const& other, bool ofLines) const;

  /// Turns the vector round, in place.
  void Negate();

  /// Multiplies the vector, in place.
  void Scale(double factor) { Set(factor * m_x, factor * m_y, factor * m_z); }

  /// Takes the vector as the position of its tip: rotates it and adds the matrix's translation. A
  /// direction is rotated by gsl_Matrix::Transform.
  void RotateAndTransform(gsl_Matrix const& matrix);

private:
  static constexpr double staleMagnitude = -1.0;

  double m_x = 0.0;
  double m_y = 0.0;
  double m_z = 0.0;
  mutable double m_magnitude = staleMagnitude;
};

inline gsl_Vector operator+(gsl_Vector const& a, gsl_Vector const& b)
{
  return {a.X() + b.X(), a.Y() + b.Y(), a.Z() + b.Z()};
}

inline gsl_Vector operator-(gsl_Vector const& a, gsl_Vector const& b)
{
  return {a.X() - b.X(), a.Y() - b.Y(), a.Z() - b.Z()};
}

inline gsl_Vector operator*(gsl_Vector const& vector, double factor)
{
  return {factor * vector.X(), factor * vector.Y(), factor * vector.Z()};
}

inline gsl_Vector operator*(double factor, gsl_Vector const& vector) { return vector * factor; }

/// Equal within the tolerance of gsl_Util in each component.
bool operator==(gsl_Vector const& a, gsl_Vector const& b);

inline gsl_Point operator+(gsl_Point const& point, gsl_Vector const& way)
{
  return {point.X() + way.X(), point.Y() + way.Y(), point.Z() + way.Z()};
}

inline gsl_Point operator-(gsl_Point const& point, gsl_Vector const& way)
{
  return {point.X() - way.X(), point.Y() - way.Y(), point.Z() - way.Z()};
}

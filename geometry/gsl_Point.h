#pragma once

class gsl_Plane;
class gsl_StLine;

/// A point in space, in the deck's length units; the origin at construction.
class gsl_Point
{
public:
  gsl_Point() = default;
  gsl_Point(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}

  /// The weighted point ta * a + tb * b; the weights are not divided by their sum, so that
  /// gsl_Point(q, 2.0, p, -1.0) is p reflected in q.
  gsl_Point(gsl_Point const& a, double ta, gsl_Point const& b, double tb)
    : m_x(ta * a.m_x + tb * b.m_x), m_y(ta * a.m_y + tb * b.m_y), m_z(ta * a.m_z + tb * b.m_z)
  {
  }

  double X() const { return m_x; }
  double Y() const { return m_y; }
  double Z() const { return m_z; }

  void Set(double x, double y, double z)
  {
    m_x = x;
    m_y = y;
    m_z = z;
  }

  /// The foot of the perpendicular on the plane; the point itself when the plane has no normal.
  gsl_Point ProjectOn(gsl_Plane const& plane) const;

  /// The foot of the perpendicular on the line. `parameter` is its distance from the line's first
  /// point, negative behind it. On a line without a direction the foot is the first point, at 0.
  gsl_Point ProjectOn(gsl_StLine const& line, double& parameter) const;

private:
  double m_x = 0.0;
  double m_y = 0.0;
  double m_z = 0.0;
};

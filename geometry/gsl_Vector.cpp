#include "gsl_Vector.h"

#include "gsl_Matrix.h"
#include "gsl_Util.h"
#include "omi_Singleton.h"

#include <cmath>

gsl_Vector::gsl_Vector(gsl_Point const& a, gsl_Point const& b, gsl_Point const& c)
{
  gsl_Vector toB(a, b);
  gsl_Vector toC(a, c);
  if (toB.Normalize() && toC.Normalize())
  {
    *this = toB.CrossProduct(toC);
  }
}

double gsl_Vector::ComputeMagnitude() const
{
  if (m_magnitude == staleMagnitude)
  {
    // hypot is needed only where the squares overflow or vanish.
    double const square = DotProduct(*this);
    bool const isInRange = square > 1.0e-280 && square < 1.0e280;
    m_magnitude = isInRange ? std::sqrt(square) : std::hypot(m_x, m_y, m_z);
  }
  return m_magnitude;
}

bool gsl_Vector::Normalize()
{
  double const magnitude = ComputeMagnitude();
  if (!std::isfinite(magnitude) || omi_Singleton<gsl_Util>::Instance().IsZero(magnitude))
  {
    return false;
  }
  Set(m_x / magnitude, m_y / magnitude, m_z / magnitude);
  m_magnitude = 1.0;
  return true;
}

gsl_Vector gsl_Vector::CrossProduct(gsl_Vector const& other) const
{
  return {m_y * other.m_z - m_z * other.m_y, m_z * other.m_x - m_x * other.m_z,
          m_x * other.m_y - m_y * other.m_x};
}

double gsl_Vector::AngleWith(gsl_Vector const& other, bool ofLines) const
{
  // The arc cosine of the dot product alone would lose half of the digits near 0 and pi.
  double const cosine = DotProduct(other);
  double const sine = CrossProduct(other).ComputeMagnitude();
  return std::atan2(sine, ofLines ? std::abs(cosine) : cosine);
}

void gsl_Vector::Negate()
{
  m_x = -m_x;
  m_y = -m_y;
  m_z = -m_z;
}

void gsl_Vector::RotateAndTransform(gsl_Matrix const& matrix)
{
  gsl_Point tip(m_x, m_y, m_z);
  matrix.Transform(tip);
  Set(tip.X(), tip.Y(), tip.Z());
}

bool operator==(gsl_Vector const& a, gsl_Vector const& b)
{
  gsl_Util const& util = omi_Singleton<gsl_Util>::Instance();
  return util.IsZero(a.X() - b.X()) && util.IsZero(a.Y() - b.Y()) && util.IsZero(a.Z() - b.Z());
}

#pragma once

#include "gsl_Vector.h"

/// A straight line through two points, without ends.
class gsl_StLine
{
public:
  /// Two points that coincide (gsl_Vector::Normalize) make a line without a direction, which is the
  /// point `a`: callers that must not accept it test before.
  gsl_StLine(gsl_Point const& a, gsl_Point const& b);

  gsl_Point const& Point() const { return m_point; }

  /// From a to b, of length 1, or zero.
  gsl_Vector const& Direction() const { return m_direction; }

private:
  gsl_Point m_point;
  gsl_Vector m_direction;
};

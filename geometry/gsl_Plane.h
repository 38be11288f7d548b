#pragma once

#include "gsl_Vector.h"

/// A plane through a point, across a normal.
class gsl_Plane
{
public:
  /// The normal may have any length. One without length (gsl_Vector::Normalize) makes a plane without
  /// a normal, on which every point lies: callers that must not accept it test before.
  gsl_Plane(gsl_Point const& point, gsl_Vector const& normal);

  gsl_Point const& Point() const { return m_point; }

  /// The normal, of length 1, or zero.
  gsl_Vector const& Direction() const { return m_normal; }

private:
  gsl_Point m_point;
  gsl_Vector m_normal;
};

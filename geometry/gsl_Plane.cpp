#include "gsl_Plane.h"

gsl_Plane::gsl_Plane(gsl_Point const& point, gsl_Vector const& normal)
  : m_point(point), m_normal(normal)
{
  if (!m_normal.Normalize())
  {
    m_normal = gsl_Vector();
  }
}

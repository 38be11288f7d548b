#include "gsl_StLine.h"

gsl_StLine::gsl_StLine(gsl_Point const& a, gsl_Point const& b) : m_point(a), m_direction(a, b)
{
  if (!m_direction.Normalize())
  {
    m_direction = gsl_Vector();
  }
}

#include "gsl_Point.h"

#include "gsl_Plane.h"
#include "gsl_StLine.h"

gsl_Point gsl_Point::ProjectOn(gsl_Plane const& plane) const
{
  gsl_Vector const& normal = plane.Direction();
  return *this - normal * gsl_Vector(plane.Point(), *this).DotProduct(normal);
}

gsl_Point gsl_Point::ProjectOn(gsl_StLine const& line, double& parameter) const
{
  parameter = gsl_Vector(line.Point(), *this).DotProduct(line.Direction());
  return line.Point() + line.Direction() * parameter;
}

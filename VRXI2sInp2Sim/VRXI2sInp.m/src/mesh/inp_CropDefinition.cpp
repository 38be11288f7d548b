#include "inp_CropDefinition.h"

#include "inp_Coord.h"
#include "inp_Keyword.h"
#include "inp_RowFields.h"
#include "inp_SurfaceMessages.h"
#include "inp_Utils.h"
#include "omi_Singleton.h"
#include "wip_WIP.h"

namespace
{

constexpr int c_boxRow = 1;
constexpr int c_orientationRow = 2;
constexpr int c_secondPoint = 3;

template <int Places>
bool Warn(inp_Keyword const& keyword, atr_MessageRow<Places> const& row)
{
  cow_String const name = keyword.NameIn("name");
  omi_Singleton<wip_WIP>::Instance().Warning(inp_Utils::PlacedAt(keyword, atr_Say(row, name)));
  return false;
}

} // namespace

inp_CropDefinition::inp_CropDefinition(inp_Keyword const& keyword)
{
  inp_DataArray const& data = keyword.data;
  if (data.Rows() <= c_boxRow || keyword.NameIn("name").Empty())
  {
    return;
  }
  inp_NumberFields fields(keyword);
  origin = fields.Point(c_boxRow, 0);
  gsl_Point const corner = fields.Point(c_boxRow, c_secondPoint);
  extent = gsl_Vector(corner);
  oriented = data.Rows() > c_orientationRow;
  if (oriented)
  {
    extent = gsl_Vector(origin, corner);
  }
  gsl_Vector const a(fields.Point(c_orientationRow, 0));
  gsl_Vector const b(fields.Point(c_orientationRow, c_secondPoint));
  if (fields.Errors().Length() > 0)
  {
    omi_Singleton<wip_WIP>::Instance().ErrorList(fields.Errors(), wip_error);
    return;
  }
  valid = !oriented || Orient(keyword, a, b);
}

// Only `a` has length 1, so that points in one direction are told when `b` has it too.
bool inp_CropDefinition::Orient(inp_Keyword const& keyword, gsl_Vector a, gsl_Vector const& b)
{
  a.Normalize();
  if (a == gsl_Vector() || b == gsl_Vector())
  {
    return Warn(keyword, inp_msgCropPointAtOrigin);
  }
  if (a == b)
  {
    return Warn(keyword, inp_msgCropPointsCoincide);
  }
  if (a.DotProduct(b) == 1.0)
  {
    return Warn(keyword, inp_msgCropPointsCollinear);
  }
  rotation = gsl_Matrix::AxisRotation(gsl_Point(), a.CrossProduct(b), b.AngleWith(a, false));
  return true;
}

bool inp_CropDefinition::IsInBox(inp_Coord const& node) const
{
  gsl_Vector place(node.x, node.y, node.z);
  if (oriented)
  {
    place = gsl_Vector(origin, gsl_Point(node.x, node.y, node.z));
    place.RotateAndTransform(rotation);
  }
  return place.X() >= 0.0 && place.Y() >= 0.0 && place.Z() >= 0.0 && place.X() <= extent.X() &&
         place.Y() <= extent.Y() && place.Z() <= extent.Z();
}

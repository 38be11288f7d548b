#include "gsl_Plane.h"
#include "gsl_StLine.h"
#include "inp_MeshMessages.h"
#include "inp_NodeVisitor.h"
#include "inp_RowFields.h"

#include <numbers>

namespace
{

constexpr double c_radiansOfDegree = std::numbers::pi / 180.0;

gsl_Point Through(gsl_Point const& center, gsl_Point const& point)
{
  return gsl_Point(center, 2.0, point, -1.0);
}

} // namespace

/// What *NCOPY does to a node of the old set; everything in the part's own system.
struct inp_NodeVisitor::Motion
{
  enum kindEnm
  {
    c_shift,
    c_pole,
    c_line,
    c_mirror,
    c_point
  };

  kindEnm kind = c_shift;
  gsl_Point center; ///< the pole, or the point
  gsl_StLine line{gsl_Point(), gsl_Point()};
  gsl_Plane plane{gsl_Point(), gsl_Vector()};
  gsl_Matrix step;  ///< from one copy to the next
  gsl_Matrix shift; ///< of the present copy
  int copies = 1;

  gsl_Point Move(gsl_Point point) const
  {
    double parameter = 0.0;
    switch (kind)
    {
    case c_shift:
      shift.Transform(point);
      return point;
    case c_line:
      return Through(point.ProjectOn(line, parameter), point);
    case c_mirror:
      return Through(point.ProjectOn(plane), point);
    case c_pole:
    case c_point:
      break;
    }
    return Through(center, point);
  }

  // A normal has no place in a pole: it stays, though a point turns it round.
  gsl_Vector Turn(gsl_Vector normal) const
  {
    switch (kind)
    {
    case c_shift:
      shift.Transform(normal);
      break;
    case c_line:
      return ReflectVectorAboutLine(normal, line.Direction());
    case c_mirror:
      return ReflectVectorAboutPlane(normal, plane.Direction());
    case c_point:
      normal.Negate();
      break;
    case c_pole:
      break;
    }
    return normal;
  }

  inp_Coord Copy(inp_Coord const& old) const
  {
    gsl_Point const place = Move(gsl_Point(old.x, old.y, old.z));
    inp_Coord copy(place.X(), place.Y(), place.Z());
    gsl_Vector normal(old.nx, old.ny, old.nz);
    if (normal.Normalize())
    {
      gsl_Vector const turned = Turn(normal);
      copy.AttachNormalComponents(turned.X(), turned.Y(), turned.Z());
    }
    return copy;
  }
};

/// Reads the rows of a reflection. False, with an error, when they define none.
bool inp_NodeVisitor::ReadReflection(inp_Keyword const& keyword, Motion& motion)
{
  cow_String const kind = keyword.GetParameterAsString("reflect", "");
  inp_NumberFields fields(keyword);
  gsl_Point const a = fields.Point(0, 0);
  gsl_Point const b = fields.Point(0, 3);
  gsl_Point const c = fields.Point(1, 0);
  m_errorList.Concatenate(fields.Errors());
  motion.kind = Motion::c_point;
  motion.center = a;
  if (kind == "LINE")
  {
    motion.kind = Motion::c_line;
    motion.line = gsl_StLine(a, b);
    if (!gsl_Vector(motion.line.Direction()).Normalize())
    {
      Say(inp_msgReflectionLineUndefined, keyword);
      return false;
    }
  }
  else if (kind == "MIRROR")
  {
    motion.kind = Motion::c_mirror;
    motion.plane = gsl_Plane(a, gsl_Vector(a, b, c));
    if (!gsl_Vector(motion.plane.Direction()).Normalize())
    {
      Say(inp_msgReflectionPlaneUndefined, keyword);
      return false;
    }
  }
  return true;
}

/// Reads the rows of a shift: a translation, then a rotation. False, with an error, when the rotation
/// has no axis.
bool inp_NodeVisitor::ReadShift(inp_Keyword const& keyword, Motion& motion)
{
  motion.kind = Motion::c_shift;
  motion.copies = keyword.GetParameterAsInt("multiple", 1);
  inp_NumberFields fields(keyword);
  motion.step.SetTranslation(gsl_Vector(fields.Point(0, 0)));
  gsl_Point const a = fields.Point(1, 0);
  gsl_Vector axis(a, fields.Point(1, 3));
  double const degrees = fields.Real(1, 6);
  m_errorList.Concatenate(fields.Errors());
  if (degrees == 0.0)
  {
    return true;
  }
  if (!axis.Normalize())
  {
    Say(inp_msgShiftAxisUndefined, keyword);
    return false;
  }
  motion.step.Concatenate(gsl_Matrix::AxisRotation(a, axis, degrees * c_radiansOfDegree));
  return true;
}

// Only absence is an error: a shift goes before a reflection, and that before a pole.
bool inp_NodeVisitor::ReadMotion(inp_Keyword const& keyword, inp_CoordMap const& map,
                                 Motion& motion)
{
  if (keyword.HasParameter("shift"))
  {
    return ReadShift(keyword, motion);
  }
  if (keyword.HasParameter("reflect"))
  {
    return ReadReflection(keyword, motion);
  }
  motion.kind = Motion::c_pole;
  int const label = inp_IntField(keyword.data, 0, 0);
  if (map.IsMember(label))
  {
    inp_Coord const pole = UndoInstanceTransform(map.ConstGet(label));
    motion.center = gsl_Point(pole.x, pole.y, pole.z);
  }
  else
  {
    inp_NumberFields fields(keyword);
    motion.center = fields.Point(0, 1);
    m_errorList.Concatenate(fields.Errors());
  }
  return true;
}

// *NCOPY rows: POLE node, x, y, z. REFLECT=LINE xA, .. zB; =MIRROR xA, .. zB / xC, yC, zC; =POINT x, y, z.
// SHIFT tx, ty, tz / xA, .. zB, angle.
void inp_NodeVisitor::VisitNcopy(inp_Keyword& keyword)
{
  cow_String const oldName = keyword.NameIn("oldset");
  if (!inp_HasIntegerParameter(keyword, "changenumber") || oldName.Empty())
  {
    Say(inp_msgCopyParametersMissing, keyword);
    return;
  }
  inpM_BaseSet const* const old = FindNodeSet(keyword, oldName);
  if (old == nullptr)
  {
    return;
  }
  if (!keyword.HasParameter("pole") && !keyword.HasParameter("reflect") &&
      !keyword.HasParameter("shift"))
  {
    Say(inp_msgCopyMotionMissing, keyword);
    return;
  }
  inp_CoordMap* const map = TargetMap(keyword);
  Motion motion;
  if (map == nullptr || !ReadMotion(keyword, *map, motion))
  {
    return;
  }
  cow_List<int> const ids = old->ConstGetIds();
  if (!CheckCount(keyword, static_cast<double>(motion.copies) * ids.Length()))
  {
    return;
  }
  long long const change = keyword.GetParameterAsInt("changenumber", 0);
  cow_List<int> labels;
  for (int copy = 1; copy <= motion.copies && ids.Length() > 0; ++copy)
  {
    motion.shift.Concatenate(motion.step);
    for (int const id : ids)
    {
      if (computeGeometry && !map->IsMember(id))
      {
        continue;
      }
      long long const label = id + copy * change;
      if (!CheckLabel(keyword, label) ||
          !Store(keyword, *map, static_cast<int>(label),
                 computeGeometry ? motion.Copy(UndoInstanceTransform(map->ConstGet(id)))
                                 : inp_Coord()))
      {
        return;
      }
      labels.Append(static_cast<int>(label));
    }
  }
  if (labels.Length() > 0)
  {
    AddNodeSet(keyword, "newset", CreateSet(labels, old->SetType(), old->IsUnsorted()));
  }
}

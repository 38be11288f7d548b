#include "gsl_Plane.h"
#include "gsl_StLine.h"
#include "inp_MeshMessages.h"
#include "inp_NodeVisitor.h"
#include "inp_RowFields.h"

#include <numbers>

namespace
{

constexpr double c_radiansOfDegree = std::numbers::pi / 180.0;

/// The point on the other side of the center, as far from it.
gsl_Point Through(gsl_Point const& center, gsl_Point const& point)
{
  return gsl_Point(center, 2.0, point, -1.0);
}

} // namespace

/// What *NCOPY does to a node of the old set; everything in the part's own system.
///
/// A reflection carries a node P through a center M to P', as far behind M as P is in front of it. For a
/// pole and a point M is that point; for a line and a mirror it is the foot of the perpendicular from P.
///
///                     |  mirror
///         P . . . . . M . . . . . P'        P' = 2 M - P
///                     |
///
/// A shift is a translation and then a rotation. Each copy is the one before, shifted once more.
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
  gsl_Matrix shift; ///< from the old node to the copy being made
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

  /// The normal of the copy. A point turns the normal round; a pole, which moves nodes in the same way,
  /// leaves it as it is.
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
    gsl_Point const moved = Move(gsl_Point(old.x, old.y, old.z));
    inp_Coord copy(moved.X(), moved.Y(), moved.Z());
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

/// Where several motions are given, a shift takes precedence over a reflection, and both over a pole. False,
/// with an error, when the rows define no motion.
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

/// Makes the copies of one *NCOPY, copy by copy and in each in the order of the old set.
class inp_NodeVisitor::NodeCopier
{
public:
  NodeCopier(inp_NodeVisitor& visitor, inp_Keyword const& keyword, inp_CoordMap& map,
             Motion const& motion)
    : m_visitor(visitor),
      m_keyword(keyword),
      m_map(map),
      m_motion(motion),
      m_change(keyword.GetParameterAsInt("changenumber", 0))
  {
  }

  /// False, with an error, when a copy cannot be stored.
  bool CopyAll(cow_List<int> const& ids)
  {
    for (int copy = 1; copy <= m_motion.copies && ids.Length() > 0; ++copy)
    {
      m_motion.shift.Concatenate(m_motion.step);
      for (int const id : ids)
      {
        if (!CopyNode(id, id + copy * m_change))
        {
          return false;
        }
      }
    }
    return true;
  }

  cow_List<int> const& Labels() const { return m_labels; }

private:
  /// Members of the set that are no nodes are passed over.
  bool CopyNode(int id, long long label)
  {
    bool const computes = m_visitor.computeGeometry;
    if (computes && !m_map.IsMember(id))
    {
      return true;
    }
    if (!m_visitor.CheckLabel(m_keyword, label) ||
        !m_visitor.Store(m_keyword, m_map, static_cast<int>(label),
                         computes ? Copied(m_map.ConstGet(id)) : inp_Coord()))
    {
      return false;
    }
    m_labels.Append(static_cast<int>(label));
    return true;
  }

  inp_Coord Copied(inp_Coord const& old) const
  {
    return m_motion.Copy(m_visitor.UndoInstanceTransform(old));
  }

  inp_NodeVisitor& m_visitor;
  inp_Keyword const& m_keyword;
  inp_CoordMap& m_map;
  Motion m_motion;
  long long m_change; ///< from the label of a node to that of its first copy, and from copy to copy
  cow_List<int> m_labels;
};

/// The set to copy; null, with an error, when a parameter or the set is missing.
inpM_BaseSet const* inp_NodeVisitor::FindSetToCopy(inp_Keyword const& keyword)
{
  cow_String const oldName = keyword.NameIn("oldset");
  if (!inp_HasIntegerParameter(keyword, "changenumber") || oldName.Empty())
  {
    Say(inp_msgCopyParametersMissing, keyword);
    return nullptr;
  }
  inpM_BaseSet const* const old = FindNodeSet(keyword, oldName);
  bool const hasMotion = keyword.HasParameter("pole") || keyword.HasParameter("reflect") ||
                         keyword.HasParameter("shift");
  if (old != nullptr && !hasMotion)
  {
    Say(inp_msgCopyMotionMissing, keyword);
  }
  return hasMotion ? old : nullptr;
}

// *NCOPY rows: POLE node, x, y, z. REFLECT=LINE xA, .. zB; =MIRROR xA, .. zB / xC, yC, zC; =POINT x, y, z.
// SHIFT tx, ty, tz / xA, .. zB, angle.
void inp_NodeVisitor::VisitNcopy(inp_Keyword& keyword)
{
  inpM_BaseSet const* const old = FindSetToCopy(keyword);
  inp_CoordMap* const map = old != nullptr ? TargetMap(keyword) : nullptr;
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
  NodeCopier copier(*this, keyword, *map, motion);
  if (copier.CopyAll(ids) && copier.Labels().Length() > 0)
  {
    AddNodeSet(keyword, "newset", CreateSet(copier.Labels(), old->SetType(), old->IsUnsorted()));
  }
}

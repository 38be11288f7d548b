#include "inp_MeshMessages.h"
#include "inp_NodeVisitor.h"
#include "inp_RowFields.h"

#include <cmath>
#include <numbers>

namespace
{

constexpr double c_noRadius = 1e-16;
constexpr double c_noAngle = 1e-6;
constexpr double c_straightAngle = 3.141591653589793;
constexpr double c_mostRadialDifference = 0.1;
constexpr double c_quarterTurn = 1.5707963267948966;

gsl_Vector Position(inp_Coord const& coord) { return {coord.x, coord.y, coord.z}; }
gsl_Vector NormalOf(inp_Coord const& coord) { return {coord.nx, coord.ny, coord.nz}; }
gsl_Point PointOf(inp_Coord const& coord) { return {coord.x, coord.y, coord.z}; }

inp_Coord At(gsl_Vector const& position) { return {position.X(), position.Y(), position.Z()}; }

enum shapeEnm
{
  c_straight,
  c_circle,
  c_parabola
};

shapeEnm ShapeOf(inp_Keyword const& keyword)
{
  cow_String const line = keyword.GetParameterAsString("line", "");
  return line == "C" ? c_circle : line == "P" ? c_parabola : c_straight;
}

} // namespace

/// A row of *NGEN as points and directions, all where the current instance stands.
///
/// Nodes stand at equal steps of t, which runs from -1 at A to 1 at B:
///
///     straight   A --.--.--.-- B     the point that divides AB by t
///
///     circle           . . B         C + radius * (u cos alpha + v sin alpha), alpha from 0 at A: u is the
///                   .    / e         way from C to A, w the axis, and v = w x u the way on which the arc
///                  A -- C            sets out from A
///                     u
///     parabola   A  .  C  .  B       the quadratic curve through A, C and B; C, at t = 0, is on the curve
struct inp_NodeVisitor::Arc
{
  shapeEnm shape = c_straight;
  gsl_Vector a, b, c;      ///< ends and third point
  bool hasNormals = false; ///< both ends have one
  gsl_Vector normalA, normalB;
  gsl_Vector direction; ///< the normal that the row gives; zero when it gives none
  double radius = 0.0;
  double angle = 0.0;
  gsl_Vector u, v, w, e; ///< as CircleData gives them

  /// The node at t, which runs from -1 at A to 1 at B.
  inp_Coord NodeAt(double t) const
  {
    double const alpha = 0.5 * (t + 1.0) * angle;
    inp_Coord node = At(PositionAt(t, alpha));
    if (hasNormals)
    {
      gsl_Vector const normal = shape == c_circle
                                  ? NormalOnCircle(t, alpha)
                                  : 0.5 * ((t + 1.0) * normalB - (t - 1.0) * normalA);
      node.AttachNormalComponents(normal.X(), normal.Y(), normal.Z());
    }
    node.ZeroSmallerThanTolerance();
    return node;
  }

  gsl_Vector PositionAt(double t, double alpha) const
  {
    switch (shape)
    {
    case c_circle:
      return c + radius * (std::cos(alpha) * u + std::sin(alpha) * v);
    case c_parabola:
      return (t - 1.0) * (0.5 * t) * a - (t + 1.0) * (t - 1.0) * c + (t + 1.0) * (0.5 * t) * b;
    case c_straight:
      break;
    }
    return 0.5 * ((t + 1.0) * b - (t - 1.0) * a);
  }

  /// The part along the axis changes evenly from the normal at A to that at B. The part in the plane turns
  /// with the radius; its factor on v makes it that of B where the arc is a quarter turn.
  gsl_Vector NormalOnCircle(double t, double alpha) const
  {
    double const radialA = normalA.DotProduct(u);
    double const axialA = normalA.DotProduct(w);
    double const radialB = normalB.DotProduct(e);
    double const axialB = normalB.DotProduct(w);
    double const turned = ((radialB - radialA) * c_quarterTurn + radialA * angle) / angle;
    return 0.5 * ((1.0 - t) * axialA + (1.0 + t) * axialB) * w + turned * std::sin(alpha) * v +
           radialA * std::cos(alpha) * u;
  }
};

bool inp_NodeVisitor::CircleData(inp_Keyword const& keyword, gsl_Point const& a, gsl_Point const& b,
                                 gsl_Point const& c, gsl_Vector const& normal, double& radius,
                                 double& angle, gsl_Vector& u, gsl_Vector& v, gsl_Vector& w,
                                 gsl_Vector& e)
{
  u = gsl_Vector(c, a);
  e = gsl_Vector(c, b);
  double const radiusA = u.ComputeMagnitude();
  double const radiusB = e.ComputeMagnitude();
  if (!(radiusA >= c_noRadius) || !(radiusB >= c_noRadius))
  {
    Say(inp_msgArcEndAtCenter, keyword);
    return false;
  }
  radius = 0.5 * (radiusA + radiusB);
  if (std::abs(radiusA - radiusB) / radius > c_mostRadialDifference)
  {
    Say(inp_msgArcRadiiDiffer, keyword);
  }
  u.Scale(1.0 / radiusA);
  e.Scale(1.0 / radiusB);
  double const cosine = u.DotProduct(e);
  angle = cosine <= -1.0 ? std::numbers::pi : cosine >= 1.0 ? 0.0 : std::acos(cosine);
  w = u.CrossProduct(e);
  if (normal.ComputeMagnitude() == 0.0)
  {
    if (angle < c_noAngle || angle > c_straightAngle)
    {
      Say(inp_msgArcNormalNeeded, keyword);
      return false;
    }
  }
  else
  {
    bool const isOpposed = normal.DotProduct(w) < 0.0;
    angle = angle < c_noAngle ? 2.0 * std::numbers::pi
            : isOpposed       ? 2.0 * std::numbers::pi - angle
                              : angle;
    w = normal;
  }
  w.Normalize();
  v = w.CrossProduct(u);
  return true;
}

// *NGEN row: first, last[, step[, third[, x, y, z[, nx, ny, nz]]]]
void inp_NodeVisitor::VisitNgen(inp_Keyword& keyword)
{
  inp_CoordMap* const map = TargetMap(keyword);
  if (map == nullptr)
  {
    return;
  }
  cow_List<int> labels;
  for (int row = 0; row < keyword.data.Rows(); ++row)
  {
    if (!GenerateRow(keyword, row, *map, labels))
    {
      return;
    }
  }
  if (labels.Length() > 0)
  {
    AddNodeSet(keyword, "nset", CreateSet(labels));
  }
}

void inp_NodeVisitor::CreateMissingNode(inp_Keyword const& keyword, inp_CoordMap& map, int label)
{
  if (!map.IsMember(label))
  {
    Say(inp_msgNodeMissing, keyword, label);
    map.Insert(label, inp_Coord());
  }
}

/// Generates the nodes of a row. False when the keyword is to end.
bool inp_NodeVisitor::GenerateRow(inp_Keyword const& keyword, int row, inp_CoordMap& map,
                                  cow_List<int>& labels)
{
  inp_DataArray const& data = keyword.data;
  if (data.Cols(row) < 2)
  {
    Say(inp_msgNgenRowInvalid, keyword, inp_RowText(data, row));
    return false;
  }
  inp_NumberFields fields(keyword);
  int const first = fields.Integer(row, 0);
  int const last = fields.Integer(row, 1);
  int const given = fields.Integer(row, 2);
  m_errorList.Concatenate(fields.Errors());
  if (fields.Errors().Length() > 0)
  {
    return true; // the next row follows
  }
  if (!CheckLabel(keyword, first) || !CheckLabel(keyword, last))
  {
    return false;
  }
  if (computeGeometry)
  {
    CreateMissingNode(keyword, map, first);
    CreateMissingNode(keyword, map, last);
  }
  int const step = given != 0 ? given : 1;
  if (first == last || (last - first) % step != 0)
  {
    Say(inp_msgNodesCannotBeGenerated, keyword, first, last, step);
    return false;
  }
  int const count = (last - first) / step;
  if (count < 0)
  {
    Say(inp_msgNodesDescend, keyword, first, last, step);
    return true;
  }
  Arc arc;
  if (!CheckCount(keyword, count) || (computeGeometry && !ReadArc(keyword, row, map, arc)))
  {
    return false;
  }
  labels.Append(first);
  if (!StoreOnArc(keyword, map, arc, first, step, count, labels))
  {
    return false;
  }
  labels.Append(last);
  return true;
}

/// Stores the nodes between the ends, which part the way into `count` equal pieces.
bool inp_NodeVisitor::StoreOnArc(inp_Keyword const& keyword, inp_CoordMap& map, Arc const& arc,
                                 int first, int step, int count, cow_List<int>& labels)
{
  for (int i = 1; i < count; ++i)
  {
    labels.Append(first + i * step);
    if (!StoreArcPoint(keyword, map, arc, labels.Last(), 2.0 * i / count - 1.0))
    {
      return false;
    }
  }
  return true;
}

/// Stores the node of a row at t, which runs from -1 at the first end to 1 at the other.
bool inp_NodeVisitor::StoreArcPoint(inp_Keyword const& keyword, inp_CoordMap& map, Arc const& arc,
                                    int label, double t)
{
  return Store(keyword, map, label,
               computeGeometry ? UndoInstanceTransform(arc.NodeAt(t)) : inp_Coord());
}

/// Reads what lies between the ends of a row. False, with an error, when it cannot be drawn.
bool inp_NodeVisitor::ReadArc(inp_Keyword const& keyword, int row, inp_CoordMap const& map,
                              Arc& arc)
{
  inp_DataArray const& data = keyword.data;
  inp_Coord const a = map.ConstGet(data.AsInt(row, 0));
  inp_Coord const b = map.ConstGet(data.AsInt(row, 1));
  arc.a = Position(a);
  arc.b = Position(b);
  arc.normalA = NormalOf(a);
  arc.normalB = NormalOf(b);
  arc.hasNormals = arc.normalA.Normalize() && arc.normalB.Normalize();
  arc.shape = ShapeOf(keyword);
  if (keyword.GetParameterAsString("line", "").Empty())
  {
    return true;
  }
  inp_NumberFields fields(keyword);
  if (!ReadThirdPoint(keyword, row, map, fields, arc))
  {
    return false;
  }
  gsl_Vector direction(fields.Point(row, 7));
  m_errorList.Concatenate(fields.Errors());
  if (direction.Normalize())
  {
    systemTransform.Transform(direction);
    arc.direction = direction;
  }
  return arc.shape != c_circle ||
         CircleData(keyword, PointOf(a), PointOf(b), PointOf(At(arc.c)), arc.direction, arc.radius,
                    arc.angle, arc.u, arc.v, arc.w, arc.e);
}

/// The centre of a circle, or the middle of a parabola: a node, or coordinates. False, with an error, when
/// the node does not exist.
bool inp_NodeVisitor::ReadThirdPoint(inp_Keyword const& keyword, int row, inp_CoordMap const& map,
                                     inp_NumberFields& fields, Arc& arc)
{
  int const third = inp_IntField(keyword.data, row, 3);
  if (third != 0)
  {
    if (!map.IsMember(third))
    {
      Say(inp_msgNodeMissing, keyword, third);
      return false;
    }
    arc.c = Position(map.ConstGet(third));
  }
  else if (keyword.data.Cols(row) >= 5)
  {
    gsl_Point const point = fields.Point(row, 4);
    cow_String const system = keyword.GetParameterAsString("system", "RC");
    arc.c = Position(
      ApplyInstanceTransform(InSystem(inp_Coord(point.X(), point.Y(), point.Z()), system)));
  }
  return true;
}

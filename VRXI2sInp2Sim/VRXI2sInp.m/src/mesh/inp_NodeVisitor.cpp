#include "inp_NodeVisitor.h"

#include "inpM_LabelRange.h"
#include "inp_MeshMessages.h"
#include "inp_NodeDataArrayImpl.h"
#include "inp_RecordMessages.h"
#include "inp_RowFields.h"
#include "mem_Budget.h"

#include <algorithm>
#include <cmath>

namespace
{

/// The most nodes that the generators of a walk may make, some 4 GiB of them: a few short rows can ask for
/// more than any memory holds.
constexpr int c_mostGenerated = mem_Budget(50000000);

gsl_Point PointOf(inp_Coord const& coord) { return {coord.x, coord.y, coord.z}; }

void SetPoint(inp_Coord& coord, gsl_Point const& point)
{
  coord.x = point.X();
  coord.y = point.Y();
  coord.z = point.Z();
}

bool IsFinite(inp_Coord const& coord)
{
  return std::isfinite(coord.x) && std::isfinite(coord.y) && std::isfinite(coord.z);
}

/// Rows that have been turned into numbers.
struct TypedRows
{
  inp_NodeDataArrayImpl const& rows;

  int Label(int row) const { return rows.Label(row); }
  cow_String LabelText(int row) const { return cow_String(Label(row)); }
  void GetValues(int row, double (&values)[inp_NodeDataArrayImpl::c_values]) const
  {
    std::copy_n(rows.RowValues(row), inp_NodeDataArrayImpl::c_values, values);
  }
};

/// Rows that are still text: they were not turned into numbers, or could not be.
struct TextRows
{
  inp_DataArray const& rows;

  int Label(int row) const { return inp_IntField(rows, row, 0); }
  cow_String LabelText(int row) const { return rows.AsString(row, 0); }
  void GetValues(int row, double (&values)[inp_NodeDataArrayImpl::c_values]) const
  {
    for (int i = 0; i < inp_NodeDataArrayImpl::c_values; ++i)
    {
      values[i] = inp_RealField(rows, row, i + 1);
    }
  }
};

} // namespace

inp_NodeVisitor::inp_NodeVisitor(bool itComputesGeometry) : computeGeometry(itComputesGeometry) {}

inp_NodeVisitor::inp_NodeVisitor(inpM_InstanceMap<inp_MapInt2Element> const& itsElements,
                                 inpM_SetMap const& itsElementSets, inpM_SetMap const& workingSets,
                                 bool itComputesGeometry)
  : inp_SetVisitor(workingSets),
    elements(itsElements),
    elementSets(itsElementSets),
    hasAssemblySets(!workingSets.IsEmpty()),
    computeGeometry(itComputesGeometry)
{
}

inp_CoordMap* inp_NodeVisitor::TargetMap(inp_Keyword const& keyword)
{
  cow_String const& name = MeshScope();
  if (name.Empty())
  {
    return &coordMap;
  }
  if (coordMap.IsMember(name))
  {
    return &coordMap.Get(name);
  }
  Say(inp_msgNodesOfUnknownInstance, keyword, name);
  return nullptr;
}

void inp_NodeVisitor::AddNodeSet(inp_Keyword const& keyword, char const* parameter,
                                 inpM_SetHandle const& set)
{
  if (keyword.HasParameter(parameter))
  {
    MergeSet(keyword, keyword.NameIn(parameter), set);
  }
}

bool inp_NodeVisitor::CheckLabel(inp_Keyword const& keyword, long long label)
{
  bool const isLabel = inpM_IsLabel(label);
  if (!isLabel)
  {
    Say(inp_msgGeneratedLabelOutOfRange, keyword, std::to_string(label).c_str());
  }
  return isLabel;
}

bool inp_NodeVisitor::CheckCount(inp_Keyword const& keyword, double count)
{
  if (m_generated + count > c_mostGenerated)
  {
    Say(inp_msgTooManyNodesGenerated, keyword, cow_String(c_mostGenerated));
    return false;
  }
  m_generated += count;
  return true;
}

/// Refuses sets too large to copy into a list.
bool inp_NodeVisitor::CheckListed(inp_Keyword const& keyword, inpM_BaseSet const& set)
{
  bool const fits = set.CountIds() <= c_mostGenerated;
  if (!fits)
  {
    Say(inp_msgTooManyNodesGenerated, keyword, cow_String(c_mostGenerated));
  }
  return fits;
}

bool inp_NodeVisitor::Store(inp_Keyword const& keyword, inp_CoordMap& map, int label,
                            inp_Coord const& coord)
{
  bool const isFinite = IsFinite(coord);
  if (isFinite)
  {
    map.Insert(label, coord);
  }
  else
  {
    Say(inp_msgNodeCoordinatesInvalid, keyword, " " + cow_String(label));
  }
  return isFinite;
}

gsl_Point inp_NodeVisitor::ReadPointFromKeywordData(inp_Keyword const& keyword, int row, int column)
{
  return inp_NumberFields(keyword).Point(row, column);
}

gsl_Point inp_NodeVisitor::ReadNodeFromKeywordData(inp_Keyword const& keyword,
                                                   cow_String const& instanceName, int row,
                                                   int column) const
{
  int const label = inp_IntField(keyword.data, row, column);
  bool const isOwn = instanceName.Empty();
  if (!isOwn && !coordMap.IsMember(instanceName))
  {
    return {};
  }
  inp_CoordMap const& map = isOwn ? coordMap : coordMap.ConstGet(instanceName);
  return PointOf(map.ConstGet(label, inp_Coord()));
}

inp_Coord inp_NodeVisitor::ApplyInstanceTransform(inp_Coord const& coord) const
{
  inp_Coord moved = coord;
  gsl_Point point = PointOf(coord);
  instanceTransform.Transform(point);
  SetPoint(moved, point);
  return moved;
}

inp_Coord inp_NodeVisitor::UndoInstanceTransform(inp_Coord const& coord) const
{
  inp_Coord moved = coord;
  moved.Transform(instanceTransform.InverseRigidTransform());
  return moved;
}

gsl_Vector inp_NodeVisitor::ReflectVectorAboutLine(gsl_Vector const& vector,
                                                   gsl_Vector const& direction)
{
  return 2.0 * vector.DotProduct(direction) * direction - vector;
}

gsl_Vector inp_NodeVisitor::ReflectVectorAboutPlane(gsl_Vector const& vector,
                                                    gsl_Vector const& normal)
{
  return vector - 2.0 * vector.DotProduct(normal) * normal;
}

gsl_Vector inp_NodeVisitor::MatrixVectorMultiply3x3(double const (&matrix)[3][3],
                                                    gsl_Vector const& vector)
{
  double product[3];
  for (int i = 0; i < 3; ++i)
  {
    product[i] = matrix[i][0] * vector.X() + matrix[i][1] * vector.Y() + matrix[i][2] * vector.Z();
  }
  return {product[0], product[1], product[2]};
}

// *SYSTEM rows: xA, yA, zA, xB, yB, zB / xC, yC, zC. A is the origin, B lies on the x-axis and C on the
// positive side of it in the xy-plane; without C the z-axis stays, without B the axes do.
void inp_NodeVisitor::VisitSystem(inp_Keyword& keyword)
{
  systemTransform.FillIdentity();
  if (keyword.data.Rows() == 0)
  {
    return;
  }
  inp_NumberFields fields(keyword);
  gsl_Point const a = fields.Point(0, 0);
  gsl_Point const b = fields.Point(0, 3);
  gsl_Point const c = fields.Point(1, 0);
  m_errorList.Concatenate(fields.Errors());
  systemTransform.SetTranslation(gsl_Vector(a));
  bool const hasPlane = keyword.data.Rows() > 1;
  if (!hasPlane && gsl_Vector(b) == gsl_Vector())
  {
    return;
  }
  gsl_Vector x(a, b);
  if (!x.Normalize())
  {
    Say(inp_msgXAxisUndefined, keyword);
  }
  if (hasPlane)
  {
    SetSystemInPlane(keyword, x, gsl_Vector(a, c));
  }
  else
  {
    SetSystemAboutZ(keyword, x);
  }
}

/// The z-axis is normal to the plane of both directions, and x stays.
void inp_NodeVisitor::SetSystemInPlane(inp_Keyword const& keyword, gsl_Vector const& x,
                                       gsl_Vector inPlane)
{
  if (!inPlane.Normalize())
  {
    Say(inp_msgYAxisUndefined, keyword);
  }
  gsl_Vector z = x.CrossProduct(inPlane);
  if (!z.Normalize())
  {
    Say(inp_msgXAndYAxesParallel, keyword);
  }
  systemTransform.SetRotationVectors(x, z.CrossProduct(x), z);
}

/// The z-axis stays, and x is turned into the plane that is normal to it.
void inp_NodeVisitor::SetSystemAboutZ(inp_Keyword const& keyword, gsl_Vector const& x)
{
  gsl_Vector const z(0.0, 0.0, 1.0);
  gsl_Vector y = z.CrossProduct(x);
  if (!y.Normalize())
  {
    Say(inp_msgXAndZAxesParallel, keyword);
  }
  systemTransform.SetRotationVectors(y.CrossProduct(z), y, z);
}

/// Turns what a row gives, in a rectangular, cylindrical or spherical system that may stand in a local one,
/// into rectangular coordinates of the part. Without a local system a rectangular position stays as it is,
/// bit for bit.
inp_Coord inp_NodeVisitor::InSystem(inp_Coord coord, cow_String const& system) const
{
  if (system == "C")
  {
    coord.Cylindrical2Rectangular();
  }
  else if (system == "S")
  {
    coord.Spherical2Rectangular();
  }
  if (coord.nx != 0.0 || coord.ny != 0.0 || coord.nz != 0.0)
  {
    coord.NormalizePlusRotate(systemTransform);
  }
  if (!systemTransform.IsIdentity())
  {
    gsl_Point point = PointOf(coord);
    systemTransform.Transform(point);
    SetPoint(coord, point);
    coord.ZeroSmallerThanTolerance();
  }
  return coord;
}

/// Reads the rows of one *NODE and stores its nodes. Rows that cannot be stored are reported and left out.
///
/// `Rows` tells how a row is read: Label, LabelText and GetValues, as TypedRows and TextRows have them.
template <class Rows>
class inp_NodeVisitor::NodeReader
{
public:
  NodeReader(inp_NodeVisitor& visitor, inp_Keyword const& keyword, Rows const& rows)
    : m_visitor(visitor),
      m_keyword(keyword),
      m_rows(rows),
      m_system(keyword.GetParameterAsString("system", "R")),
      m_isAsGiven(m_system != "C" && m_system != "S" && visitor.systemTransform.IsIdentity()),
      m_isNamed(keyword.HasParameter("nset"))
  {
  }

  void ReadRow(int row)
  {
    int const label = m_rows.Label(row);
    double values[inp_NodeDataArrayImpl::c_values] = {};
    if (label >= 1 && ReadValues(row, label, values))
    {
      if (m_isNamed)
      {
        m_labels.Append(label);
      }
      Store(label, {values[0], values[1], values[2], values[3], values[4], values[5]});
    }
  }

  void Finish()
  {
    if (m_labels.Length() > 0)
    {
      m_visitor.MergeSet(m_keyword, m_keyword.NameIn("nset"), CreateSet(m_labels));
    }
  }

private:
  using Values = double[inp_NodeDataArrayImpl::c_values];

  bool ReadValues(int row, int label, Values& values)
  {
    if (m_visitor.computeGeometry)
    {
      m_rows.GetValues(row, values);
    }
    if (label > inpM_largestLabel)
    {
      m_visitor.Say(inp_msgNodeLabelTooLong, m_keyword, m_rows.LabelText(row));
      return false;
    }
    if (!std::all_of(values, values + 6, [](double value) { return std::isfinite(value); }))
    {
      m_visitor.Say(inp_msgNodeCoordinatesInvalid, m_keyword, " " + m_rows.LabelText(row));
      return false;
    }
    return true;
  }

  void Store(int label, inp_Coord const& coord)
  {
    if (!m_isMapKnown)
    {
      m_map = m_visitor.TargetMap(m_keyword);
      m_isMapKnown = true;
    }
    if (m_map != nullptr)
    {
      bool const hasNormal = coord.nx != 0.0 || coord.ny != 0.0 || coord.nz != 0.0;
      bool const stays = !m_visitor.computeGeometry || (m_isAsGiven && !hasNormal);
      m_visitor.Store(m_keyword, *m_map, label,
                      stays ? coord : m_visitor.InSystem(coord, m_system));
    }
  }

  inp_NodeVisitor& m_visitor;
  inp_Keyword const& m_keyword;
  Rows m_rows;
  cow_String m_system;
  bool m_isAsGiven; ///< coordinates are rectangular and in the part's own system
  bool m_isNamed;   ///< the nodes go into a set
  // Looked for at the first node, so that a keyword without nodes says nothing of a missing map.
  inp_CoordMap* m_map = nullptr;
  bool m_isMapKnown = false;
  cow_List<int> m_labels; ///< for the set
};

template <class Rows>
void inp_NodeVisitor::ReadNodes(inp_Keyword const& keyword, Rows const& rows)
{
  NodeReader<Rows> reader(*this, keyword, rows);
  int const count = keyword.data.Rows();
  for (int row = 0; row < count; ++row)
  {
    reader.ReadRow(row);
  }
  reader.Finish();
}

// *NODE row: label[, x, y, z[, nx, ny, nz]]
void inp_NodeVisitor::VisitNode(inp_Keyword& keyword)
{
  if (auto const* const typed = dynamic_cast<inp_NodeDataArrayImpl const*>(&keyword.data.Impl()))
  {
    ReadNodes(keyword, TypedRows{*typed});
  }
  else
  {
    ReadNodes(keyword, TextRows{keyword.data});
  }
}

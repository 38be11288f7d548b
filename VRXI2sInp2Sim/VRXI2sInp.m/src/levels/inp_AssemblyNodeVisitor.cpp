#include "inp_AssemblyNodeVisitor.h"

#include "inp_KeywordEnm.h"
#include "inp_LevelMessages.h"
#include "inp_NodeNumbers.h"
#include "inp_RowFields.h"

#include <numbers>

namespace
{

constexpr int c_secondPoint = 3;
constexpr int c_angle = 6;
constexpr double c_radians = std::numbers::pi / 180.0;

bool HasRow(inp_DataArray const& data, int row)
{
  bool hasValue = false;
  for (int column = 0; row < data.Rows() && column < data.Cols(row) && !hasValue; ++column)
  {
    hasValue = data.HasValue(row, column);
  }
  return hasValue;
}

} // namespace

inp_AssemblyNodeVisitor::inp_AssemblyNodeVisitor(inp_LevelMaps const& known,
                                                 inp_PartMaps const& parts, bool itComputesGeometry)
  : inp_NodeVisitor(known.elements, known.elsets, known.nsets, itComputesGeometry),
    m_partCoordMap(parts.nodes),
    m_partNodeSets(parts.nsets)
{
  reportBlended = true;
}

void inp_AssemblyNodeVisitor::Visit(inp_Keyword& keyword)
{
  if (!keyword.Is(inp_kwPart))
  {
    inp_NodeVisitor::Visit(keyword);
  }
}

bool inp_AssemblyNodeVisitor::IsValidInstanceName(cow_String const& name) const
{
  return m_instanceName.Empty() ? IsInstance(name) : name == m_instanceName;
}

void inp_AssemblyNodeVisitor::FinishNodeSets(inp_NodeNumbers& numbers)
{
  m_numbers = &numbers;
  inp_NodeVisitor::FinishNodeSets();
  m_numbers = nullptr;
}

inp_NodeVisitor::NodePlace inp_AssemblyNodeVisitor::PlaceOfAssemblyNode(int node)
{
  auto const [instanceName, label] = m_numbers->PlaceOf(node);
  return {instanceName, label};
}

void inp_AssemblyNodeVisitor::VisitInstance(inp_Keyword& keyword)
{
  SetInstanceName(keyword);
  systemTransform.FillIdentity();
  instanceTransform.FillIdentity();
  ReadPosition(keyword);
  if (m_instanceName.Empty())
  {
    return;
  }
  if (m_partNodeSets.HasInstance(m_instancePart))
  {
    sets.InsertNestedSetMap(m_instanceName, m_partNodeSets.ConstGetNestedSetMap(m_instancePart));
  }
  inp_CoordMap coords = m_partCoordMap.IsMember(m_instancePart)
                          ? m_partCoordMap.ConstGet(m_instancePart)
                          : inp_CoordMap();
  if (!instanceTransform.IsIdentity())
  {
    coords.Transform(instanceTransform);
  }
  coordMap.Insert(m_instanceName, coords);
  m_instancePositions.Insert(m_instanceName, instanceTransform);
}

// *INSTANCE rows: x, y, z; xa, ya, za, xb, yb, zb, angle
void inp_AssemblyNodeVisitor::ReadPosition(inp_Keyword const& keyword)
{
  if (HasRow(keyword.data, 0))
  {
    inp_NumberFields fields(keyword);
    instanceTransform.SetTranslation(gsl_Vector(fields.Point(0, 0)));
    m_errorList.Concatenate(fields.Errors());
  }
  if (HasRow(keyword.data, 1))
  {
    ReadRotation(keyword);
  }
}

// What cannot be read as a whole turns nothing.
void inp_AssemblyNodeVisitor::ReadRotation(inp_Keyword const& keyword)
{
  inp_NumberFields fields(keyword);
  gsl_Point const a = fields.Point(1, 0);
  gsl_Vector axis(a, fields.Point(1, c_secondPoint));
  double const angle = fields.Real(1, c_angle) * c_radians;
  if (fields.Errors().Length() > 0)
  {
    m_errorList.Concatenate(fields.Errors());
  }
  else if (!axis.Normalize())
  {
    Say(inp_msgInstanceAxisUndefined, keyword);
  }
  else if (!keyword.data.HasValue(1, c_angle))
  {
    Say(inp_msgInstanceAngleMissing, keyword);
  }
  else
  {
    instanceTransform.Concatenate(gsl_Matrix::AxisRotation(a, axis, angle));
  }
}

void inp_AssemblyNodeVisitor::VisitEndInstance(inp_Keyword& keyword)
{
  DefaultAction(keyword);
  ClearInstanceName();
  instanceTransform.FillIdentity();
  systemTransform.FillIdentity();
}

/// An instance leaves the sets of its part as they are.
bool inp_AssemblyNodeVisitor::MayChangeSet(inp_Keyword const& keyword, cow_String const& name)
{
  bool const isOfPart = m_instanceName.Length() > 0 && m_instancePart.Length() > 0 &&
                        m_partNodeSets.HasNestedSet(m_instancePart, name);
  if (isOfPart)
  {
    Say(inp_msgNodeSetOfPartRedefined, keyword, name, m_instancePart, m_instanceName);
  }
  return !isOfPart;
}

#include "inp_ElementGeneration.h"

#include "inpM_LabelRange.h"
#include "inp_ElementFamily.h"
#include "inp_ElementInfo.h"

#include <algorithm>

namespace
{

constexpr int c_nodesOfElbowSection = 2;
constexpr int c_nodesOfGasketFaces = 16;

bool IsElbow(inp_Element const& element) { return element.type().View().starts_with("ELBOW"); }

bool HasOrientationNode(inp_Element const& element)
{
  std::string_view const type = element.type().View();
  if (!type.starts_with("B") && !type.starts_with("PIPE"))
  {
    return false;
  }
  inp_ElementInfo const* const info = inp_ElementInfo::elementInfo(element.type());
  return info != nullptr && element.numNodesPerElement() > info->minNodes;
}

} // namespace

int inp_ElementGeneration::Read(inp_DataArray const& data, int row)
{
  int const fields = std::min(data.Cols(row), c_fields);
  for (int field = 0; field < fields; ++field)
  {
    inp_Types::typeEnm const type = data.Type(row, field);
    if (type == inp_Types::inp_NONE)
    {
      continue;
    }
    if (type != inp_Types::inp_INTEGER)
    {
      return field + 1;
    }
    int const value = data.AsInt(row, field);
    int const direction = (field - 1) / 3;
    if (field == 0)
    {
      master = value;
    }
    else
    {
      ((field - 1) % 3 == 0   ? counts
       : (field - 1) % 3 == 1 ? nodeShifts
                              : elementShifts)[direction] = value;
    }
  }
  counts[1] = std::max<std::int64_t>(counts[1], 1);
  counts[2] = std::max<std::int64_t>(counts[2], 1);
  return 0;
}

// Fields have at most nine digits, so each product is below 10^18 and the sum of three fits into 64 bits.
inp_ElementGeneration::Range
inp_ElementGeneration::Reach(std::int64_t const (&shifts)[c_directions], std::int64_t start) const
{
  Range range{start, start};
  for (int direction = 0; direction < c_directions; ++direction)
  {
    std::int64_t const end = (counts[direction] - 1) * shifts[direction];
    (end < 0 ? range.lowest : range.highest) += end;
  }
  return range;
}

inp_ElementGeneration::Range inp_ElementGeneration::Labels() const
{
  return Reach(elementShifts, master);
}

inp_ElementGeneration::Range inp_ElementGeneration::NodeShift() const
{
  return Reach(nodeShifts, 0);
}

std::int64_t inp_ElementGeneration::Elements() const
{
  std::int64_t elements = counts[0];
  for (std::int64_t const count : {counts[1], counts[2]})
  {
    elements = std::min<std::int64_t>(elements * count, c_mostElements + 1);
  }
  return std::min<std::int64_t>(elements, c_mostElements + 1);
}

inp_Element inp_AsGiven(inp_Element const& element)
{
  inp_Element copy(element);
  if (!inp_IsGasketWithMidsideNodes(element.type()) || element.nodeOffset() > 0)
  {
    return copy;
  }
  // With SOLID ELEMENT NUMBERING the row gives the nodes of a solid element: none for the gasket's middle.
  int const given = element.solidElementNumbering() > 0 ? 0 : element.numNodesDefined();
  int const nodes = element.numNodesPerElement();
  for (int node = std::max(given, c_nodesOfGasketFaces); node < nodes; ++node)
  {
    copy.topology()[node] = 0;
  }
  return copy;
}

bool inp_IsBlankRow(inp_DataArray const& data, int row)
{
  int const columns = data.Cols(row);
  return columns == 0 || (columns == 1 && data.IsNone(row, 0));
}

int inp_MovableNodesInGeneration(inp_Element const& element, bool allNodes)
{
  int const nodes = element.numNodesPerElement();
  int const fixed = IsElbow(element)              ? (allNodes ? 0 : c_nodesOfElbowSection)
                    : HasOrientationNode(element) ? 1
                                                  : 0;
  return std::max(nodes - fixed, 0);
}

int inp_MovableNodesInCopy(inp_Element const& element)
{
  return std::max(element.numNodesPerElement() - (IsElbow(element) ? c_nodesOfElbowSection : 0), 0);
}

bool inp_ShiftNodes(inp_Element& element, int count, std::int64_t shift)
{
  int* const nodes = element.topology();
  for (int i = 0; i < count; ++i)
  {
    std::int64_t const node = nodes[i] + shift;
    if (nodes[i] > 0 && !inpM_IsLabel(node))
    {
      return false;
    }
  }
  for (int i = 0; i < count; ++i)
  {
    nodes[i] += nodes[i] > 0 ? static_cast<int>(shift) : 0;
  }
  return true;
}

#include "inpM_LabelRange.h"
#include "inp_ElementGeneration.h"
#include "inp_ElementMessages.h"
#include "inp_ElementReflection.h"
#include "inp_ElementVisitor.h"
#include "inp_MeshMessages.h"
#include "inp_RowFields.h"

#include <algorithm>
#include <string>

namespace
{

constexpr int c_nodesOfLargeElement = 32;

cow_String LabelText(std::int64_t label)
{
  return cow_String(std::string_view(std::to_string(label)));
}

inp_Element const* FindElement(inp_MapInt2Element const& map, int label)
{
  return map.GetEltPtr(label);
}

/// The smallest and the largest of the nodes that move; 1 and 0 when none does.
inp_ElementGeneration::Range RangeOfNodes(inp_Element const& element, int movable)
{
  inp_ElementGeneration::Range range{inpM_largestLabel + 1, 0};
  for (int i = 0; i < movable; ++i)
  {
    std::int64_t const node = element.topology()[i];
    if (node > 0)
    {
      range.lowest = std::min(range.lowest, node);
      range.highest = std::max(range.highest, node);
    }
  }
  return range;
}

} // namespace

// *ELGEN row: master, count, node shift, element shift, and the last three again for the second and
// for the third direction.
void inp_ElementVisitor::VisitElgen(inp_Keyword& keyword)
{
  cow_List<int> labels;
  for (int row = 0; row < keyword.data.Rows(); ++row)
  {
    inp_ElementGeneration generation;
    if (inp_IsBlankRow(keyword.data, row))
    {
      continue;
    }
    if (int const field = generation.Read(keyword.data, row); field > 0)
    {
      Say(inp_msgGenerationItemNotInteger, keyword, field);
      continue;
    }
    if (generation.counts[0] >= 1 && !GenerateElements(keyword, generation, labels))
    {
      return;
    }
  }
  if (keyword.HasParameter("elset") && labels.Length() > 0)
  {
    AddElementSet(keyword, keyword.NameIn("elset"), labels);
  }
}

/// Counts elements that are to be generated; false, with a message, when the walk has made too many.
/// One with very many nodes counts as several.
bool inp_ElementVisitor::CheckCount(inp_Keyword const& keyword, std::int64_t count,
                                    int nodesOfElement)
{
  std::int64_t const weight = 1 + nodesOfElement / c_nodesOfLargeElement;
  if (m_generated + count * weight > inp_ElementGeneration::c_mostElements)
  {
    Say(inp_msgTooManyElementsGenerated, keyword,
        cow_String(inp_ElementGeneration::c_mostElements));
    return false;
  }
  m_generated += count * weight;
  return true;
}

bool inp_ElementVisitor::GenerateElements(inp_Keyword const& keyword,
                                          inp_ElementGeneration const& generation,
                                          cow_List<int>& labels)
{
  if (generation.Labels().highest > inpM_largestLabel)
  {
    Say(inp_msgLargestElementNumber, keyword);
    return false;
  }
  inp_Element const* const master = FindElement(CurrentElements(), generation.master);
  if (master == nullptr)
  {
    if (computeConnectivity)
    {
      Say(inp_msgMasterElementUndefined, keyword, generation.master);
    }
    return true;
  }
  if (!CheckCount(keyword, generation.Elements(), master->numNodesPerElement()))
  {
    return false;
  }
  if (generation.Labels().lowest < 1)
  {
    Say(inp_msgGeneratedElementOutOfRange, keyword, LabelText(generation.Labels().lowest));
    return true;
  }
  MakeBlock(keyword, generation, inp_AsGiven(*master), labels);
  return true;
}

/// The elements of a block and their labels; nothing, with a message, when nodes would leave the range.
void inp_ElementVisitor::MakeBlock(inp_Keyword const& keyword,
                                   inp_ElementGeneration const& generation,
                                   inp_Element const& pattern, cow_List<int>& labels)
{
  int const movable = inp_MovableNodesInGeneration(pattern, keyword.HasParameter("allnodes"));
  inp_ElementGeneration::Range const nodes = RangeOfNodes(pattern, movable);
  inp_ElementGeneration::Range const shift = generation.NodeShift();
  if (computeConnectivity && nodes.highest > 0 &&
      (nodes.lowest + shift.lowest < 1 || nodes.highest + shift.highest > inpM_largestLabel))
  {
    Say(inp_msgGeneratedNodesOutOfRange, keyword, cow_String(generation.master));
    return;
  }
  inp_MapInt2Element& target = CurrentElements();
  generation.ForEach(
    [&](int label, std::int64_t nodeShift)
    {
      labels.Append(label);
      if (label == generation.master)
      {
        return;
      }
      inp_Element* const element =
        computeConnectivity ? inp_Element::Make(pattern) : new inp_Element;
      if (computeConnectivity)
      {
        inp_ShiftNodes(*element, movable, nodeShift);
      }
      target.InsertPtr(label, element);
    });
}

inpM_BaseSet const* inp_ElementVisitor::CheckExistenceOfOldSet(inp_Keyword const& keyword,
                                                               cow_String const& name)
{
  cow_String place = MeshScope();
  bool const isSearched = !hasAssemblySets || sets.SearchAssemblyAndInstancesForSet(name, place);
  inpM_BaseSet const* const set = isSearched ? sets.ConstFindNestedSet(place, name) : nullptr;
  if (set == nullptr)
  {
    Say(inp_msgElementSetMissing, keyword, name);
  }
  return set;
}

// *ELCOPY has no rows.
void inp_ElementVisitor::VisitElcopy(inp_Keyword& keyword)
{
  cow_String const oldName = keyword.NameIn("oldset");
  if (oldName.Empty() || !inp_HasIntegerParameter(keyword, "elementshift") ||
      !inp_HasIntegerParameter(keyword, "shiftnodes"))
  {
    Say(inp_msgElementCopyParametersMissing, keyword);
    return;
  }
  inpM_BaseSet const* const oldSet = CheckExistenceOfOldSet(keyword, oldName);
  if (oldSet == nullptr)
  {
    return;
  }
  std::int64_t const elementShift = keyword.GetParameterAsInt("elementshift", 0);
  int const nodeShift = keyword.GetParameterAsInt("shiftnodes", 0);
  inp_MapInt2Element& target = CurrentElements();
  cow_List<int> labels;
  cow_List<int> const members = oldSet->ConstGetIds();
  for (int const label : members)
  {
    if (computeConnectivity && !target.IsMember(label))
    {
      continue;
    }
    std::int64_t const newLabel = label + elementShift;
    if (!inpM_IsLabel(newLabel))
    {
      Say(inp_msgGeneratedElementOutOfRange, keyword, LabelText(newLabel));
      return;
    }
    if (!CopyElement(keyword, target, label, static_cast<int>(newLabel), nodeShift, labels))
    {
      return;
    }
  }
  if (keyword.HasParameter("newset")) // of no copies is a set as well
  {
    AddElementSet(keyword, keyword.NameIn("newset"), labels);
  }
}

/// False stops the keyword.
bool inp_ElementVisitor::CopyElement(inp_Keyword const& keyword, inp_MapInt2Element& target,
                                     int label, int newLabel, int nodeShift, cow_List<int>& labels)
{
  inp_Element const* const old = FindElement(target, label);
  if (!CheckCount(keyword, 1, old != nullptr ? old->numNodesPerElement() : 0))
  {
    return false;
  }
  if (!computeConnectivity || old == nullptr)
  {
    target.InsertPtr(newLabel, new inp_Element);
    labels.Append(newLabel);
    return true;
  }
  inp_Element copy = inp_AsGiven(*old);
  if (!inp_ShiftNodes(copy, inp_MovableNodesInCopy(copy), nodeShift))
  {
    Say(inp_msgGeneratedNodesOutOfRange, keyword, cow_String(label));
    return false;
  }
  std::span<int> const nodes(copy.topology(), static_cast<std::size_t>(copy.numNodesPerElement()));
  if (keyword.HasParameter("reflect") && !inp_ReflectNodes(copy.type(), nodes))
  {
    Say(inp_msgReflectionUnknown, keyword, copy.type());
    return false;
  }
  target.InsertPtr(newLabel, inp_Element::Make(copy));
  labels.Append(newLabel);
  return true;
}

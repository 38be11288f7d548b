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

/// Counts elements that are to be generated; false, with a message, when the walk has made too many. An
/// element with very many nodes counts as several, since it takes their memory.
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

/// Generates the elements of one *ELGEN, row by row.
class inp_ElementVisitor::ElementGenerator
{
public:
  ElementGenerator(inp_ElementVisitor& visitor, inp_Keyword const& keyword)
    : m_visitor(visitor), m_keyword(keyword), m_makesElements(visitor.computeConnectivity)
  {
  }

  /// False, with an error, when the keyword is to end. Other faults end their row alone.
  bool GenerateRow(int row)
  {
    inp_ElementGeneration generation;
    if (inp_IsBlankRow(m_keyword.data, row))
    {
      return true;
    }
    if (int const field = generation.Read(m_keyword.data, row); field > 0)
    {
      m_visitor.Say(inp_msgGenerationItemNotInteger, m_keyword, field);
      return true;
    }
    return generation.counts[0] < 1 || Generate(generation);
  }

  cow_List<int> const& Labels() const { return m_labels; }

private:
  bool Generate(inp_ElementGeneration const& generation)
  {
    inp_ElementGeneration::Range const labels = generation.Labels();
    if (labels.highest > inpM_largestLabel)
    {
      m_visitor.Say(inp_msgLargestElementNumber, m_keyword);
      return false;
    }
    inp_MapInt2Element& target = m_visitor.CurrentElements();
    inp_Element const* const master = FindElement(target, generation.master);
    if (master == nullptr)
    {
      if (m_makesElements)
      {
        m_visitor.Say(inp_msgMasterElementUndefined, m_keyword, generation.master);
      }
      return true;
    }
    if (!m_visitor.CheckCount(m_keyword, generation.Elements(), master->numNodesPerElement()))
    {
      return false;
    }
    if (labels.lowest < 1)
    {
      m_visitor.Say(inp_msgGeneratedElementOutOfRange, m_keyword, LabelText(labels.lowest));
      return true;
    }
    MakeBlock(generation, inp_AsGiven(*master), target);
    return true;
  }

  /// Makes all elements of a block; none, with a message, when nodes would leave the range of labels.
  void MakeBlock(inp_ElementGeneration const& generation, inp_Element const& pattern,
                 inp_MapInt2Element& target)
  {
    int const movable = inp_MovableNodesInGeneration(pattern, m_keyword.HasParameter("allnodes"));
    if (m_makesElements && !KeepsNodesInRange(generation, pattern, movable))
    {
      m_visitor.Say(inp_msgGeneratedNodesOutOfRange, m_keyword, cow_String(generation.master));
      return;
    }
    generation.ForEach(
      [&](int label, std::int64_t nodeShift)
      {
        m_labels.Append(label);
        if (label != generation.master)
        {
          target.InsertPtr(label, MakeElement(pattern, movable, nodeShift));
        }
      });
  }

  static bool KeepsNodesInRange(inp_ElementGeneration const& generation, inp_Element const& pattern,
                                int movable)
  {
    inp_ElementGeneration::Range const nodes = RangeOfNodes(pattern, movable);
    inp_ElementGeneration::Range const shift = generation.NodeShift();
    return nodes.highest == 0 ||
           (nodes.lowest + shift.lowest >= 1 && nodes.highest + shift.highest <= inpM_largestLabel);
  }

  inp_Element* MakeElement(inp_Element const& pattern, int movable, std::int64_t nodeShift) const
  {
    if (!m_makesElements)
    {
      return new inp_Element;
    }
    inp_Element* const element = inp_Element::Make(pattern);
    inp_ShiftNodes(*element, movable, nodeShift);
    return element;
  }

  inp_ElementVisitor& m_visitor;
  inp_Keyword const& m_keyword;
  bool m_makesElements; ///< otherwise labels alone
  cow_List<int> m_labels;
};

// *ELGEN row: master, count, node shift, element shift, and the last three again for the second and
// for the third direction.
void inp_ElementVisitor::VisitElgen(inp_Keyword& keyword)
{
  ElementGenerator generator(*this, keyword);
  for (int row = 0; row < keyword.data.Rows(); ++row)
  {
    if (!generator.GenerateRow(row))
    {
      return;
    }
  }
  if (keyword.HasParameter("elset") && generator.Labels().Length() > 0)
  {
    AddElementSet(keyword, keyword.NameIn("elset"), generator.Labels());
  }
}

inpM_BaseSet const* inp_ElementVisitor::CheckExistenceOfOldSet(inp_Keyword const& keyword,
                                                               cow_String const& name)
{
  cow_String scope = MeshScope();
  bool const isSearched = !hasAssemblySets || sets.SearchAssemblyAndInstancesForSet(name, scope);
  inpM_BaseSet const* const set = isSearched ? sets.ConstFindNestedSet(scope, name) : nullptr;
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

/// False, with a message, when the keyword is to end.
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

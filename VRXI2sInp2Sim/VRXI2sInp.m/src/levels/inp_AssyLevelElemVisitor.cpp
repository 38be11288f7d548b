#include "inp_AssyLevelElemVisitor.h"

#include "inp_ElementRows.h"
#include "inp_KeywordEnm.h"
#include "inp_LevelMessages.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_SetVisitorFaults.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

/// A field that is no plain label.
struct inp_AssyLevelElemVisitor::Item
{
  cow_String text;
  bool isText; ///< and not a number of another form
};

/// What is known of the elements of a keyword when its rows have been read.
struct inp_AssyLevelElemVisitor::Found
{
  std::vector<Item> const& items;
  inp_MapInt2Element& elements;
  cow_List<int> labels;
  cow_List<int> tooLong;
  cow_List<int> tooShort;
};

namespace
{

constexpr int c_listedElements = 999; ///< as with elements of parts

void AppendListed(cow_List<int>& labels, int label)
{
  if (labels.Length() < c_listedElements)
  {
    labels.Append(label);
  }
}

/// The rows with each field that is no plain label replaced by the negative of its place in `items`, from
/// 1: rows of numbers, which are divided into elements as all others are.
template <class Item>
inp_DataArray WithItemsNumbered(inp_DataArray const& data, std::vector<Item>& items)
{
  auto* const impl = new inp_RawDataArrayImpl;
  inp_DataArray numbered(impl);
  std::string line;
  for (int row = 0; row < data.Rows(); ++row)
  {
    line.clear();
    for (int column = 0; column < data.Cols(row); ++column)
    {
      line.append(column > 0 ? "," : "");
      inp_Types::typeEnm const type = data.Type(row, column);
      if (type == inp_Types::inp_NONE)
      {
        continue;
      }
      if (type == inp_Types::inp_INTEGER && data.AsInt(row, column) >= 0)
      {
        line.append(std::to_string(data.AsInt(row, column)));
        continue;
      }
      items.push_back({data.AsString(row, column), type == inp_Types::inp_STRING});
      line.append(std::to_string(-static_cast<int>(items.size())));
    }
    impl->Append(line.c_str());
  }
  return numbered;
}

} // namespace

void inp_AssyLevelElemVisitor::Visit(inp_Keyword& keyword)
{
  switch (keyword.keyword)
  {
  case inp_kwAssembly:
  case inp_kwEndAssembly:
  case inp_kwElement:
    inp_ElementVisitor::Visit(keyword);
    break;
  default: // the walks over parts and instances have read the others, and told what is wrong in them
    break;
  }
}

bool inp_AssyLevelElemVisitor::MayStandInAssembly(cow_String const& type)
{
  static constexpr std::string_view families[] = {"CONN", "SPRING", "DASHPOT"};
  static constexpr std::string_view types[] = {"MASS", "ROTARYI", "HEATCAP"};
  std::string_view const name = type.View();
  return std::find(std::begin(types), std::end(types), name) != std::end(types) ||
         std::any_of(std::begin(families), std::end(families),
                     [name](std::string_view family) { return name.starts_with(family); });
}

// *ELEMENT rows: label, node[, node ...]; a node is instance.label or a label of the assembly.
void inp_AssyLevelElemVisitor::VisitElementImpl(inp_Keyword& keyword)
{
  cow_String const type = keyword.NameIn("type").ToUpper();
  if (type.Empty())
  {
    Say(inp_msgAssemblyElementTypeRequired, keyword);
    return;
  }
  if (!MayStandInAssembly(type))
  {
    Say(inp_msgAssemblyElementType, keyword);
    return;
  }
  Definition definition;
  if (!ReadDefinition(keyword, definition))
  {
    return;
  }
  std::vector<Item> items;
  inp_DataArray const numbered = WithItemsNumbered(keyword.data, items);
  Found found{items, CurrentElements(), {}, {}, {}};
  inp_ElementRows rows(numbered, definition.family, inp_ElementRows::c_asTheyAre,
                       inp_ElementRows::c_dropBlanks);
  while (rows.Next())
  {
    ReadElement(keyword, definition, rows, found);
  }
  if (found.tooLong.Length() > 0)
  {
    SayItems(inp_msgAssemblyTooManyNodes, keyword, found.tooLong, definition.typeAsGiven);
  }
  if (found.tooShort.Length() > 0)
  {
    SayItems(inp_msgAssemblyTooFewNodes, keyword, found.tooShort, definition.typeAsGiven);
  }
  if (keyword.HasParameter("elset") && found.labels.Length() > 0 && found.tooShort.Empty())
  {
    AddElementSet(keyword, keyword.NameIn("elset"), found.labels);
  }
}

void inp_AssyLevelElemVisitor::ReadElement(inp_Keyword const& keyword, Definition const& definition,
                                           inp_ElementRows& rows, Found& found)
{
  int const label = rows.Label();
  std::vector<int>& nodes = rows.Nodes();
  int const count = static_cast<int>(nodes.size());
  int const given = rows.GivenNodes();
  if (rows.LabelState() != inp_ElementRows::c_good)
  {
    Say(inp_msgAssemblyElementNumber, keyword, definition.typeAsGiven);
    return;
  }
  if (count == 0)
  {
    Say(inp_msgAssemblyTopologyMissing, keyword, cow_String(label), definition.typeAsGiven);
    return;
  }
  if (!ResolveNodes(keyword, definition, label, found.items, nodes))
  {
    return;
  }
  if (given > definition.family.maxNodes)
  {
    AppendListed(found.tooLong, label);
  }
  else if (given < definition.family.minNodes)
  {
    AppendListed(found.tooShort, label);
  }
  found.elements.InsertPtr(
    label, inp_Element::Make(definition.type, count, nodes.data(), std::min(given, count), 0, 0));
  found.labels.Append(label);
}

/// Puts numbers for labels and items, in place; all that is wrong with an element is said.
bool inp_AssyLevelElemVisitor::ResolveNodes(inp_Keyword const& keyword,
                                            Definition const& definition, int label,
                                            std::vector<Item> const& items, std::vector<int>& nodes)
{
  bool isGood = true;
  for (int& node : nodes)
  {
    bool const isResolved = node < 0 ? ResolveItem(keyword, definition, label,
                                                   items[static_cast<std::size_t>(-node) - 1], node)
                                     : GetAssemblyNode(keyword, definition, node);
    isGood = isGood && isResolved;
  }
  return isGood;
}

bool inp_AssyLevelElemVisitor::ResolveItem(inp_Keyword const& keyword, Definition const& definition,
                                           int label, Item const& item, int& node)
{
  if (!item.isText)
  {
    Say(inp_msgAssemblyItemInvalid, keyword, cow_String(label), definition.typeAsGiven, item.text);
    return false;
  }
  return GetGlobalNodeFromScopedID(item.text, keyword, node);
}

// A connector whose node is left out is tied to the ground there.
bool inp_AssyLevelElemVisitor::GetAssemblyNode(inp_Keyword const& keyword,
                                               Definition const& definition, int& node)
{
  if (node == 0 && definition.family.kind == inp_ElementFamily::c_connector)
  {
    return true;
  }
  if (!m_nodeIds.IsMember(node))
  {
    Say(inp_msgAssemblyNodeUndefined, keyword, cow_String(node));
    return false;
  }
  node = m_nodeIds.ConstGet(node);
  return true;
}

bool inp_AssyLevelElemVisitor::GetGlobalNodeFromScopedID(cow_String const& item,
                                                         inp_Keyword const& keyword, int& node)
{
  inp_ScopedField const field(item, m_assemblyName);
  int id = 0;
  if (field.fits && inp_Types::IsSetName(field.last.View()))
  {
    Say(inp_msgAssemblyNodeIsSet, keyword, item);
  }
  else if (!field.fits || field.instanceName.Empty() || !field.GetId(id))
  {
    Say(inp_msgAssemblyNodeUnrecognizable, keyword, item);
  }
  else if (!m_nodeIds.IsMember(field.instanceName))
  {
    Say(inp_msgAssemblyNodeInstanceUnknown, keyword, field.instanceName);
  }
  else if (!m_nodeIds.ConstGet(field.instanceName).IsMember(id))
  {
    Say(inp_msgAssemblyNodeUnknown, keyword, cow_String(id), field.instanceName);
  }
  else
  {
    node = m_nodeIds.ConstGet(field.instanceName).ConstGet(id);
    return true;
  }
  return false;
}

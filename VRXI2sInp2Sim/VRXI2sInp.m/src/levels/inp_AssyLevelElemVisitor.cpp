#include "inp_AssyLevelElemVisitor.h"

#include "inp_ElementRows.h"
#include "inp_KeywordEnm.h"
#include "inp_LevelMessages.h"
#include "inp_NodeNumbers.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_ScopedField.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

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

/// The rows with each field that is no plain label replaced by the negative of its place in `items`, from
/// 1: rows of numbers, which are divided into elements as all others are.
inp_DataArray inp_AssyLevelElemVisitor::WithItemsNumbered(inp_DataArray const& data,
                                                          std::vector<Item>& items)
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
      items.push_back({data.AsString(row, column), type});
      line.append(std::to_string(-static_cast<int>(items.size())));
    }
    impl->Append(line.c_str());
  }
  return numbered;
}

// *ELEMENT rows: label, node[, node ...]; a node is instance.label or a label of the assembly.
void inp_AssyLevelElemVisitor::VisitElementImpl(inp_Keyword& keyword)
{
  ReadElements(keyword, m_assemblyName);
}

void inp_AssyLevelElemVisitor::ReadElements(inp_Keyword const& keyword,
                                            cow_String const& assemblyName)
{
  m_labelsOfSet.Clear();
  Definition definition;
  if (ReadAssemblyDefinition(keyword, definition))
  {
    m_read.push_back({keyword, definition, assemblyName, {}, {}, {}});
    ReadRows(m_read.back());
  }
}

bool inp_AssyLevelElemVisitor::ReadAssemblyDefinition(inp_Keyword const& keyword,
                                                      Definition& definition)
{
  cow_String const type = keyword.NameIn("type").ToUpper();
  if (type.Empty())
  {
    Say(inp_msgAssemblyElementTypeRequired, keyword);
    return false;
  }
  if (!MayStandInAssembly(type))
  {
    Say(inp_msgAssemblyElementType, keyword);
    return false;
  }
  return ReadDefinition(keyword, definition);
}

void inp_AssyLevelElemVisitor::ReadRows(ReadKeyword& read)
{
  inp_DataArray const numbered = WithItemsNumbered(read.keyword.data, read.items);
  cow_List<int> tooLong;
  cow_List<int> tooShort;
  inp_ElementRows rows(numbered, read.definition.family, inp_ElementRows::c_asTheyAre,
                       inp_ElementRows::c_dropBlanks);
  while (rows.Next())
  {
    if (!CheckRow(read.keyword, read.definition, rows))
    {
      continue;
    }
    AddRow(read, rows);
    if (rows.GivenNodes() > read.definition.family.maxNodes)
    {
      AppendListed(tooLong, rows.Label());
    }
    else if (rows.GivenNodes() < read.definition.family.minNodes)
    {
      AppendListed(tooShort, rows.Label());
    }
  }
  if (tooLong.Length() > 0)
  {
    SayItems(inp_msgAssemblyTooManyNodes, read.keyword, tooLong, read.definition.typeAsGiven);
  }
  if (tooShort.Length() > 0)
  {
    SayItems(inp_msgAssemblyTooFewNodes, read.keyword, tooShort, read.definition.typeAsGiven);
    m_labelsOfSet.Clear();
  }
}

void inp_AssyLevelElemVisitor::AddRow(ReadKeyword& read, inp_ElementRows& rows)
{
  std::vector<int> const& nodes = rows.Nodes();
  int const count = static_cast<int>(nodes.size());
  read.rows.push_back({rows.Label(), count, std::min(rows.GivenNodes(), count)});
  read.nodes.insert(read.nodes.end(), nodes.begin(), nodes.end());
  CurrentElements().InsertPtr(rows.Label(),
                              inp_Element::Make(read.definition.type, 0, nullptr, 0, 0, 0));
  m_labelsOfSet.Append(rows.Label());
}

bool inp_AssyLevelElemVisitor::CheckRow(inp_Keyword const& keyword, Definition const& definition,
                                        inp_ElementRows& rows)
{
  if (rows.LabelState() != inp_ElementRows::c_good)
  {
    Say(inp_msgAssemblyElementNumber, keyword, definition.typeAsGiven);
    return false;
  }
  if (rows.Nodes().empty())
  {
    m_leftOut.Append(rows.Label());
    Say(inp_msgAssemblyTopologyMissing, keyword, cow_String(rows.Label()), definition.typeAsGiven);
    return false;
  }
  return true;
}

void inp_AssyLevelElemVisitor::MoveMessages(cow_List<atr_String>& warnings,
                                            cow_List<atr_String>& errors)
{
  warnings.Concatenate(m_warningList);
  errors.Concatenate(m_errorList);
  m_warningList.Clear();
  m_errorList.Clear();
}

void inp_AssyLevelElemVisitor::PutNumbers(inp_NodeNumbers& numbers)
{
  for (ReadKeyword const& read : m_read)
  {
    PutNumbers(read, numbers);
  }
  for (ReadKeyword const& read : m_read)
  {
    for (Row const& row : read.rows)
    {
      inp_Element const* const element = CurrentElements().GetEltPtr(row.label);
      if (element != nullptr && element->numNodesPerElement() == 0)
      {
        CurrentElements().Remove(row.label);
        m_leftOut.Append(row.label);
      }
    }
  }
  m_read.clear();
}

// A label may have been read again, with nodes that are there.
cow_List<int> inp_AssyLevelElemVisitor::LeftOut()
{
  cow_List<int> missing;
  for (int const label : m_leftOut)
  {
    if (!CurrentElements().IsMember(label))
    {
      missing.Append(label);
    }
  }
  return missing;
}

void inp_AssyLevelElemVisitor::PutNumbers(ReadKeyword const& read, inp_NodeNumbers& numbers)
{
  inp_MapInt2Element& map = CurrentElements();
  std::vector<int> nodes;
  auto next = read.nodes.begin();
  for (Row const& row : read.rows)
  {
    nodes.assign(next, next + row.nodes);
    next += row.nodes;
    bool isGood = true;
    for (int& node : nodes)
    {
      isGood = ResolveNode(read, row.label, numbers, node) && isGood;
    }
    if (isGood)
    {
      map.InsertPtr(row.label, inp_Element::Make(read.definition.type, row.nodes, nodes.data(),
                                                 row.given, 0, 0));
    }
  }
}

/// Puts the number for a label or an item, in place.
bool inp_AssyLevelElemVisitor::ResolveNode(ReadKeyword const& read, int label,
                                           inp_NodeNumbers& numbers, int& node)
{
  if (node < 0)
  {
    return ResolveItem(read, label, numbers, node);
  }
  // A connector whose node is left out is tied to the ground there.
  if (node == 0 && read.definition.family.kind == inp_ElementFamily::c_connector)
  {
    return true;
  }
  if (!numbers.Find(cow_String(), node, node))
  {
    Say(inp_msgAssemblyNodeUndefined, read.keyword, cow_String(node));
    return false;
  }
  return true;
}

bool inp_AssyLevelElemVisitor::ResolveItem(ReadKeyword const& read, int label,
                                           inp_NodeNumbers& numbers, int& node)
{
  Item const& item = read.items[static_cast<std::size_t>(-node) - 1];
  switch (item.type)
  {
  case inp_Types::inp_STRING:
    return GetGlobalNodeFromScopedID(item.text, read, numbers, node);
  case inp_Types::inp_INTEGER: // a negative one
    Say(inp_msgAssemblyNodeUndefined, read.keyword, item.text);
    return false;
  default:
    Say(inp_msgAssemblyItemInvalid, read.keyword, cow_String(label), read.definition.typeAsGiven,
        item.text);
    return false;
  }
}

bool inp_AssyLevelElemVisitor::GetGlobalNodeFromScopedID(cow_String const& item,
                                                         ReadKeyword const& read,
                                                         inp_NodeNumbers& numbers, int& node)
{
  inp_ScopedField const field(item, read.assemblyName);
  int id = 0;
  if (field.fits && inp_Types::IsSetName(field.last.View()))
  {
    Say(inp_msgAssemblyNodeIsSet, read.keyword, item);
  }
  else if (!field.fits || field.instanceName.Empty() || !field.GetId(id))
  {
    Say(inp_msgAssemblyNodeUnrecognizable, read.keyword, item);
  }
  else if (!numbers.HasInstance(field.instanceName))
  {
    Say(inp_msgAssemblyNodeInstanceUnknown, read.keyword, field.instanceName);
  }
  else if (!numbers.Find(field.instanceName, id, node))
  {
    Say(inp_msgAssemblyNodeUnknown, read.keyword, cow_String(id), field.instanceName);
  }
  else
  {
    return true;
  }
  return false;
}

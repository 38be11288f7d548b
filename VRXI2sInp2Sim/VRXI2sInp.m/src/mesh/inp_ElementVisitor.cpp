#include "inp_ElementVisitor.h"

#include "inpM_LabelRange.h"
#include "inp_ElementDataArrayImpl.h"
#include "inp_ElementMessages.h"
#include "inp_ElementRows.h"
#include "inp_GasketOrders.h"

#include <algorithm>
#include <cstdint>

namespace
{

constexpr int c_defaultOffset = 100000;
constexpr int c_listedElements = 999;
constexpr std::size_t c_nodesOfQuadraticGasket = 18;
constexpr std::size_t c_givenOfQuadraticGasket = 16;

void AppendListed(cow_List<int>& labels, int label)
{
  if (labels.Length() < c_listedElements)
  {
    labels.Append(label);
  }
}

/// Room for the layers, behind the bottom nodes; false when a label would be too large.
///
/// GKPE6, GKPS6 and GK3D12M take optional nodes between their two faces, which are in neither layer: a
/// bottom node has no counterpart there whose label the offset could give. So the list ends behind the
/// layers, and is not filled up with empty places; an element of layers has the nodes of its layers.
bool FillWithLayers(std::vector<int>& nodes, inp_ElementFamily const& family, int offset)
{
  std::size_t const bottom = nodes.size();
  nodes.resize(static_cast<std::size_t>(family.LayeredNodes()), 0);
  for (std::size_t place = bottom; place < nodes.size(); ++place)
  {
    std::int64_t const below = nodes[place - bottom];
    if (below > 0 && below + offset > inpM_largestLabel)
    {
      return false;
    }
    nodes[place] = below > 0 ? static_cast<int>(below) + offset : 0;
  }
  return true;
}

} // namespace

/// What is known of the elements of a keyword when its rows have been read.
struct inp_ElementVisitor::Found
{
  explicit Found(inp_MapInt2Element& map) : elements(map) {}

  inp_MapInt2Element& elements;
  cow_List<int> labels;
  cow_List<int> tooLong;
  cow_List<int> tooShort;
  cow_List<int> outOfRange; ///< their layers would have labels too large
  bool hasLayersMade = false;
  bool isOffsetReported = false;
};

inp_ElementVisitor::inp_ElementVisitor(bool computesConnectivity)
  : computeConnectivity(computesConnectivity)
{
}

inp_ElementVisitor::inp_ElementVisitor(inpM_SetMap const& workingSets, bool computesConnectivity)
  : inp_SetVisitor(workingSets),
    hasAssemblySets(!workingSets.IsEmpty()),
    computeConnectivity(computesConnectivity)
{
}

inp_MapInt2Element& inp_ElementVisitor::CurrentElements()
{
  cow_String const name = MeshScope();
  if (name.Empty())
  {
    if (!elements.HasValue())
    {
      elements.Insert(inp_MapInt2Element());
    }
    return elements.Get();
  }
  if (!elements.IsMember(name))
  {
    elements.Insert(name, inp_MapInt2Element());
  }
  inp_MapInt2Element& map = elements.Get(name);
  if (map.UseCount() > 1)
  {
    inp_MapInt2Element const before = map;
    map.AdoptNewTable();
    for (inp_MapInt2ElementIT it(before); !it.IsDone(); it.Next())
    {
      map.InsertPtr(it.CurrentKey(), inp_Element::Make(it.CurrentValue()));
    }
  }
  return map;
}

void inp_ElementVisitor::AddElementSet(inp_Keyword const& keyword, cow_String const& name,
                                       cow_List<int> const& labels)
{
  MergeSet(keyword, name, CreateSet(labels));
}

// *ELEMENT rows: label, node[, node ...], 16 fields a line; a line that ends in a comma goes on.
void inp_ElementVisitor::VisitElement(inp_Keyword& keyword)
{
  Definition definition;
  if (!ReadDefinition(keyword, definition))
  {
    return;
  }
  Found found(CurrentElements());
  inp_ElementRows rows(
    keyword.data, definition.family,
    MeshScope().Empty() ? inp_ElementRows::c_asTheyAre : inp_ElementRows::c_checked,
    allowBlankMidNodes ? inp_ElementRows::c_markBlanks : inp_ElementRows::c_dropBlanks);
  while (rows.Next())
  {
    ReadElement(keyword, definition, rows, found);
  }
  FinishElements(keyword, definition, found);
}

bool inp_ElementVisitor::ReadDefinition(inp_Keyword const& keyword, Definition& definition)
{
  definition.typeAsGiven = keyword.NameIn("type");
  if (definition.typeAsGiven.Empty())
  {
    Say(inp_msgElementTypeRequired, keyword);
    return false;
  }
  definition.type = definition.typeAsGiven;
  definition.type.LeftTrim(" \t").RightTrim(" \t").ToUpper();
  definition.hasMidsideNodes = inp_IsGasketWithMidsideNodes(definition.type);
  definition.hasOffset = keyword.HasParameter("offset");
  if (inp_ElementInfo const* const info = inp_ElementInfo::elementInfo(definition.type))
  {
    definition.family =
      inp_FamilyOf(*info, definition.hasOffset, keyword.HasParameter("solidelementnumbering"));
  }
  else if (inp_Types::IsSuperelementID(definition.type.View()))
  {
    definition.family.kind = inp_ElementFamily::c_substructure;
    definition.file = keyword.NameIn("file");
  }
  else if (!ReadUserType(keyword, definition))
  {
    return false;
  }
  return ReadOffset(keyword, definition) && ReadSolidNumbering(keyword, definition);
}

/// A type that is not in the table.
bool inp_ElementVisitor::ReadUserType(inp_Keyword const& keyword, Definition& definition)
{
  if (!inp_Types::IsUserElementID(definition.type.View()))
  {
    bool const isObsolete = obsoleteTypes.IsMember(definition.type);
    Say(isObsolete ? inp_msgElementTypeObsolete : inp_msgElementTypeUnsupported, keyword,
        definition.typeAsGiven);
    return false;
  }
  int const* const nodes = userElementNodes.ConstFind(definition.type);
  if (nodes == nullptr)
  {
    Say(inp_msgUserElementUndefined, keyword);
    return false;
  }
  definition.family.kind = inp_ElementFamily::c_user;
  definition.family.minNodes = *nodes;
  definition.family.maxNodes = *nodes;
  return true;
}

bool inp_ElementVisitor::ReadOffset(inp_Keyword const& keyword, Definition& definition)
{
  if (keyword.GetParameterAsInt("offset", c_defaultOffset) < 1)
  {
    Say(inp_msgOffsetNotPositive, keyword);
    return false;
  }
  definition.offset = keyword.GetParameterAsInt("offset", 0);
  return true;
}

/// A value that is no number, or below 1, is the first face.
bool inp_ElementVisitor::ReadSolidNumbering(inp_Keyword const& keyword, Definition& definition)
{
  if (definition.family.kind != inp_ElementFamily::c_gasket ||
      !keyword.HasParameter("solidelementnumbering"))
  {
    return true;
  }
  int const value = keyword.GetParameterAsInt("solidelementnumbering", 1);
  definition.solidNumbering = value < 1 ? 1 : value;
  int const faces = inp_GasketOrderOf(definition.type, 1).faces;
  if (faces > 0 && value > faces)
  {
    Say(inp_msgSolidNumberingOutOfRange, keyword, cow_String(value), cow_String(faces),
        definition.typeAsGiven);
    return false;
  }
  definition.solidNumbering = faces > 0 ? definition.solidNumbering : 0;
  return true;
}

void inp_ElementVisitor::ReadElement(inp_Keyword const& keyword, Definition const& definition,
                                     inp_ElementRows& rows, Found& found)
{
  if (!CheckLabel(keyword, definition, rows) || !CheckNodes(keyword, definition, rows))
  {
    return;
  }
  inp_ElementFamily const& family = definition.family;
  int const given = rows.GivenNodes();
  bool const isTooLong = given > family.maxNodes;
  if (!CompleteNodes(keyword, definition, rows, found))
  {
    return;
  }
  int const label = rows.Label();
  std::vector<int> const& nodes = rows.Nodes();
  int const count = static_cast<int>(nodes.size());
  bool const isLayered = family.IsLayered() && given == family.bottomNodes;
  if (isTooLong)
  {
    AppendListed(found.tooLong, label);
  }
  else if (count < family.minNodes)
  {
    found.tooShort.Append(label);
  }
  inp_Element* const element =
    inp_Element::Make(definition.type, count, nodes.data(), isTooLong ? count : given,
                      isLayered ? definition.offset : 0, definition.solidNumbering);
  if (definition.file.Length() > 0)
  {
    element->setFile(definition.file);
  }
  found.elements.InsertPtr(label, element);
  found.labels.Append(label);
}

bool inp_ElementVisitor::CheckLabel(inp_Keyword const& keyword, Definition const& definition,
                                    inp_ElementRows const& rows)
{
  if (rows.LabelState() == inp_ElementRows::c_good)
  {
    return true;
  }
  Say(rows.LabelState() == inp_ElementRows::c_labelNotInteger ? inp_msgElementNumberNotInteger
                                                              : inp_msgElementNumberNotPositive,
      keyword, definition.typeAsGiven);
  return false;
}

bool inp_ElementVisitor::CheckFields(inp_Keyword const& keyword, inp_ElementRows& rows)
{
  switch (rows.Fault())
  {
  case inp_ElementRows::c_notInteger:
    Say(inp_msgConnectivityNotInteger, keyword, cow_String(rows.Label()));
    return false;
  case inp_ElementRows::c_notIntegerContinued:
    Say(inp_msgContinuedLabelNotInteger, keyword, rows.FaultText(), cow_String(rows.Label()));
    return false;
  case inp_ElementRows::c_negative:
    Say(inp_msgConnectivityNegative, keyword, cow_String(rows.Label()));
    return false;
  case inp_ElementRows::c_zero:
    Say(inp_msgConnectivityZero, keyword, cow_String(rows.Label()));
    return false;
  case inp_ElementRows::c_noFault:
    break;
  }
  return true;
}

bool inp_ElementVisitor::CheckNodes(inp_Keyword const& keyword, Definition const& definition,
                                    inp_ElementRows& rows)
{
  if (!CheckFields(keyword, rows))
  {
    return false;
  }
  if (rows.Nodes().empty() && definition.family.kind != inp_ElementFamily::c_substructure)
  {
    Say(inp_msgConnectivityMissing, keyword, cow_String(rows.Label()), definition.typeAsGiven);
    return false;
  }
  if (rows.Nodes().size() > static_cast<std::size_t>(inp_Element::c_mostNodes))
  {
    Say(inp_msgNodesBeyondCapacity, keyword, cow_String(inp_Element::c_mostNodes),
        cow_String(rows.Label()));
    return false;
  }
  if (MeshScope().Length() > 0)
  {
    return true;
  }
  int const smallest = definition.family.kind == inp_ElementFamily::c_connector ? 0 : 1;
  for (int const node : rows.Nodes())
  {
    if (node < smallest && node != inp_ElementRows::c_blankMark)
    {
      cow_List<int> nodes;
      nodes.SetFromArray(rows.Nodes().data(), static_cast<int>(rows.Nodes().size()));
      SayItems(inp_msgNodeNumbersNotPositive, keyword, nodes, cow_String(rows.Label()));
      return false;
    }
  }
  return true;
}

/// Brings the list of nodes into the form of the type; false when the element is to be left out.
bool inp_ElementVisitor::CompleteNodes(inp_Keyword const& keyword, Definition const& definition,
                                       inp_ElementRows& rows, Found& found)
{
  std::vector<int>& nodes = rows.Nodes();
  if (definition.solidNumbering > 0)
  {
    inp_GasketOrder const gasket = inp_GasketOrderOf(definition.type, definition.solidNumbering);
    if (static_cast<int>(nodes.size()) >= gasket.nodesRequired)
    {
      std::vector<int> const solid = nodes;
      nodes.resize(gasket.order.size());
      for (std::size_t place = 0; place < nodes.size(); ++place)
      {
        nodes[place] = solid[static_cast<std::size_t>(gasket.order[place])];
      }
    }
    else if (!definition.family.IsLayered() ||
             static_cast<int>(nodes.size()) != definition.family.bottomNodes)
    {
      nodes.resize(
        std::min(nodes.size(), static_cast<std::size_t>(definition.family.minNodes) - 1));
      return true; // which leaves it too short
    }
  }
  if (definition.hasMidsideNodes && nodes.size() >= c_givenOfQuadraticGasket)
  {
    nodes.resize(std::max(nodes.size(), c_nodesOfQuadraticGasket), 0);
  }
  if (definition.family.IsLayered() &&
      static_cast<int>(nodes.size()) == definition.family.bottomNodes)
  {
    return FillLayers(keyword, definition, rows, found);
  }
  return true;
}

bool inp_ElementVisitor::FillLayers(inp_Keyword const& keyword, Definition const& definition,
                                    inp_ElementRows& rows, Found& found)
{
  if (definition.offset < 1)
  {
    if (!found.isOffsetReported)
    {
      Say(definition.hasOffset ? inp_msgOffsetNotInteger : inp_msgOffsetRequired, keyword);
    }
    found.isOffsetReported = true;
    return false;
  }
  if (!FillWithLayers(rows.Nodes(), definition.family, definition.offset))
  {
    AppendListed(found.outOfRange, rows.Label());
    return false;
  }
  found.hasLayersMade = true;
  return true;
}

void inp_ElementVisitor::FinishElements(inp_Keyword& keyword, Definition const& definition,
                                        Found& found)
{
  if (found.outOfRange.Length() > 0)
  {
    SayItems(inp_msgOffsetLabelsOutOfRange, keyword, found.outOfRange);
  }
  if (found.tooLong.Length() > 0)
  {
    SayItems(inp_msgTooManyNodes, keyword, found.tooLong, definition.typeAsGiven);
  }
  if (found.tooShort.Length() > 0)
  {
    SayItems(inp_msgTooFewNodes, keyword, found.tooShort, definition.typeAsGiven);
  }
  if (keyword.HasParameter("elset") && found.labels.Length() > 0 && found.tooShort.Empty())
  {
    AddElementSet(keyword, keyword.NameIn("elset"), found.labels);
  }
  if (found.hasLayersMade)
  {
    keyword.data.Set(new inp_ElementDataArrayImpl(found.labels, found.elements));
    keyword.parameters.Remove("offset");
  }
}

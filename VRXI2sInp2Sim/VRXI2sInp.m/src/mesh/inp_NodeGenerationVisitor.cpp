#include "inp_NodeGenerationVisitor.h"

#include "inpM_LabelRange.h"
#include "inp_ElementGeneration.h"
#include "inp_ElementMessages.h"
#include "inp_ElementRows.h"
#include "inp_KeywordEnm.h"
#include "inp_MeshMessages.h"

#include <algorithm>

namespace
{

constexpr int c_nodesOfFace = 8;
constexpr int c_firstMidside = 16;
constexpr int c_secondMidside = 17;
constexpr int c_nodesOfQuadraticGasket = 18;

/// Gaskets and cohesive elements are layered one by one, as far as their layers were made by OFFSET.
bool HasLayers(inp_Element const& element, inp_ElementFamily const& family)
{
  return family.IsLayered() &&
         (element.nodeOffset() > 0 || family.kind == inp_ElementFamily::c_asymmetric ||
          family.kind == inp_ElementFamily::c_pipePore);
}

} // namespace

inp_NodeGenerationVisitor::inp_NodeGenerationVisitor(
  inp_CoordMap const& coords, inpM_InstanceMap<inp_MapInt2Element> const& elementMap,
  inpM_SetMap const& elementSetMap, bool checkNodes, bool restartJob, bool inParts,
  cow_String const& partName)
  : coordMap(coords),
    elements(elementMap),
    elementSets(elementSetMap),
    m_checksNodes(checkNodes),
    m_isRestart(restartJob),
    m_isInParts(inParts)
{
  m_partName = partName;
  BeginScope();
}

// The keywords that matter are few, and most decks have thousands of others.
void inp_NodeGenerationVisitor::Visit(inp_Keyword& keyword)
{
  switch (keyword.keyword)
  {
  case inp_kwPart:
  case inp_kwEndPart:
  case inp_kwInstance:
  case inp_kwEndInstance:
  case inp_kwElement:
  case inp_kwElgen:
  case inp_kwElcopy:
    inp_Visitor::Visit(keyword);
    break;
  default:
    VisitSuboptions(keyword);
    break;
  }
}

void inp_NodeGenerationVisitor::VisitPart(inp_Keyword& keyword)
{
  inp_Visitor::VisitPart(keyword);
  BeginScope();
}

void inp_NodeGenerationVisitor::VisitInstance(inp_Keyword& keyword)
{
  inp_Visitor::VisitInstance(keyword);
  BeginScope();
}

// The largest label is looked for when one is needed: it costs all of the connectivity.
void inp_NodeGenerationVisitor::BeginScope()
{
  nextLabel = 0;
  m_waiting.clear();
}

bool inp_NodeGenerationVisitor::IsInScope() const
{
  cow_String const& scope = m_isInParts ? m_partName : m_instanceName;
  return m_checksNodes && scope.Length() > 0 && elements.IsMember(MeshScope()) &&
         coordMap.IsMember(MeshScope());
}

int inp_NodeGenerationVisitor::FindMaxNodeLabel(cow_String const& name) const
{
  if (!coordMap.IsMember(name))
  {
    return 0;
  }
  inp_MapInt2CoordSIT last(coordMap.ConstGet(name).ConstGet());
  last.Last();
  return last.IsDone() ? 0 : last.CurrentKey();
}

void inp_NodeGenerationVisitor::BiquadraticInterpolator(double const& r, double const& s,
                                                        double* weights) const
{
  weights[0] = -0.25 * (1.0 - r) * (1.0 - s) * (1.0 + r + s);
  weights[1] = -0.25 * (1.0 + r) * (1.0 - s) * (1.0 - r + s);
  weights[2] = -0.25 * (1.0 + r) * (1.0 + s) * (1.0 - r - s);
  weights[3] = -0.25 * (1.0 - r) * (1.0 + s) * (1.0 + r - s);
  weights[4] = 0.5 * (1.0 - r) * (1.0 + r) * (1.0 - s);
  weights[5] = 0.5 * (1.0 + r) * (1.0 - s) * (1.0 + s);
  weights[6] = 0.5 * (1.0 - r) * (1.0 + r) * (1.0 + s);
  weights[7] = 0.5 * (1.0 - r) * (1.0 - s) * (1.0 + s);
}

void inp_NodeGenerationVisitor::VisitElement(inp_Keyword& keyword)
{
  if (!IsInScope())
  {
    return;
  }
  cow_String const type = keyword.NameIn("type");
  if (type.Empty())
  {
    Say(inp_msgElementTypeRequired, keyword);
    return;
  }
  inp_ElementInfo const* const info = inp_ElementInfo::elementInfo(type);
  if (info == nullptr)
  {
    if (!inp_Types::IsSuperelementID(type.View()) && !inp_Types::IsUserElementID(type.View()))
    {
      Say(inp_msgLayeredTypeUnsupported, keyword, type);
    }
    return;
  }
  if (!inp_FamilyOf(*info, true).IsLayered())
  {
    return;
  }
  bool const hasSolidNumbering = keyword.HasParameter("solidelementnumbering");
  inp_ElementFamily const family =
    inp_FamilyOf(*info, keyword.HasParameter("offset"), hasSolidNumbering);
  inp_ElementRows rows(keyword.data, family, inp_ElementRows::c_asTheyAre,
                       inp_ElementRows::c_dropBlanks);
  while (rows.Next())
  {
    CompleteElement(keyword, rows.Label(), inp_msgLayeredNodesMissing);
  }
}

void inp_NodeGenerationVisitor::VisitElgen(inp_Keyword& keyword)
{
  if (!IsInScope())
  {
    return;
  }
  inp_MapInt2Element const map = elements.ConstGet(MeshScope());
  for (int row = 0; row < keyword.data.Rows(); ++row)
  {
    inp_ElementGeneration generation;
    if (inp_IsBlankRow(keyword.data, row))
    {
      Say(inp_msgGenerationRowEmpty, keyword);
      continue;
    }
    if (generation.Read(keyword.data, row) > 0 || generation.counts[0] < 0)
    {
      continue;
    }
    if (generation.counts[0] == 0)
    {
      Say(inp_msgGenerationCountZero, keyword);
      continue;
    }
    if (!map.IsMember(generation.master))
    {
      if (!m_isRestart)
      {
        Say(inp_msgLayeredMasterUndefined, keyword, cow_String(generation.master));
      }
      continue;
    }
    inp_ElementGeneration::Range const labels = generation.Labels();
    if (labels.lowest >= 1 && labels.highest <= inpM_largestLabel &&
        m_generated + generation.Elements() <= inp_ElementGeneration::c_mostElements)
    {
      m_generated += generation.Elements();
      generation.ForEach([&](int label, std::int64_t)
                         { CompleteElement(keyword, label, inp_msgLayeredNodesMissing); });
    }
  }
}

void inp_NodeGenerationVisitor::VisitElcopy(inp_Keyword& keyword)
{
  if (!IsInScope())
  {
    return;
  }
  cow_String const oldName = keyword.NameIn("oldset");
  if (oldName.Empty() || !keyword.HasParameter("elementshift") ||
      !keyword.HasParameter("shiftnodes"))
  {
    Say(inp_msgLayeredCopyParametersMissing, keyword);
    return;
  }
  inpM_BaseSet const* const oldSet = CheckExistenceOfSet(keyword, oldName);
  if (oldSet == nullptr)
  {
    return;
  }
  std::int64_t const shift = keyword.GetParameterAsInt("elementshift", 0);
  for (int const label : oldSet->ConstGetIds())
  {
    std::int64_t const copy = label + shift;
    if (inpM_IsLabel(copy))
    {
      CompleteElement(keyword, static_cast<int>(copy), inp_msgLayeredNodesMissingInCopy);
    }
  }
}

inpM_BaseSet const* inp_NodeGenerationVisitor::CheckExistenceOfSet(inp_Keyword const& keyword,
                                                                   cow_String const& name)
{
  inpM_BaseSet const* set = elementSets.ConstFindNestedSet(MeshScope(), name);
  cow_String place;
  if (set == nullptr && elementSets.SearchAssemblyAndInstancesForSet(name, place))
  {
    set = elementSets.ConstFindNestedSet(place, name);
  }
  if (set == nullptr && !m_isRestart)
  {
    Say(inp_msgElementSetMissing, keyword, name);
  }
  return set;
}

void inp_NodeGenerationVisitor::CompleteElement(inp_Keyword const& keyword, int label,
                                                ShortRow const& tooFewNodes)
{
  inp_MapInt2Element map = elements.ConstGet(MeshScope());
  inp_Element* const element = map.GetEltPtr(label);
  inp_ElementInfo const* const info =
    element == nullptr ? nullptr : inp_ElementInfo::elementInfo(element->type());
  if (info == nullptr)
  {
    return;
  }
  inp_CoordMap& coords = coordMap.Get(MeshScope());
  if (inp_IsGasketWithMidsideNodes(element->type()) &&
      element->numNodesPerElement() == c_nodesOfQuadraticGasket)
  {
    AddMidsideNodes(keyword, label, *element, coords);
  }
  inp_ElementFamily const family = inp_FamilyOf(*info, element->nodeOffset() > 0);
  if (HasLayers(*element, family))
  {
    AddLayers(keyword, *element, family, coords, tooFewNodes);
  }
}

// Labels of layers count before their nodes are made.
int inp_NodeGenerationVisitor::LargestLabel(cow_String const& name) const
{
  int largest = FindMaxNodeLabel(name);
  inp_MapInt2Element const table =
    elements.IsMember(name) ? elements.ConstGet(name) : inp_MapInt2Element();
  for (inp_MapInt2ElementIT it(table); !it.IsDone(); it.Next())
  {
    inp_Element const& element = it.CurrentValue();
    int const* const nodes = element.topology();
    for (int i = 0; i < element.numNodesPerElement(); ++i)
    {
      largest = std::max(largest, nodes[i]);
    }
  }
  return largest;
}

int inp_NodeGenerationVisitor::NewLabel()
{
  if (nextLabel == 0)
  {
    int const largest = std::max(LargestLabel(MeshScope()), m_largestInUse(MeshScope()));
    nextLabel = std::min(largest, inpM_largestLabel - 1) + 1;
  }
  return nextLabel < inpM_largestLabel ? ++nextLabel : 0;
}

void inp_NodeGenerationVisitor::AddMidsideNodes(inp_Keyword const& keyword, int label,
                                                inp_Element& element, inp_CoordMap& coords)
{
  int* const nodes = element.topology();
  bool isNew[2] = {false, false};
  for (int const place : {c_firstMidside, c_secondMidside})
  {
    if (nodes[place] != 0)
    {
      continue;
    }
    nodes[place] = NewLabel();
    if (nodes[place] == 0)
    {
      Say(inp_msgNodeLabelsUsedUp, keyword, cow_String(label));
      continue;
    }
    isNew[place - c_firstMidside] = true;
  }
  GenerateGasketGK3D18MidsideNodes(coords, nodes, isNew[0], isNew[1]);
}

void inp_NodeGenerationVisitor::GenerateGasketGK3D18MidsideNodes(inp_CoordMap& coords,
                                                                 int const* nodes, bool isFirstNew,
                                                                 bool isSecondNew)
{
  if (isFirstNew)
  {
    Make({nodes, 0, nodes[c_firstMidside]}, coords);
  }
  if (isSecondNew)
  {
    Make({nodes + c_nodesOfFace, 0, nodes[c_secondMidside]}, coords);
  }
}

bool inp_NodeGenerationVisitor::GenerateGasketGK3D18MidsideNodes(inp_CoordMap const& coords,
                                                                 int const* nodes, double r,
                                                                 double s, inp_Coord& point) const
{
  double weights[c_nodesOfFace];
  BiquadraticInterpolator(r, s, weights);
  point = inp_Coord();
  for (int i = 0; i < c_nodesOfFace; ++i)
  {
    inp_Coord const* const node = coords.ConstGetStored().ConstFind(nodes[i]);
    if (node == nullptr)
    {
      return false;
    }
    point.x += weights[i] * node->x;
    point.y += weights[i] * node->y;
    point.z += weights[i] * node->z;
  }
  return true;
}

void inp_NodeGenerationVisitor::AddLayers(inp_Keyword const& keyword, inp_Element const& element,
                                          inp_ElementFamily const& family, inp_CoordMap& coords,
                                          ShortRow const& tooFewNodes)
{
  if (element.numNodesPerElement() != family.LayeredNodes())
  {
    Say(tooFewNodes, keyword, element.type(), cow_String(element.numNodesPerElement()));
    return;
  }
  int const* const nodes = element.topology();
  for (int place = 0; place < family.bottomNodes; ++place)
  {
    Make({nodes + place, family.bottomNodes, family.layers}, coords);
  }
}

/// Makes nodes, and then those that have waited for them, and so on.
void inp_NodeGenerationVisitor::Make(Implied const& implied, inp_CoordMap& coords)
{
  m_ready.push_back(implied);
  while (!m_ready.empty())
  {
    Implied const next = m_ready.back();
    m_ready.pop_back();
    next.step > 0 ? MakeColumn(next, coords) : MakeMiddle(next, coords);
  }
}

void inp_NodeGenerationVisitor::MakeColumn(Implied const& implied, inp_CoordMap& coords)
{
  inp_Coord const* const bottom = coords.ConstGetStored().ConstFind(implied.nodes[0]);
  if (bottom == nullptr)
  {
    m_waiting[implied.nodes[0]].push_back(implied);
    return;
  }
  inp_Coord const coord = *bottom;
  for (int layer = 1; layer <= implied.layers; ++layer)
  {
    int const above = implied.nodes[layer * implied.step];
    if (above > 0 && !coords.IsMember(above))
    {
      InsertNode(above, coord, coords);
    }
  }
}

void inp_NodeGenerationVisitor::MakeMiddle(Implied const& implied, inp_CoordMap& coords)
{
  inp_Coord middle;
  if (GenerateGasketGK3D18MidsideNodes(coords, implied.nodes, 0.0, 0.0, middle))
  {
    InsertNode(implied.layers, middle, coords);
    return;
  }
  int const* const missing =
    std::find_if(implied.nodes, implied.nodes + c_nodesOfFace,
                 [&](int node) { return !coords.ConstGetStored().IsMember(node); });
  m_waiting[*missing].push_back(implied);
}

/// For a label that is new, so that what waits for it is made once.
void inp_NodeGenerationVisitor::InsertNode(int label, inp_Coord const& coord, inp_CoordMap& coords)
{
  coords.Insert(label, coord);
  auto const waiting = m_waiting.find(label);
  if (waiting != m_waiting.end())
  {
    m_ready.insert(m_ready.end(), waiting->second.rbegin(), waiting->second.rend());
  }
}

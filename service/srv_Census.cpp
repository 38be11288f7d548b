#include "srv_Census.h"

#include "inp_KeywordEnm.h"
#include "srv_Words.h"

#include <algorithm>

namespace
{

std::string TextOf(inp_Keyword const& keyword, char const* parameter)
{
  return std::string(keyword.NameIn(parameter).View());
}

std::string NameOf(inp_Keyword const& keyword)
{
  std::string const name = TextOf(keyword, "name");
  return name.empty() ? "(no name)" : name;
}

/// Rows of elements: one that goes on in the next row counts once.
int ElementRows(inp_DataArray const& data)
{
  int elements = 0;
  bool goesOn = false;
  for (int row = 0; row < data.Rows(); ++row)
  {
    elements += goesOn ? 0 : 1;
    goesOn = data.HasRowContinuation(row);
  }
  return elements;
}

/// The keywords that say what is computed in a step.
bool IsProcedure(inp_KeywordEnm keyword)
{
  switch (keyword)
  {
  case inp_kwAnneal:
  case inp_kwBuckle:
  case inp_kwCfd:
  case inp_kwComplexFrequency:
  case inp_kwCoupledTemperatureDisplacement:
  case inp_kwCoupledThermalElectrical:
  case inp_kwDirectCyclic:
  case inp_kwDynamic:
  case inp_kwDynamicTemperatureDisplacement:
  case inp_kwElectromagnetic:
  case inp_kwFrequency:
  case inp_kwGeostatic:
  case inp_kwHeatTransfer:
  case inp_kwMagnetostatic:
  case inp_kwMassDiffusion:
  case inp_kwMatrixGenerate:
  case inp_kwModalDynamic:
  case inp_kwRandomResponse:
  case inp_kwResponseSpectrum:
  case inp_kwSoils:
  case inp_kwStatic:
  case inp_kwSteadyStateDynamics:
  case inp_kwSteadyStateTransport:
  case inp_kwSubstructureGenerate:
  case inp_kwVisco:
    return true;
  default:
    return false;
  }
}

void Count(cow_List<inp_Keyword> const& keywords, srv_KeywordCensus& census);

void Count(inp_Keyword const& keyword, srv_KeywordCensus& census)
{
  ++census.keywords;
  ++census.kinds[keyword.keyword];
  if (keyword.Is(inp_kwNode))
  {
    census.nodeRows += keyword.data.Rows();
  }
  else if (keyword.Is(inp_kwElement))
  {
    int const rows = ElementRows(keyword.data);
    census.elementRows += rows;
    census.elementTypes[srv_Upper(TextOf(keyword, "type"))] += rows;
  }
  else if (keyword.Is(inp_kwPart))
  {
    census.parts.push_back(NameOf(keyword));
  }
  else if (keyword.Is(inp_kwMaterial))
  {
    census.materials.push_back(NameOf(keyword));
  }
  else if (keyword.Is(inp_kwStep))
  {
    census.steps.push_back({NameOf(keyword), ""});
  }
  else if (!census.steps.empty() && census.steps.back().procedure.empty() &&
           IsProcedure(keyword.keyword))
  {
    census.steps.back().procedure = "*" + srv_Upper(keyword.Name().View());
  }
  Count(keyword.suboptions, census);
}

void Count(cow_List<inp_Keyword> const& keywords, srv_KeywordCensus& census)
{
  for (inp_Keyword const& keyword : keywords)
  {
    Count(keyword, census);
  }
}

void CountElements(inp_MapInt2Element const& elements, srv_MeshCensus& census)
{
  // Types come in long runs, so the one before is nearly always the one at hand.
  cow_String type;
  int* count = nullptr;
  inp_MapInt2ElementSIT element(elements);
  for (element.First(); !element.IsDone(); element.Next())
  {
    cow_String const& own = element.CurrentValue().type();
    if (count == nullptr || own != type)
    {
      type = own;
      count = &census.elementTypes[std::string(type.View())];
    }
    ++*count;
    ++census.elements;
  }
}

/// Of a level: how many names it has.
int NamesOf(inpM_SetMap const& sets, cow_String const& level)
{
  return sets.ConstGetNestedSetMap(level).Size();
}
int NamesOf(inpM_SurfaceMap const& surfaces, cow_String const& level)
{
  return surfaces.ConstGetPartInstanceSurfaceMap(level).Size();
}
int OwnNamesOf(inpM_SetMap const& sets) { return sets.ConstGetMap().Size(); }
int OwnNamesOf(inpM_SurfaceMap const& surfaces)
{
  return surfaces.ConstGetAssemblyInstanceSurfaceMap().Size();
}

template <class Map>
srv_MeshCensus::Names CountNames(Map const& parts, Map const& assembly,
                                 inpM_InstanceMap<cow_String> const& instanceParts)
{
  srv_MeshCensus::Names names;
  for (cow_String const& part : parts.Instances())
  {
    names.inParts += NamesOf(parts, part);
  }
  for (cow_String const& instance : assembly.Instances())
  {
    int const ofPart =
      instanceParts.IsMember(instance) ? NamesOf(parts, instanceParts.ConstGet(instance)) : 0;
    names.inInstances += std::max(0, NamesOf(assembly, instance) - ofPart);
  }
  names.inAssembly = OwnNamesOf(assembly);
  return names;
}

} // namespace

srv_KeywordCensus srv_CountKeywords(cow_List<inp_Keyword> const& keywords)
{
  srv_KeywordCensus census;
  Count(keywords, census);
  return census;
}

srv_MeshCensus srv_CountMesh(inp_InputFile const& model)
{
  srv_MeshCensus census;
  census.nodes = model.assemblyCoordMap.Count();
  census.partNodes = model.partCoordMap.Count();
  if (model.assemblyElementMap.HasValue())
  {
    CountElements(model.assemblyElementMap.ConstGet(), census);
  }
  for (cow_String const& instance : model.assemblyElementMap.Instances())
  {
    CountElements(model.assemblyElementMap.ConstGet(instance), census);
  }
  census.nodeSets = CountNames(model.partNsetMap, model.assemblyNsetMap, model.instancePartNames);
  census.elementSets =
    CountNames(model.partElsetMap, model.assemblyElsetMap, model.instancePartNames);
  census.surfaces =
    CountNames(model.partSurfaceMap, model.assemblySurfaceMap, model.instancePartNames);
  return census;
}

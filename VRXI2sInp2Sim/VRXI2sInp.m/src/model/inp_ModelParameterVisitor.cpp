#include "inp_ModelParameterVisitor.h"

#include "inp_DistributionTableDB.h"
#include "inp_KeywordEnm.h"

#include <algorithm>
#include <limits>

namespace
{

constexpr int c_itemsOnALine = 8;
// Degrees of freedom above this one are temperatures.
constexpr int c_lastOtherFreedom = 10;

void KeepLarger(int& largest, long long value)
{
  long long const limit = std::numeric_limits<int>::max();
  largest = std::max(largest, static_cast<int>(std::min(value, limit)));
}

cow_String ParameterText(inp_Keyword const& keyword, char const* name, char const* defaultText)
{
  inp_Item const* const item = keyword.parameters.ConstFind(name);
  return item == nullptr ? cow_String(defaultText) : item->AsString();
}

/// The integer in a cell, 0 where there is none.
int IntAt(inp_DataArray const& data, int i, int j)
{
  return data.HasValue(i, j) ? data.AsInt(i, j) : 0;
}

int FirstStep(cow_List<inp_Keyword> const& list)
{
  int first = 0;
  while (first < list.Length() && !list.ConstGet(first).Is(inp_kwStep))
  {
    ++first;
  }
  return first;
}

/// Items up to the row's first blank one.
int LeadingItems(inp_DataArray const& data, int i)
{
  int items = 0;
  while (data.HasValue(i, items))
  {
    ++items;
  }
  return items;
}

int TemperatureFreedoms(inp_DataArray const& data, int i)
{
  int freedoms = 0;
  for (int j = 0; j < data.Cols(i); ++j)
  {
    freedoms += data.Type(i, j) == inp_Types::inp_INTEGER && data.AsInt(i, j) > c_lastOtherFreedom;
  }
  return freedoms;
}

/// Section points of all layers, a layer a row with its points in the second item. By Simpson's
/// rule a layer has its outermost points on its faces, so that neighbours share one.
long long PointsOfLayers(inp_DataArray const& data, bool bySimpson)
{
  int const defaultPoints = bySimpson ? 3 : 2;
  long long sum = 0;
  bool isShared = false;
  for (int i = 0; i < data.Rows(); ++i)
  {
    int const given = IntAt(data, i, 1);
    int const points = given >= 1 ? given : defaultPoints;
    sum += points - (isShared ? 1 : 0);
    isShared = bySimpson && points > 1;
  }
  return sum;
}

} // namespace

inp_ModelParameterVisitor::inp_ModelParameterVisitor(inp_ModelParameters& parameters)
  : m_parameters(parameters)
{
}

void inp_ModelParameterVisitor::VisitList(cow_List<inp_Keyword>& list)
{
  int const firstStep = FirstStep(list);
  int const length = list.Length();
  for (int i = firstStep; i < length; ++i)
  {
    Visit(list.Get(i));
  }
  for (int i = 0; i < firstStep; ++i)
  {
    Visit(list.Get(i));
  }
}

void inp_ModelParameterVisitor::DefaultAction(inp_Keyword&) {}

void inp_ModelParameterVisitor::VisitStep(inp_Keyword& keyword)
{
  inPerturbationStep = keyword.HasParameter("perturbation");
}

void inp_ModelParameterVisitor::VisitStatic(inp_Keyword&)
{
  m_parameters.staticStep |= !inPerturbationStep;
}

void inp_ModelParameterVisitor::VisitHeatTransfer(inp_Keyword&) { heatTransfer = true; }

void inp_ModelParameterVisitor::VisitCoupledTemperatureDisplacement(inp_Keyword&)
{
  coupledTemperatureDisplacement = true;
}

void inp_ModelParameterVisitor::VisitSymmetricModelGeneration(inp_Keyword&)
{
  m_parameters.symModelGen = true;
}

void inp_ModelParameterVisitor::VisitPart(inp_Keyword&) { m_parameters.featureEnhanced = true; }

void inp_ModelParameterVisitor::VisitInstance(inp_Keyword& keyword)
{
  m_parameters.featureEnhanced = true;
  hasImportPartParameters(keyword);
}

bool inp_ModelParameterVisitor::hasImportPartParameters(inp_Keyword& keyword)
{
  bool const isImported = keyword.HasParameter("instance");
  m_parameters.importedParts |= isImported;
  return isImported;
}

// Below a part or an instance *IMPORT takes over that one alone.
void inp_ModelParameterVisitor::VisitImport(inp_Keyword&)
{
  m_parameters.imported |= !m_parameters.featureEnhanced;
}

// *DEPVAR row: number of variables
void inp_ModelParameterVisitor::VisitDepvar(inp_Keyword& keyword)
{
  KeepLarger(m_parameters.numDepVars, IntAt(keyword.data, 0, 0));
}

// *ELEMENT SOLUTION DEPENDENT VARIABLES row: number of variables
void inp_ModelParameterVisitor::VisitElementSolutionDependentVariables(inp_Keyword& keyword)
{
  KeepLarger(m_parameters.numElemDepVars, IntAt(keyword.data, 0, 0));
}

void inp_ModelParameterVisitor::VisitShellGeneralSection(inp_Keyword& keyword)
{
  KeepLarger(m_parameters.numDepVars, keyword.GetParameterAsInt("variables", 0));
}

void inp_ModelParameterVisitor::VisitElement(inp_Keyword& keyword)
{
  cow_String const type = ParameterText(keyword, "type", "");
  bool const isHeatShell = type.Length() >= 3 && type.View().starts_with("DS");
  m_parameters.temperatureElms |= isHeatShell || type == "S8RT" || type == "S4RT";
}

// *ORIENTATION row: name of a distribution, or the first of the points
void inp_ModelParameterVisitor::VisitOrientation(inp_Keyword& keyword)
{
  inp_DataArray const& data = keyword.data;
  if (data.HasValue(0, 0) && data.Type(0, 0) == inp_Types::inp_STRING)
  {
    cow_String const system = ParameterText(keyword, "system", "RECTANGULAR");
    bool const isRectangular = system == "RECTANGULAR" || system == "ZRECTANGULAR";
    m_parameters.rectangularCsys.Insert(data.AsString(0, 0), isRectangular ? 1 : 0);
  }
}

// *DISTRIBUTION TABLE row: names of columns
void inp_ModelParameterVisitor::VisitDistributionTable(inp_Keyword& keyword)
{
  cow_String const name = keyword.NameIn("name");
  if (name.Empty())
  {
    return;
  }
  int items = 0;
  for (int i = 0; i < keyword.data.Rows(); ++i)
  {
    items += LeadingItems(keyword.data, i);
  }
  thr_ThreadSingleton<inp_DistributionTableDB>::Instance().setTableSize(name,
                                                                        items / c_itemsOnALine + 1);
}

// *BEAM SECTION, SECTION=ARBITRARY row: number of segments, ...
void inp_ModelParameterVisitor::VisitBeamSection(inp_Keyword& keyword)
{
  if (ParameterText(keyword, "temperature", "") == "VALUES" &&
      ParameterText(keyword, "section", "") == "ARBITRARY")
  {
    KeepLarger(m_parameters.numTempPts, 1LL + IntAt(keyword.data, 0, 0));
  }
}

// *USER ELEMENT rows: active degrees of freedom; every second row continues the one above it
void inp_ModelParameterVisitor::VisitUserElement(inp_Keyword& keyword)
{
  KeepLarger(m_parameters.numDepVars, keyword.GetParameterAsInt("variables", 0));
  for (int i = 0; i < keyword.data.Rows(); i += 2)
  {
    KeepLarger(m_parameters.numTempPts, TemperatureFreedoms(keyword.data, i));
  }
}

// *SHELL SECTION row: thickness, section points; with COMPOSITE a row a layer
void inp_ModelParameterVisitor::VisitShellSection(inp_Keyword& keyword)
{
  if (keyword.data.Rows() == 0)
  {
    return;
  }
  bool const isComposite = keyword.HasParameter("composite");
  CountShellTemperatures(keyword, isComposite);
  if (isComposite)
  {
    CountLayers(keyword);
  }
  else
  {
    KeepLarger(m_parameters.numGaussPts, IntAt(keyword.data, 0, 1));
  }
}

// Where temperatures are computed they stand at the section points instead.
void inp_ModelParameterVisitor::CountShellTemperatures(inp_Keyword const& keyword, bool isComposite)
{
  inp_Item const* const temperature = keyword.parameters.ConstFind("temperature");
  if (temperature == nullptr || temperature->Type() != inp_Types::inp_INTEGER ||
      ComputesTemperature())
  {
    return;
  }
  long long points = temperature->AsInt();
  long long const layers = keyword.data.Rows();
  if (isComposite && points >= 1)
  {
    points = points == 1 ? layers : (points - 1) * layers + 1;
  }
  KeepLarger(m_parameters.numTempPts, points);
}

void inp_ModelParameterVisitor::CountLayers(inp_Keyword const& keyword)
{
  bool const bySimpson = ParameterText(keyword, "sectionintegration", "") != "GAUSS";
  long long const points = PointsOfLayers(keyword.data, bySimpson);
  KeepLarger(m_parameters.numGaussPts, points);
  if (ComputesTemperature())
  {
    KeepLarger(m_parameters.numTempPts, points);
  }
}

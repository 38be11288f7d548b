#include "inp_MeshMessages.h"
#include "inp_NodeVisitor.h"
#include "inp_RowFields.h"

#include <algorithm>
#include <vector>

namespace
{

/// Where a node lies between its two ends: the part of the way from A to B.
struct Weights
{
  double ofA;
  double ofB;
};

inp_Coord Between(inp_Coord const& a, inp_Coord const& b, Weights const& weights,
                  bool hasNormal)
{
  auto const mean = [&](double atA, double atB) { return weights.ofA * atA + weights.ofB * atB; };
  inp_Coord node(mean(a.x, b.x), mean(a.y, b.y), mean(a.z, b.z));
  if (hasNormal)
  {
    node.AttachNormalComponents(mean(a.nx, b.nx), mean(a.ny, b.ny), mean(a.nz, b.nz));
  }
  return node;
}

bool HasNormal(inp_Coord const& coord)
{
  return gsl_Vector(coord.nx, coord.ny, coord.nz).Normalize();
}

Weights Mean(Weights const& p, Weights const& q, double ofQ)
{
  return {p.ofA * (1.0 - ofQ) + q.ofA * ofQ, p.ofB * (1.0 - ofQ) + q.ofB * ofQ};
}

/// Corner and midside nodes of elements that shrink towards a singular end with the square of the
/// distance; the midside node next to that end goes to the quarter point.
std::vector<Weights> SingularWeights(int intervals, int singularEnd)
{
  std::vector<Weights> weights;
  int const elements = intervals / 2;
  Weights previous{1.0, 0.0};
  for (int i = 1; i <= elements; ++i)
  {
    double const r = static_cast<double>(i) / elements;
    double const way = singularEnd == 1 ? r * r : 1.0 - (1.0 - r) * (1.0 - r);
    Weights const corner{1.0 - way, way};
    double const ofCorner = i == 1 && singularEnd == 1          ? 0.25
                            : i == elements && singularEnd == 2 ? 0.75
                                                                : 0.5;
    weights.push_back(Mean(previous, corner, ofCorner));
    if (i != elements)
    {
      weights.push_back(corner);
    }
    previous = corner;
  }
  return weights;
}

/// Intervals whose lengths fall from one to the next by a factor, or with two steps every second time.
std::vector<Weights> BiasedWeights(int intervals, double bias, bool hasTwoSteps)
{
  std::vector<double> ends;
  double sum = 0.0;
  double term = 1.0;
  for (int i = 0; i < intervals; ++i)
  {
    sum += term;
    ends.push_back(sum);
    term = hasTwoSteps && i % 2 == 0 ? term : term / bias;
  }
  std::vector<Weights> weights;
  for (int i = 0; i + 1 < intervals; ++i)
  {
    double const way = ends[static_cast<std::size_t>(i)] / sum;
    weights.push_back({1.0 - way, way});
  }
  return weights;
}

} // namespace

/// A row of *NFILL.
struct inp_NodeVisitor::FillRow
{
  cow_String names[2];
  cow_List<int> nodes[2];
  int pairs = 0;
  int intervals = 0;
  int step = 1;
  std::vector<Weights> weights; ///< of the nodes between the ends, from A to B
};

inpM_BaseSet const* inp_NodeVisitor::FindNodeSet(inp_Keyword const& keyword, cow_String const& name)
{
  cow_String scope = CurrentSetScope();
  bool const isSearched = !hasAssemblySets || sets.SearchAssemblyAndInstancesForSet(name, scope);
  inpM_BaseSet const* const set = isSearched ? sets.ConstFindNestedSet(scope, name) : nullptr;
  if (set == nullptr)
  {
    Say(inp_msgNodeSetMissing, keyword, name);
  }
  return set;
}

// *NFILL row: first set, second set, intervals[, step]
void inp_NodeVisitor::VisitNfill(inp_Keyword& keyword)
{
  double const bias = keyword.GetParameterAsDouble("bias", 0.0);
  if (keyword.HasParameter("singular"))
  {
    if (bias > 0.0)
    {
      Say(inp_msgSingularAndBias, keyword);
      return;
    }
    int const end = keyword.GetParameterAsInt("singular", 0);
    if (end != 1 && end != 2)
    {
      Say(inp_msgSingularInvalid, keyword, NameParameter(keyword, "singular"));
      return;
    }
  }
  if (keyword.HasParameter("twostep") && bias == 0.0)
  {
    Say(inp_msgTwoStepWithoutBias, keyword);
  }
  inp_CoordMap* const map = TargetMap(keyword);
  cow_List<int> labels;
  for (int row = 0; map != nullptr && row < keyword.data.Rows(); ++row)
  {
    FillRow fill;
    if (!ReadFillRow(keyword, row, fill) || !FillBetweenSets(keyword, fill, *map, labels))
    {
      return;
    }
  }
  if (labels.Length() > 0)
  {
    AddNodeSet(keyword, "nset", CreateSet(labels, false, false));
  }
}

/// Reads a row. False, with an error, when the keyword is to end.
bool inp_NodeVisitor::ReadFillRow(inp_Keyword const& keyword, int row, FillRow& fill)
{
  inp_DataArray const& data = keyword.data;
  if (data.Cols(row) < 3)
  {
    Say(inp_msgNfillRowInvalid, keyword, inp_RowText(data, row));
    return false;
  }
  for (int end = 0; end < 2; ++end)
  {
    fill.names[end] = data.AsString(row, end);
    inpM_BaseSet const* const set = FindNodeSet(keyword, fill.names[end]);
    if (set == nullptr)
    {
      return false;
    }
    fill.nodes[end] = set->ConstGetIds();
  }
  int const p = fill.nodes[0].Length();
  int const q = fill.nodes[1].Length();
  fill.pairs = std::min(p, q);
  if (p != q)
  {
    Say(inp_msgNodeSetsDiffer, keyword, fill.names[0], fill.names[1], p, q, fill.pairs);
  }
  bool const isSingular = keyword.HasParameter("singular");
  fill.intervals = data.AsInt(row, 2);
  if (fill.intervals < 1)
  {
    Say(inp_msgIntervalsMissing, keyword);
    return false;
  }
  if (isSingular && fill.intervals % 2 != 0)
  {
    Say(inp_msgIntervalsOdd, keyword);
    return false;
  }
  if (!CheckCount(keyword, (fill.intervals - 1.0) * std::max(fill.pairs, 1)))
  {
    return false;
  }
  int const step = inp_IntField(data, row, 3);
  fill.step = step != 0 ? step : 1;
  double const bias = keyword.GetParameterAsDouble("bias", 0.0);
  fill.weights =
    isSingular ? SingularWeights(fill.intervals, keyword.GetParameterAsInt("singular", 1))
               : BiasedWeights(fill.intervals, bias != 0.0 ? bias : 1.0,
                               keyword.HasParameter("twostep"));
  return true;
}

/// Tells whether the nodes of a pair exist, and warns when the labels between them do not fit. What is
/// missing is reported once a row and set.
bool inp_NodeVisitor::CheckFillEnds(inp_Keyword const& keyword, FillRow const& fill,
                                    inp_CoordMap const& map, int a, int b, bool (&isReported)[2])
{
  int const ends[2] = {a, b};
  bool isThere = true;
  for (int end = 0; computeGeometry && end < 2; ++end)
  {
    if (map.IsMember(ends[end]))
    {
      continue;
    }
    isThere = false;
    if (!isReported[end])
    {
      Say(inp_msgNodeOfSetMissing, keyword, fill.names[end]);
    }
    isReported[end] = true;
  }
  if (isThere && a + static_cast<long long>(fill.step) * fill.intervals != b)
  {
    Say(inp_msgIntervalsInconsistent, keyword, fill.intervals, fill.step, fill.names[0], a,
        fill.names[1], b);
  }
  return isThere;
}

/// Generates the nodes of a row. False, with an error, when a label would leave its range.
bool inp_NodeVisitor::FillBetweenSets(inp_Keyword const& keyword, FillRow const& fill,
                                      inp_CoordMap& map, cow_List<int>& labels)
{
  labels.Concatenate(fill.nodes[0]);
  labels.Concatenate(fill.nodes[1]);
  bool isReported[2] = {false, false};
  for (int pair = 0; pair < fill.pairs; ++pair)
  {
    int const a = fill.nodes[0][pair];
    int const b = fill.nodes[1][pair];
    if (!CheckFillEnds(keyword, fill, map, a, b, isReported))
    {
      continue;
    }
    long long label = a;
    inp_Coord const coordA = computeGeometry ? map.ConstGet(a) : inp_Coord();
    inp_Coord const coordB = computeGeometry ? map.ConstGet(b) : inp_Coord();
    bool const hasNormal = HasNormal(coordA) || HasNormal(coordB);
    for (Weights const& weights : fill.weights)
    {
      label += fill.step;
      if (!CheckLabel(keyword, label))
      {
        return false;
      }
      inp_Coord const node = UndoInstanceTransform(Between(coordA, coordB, weights, hasNormal));
      map.Insert(static_cast<int>(label), computeGeometry ? node : inp_Coord());
      labels.Append(static_cast<int>(label));
    }
  }
  return true;
}

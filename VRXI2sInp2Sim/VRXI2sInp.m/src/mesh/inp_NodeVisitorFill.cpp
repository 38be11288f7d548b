#include "inp_MeshMessages.h"
#include "inp_NodeVisitor.h"
#include "inp_RowFields.h"

#include <algorithm>
#include <vector>

namespace
{

// *NFILL puts nodes on the straight way from each node A of a first set to the node B of a second one
// that has the same index in its set. Where they lie depends on the parameters:
//
//   none       A --.--.--.--.-- B      intervals of equal length
//   BIAS       A -.--.---.----. B      each interval longer, or shorter, than the one before by a factor;
//                                      with TWO STEP every second one, so that pairs of equal intervals
//                                      make elements with midside nodes
//   SINGULAR   A.-.--.---.----. B      elements with midside nodes that become smaller towards one end
//
// A normal is interpolated like a position.

/// Position and components of the normal; the latter need not have length 1.
struct FillPoint
{
  gsl_Vector position;
  gsl_Vector normal;

  FillPoint(gsl_Vector const& itsPosition, gsl_Vector const& itsNormal)
    : position(itsPosition), normal(itsNormal)
  {
  }
  explicit FillPoint(inp_Coord const& coord)
    : position(coord.x, coord.y, coord.z), normal(coord.nx, coord.ny, coord.nz)
  {
  }

  bool HasNormal() const { return gsl_Vector(normal).Normalize(); }

  inp_Coord Node(bool withNormal) const
  {
    inp_Coord node(position.X(), position.Y(), position.Z());
    if (withNormal)
    {
      node.AttachNormalComponents(normal.X(), normal.Y(), normal.Z());
    }
    return node;
  }
};

FillPoint operator*(FillPoint const& point, double factor)
{
  return {point.position * factor, point.normal * factor};
}
FillPoint operator+(FillPoint const& p, FillPoint const& q)
{
  return {p.position + q.position, p.normal + q.normal};
}
FillPoint operator-(FillPoint const& p, FillPoint const& q)
{
  return {p.position - q.position, p.normal - q.normal};
}

/// Stores the corner and midside nodes of elements along the way, until `store` is false. Corner i of n lies
/// at (i/n)^2 of the way from the singular end, so that elements grow with the distance from it. Midside
/// nodes lie in the middle, but that of the element at the singular end a quarter of its length from there:
/// this makes the strain singular, as it is at the tip of a crack.
///
///     A=0       1/9              4/9                    1=B      3 elements, singular end A
///      |---.-----|--------.-------|-----------.----------|
template <class Store>
bool StoreToSingularEnd(FillPoint const& a, FillPoint const& b, int intervals, int singularEnd,
                        Store const& store)
{
  int const count = intervals / 2;
  FillPoint previous = a;
  for (int i = 1; i <= count; ++i)
  {
    double const r = static_cast<double>(i) / count;
    double const fromEnd = singularEnd == 2 ? 1.0 - r : r;
    double const way = fromEnd * fromEnd;
    FillPoint const corner = singularEnd == 2 ? b - (b - a) * way : a + (b - a) * way;
    double const ofCorner = i == 1 && singularEnd == 1       ? 0.25
                            : i == count && singularEnd == 2 ? 0.75
                                                             : 0.5;
    if (!store(previous * (1.0 - ofCorner) + corner * ofCorner) || (i != count && !store(corner)))
    {
      return false;
    }
    previous = corner;
  }
  return true;
}

/// Where the nodes between the ends lie, as fractions of the way. Each interval is shorter than the one
/// before by the factor `bias`; with two steps intervals come in pairs, and each pair is.
std::vector<double> BiasedParts(int intervals, double bias, bool hasTwoSteps)
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
  ends.pop_back();
  for (double& end : ends)
  {
    end /= sum;
  }
  return ends;
}

template <class Store>
bool StoreBetween(FillPoint const& a, FillPoint const& b, std::vector<double> const& parts,
                  Store const& store)
{
  return std::all_of(parts.begin(), parts.end(),
                     [&](double part) { return store(a * (1.0 - part) + b * part); });
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
  int singularEnd = 0;       ///< 1 or 2; 0 for none
  std::vector<double> parts; ///< see BiasedParts; for rows without a singular end
};

inpM_BaseSet const* inp_NodeVisitor::FindNodeSet(inp_Keyword const& keyword, cow_String const& name)
{
  cow_String scope = SetScope();
  bool const isSearched = !hasAssemblySets || sets.SearchAssemblyAndInstancesForSet(name, scope);
  inpM_BaseSet const* const set = isSearched ? sets.ConstFindNestedSet(scope, name) : nullptr;
  if (set == nullptr)
  {
    Say(inp_msgNodeSetMissing, keyword, name);
  }
  return set;
}

/// False, with an error, when the parameters do not say where nodes lie.
bool inp_NodeVisitor::CheckFillParameters(inp_Keyword const& keyword)
{
  double const bias = keyword.GetParameterAsDouble("bias", 0.0);
  if (keyword.HasParameter("singular"))
  {
    if (bias > 0.0)
    {
      Say(inp_msgSingularAndBias, keyword);
      return false;
    }
    int const end = keyword.GetParameterAsInt("singular", 0);
    if (end != 1 && end != 2)
    {
      Say(inp_msgSingularInvalid, keyword, keyword.NameIn("singular"));
      return false;
    }
  }
  if (keyword.HasParameter("twostep") && bias == 0.0)
  {
    Say(inp_msgTwoStepWithoutBias, keyword);
  }
  return true;
}

// *NFILL row: first set, second set, intervals[, step]
void inp_NodeVisitor::VisitNfill(inp_Keyword& keyword)
{
  inp_CoordMap* const map = CheckFillParameters(keyword) ? TargetMap(keyword) : nullptr;
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
    AddNodeSet(keyword, "nset", CreateSet(labels));
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
  if (!ReadFillSets(keyword, row, fill) || !ReadFillIntervals(keyword, row, fill))
  {
    return false;
  }
  int const step = inp_IntField(data, row, 3);
  fill.step = step != 0 ? step : 1;
  double const bias = keyword.GetParameterAsDouble("bias", 0.0);
  fill.singularEnd = keyword.GetParameterAsInt("singular", 0);
  if (!keyword.HasParameter("singular"))
  {
    fill.parts =
      BiasedParts(fill.intervals, bias != 0.0 ? bias : 1.0, keyword.HasParameter("twostep"));
  }
  return true;
}

/// The sets of a row. Of the larger one the nodes at the end have no partner and are left out.
bool inp_NodeVisitor::ReadFillSets(inp_Keyword const& keyword, int row, FillRow& fill)
{
  for (int end = 0; end < 2; ++end)
  {
    fill.names[end] = keyword.data.AsString(row, end);
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
  return true;
}

bool inp_NodeVisitor::ReadFillIntervals(inp_Keyword const& keyword, int row, FillRow& fill)
{
  fill.intervals = keyword.data.AsInt(row, 2);
  if (fill.intervals < 1)
  {
    Say(inp_msgIntervalsMissing, keyword);
    return false;
  }
  if (keyword.HasParameter("singular") && fill.intervals % 2 != 0)
  {
    Say(inp_msgIntervalsOdd, keyword);
    return false;
  }
  return CheckCount(keyword, (fill.intervals - 1.0) * std::max(fill.pairs, 1));
}

/// True when both nodes of a pair exist, with a warning when step and intervals do not lead from one label
/// to the other. A missing node is reported once for each set of a row.
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
    if (!FillBetweenNodes(keyword, fill, map, a, b, labels))
    {
      return false;
    }
  }
  return true;
}

bool inp_NodeVisitor::FillBetweenNodes(inp_Keyword const& keyword, FillRow const& fill,
                                       inp_CoordMap& map, int a, int b, cow_List<int>& labels)
{
  FillPoint const pointA(computeGeometry ? map.ConstGet(a) : inp_Coord());
  FillPoint const pointB(computeGeometry ? map.ConstGet(b) : inp_Coord());
  bool const hasNormal = pointA.HasNormal() || pointB.HasNormal();
  long long label = a;
  auto const store = [&](FillPoint const& point)
  {
    label += fill.step;
    if (!CheckLabel(keyword, label) ||
        !Store(keyword, map, static_cast<int>(label),
               computeGeometry ? UndoInstanceTransform(point.Node(hasNormal)) : inp_Coord()))
    {
      return false;
    }
    labels.Append(static_cast<int>(label));
    return true;
  };
  return fill.singularEnd != 0
           ? StoreToSingularEnd(pointA, pointB, fill.intervals, fill.singularEnd, store)
           : StoreBetween(pointA, pointB, fill.parts, store);
}

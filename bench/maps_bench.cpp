// The maps of a mesh at the size of a large deck: built from a million typed rows each, looked up in
// random order beside a sorted array, renumbered; and sets by the hundred thousand.
//
// "bytes" counts tables and records with what the allocator rounds up.

#include "inpM_CreateSet.h"
#include "inpM_SetMap.h"
#include "inpM_SortedSet.h"
#include "inp_CoordMap.h"
#include "inp_ElementDataArrayImpl.h"
#include "inp_MapInt2Element.h"
#include "inp_NodeDataArrayImpl.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

namespace
{
int const million = 1000000;

inp_NodeDataArrayImpl const& NodeRows()
{
  static inp_NodeDataArrayImpl const* const rows = []
  {
    auto* const made = new inp_NodeDataArrayImpl(million + 1);
    for (int label = 1; label <= million; ++label)
    {
      made->Append(label, 0.5 * label, 0.25 * label, 1.0);
    }
    return made;
  }();
  return *rows;
}

// Label and nodes of element e, as a sweep through a block of hexahedra would number them.
int NodeOf(int element, int place) { return 1 + (element * 7 + place * 1009) % million; }

inp_ElementDataArrayImpl const& ElementRows()
{
  static inp_ElementDataArrayImpl const* const rows = []
  {
    inp_MapInt2Element elements;
    cow_List<int> ids;
    for (int label = 1; label <= million; ++label)
    {
      int nodes[8];
      for (int place = 0; place < 8; ++place)
      {
        nodes[place] = NodeOf(label, place);
      }
      elements.InsertPtr(label, inp_Element::Make("C3D8R", 8, nodes, 8, 0, 0));
      ids.Append(label);
    }
    return new inp_ElementDataArrayImpl(ids, elements);
  }();
  return *rows;
}

inp_CoordMap MakeNodes()
{
  inp_NodeDataArrayImpl const& rows = NodeRows();
  inp_CoordMap nodes;
  for (int row = 0; row < rows.Rows(); ++row)
  {
    nodes.Insert(rows.AsInt(row, 0),
                 inp_Coord(rows.AsDouble(row, 1), rows.AsDouble(row, 2), rows.AsDouble(row, 3)));
  }
  return nodes;
}

inp_MapInt2Element MakeElements()
{
  inp_ElementDataArrayImpl const& rows = ElementRows();
  cow_String const type("C3D8R");
  inp_MapInt2Element elements;
  for (int row = 0; row < rows.Rows(); ++row)
  {
    int nodes[8];
    for (int place = 0; place < 8; ++place)
    {
      nodes[place] = rows.AsInt(row, place + 1);
    }
    elements.InsertPtr(rows.AsInt(row, 0), inp_Element::Make(type, 8, nodes, 8, 0, 0));
  }
  return elements;
}

std::vector<int> RandomLabels()
{
  std::vector<int> labels(million);
  std::iota(labels.begin(), labels.end(), 1);
  std::shuffle(labels.begin(), labels.end(), std::mt19937(1));
  return labels;
}

void Report(benchmark::State& state, std::size_t bytes = 0)
{
  state.counters["s/item"] = benchmark::Counter(
    million, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  if (bytes != 0)
  {
    state.counters["bytes/item"] = static_cast<double>(bytes) / million;
  }
}

void BuildNodes(benchmark::State& state)
{
  NodeRows();
  std::size_t bytes = 0;
  for (auto _ : state)
  {
    inp_CoordMap const nodes = MakeNodes();
    state.PauseTiming();
    bytes = sizeof(nodes) + nodes.ConstGetStored().Bytes();
    state.ResumeTiming();
  }
  Report(state, bytes);
}

// What the pool alone takes for the same blocks: the floor of BuildNodes.
void AllocateNodes(benchmark::State& state)
{
  std::vector<void*> blocks(million);
  for (auto _ : state)
  {
    for (void*& block : blocks)
    {
      block = ::new (mem_OperatorNewThrow(sizeof(inp_Coord))) inp_Coord;
    }
    for (void* block : blocks)
    {
      mem_Free(block);
    }
  }
  Report(state);
}

void BuildElements(benchmark::State& state)
{
  ElementRows();
  std::size_t bytes = 0;
  for (auto _ : state)
  {
    inp_MapInt2Element const elements = MakeElements();
    state.PauseTiming();
    bytes = sizeof(elements) + elements.Bytes();
    state.ResumeTiming();
  }
  Report(state, bytes);
}

void FindNode(benchmark::State& state)
{
  inp_CoordMap const nodes = MakeNodes();
  std::vector<int> const labels = RandomLabels();
  for (auto _ : state)
  {
    double sum = 0.0;
    for (int label : labels)
    {
      sum += nodes.IsMember(label) ? nodes.ConstGet(label).x : 0.0;
    }
    benchmark::DoNotOptimize(sum);
  }
  Report(state);
}

void FindNodeInSortedArray(benchmark::State& state)
{
  std::vector<std::pair<int, inp_Coord>> nodes;
  inp_NodeDataArrayImpl const& rows = NodeRows();
  for (int row = 0; row < rows.Rows(); ++row)
  {
    nodes.emplace_back(rows.AsInt(row, 0), inp_Coord(rows.AsDouble(row, 1), 0.0, 0.0));
  }
  std::vector<int> const labels = RandomLabels();
  auto const isBelow = [](std::pair<int, inp_Coord> const& node, int label)
  { return node.first < label; };
  for (auto _ : state)
  {
    double sum = 0.0;
    for (int label : labels)
    {
      auto const found = std::lower_bound(nodes.begin(), nodes.end(), label, isBelow);
      sum += found != nodes.end() && found->first == label ? found->second.x : 0.0;
    }
    benchmark::DoNotOptimize(sum);
  }
  Report(state);
}

void FindElement(benchmark::State& state)
{
  inp_MapInt2Element const elements = MakeElements();
  std::vector<int> const labels = RandomLabels();
  for (auto _ : state)
  {
    long sum = 0;
    for (int label : labels)
    {
      inp_Element const* const element = elements.GetEltPtr(label);
      sum += element != nullptr ? element->topology()[0] : 0;
    }
    benchmark::DoNotOptimize(sum);
  }
  Report(state);
}

void WalkPositionedNodes(benchmark::State& state)
{
  inp_CoordMap nodes = MakeNodes();
  nodes.Transform(gsl_Matrix::AxisRotation(gsl_Point(), gsl_Vector(0.0, 0.0, 1.0), 0.5));
  for (auto _ : state)
  {
    inp_MapInt2Coord const positioned = nodes.ConstGet();
    benchmark::DoNotOptimize(positioned.Size());
  }
  Report(state);
}

void RenumberNodes(benchmark::State& state)
{
  inp_CoordMap nodes = MakeNodes();
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(nodes.Renumber(2, false).NumberIds());
  }
  Report(state);
}

void RenumberElements(benchmark::State& state)
{
  inpM_InstanceMap<inp_MapInt2Element> elements(MakeElements());
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(elements.Renumber(2, false).NumberIds());
  }
  Report(state);
}

void UpdateConnectivity(benchmark::State& state)
{
  inpM_InstanceMap<inp_MapInt2Element> elements(MakeElements());
  inpM_IdMap ids;
  for (int label = 1; label <= million; ++label)
  {
    ids.Insert(label, million + 1 - label);
  }
  for (auto _ : state)
  {
    elements.Update(ids);
  }
  Report(state);
}

// A hundred thousand sets of ten members under names of their own; the map's entries are counted as
// 64 bytes, half of them in use, and 8 for the handle's count.
void TenMemberSets(benchmark::State& state)
{
  int const count = 100000;
  std::vector<cow_String> names;
  for (int i = 0; i < count; ++i)
  {
    names.push_back(cow_String("SET-") + cow_String(i));
  }
  double bytes = 0.0;
  for (auto _ : state)
  {
    inpM_SetMap sets;
    for (int i = 0; i < count; ++i)
    {
      cow_List<int> ids;
      for (int member = 0; member < 10; ++member)
      {
        ids.Append(i * 9000 + member * 7 + 1);
      }
      sets.InsertNestedSet("PART-1-1", names[static_cast<std::size_t>(i)], CreateSet(ids));
    }
    state.PauseTiming();
    bytes = 0.0;
    for (inpM_BaseSetMapIT it(sets.ConstGetNestedSetMap("PART-1-1")); !it.IsDone(); it.Next())
    {
      bytes += 72.0 + static_cast<double>(it.CurrentValue().Bytes());
    }
    state.ResumeTiming();
  }
  state.counters["bytes/set"] = bytes / count;
  state.counters["s/set"] = benchmark::Counter(
    count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// One set of a thousand others, each of as many scattered members as the argument says.
void SetOfSets(benchmark::State& state)
{
  int const members = static_cast<int>(state.range(0));
  std::mt19937 random(3);
  std::vector<inpM_SetHandle> sets;
  for (int i = 0; i < 1000; ++i)
  {
    cow_List<int> ids;
    for (int member = 0; member < members; ++member)
    {
      ids.Append(1 + static_cast<int>(random() % 10000000));
    }
    sets.push_back(CreateSet(ids));
  }
  for (auto _ : state)
  {
    inpM_SortedSet all;
    for (inpM_SetHandle const& set : sets)
    {
      all.Add(*set);
    }
    benchmark::DoNotOptimize(all.ConstGetIdsGrid().Size());
  }
  state.counters["s/member"] = benchmark::Counter(
    1000.0 * members, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
} // namespace

BENCHMARK(BuildNodes)->Unit(benchmark::kMillisecond);
BENCHMARK(AllocateNodes)->Unit(benchmark::kMillisecond);
BENCHMARK(BuildElements)->Unit(benchmark::kMillisecond);
BENCHMARK(FindNode)->Unit(benchmark::kMillisecond);
BENCHMARK(FindNodeInSortedArray)->Unit(benchmark::kMillisecond);
BENCHMARK(FindElement)->Unit(benchmark::kMillisecond);
BENCHMARK(WalkPositionedNodes)->Unit(benchmark::kMillisecond);
BENCHMARK(RenumberNodes)->Unit(benchmark::kMillisecond);
BENCHMARK(RenumberElements)->Unit(benchmark::kMillisecond);
BENCHMARK(UpdateConnectivity)->Unit(benchmark::kMillisecond);
BENCHMARK(TenMemberSets)->Unit(benchmark::kMillisecond);
BENCHMARK(SetOfSets)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();

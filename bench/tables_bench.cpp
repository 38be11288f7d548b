// The integer-keyed tables beside a sorted vector and std::unordered_map, over the patterns of labels
// that decks hold. Each line gives the time a key and the bytes a key asked of the allocator.

#include "inpM_OmiSet.h"
#include "omi_IntTable.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace
{
using Keys = std::vector<int>;

Keys Strided(int first, int count, int step)
{
  Keys keys;
  for (int i = 0; i < count; ++i)
  {
    keys.push_back(first + i * step);
  }
  return keys;
}

Keys RunsOfThousand()
{
  Keys keys;
  for (int run = 100; run < 1000; ++run)
  {
    Keys const part = Strided(run * 1000000 + 1, 1000, 1);
    keys.insert(keys.end(), part.begin(), part.end());
  }
  return keys;
}

Keys Scattered(int count)
{
  std::mt19937 random(7);
  Keys keys;
  for (int i = 0; i < count; ++i)
  {
    keys.push_back(1 + static_cast<int>(random() % 999999999));
  }
  return keys;
}

Keys Shuffled(Keys keys)
{
  std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
  return keys;
}

// What each kind of table must do for the measurements.

struct RadixTable
{
  omi_IntTable<long> table;

  void Fill(Keys const& keys)
  {
    for (int key : keys)
    {
      table.Insert(key, key);
    }
  }
  long Find(int key) const { return table.IsMember(key) ? table.ConstGet(key) : 0; }
  long Sum() const
  {
    long sum = 0;
    for (omi_IntTableIterator<long> it(table); !it.IsDone(); it.Next())
    {
      sum += it.CurrentKey() + it.CurrentValue();
    }
    return sum;
  }
  std::size_t Bytes() const { return table.Bytes(); }
};

struct SortedVector
{
  std::vector<std::pair<int, long>> rows;

  void Fill(Keys const& keys)
  {
    for (int key : keys)
    {
      rows.emplace_back(key, key);
    }
    std::sort(rows.begin(), rows.end());
  }
  long Find(int key) const
  {
    auto const row = std::lower_bound(rows.begin(), rows.end(), std::pair<int, long>(key, 0));
    return row != rows.end() && row->first == key ? row->second : 0;
  }
  long Sum() const
  {
    long sum = 0;
    for (auto const& row : rows)
    {
      sum += row.first + row.second;
    }
    return sum;
  }
  std::size_t Bytes() const { return rows.capacity() * sizeof(rows[0]); }
};

struct HashMap
{
  std::unordered_map<int, long> map;

  void Fill(Keys const& keys)
  {
    for (int key : keys)
    {
      map.emplace(key, key);
    }
  }
  long Find(int key) const
  {
    auto const found = map.find(key);
    return found != map.end() ? found->second : 0;
  }
  long Sum() const
  {
    long sum = 0;
    for (auto const& row : map)
    {
      sum += row.first + row.second;
    }
    return sum;
  }
  std::size_t Bytes() const
  {
    std::size_t const node = sizeof(void*) + sizeof(std::pair<int const, long>);
    return map.bucket_count() * sizeof(void*) + map.size() * node;
  }
};

struct OmiSet
{
  inpM_OmiSet set;

  void Fill(Keys const& keys)
  {
    for (int key : keys)
    {
      set.Insert(key);
    }
  }
  long Find(int key) const { return set.IsMember(key) ? 1 : 0; }
  long Sum() const
  {
    long sum = 0;
    for (inpM_OmiSetIT it(set); !it.IsDone(); it.Next())
    {
      sum += it.CurrentItem();
    }
    return sum;
  }
  std::size_t Bytes() const { return set.Bytes(); }
};

void Report(benchmark::State& state, std::size_t keys, std::size_t bytes)
{
  double const count = static_cast<double>(keys);
  state.counters["s/key"] = benchmark::Counter(
    count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["bytes/key"] = static_cast<double>(bytes) / count;
}

template <class Table>
void Insert(benchmark::State& state, Keys const& keys)
{
  std::size_t bytes = 0;
  for (auto _ : state)
  {
    Table table;
    table.Fill(keys);
    bytes = table.Bytes();
    benchmark::DoNotOptimize(bytes);
  }
  Report(state, keys.size(), bytes);
}

template <class Table>
void Lookup(benchmark::State& state, Keys const& keys)
{
  Table table;
  table.Fill(keys);
  Keys const probes = Shuffled(keys);
  for (auto _ : state)
  {
    long sum = 0;
    for (int key : probes)
    {
      sum += table.Find(key);
    }
    benchmark::DoNotOptimize(sum);
  }
  Report(state, keys.size(), table.Bytes());
}

template <class Table>
void Iterate(benchmark::State& state, Keys const& keys)
{
  Table table;
  table.Fill(keys);
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(table.Sum());
  }
  Report(state, keys.size(), table.Bytes());
}

template <class Table>
void RegisterTable(std::string const& table, std::string const& pattern, Keys const& keys)
{
  std::string const name = pattern + "/" + table + "/";
  auto const add = [&](char const* what, void (*measure)(benchmark::State&, Keys const&))
  {
    benchmark::RegisterBenchmark((name + what).c_str(),
                                 [measure, keys](benchmark::State& state) { measure(state, keys); })
      ->Unit(benchmark::kMillisecond);
  };
  add("insert", Insert<Table>);
  add("lookup", Lookup<Table>);
  add("iterate", Iterate<Table>);
}

void RegisterPattern(std::string const& pattern, Keys const& keys)
{
  RegisterTable<RadixTable>("omi_IntTable", pattern, keys);
  RegisterTable<SortedVector>("sorted vector", pattern, keys);
  RegisterTable<HashMap>("std::unordered_map", pattern, keys);
  RegisterTable<OmiSet>("inpM_OmiSet", pattern, keys);
}

// A hundred thousand sets of ten members, filled and dropped; bytes with the handle.
void TenMemberSets(benchmark::State& state)
{
  int const count = 100000;
  for (auto _ : state)
  {
    std::vector<inpM_OmiSet> sets(count);
    std::size_t bytes = 0;
    for (int i = 0; i < count; ++i)
    {
      inpM_OmiSet& set = sets[static_cast<std::size_t>(i)];
      for (int member = 0; member < 10; ++member)
      {
        set.Insert(i * 9000 + member * 7);
      }
      bytes += sizeof(set) + set.Bytes();
    }
    state.counters["bytes/set"] = static_cast<double>(bytes) / count;
  }
}
} // namespace

int main(int argc, char** argv)
{
  benchmark::RegisterBenchmark("100000 sets of ten", TenMemberSets)->Unit(benchmark::kMillisecond);
  RegisterPattern("1 to 1000000", Strided(1, 1000000, 1));
  RegisterPattern("every 1000th to 1e8", Strided(1000, 100000, 1000));
  RegisterPattern("100000 of 1e9 at random", Scattered(100000));
  RegisterPattern("100000 from 100000001", Strided(100000001, 100000, 1));
  RegisterPattern("900 runs of 1000", RunsOfThousand());
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}

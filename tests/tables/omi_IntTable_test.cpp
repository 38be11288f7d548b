#include "omi_IntTable.h"

#include "LabelSource.h"
#include "cow_IntTableInt.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace
{
using Oracle = std::map<int, int>;

template <class Iterator, class Table>
Oracle Contents(Table const& table)
{
  Oracle contents;
  int previous = INT_MIN;
  for (Iterator it(table); !it.IsDone(); it.Next())
  {
    EXPECT_TRUE(contents.empty() || it.CurrentKey() > previous) << it.CurrentKey();
    previous = it.CurrentKey();
    contents[previous] = it.CurrentValue();
  }
  EXPECT_EQ(static_cast<int>(contents.size()), table.Size());
  return contents;
}

Oracle ContentsOf(omi_IntTable<int> const& table)
{
  return Contents<omi_IntTableIterator<int>>(table);
}
Oracle ContentsOf(cow_IntTableInt const& table) { return Contents<cow_IntTableIntIT>(table); }

template <class Table>
void Change(Table& table, Oracle& oracle, LabelSource& labels)
{
  int const key = labels.Next();
  int const value = labels.Below(1 << 30);
  if (labels.Below(4) == 0)
  {
    ASSERT_EQ(oracle.erase(key) != 0, table.Remove(key)) << key;
    return;
  }
  ASSERT_EQ(!oracle.contains(key), table.Insert(key, value)) << key;
  oracle[key] = value;
}

template <class Table>
void ExpectSameLookups(Table const& table, Oracle const& oracle, LabelSource& labels)
{
  for (int probe = 0; probe < 200; ++probe)
  {
    int const key = labels.Next();
    int value = -1;
    auto const found = oracle.find(key);
    ASSERT_EQ(found != oracle.end(), table.IsMember(key)) << key;
    ASSERT_EQ(found != oracle.end(), table.ConstGetValue(key, value)) << key;
    ASSERT_EQ(found != oracle.end() ? found->second : -1, value) << key;
  }
}

// Runs random insertions and removals on a table, with a copy taken halfway.
template <class Table>
void RunAgainstOracle(unsigned seed)
{
  SCOPED_TRACE(seed);
  LabelSource labels(seed);
  Table table;
  Oracle oracle;
  int const steps = 1 + labels.Below(1500);
  for (int step = 0; step < steps; ++step)
    Change(table, oracle, labels);
  Table copy(table);
  Oracle const copied = oracle;
  labels.MoveRun();
  for (int step = 0; step < steps; ++step)
    Change(table, oracle, labels);
  ExpectSameLookups(table, oracle, labels);
  EXPECT_EQ(oracle, ContentsOf(table));
  if constexpr (std::is_same_v<Table, omi_IntTable<int>>)
  {
    omi_IntTableIterator<int> last(table);
    last.Last();
    EXPECT_EQ(oracle.empty(), last.IsDone());
    EXPECT_TRUE(oracle.empty() || oracle.rbegin()->first == last.CurrentKey());
  }
  ExpectSameLookups(copy, copied, labels);
  EXPECT_EQ(copied, ContentsOf(copy));
  copy = table;
  table.Clear();
  EXPECT_TRUE(table.IsEmpty());
  EXPECT_EQ(Oracle(), ContentsOf(table));
  EXPECT_EQ(oracle, ContentsOf(copy));
}
} // namespace

TEST(omi_IntTable, BehavesAsAnOrderedMapAndSoDoCopiesThatShare)
{
  for (unsigned seed = 0; seed < 150; ++seed)
    RunAgainstOracle<omi_IntTable<int>>(seed);
  for (unsigned seed = 1000; seed < 1100; ++seed)
    RunAgainstOracle<cow_IntTableInt>(seed);
}

TEST(omi_IntTable, AnEmptyTableHasNoFirstAndNoLast)
{
  omi_IntTable<int> table;
  omi_IntTableIterator<int> it(table);
  EXPECT_TRUE(it.IsDone());
  table.Insert(-3, 1);
  table.Insert(70000, 1);
  table.Remove(-3);
  table.Remove(70000);
  it.First();
  EXPECT_TRUE(it.IsDone()) << "nodes without keys";
  it.Last();
  EXPECT_TRUE(it.IsDone()) << "nodes without keys";
}

TEST(omi_IntTable, AWalkSurvivesChangesBehindAndAheadOfIt)
{
  omi_IntTable<int> table;
  for (int key = -3; key <= 3; ++key)
    table.Insert(key, key);
  std::vector<int> seen;
  for (omi_IntTableIterator<int> it(table); !it.IsDone(); it.Next())
  {
    seen.push_back(it.CurrentKey());
    table.Remove(it.CurrentKey());
    if (it.CurrentKey() == -2)
    {
      table.Remove(-1);
      table.Insert(999999999, 0); // lays out the half anew
    }
  }
  EXPECT_EQ((std::vector<int>{-3, -2, 0, 1, 2, 3, 999999999}), seen);
  EXPECT_TRUE(table.IsEmpty());
}

TEST(omi_IntTable, ValuesStayInPlaceWhileTheTableGrows)
{
  omi_IntTable<int> table;
  table.Insert(100, 42);
  int const* const place = &table.ConstGet(100);
  for (int key = 1; key < 1 << 30; key *= 2)
    table.Insert(key, key);
  EXPECT_EQ(place, &table.ConstGet(100));
  EXPECT_EQ(42, *place);
}

TEST(omi_IntTable, HoldsValuesThatOwnMemory)
{
  auto table = std::make_unique<omi_IntTable<std::vector<std::string>>>();
  for (int key : {5, -5, 200000, 999999999})
    table->Insert(key, {std::string(100, 'x'), std::to_string(key)});
  omi_IntTable<std::vector<std::string>> const copy(*table);
  table->Get(5)[1] = "changed";
  table.reset();
  EXPECT_EQ("5", copy.ConstGet(5)[1]);
  EXPECT_EQ("999999999", copy.ConstGet(999999999)[1]);
}

TEST(omi_IntTable, MemoryFollowsTheOccupiedBlocks)
{
  struct
  {
    char const* what;
    int first;
    int count;
    int step;
    std::size_t most; // bytes of a table of ints
  } const cases[] = {
    {"ten keys", 1, 10, 1, 512},
    {"a million keys", 1, 1000000, 1, 4400000},
    {"the largest label alone", 999999999, 1, 1, 60000},
    {"INT_MIN alone", INT_MIN, 1, 1, 60000},
    {"every 1000th", 1000, 100000, 1000, 60000000},
  };
  for (auto const& c : cases)
  {
    omi_IntTable<int> table;
    for (int i = 0; i < c.count; ++i)
      table.Insert(c.first + i * c.step, i);
    EXPECT_LE(table.Bytes(), c.most) << c.what;
  }
}

TEST(cow_IntTableInt, AWalkKeepsToWhatItBeganWith)
{
  cow_IntTableInt table;
  table.Insert(1, 10);
  table.Insert(2, 20);
  cow_IntTableIntIT it(table);
  table.Remove(2);
  table.Insert(3, 30);
  it.Next();
  EXPECT_EQ(20, it.CurrentValue());
  it.Next();
  EXPECT_TRUE(it.IsDone());
}

TEST(cow_IntTableInt, SharesUntilAWriteThatChangesSomething)
{
  cow_IntTableInt table;
  table.Insert(1, 10);
  cow_IntTableInt copy = table;
  EXPECT_FALSE(copy.Remove(7));
  EXPECT_EQ(&table.ConstGet(1), &copy.ConstGet(1));
  copy.Insert(2, 20);
  EXPECT_NE(&table.ConstGet(1), &copy.ConstGet(1));
  cow_IntTableInt const moved(std::move(copy));
  EXPECT_EQ(2, moved.Size());
  EXPECT_EQ(1, table.Size());
}

TEST(cow_IntTableInt, InvertKeepsOneEntryAValue)
{
  cow_IntTableInt table;
  for (auto const& [key, value] : Oracle{{-4, 100}, {7, 300}, {9, 100}})
    table.Insert(key, value);
  EXPECT_EQ((Oracle{{100, 9}, {300, 7}}), ContentsOf(Invert(table)));
  EXPECT_EQ(Oracle(), ContentsOf(Invert(cow_IntTableInt())));
}

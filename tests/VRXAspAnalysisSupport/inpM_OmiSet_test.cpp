#include "inpM_OmiSet.h"

#include "LabelSource.h"
#include "Lists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <set>
#include <vector>

namespace
{
using Oracle = std::set<int>;

std::vector<int> Members(inpM_OmiSet const& set) { return Items(set.ConstGetArrayCounterpart()); }

std::vector<int> Descending(inpM_OmiSet const& set)
{
  std::vector<int> members;
  for (inpM_OmiSetIT it(set, false); !it.IsDone(); it.Next())
    members.push_back(it.CurrentItem());
  return members;
}

void ExpectSame(Oracle const& expected, inpM_OmiSet const& set)
{
  std::vector<int> const members(expected.begin(), expected.end());
  EXPECT_EQ(members, Members(set));
  EXPECT_EQ(std::vector<int>(expected.rbegin(), expected.rend()), Descending(set));
  EXPECT_EQ(static_cast<int>(expected.size()), set.Size());
  EXPECT_EQ(expected.empty(), set.IsEmpty());
  EXPECT_TRUE(set == inpM_OmiSet(ListOf(members)));
}

void InsertRun(inpM_OmiSet& set, Oracle& oracle, LabelSource& labels)
{
  int const start = labels.Below(20000) - 5000;
  int const step = labels.Below(5) - labels.Below(5);
  int const end = start + labels.Below(300) * step;
  set.Insert(start, end, step);
  for (int item = start; step != 0 && item != end; item += step)
    oracle.insert(item);
  oracle.insert(end);
}

void Change(inpM_OmiSet& set, Oracle& oracle, LabelSource& labels, bool isWide)
{
  int const item = isWide ? labels.Next() : labels.Below(3000);
  switch (labels.Below(8))
  {
  case 0:
    ASSERT_EQ(oracle.erase(item) != 0, set.Remove(item)) << item;
    break;
  case 1:
    InsertRun(set, oracle, labels);
    break;
  default:
    ASSERT_EQ(oracle.insert(item).second, set.Insert(item)) << item;
  }
  ASSERT_EQ(oracle.contains(item ^ 1), set.IsMember(item ^ 1));
}
} // namespace

TEST(inpM_OmiSet, BehavesAsAnOrderedSetAndItsCopiesStay)
{
  // Sizes on both sides of the change from the array to bits, in narrow and wide ranges.
  int const sizes[] = {5, 30, 70, 300, 3000};
  for (unsigned seed = 0; seed < 40; ++seed)
  {
    SCOPED_TRACE(seed);
    LabelSource labels(seed);
    inpM_OmiSet sets[2];
    Oracle oracles[2];
    for (int which : {0, 1})
    {
      int const steps = sizes[labels.Below(5)];
      bool const isWide = labels.Below(2) == 0;
      for (int step = 0; step < steps; ++step)
        Change(sets[which], oracles[which], labels, isWide);
    }
    inpM_OmiSet sum = sets[0];
    sum += sets[1];
    ExpectSame(oracles[0], sets[0]);
    ExpectSame(oracles[1], sets[1]);
    Oracle both = oracles[0];
    both.insert(oracles[1].begin(), oracles[1].end());
    ExpectSame(both, sum);
    inpM_OmiSet const kept = sum;
    sum += sum;
    Oracle changed = both;
    Change(sum, changed, labels, true);
    ExpectSame(changed, sum);
    ExpectSame(both, kept);
  }
}

TEST(inpM_OmiSet, RunsStopAtTheirEnd)
{
  struct
  {
    char const* what;
    int start, end, step;
    std::vector<int> members;
  } const cases[] = {
    {"end between two steps", 1, 10, 4, {1, 5, 9}},
    {"descending", 10, 1, -4, {2, 6, 10}},
    {"no step needed", 5, 5, 0, {5}},
    {"away from the end", 5, 5, -3, {5}},
    {"wrong way up", 1, 9, -1, {}},
    {"a step of 0", 1, 9, 0, {}},
    {"up to the end of an int", INT_MAX - 3, INT_MAX, 2, {INT_MAX - 3, INT_MAX - 1}},
    {"down to the end of an int", INT_MAX, INT_MIN, INT_MIN, {-1, INT_MAX}},
  };
  for (auto const& c : cases)
  {
    inpM_OmiSet set;
    set.Insert(c.start, c.end, c.step);
    EXPECT_EQ(c.members, Members(set)) << c.what;
  }
}

TEST(inpM_OmiSet, TellsArithmeticRuns)
{
  struct
  {
    std::vector<int> members;
    bool isRun;
    int start, end, step;
  } const cases[] = {
    {{}, false, -9, -9, -9},
    {{7}, true, 7, 7, 1},
    {{3, 17}, true, 3, 17, 14},
    {{-4, -1, 2, 5}, true, -4, 5, 3},
    {{2, 4, 5, 8}, false, -9, -9, -9}, // as many as the run 2, 4, 6, 8
    {{INT_MIN, INT_MAX}, false, -9, -9, -9},
  };
  for (auto const& c : cases)
  {
    inpM_OmiSet const set(ListOf(c.members));
    int start = -9, end = -9, step = -9;
    EXPECT_EQ(c.isRun, set.IsGenerated(start, end, step));
    EXPECT_EQ((std::vector<int>{c.start, c.end, c.step}), (std::vector<int>{start, end, step}));
  }
  inpM_OmiSet large;
  large.Insert(10, 900010, 9);
  int start = 0, end = 0, step = 0;
  EXPECT_TRUE(large.IsGenerated(start, end, step));
  EXPECT_EQ((std::vector<int>{10, 900010, 9}), (std::vector<int>{start, end, step}));
  large.Remove(19);
  large.Insert(20);
  EXPECT_FALSE(large.IsGenerated(start, end, step));
}

TEST(inpM_OmiSet, EstimateBoundsARun)
{
  struct
  {
    int start, end, step;
  } const cases[] = {{1, 1000000, 1}, {1, 999999, 3},         {900000000, 900100000, 1},
                     {9, 1, 1},       {1, 900000001, 100000}, {-500, 5000, 1}};
  for (auto const& c : cases)
  {
    inpM_OmiSet set;
    set.Insert(c.start, c.end, c.step);
    std::size_t const estimate = inpM_OmiSet::EstimateBytes(c.start, c.end, c.step);
    EXPECT_LE(set.Bytes(), estimate) << c.start << " " << c.end;
    EXPECT_LE(estimate, 4 * set.Bytes() + 128) << c.start << " " << c.end;
  }
  for (int first : {1, 999990000})
    for (int step : {1, 1000})
    {
      inpM_OmiSet set;
      set.Insert(first, first + 9 * step, step);
      EXPECT_LE(set.Bytes(), 128u) << "a small set, " << first << " " << step;
    }
  EXPECT_NEAR(125e6, static_cast<double>(inpM_OmiSet::EstimateBytes(1, 999999999, 1)), 1e6);
}

TEST(inpM_OmiSet, GivesItsNonNegativeMembersAsBits)
{
  for (int count : {3, 5000})
  {
    inpM_OmiSet set;
    set.Insert(-count, count, 2);
    omi_BlkBitVect const bits = set.ConstGetBits();
    EXPECT_EQ(static_cast<unsigned>((count + 1) / 2 + (count % 2 == 0 ? 1 : 0)), bits.BitCount());
    EXPECT_TRUE(bits.GetBit(static_cast<unsigned>(count)));
  }
}

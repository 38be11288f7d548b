#include "inpM_BaseSet.h"

#include "LabelSource.h"
#include "Lists.h"
#include "inpM_CreateSet.h"
#include "inpM_IdMap.h"
#include "inpM_SortedSet.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace
{
using Ints = std::vector<int>;

/// What a set of either kind must hold: ids in deck order by instance, "" being the own level.
struct Oracle
{
  std::map<std::string, Ints> ids;

  void Add(std::string const& instance, Ints const& added)
  {
    ids[instance].insert(ids[instance].end(), added.begin(), added.end());
  }
  void Add(Oracle const& other)
  {
    for (auto const& [instance, items] : std::map(other.ids))
      Add(instance, items);
  }
  static Ints Sorted(Ints const& items)
  {
    std::set<int> const sorted(items.begin(), items.end());
    return Ints(sorted.begin(), sorted.end());
  }
};

void ExpectSame(Oracle const& oracle, inpM_BaseSet const& set)
{
  std::size_t instances = 0;
  std::size_t count = 0;
  bool isEmpty = true;
  for (auto const& [instance, items] : oracle.ids)
  {
    Ints const sorted = Oracle::Sorted(items);
    Ints const expected = set.IsUnsorted() ? items : sorted;
    ASSERT_EQ(expected, Items(set.ConstGetIds(instance.c_str()))) << instance;
    isEmpty = isEmpty && items.empty();
    count += expected.size();
    if (!instance.empty() && items.empty())
      continue;
    instances += instance.empty() ? 0 : 1;
    inpM_OmiSet const own = instance.empty() ? set.ConstGetOwnIds()
                                             : set.ConstGetInstanceIds().ConstGet(instance.c_str());
    ASSERT_EQ(sorted, Items(own.ConstGetArrayCounterpart()));
    ASSERT_TRUE(!instance.empty() || expected == Items(set.ConstGetIds()));
  }
  ASSERT_EQ(instances, static_cast<std::size_t>(set.ConstGetInstanceTree().Size()));
  ASSERT_EQ(instances, static_cast<std::size_t>(set.ConstGetInstanceIds().Size()));
  ASSERT_EQ(isEmpty, set.IsEmpty());
  ASSERT_EQ(count, set.CountIds());
}

/// A small set with two instances.
inpM_SetHandle Sample(bool unsorted)
{
  inpM_SetHandle set = CreateSet(ListOf({30, 10, 10, 25}), false, unsorted);
  set.Get()->Add("B", ListOf({7, 3}));
  set.Get()->Add("A", ListOf({4}));
  return set;
}
} // namespace

class BothKinds : public testing::TestWithParam<bool>
{
};

TEST_P(BothKinds, HoldWhatVectorsHoldWithCopiesTakenHalfway)
{
  std::string const instances[] = {"", "A", "B-1", "C"};
  for (unsigned seed = 0; seed < 30; ++seed)
  {
    LabelSource labels(seed);
    inpM_SetHandle set = CreateSet(false, GetParam());
    inpM_SetHandle other = CreateSet(false, seed % 2 == 0);
    inpM_SetHandle halfway;
    Oracle oracle;
    Oracle otherOracle;
    Oracle halfwayOracle;
    for (int step = 0; step < 24; ++step)
    {
      std::string const& instance = instances[labels.Below(4)];
      Ints ids;
      for (int i = labels.Below(60); i > 0; --i)
        ids.push_back(labels.Next());
      switch (labels.Below(4))
      {
      case 0:
        set.Get()->Add(instance.c_str(), inpM_OmiSet(ListOf(ids)));
        oracle.Add(instance, Oracle::Sorted(ids));
        break;
      case 1:
        set.Get()->Add(*other);
        for (auto& [name, items] : otherOracle.ids)
          oracle.Add(name, other->IsUnsorted() ? items : Oracle::Sorted(items));
        break;
      case 2:
        other.Get()->Add(instance.c_str(), ListOf(ids));
        otherOracle.Add(instance, ids);
        break;
      default:
        set.Get()->Add(instance.c_str(), ListOf(ids));
        oracle.Add(instance, ids);
      }
      if (step == 12)
      {
        halfway = set;
        halfwayOracle = oracle;
      }
    }
    ExpectSame(oracle, *set);
    ExpectSame(otherOracle, *other);
    ExpectSame(halfwayOracle, *halfway);
    set.Get()->Add(*set);
    oracle.Add(oracle);
    ExpectSame(oracle, *set);
  }
}

TEST_P(BothKinds, ACloneKeepsTypeAndKindAndGoesItsOwnWay)
{
  inpM_SetHandle const set = Sample(GetParam());
  inpM_SetHandle clone = CreateSet(*set);
  clone.Get()->AssignSetType(inpM_internalSet);
  clone.Get()->Add("A", ListOf({5}));
  inpM_SetHandle const second = CreateSet(*clone);
  EXPECT_TRUE(second->IsPicked());
  EXPECT_FALSE(set->IsPicked());
  EXPECT_EQ(set->DynTypeId(), second->DynTypeId());
  EXPECT_EQ((Ints{4, 5}), Items(second->ConstGetIds("A")));
  EXPECT_EQ((Ints{4}), Items(set->ConstGetIds("A")));
}

TEST_P(BothKinds, TrimmingKeepsWhatLiesOnTheRange)
{
  struct
  {
    int first, last, step;
    Ints own, inA, inB;
  } const cases[] = {
    {4, 25, 1, {10, 10, 25}, {4}, {7}},
    {10, 30, 10, {30, 10, 10}, {}, {}},
    {3, 7, 2, {}, {}, {7, 3}},
    {5, 30, 0, {30, 10, 10, 25}, {}, {7}},
    {7, 3, 1, {}, {}, {}},
  };
  for (auto const& c : cases)
  {
    inpM_SetHandle set = Sample(GetParam());
    set.Get()->TrimGeneratedSets(c.first, c.last, c.step);
    SCOPED_TRACE(std::to_string(c.first) + " " + std::to_string(c.last));
    ExpectSame({{{"", c.own}, {"A", c.inA}, {"B", c.inB}}}, *set);
  }
}

TEST_P(BothKinds, RenumberingTakesEachLevelsTableAndDropsWhatItLacks)
{
  inpM_IdMap ids;
  for (int id : {10, 25, 40})
    ids.Insert(id, 1000 - id);
  ids.Get("B").Insert(3, 1);
  ids.Get("B").Insert(7, 2);
  inpM_SetHandle set = Sample(GetParam());
  set.Get()->Renumber(ids, false);
  ExpectSame({{{"", {990, 990, 975}}, {"A", {4}}, {"B", {2, 1}}}}, *set); // 30 and A are unknown
  set.Get()->Renumber(ids, true);
  ExpectSame({{{"", {10, 10, 25}}, {"A", {4}}, {"B", {7, 3}}}}, *set);
}

INSTANTIATE_TEST_SUITE_P(Sets, BothKinds, testing::Values(false, true),
                         [](auto const& kind) { return kind.param ? "Unsorted" : "Sorted"; });

TEST(inpM_BaseSet, AnUnsortedRangeTakesFourBytesAnId)
{
  struct
  {
    int start, end, step;
    std::size_t count;
  } const cases[] = {{1, 1000000, 7, 142858}, {5, 5, 0, 1}, {9, 1, 1, 0},
                     {9, 1, -2, 5},           {1, 9, 0, 0}, {1, 999999999, 1, 999999999}};
  for (auto const& c : cases)
    EXPECT_EQ(c.count * sizeof(int), inpM_BaseSet::EstimateBytes(c.start, c.end, c.step, true));
}

TEST(inpM_SortedSet, TrimsARunToTheLargestLabelByWhatIsKept)
{
  inpM_OmiSet run;
  run.Insert(1, 200000000, 1);
  inpM_SortedSet set(run);
  set.TrimGeneratedSets(100, 199999999, 49999999);
  EXPECT_EQ((Ints{100, 50000099, 100000098, 150000097}), Items(set.ConstGetIds()));
}

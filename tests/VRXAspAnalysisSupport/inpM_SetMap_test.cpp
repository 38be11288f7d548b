#include "inpM_SetMap.h"

#include "Lists.h"
#include "inpM_CreateSet.h"
#include "inpM_IdMap.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace
{
using Level = std::map<std::string, std::set<int>>;
using Levels = std::map<std::string, Level>; // by instance, "" being the own level

inpM_SetHandle SetOf(std::vector<int> const& items, bool unsorted = false)
{
  return CreateSet(ListOf(items), false, unsorted);
}

Level LevelOf(inpM_BaseSetMap const& sets)
{
  Level level;
  std::string last;
  for (inpM_BaseSetMapSIT it(sets); !it.IsDone(); it.Next())
  {
    std::string const name(it.CurrentKey().View());
    EXPECT_TRUE(level.empty() || last < name) << last << " before " << name;
    cow_List<int> const ids = it.CurrentValue().ConstGetIds();
    level[name] = std::set<int>(ids.begin(), ids.end());
    last = name;
  }
  EXPECT_EQ(level.size(), static_cast<std::size_t>(sets.Size()));
  return level;
}

Levels LevelsOf(inpM_SetMap const& sets)
{
  Levels levels;
  levels[""] = LevelOf(sets.ConstGetMap());
  for (cow_String const& name : sets.Instances())
    levels[std::string(name.View())] = LevelOf(sets.ConstGetNestedSetMap(name));
  return levels;
}

} // namespace

TEST(inpM_SetMap, HoldsWhatMapsHoldWithCopiesTakenHalfway)
{
  std::mt19937 random(5);
  for (int run = 0; run < 12; ++run)
  {
    inpM_SetMap map;
    inpM_SetMap halfway;
    Levels expected{{"", {}}};
    Levels expectedHalfway;
    for (int step = 0; step < 400; ++step)
    {
      std::string const instance = random() % 3 == 0 ? "" : "I" + std::to_string(random() % 20);
      std::string const name = "SET-" + std::to_string(random() % 60);
      inpM_SetHandle const set =
        SetOf({static_cast<int>(random() % 9), static_cast<int>(random() % 9)});
      cow_List<int> const ids = set->ConstGetIds();
      std::set<int>& members = expected[instance][name];
      if (random() % 2 == 0)
      {
        map.InsertNestedSet(instance.c_str(), name.c_str(), *set);
        members.clear();
      }
      else
        map.AddToNestedSet(instance.c_str(), name.c_str(), *set);
      members.insert(ids.begin(), ids.end());
      if (step == 200)
      {
        halfway = map;
        expectedHalfway = expected;
      }
    }
    ASSERT_EQ(expected, LevelsOf(map));
    ASSERT_EQ(expectedHalfway, LevelsOf(halfway));
    halfway.Merge(map);
    for (auto const& [instance, level] : expected)
      for (auto const& [name, ids] : level)
        expectedHalfway[instance][name].insert(ids.begin(), ids.end());
    ASSERT_EQ(expectedHalfway, LevelsOf(halfway));
    ASSERT_EQ(expected, LevelsOf(map));
  }
}

TEST(inpM_SetMap, InsertReplacesAndAddKeepsTypeAndKind)
{
  inpM_SetMap map;
  map.InsertSet("A", SetOf({3, 1, 3}, true));
  map.AddToNestedSet("", "A", *SetOf({9, 2}));
  EXPECT_TRUE(map.ConstGetSet("A").IsUnsorted());
  EXPECT_EQ((std::vector<int>{3, 1, 3, 2, 9}), Items(map.ConstGetSet("A").ConstGetIds()));
  map.InsertSet("A", SetOf({5}));
  EXPECT_EQ((Levels{{"", {{"A", {5}}}}}), LevelsOf(map));
}

TEST(inpM_SetMap, SearchFindsTheOwnLevelFirstAndThenTheFirstInstanceByName)
{
  inpM_SetMap map;
  for (auto const& [instance, name] : {std::pair("B", "BOTH"),
                                       {"A", "BOTH"},
                                       {"B", "INNER"},
                                       {"A", "EVERYWHERE"},
                                       {"", "EVERYWHERE"}})
    map.InsertNestedSet(instance, name, SetOf({1}));
  struct
  {
    char const* name;
    bool isFound;
    char const* instance;
  } const cases[] = {
    {"BOTH", true, "A"}, {"INNER", true, "B"}, {"EVERYWHERE", true, ""}, {"NONE", false, "before"}};
  for (auto const& c : cases)
  {
    cow_String instance("before");
    EXPECT_EQ(c.isFound, map.SearchAssemblyAndInstancesForSet(c.name, instance)) << c.name;
    EXPECT_EQ(c.instance, instance.View()) << c.name;
  }
}

TEST(inpM_SetMap, RenamingAnInstanceMovesItsSets)
{
  inpM_SetMap map;
  map.InsertNestedSet("FAKE", "A", SetOf({1}));
  map.InsertNestedSet("PART-1", "OLD", SetOf({2}));
  map.InsertNestedSet("Z", "C", SetOf({3}));
  inpM_SetMap const before = map;
  map.ChangeInstanceName("UNKNOWN", "X");
  map.ChangeInstanceName("FAKE", "FAKE");
  EXPECT_EQ(LevelsOf(before), LevelsOf(map));
  map.ChangeInstanceName("FAKE", "PART-1");
  EXPECT_EQ((Levels{{"", {}}, {"PART-1", {{"A", {1}}}}, {"Z", {{"C", {3}}}}}), LevelsOf(map));
  EXPECT_TRUE(before.HasInstance("FAKE"));
}

TEST(inpM_SetMap, DeletingKeepsTheListedSetsAtEveryLevel)
{
  inpM_SetMap map;
  for (char const* instance : {"", "A", "B"})
    for (char const* name : {"X", "Y", "Z"})
      map.InsertNestedSet(instance, name, SetOf({1}));
  map.DeleteAllSetsExceptThoseListed(cow_List<cow_String>("Z", "X", "UNKNOWN"));
  Level const kept{{"X", {1}}, {"Z", {1}}};
  EXPECT_EQ((Levels{{"", kept}, {"A", kept}, {"B", kept}}), LevelsOf(map));
  map.DeleteAllSetsExceptThoseListed(cow_List<cow_String>());
  EXPECT_TRUE(map.IsEmpty());
}

TEST(inpM_SetMap, RenumberingGoesBothWaysByEachInstancesTable)
{
  inpM_IdMap ids;
  ids.Insert(5, 50);
  ids.Get("A").Insert(5, 51);
  inpM_SetMap map;
  map.InsertSet("S", SetOf({5, 6}));
  map.InsertNestedSet("A", "S", SetOf({5}));
  map.InsertNestedSet("B", "S", SetOf({5}));
  inpM_SetMap const before = map;
  map.Renumber(ids, false);
  EXPECT_EQ((Levels{{"", {{"S", {50}}}}, {"A", {{"S", {51}}}}, {"B", {{"S", {5}}}}}),
            LevelsOf(map));
  map.Renumber(ids, true);
  EXPECT_EQ((Levels{{"", {{"S", {5}}}}, {"A", {{"S", {5}}}}, {"B", {{"S", {5}}}}}), LevelsOf(map));
  EXPECT_EQ((std::set<int>{5, 6}), LevelsOf(before)[""]["S"]);
}

TEST(inpM_SetMap, PrintsNamesIdsAndInstances)
{
  inpM_SetMap map;
  inpM_SetHandle ends = SetOf({17, 16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1});
  ends.Get()->Add("WHEEL-1", inpM_OmiSet(ends->ConstGetIds().Slice(0, 2)));
  map.InsertSet("ENDS", ends);
  map.InsertNestedSet("WHEEL-1", "RIM", SetOf({7, 3}, true));
  EXPECT_EQ("ENDS\n1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16\n17\nWHEEL-1.1 WHEEL-1.2\n"
            "WHEEL-1\nRIM\n7 3\n",
            Printed(map));
}

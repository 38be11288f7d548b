#include "inpM_IdMap.h"

#include "LabelSource.h"
#include "Lists.h"
#include "inpM_InstanceIdMaps.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace
{
using Ids = std::map<int, int>;
using Ints = std::vector<int>;

void Fill(inpM_IdMap& map, Ids const& ids)
{
  for (auto const& [user, internal] : ids)
    map.Insert(user, internal);
}

} // namespace

TEST(inpM_IdMap, HoldsBothDirectionsWithCopiesTakenHalfway)
{
  for (unsigned seed = 0; seed < 100; ++seed)
  {
    LabelSource labels(seed);
    inpM_IdMap map;
    inpM_IdMap halfway;
    Ids toNew;
    Ids toNewHalfway;
    for (int number = 1; number <= 300; ++number)
    {
      int const user = labels.Next();
      if (toNew.emplace(user, number).second)
        map.Insert(user, number);
      if (number == 150)
      {
        halfway = map;
        toNewHalfway = toNew;
      }
    }
    ASSERT_EQ(toNew, Entries(map.ConstGetToNew()));
    ASSERT_EQ(toNewHalfway, Entries(halfway.ConstGetToNew()));
    ASSERT_EQ(static_cast<int>(toNew.size()), map.NumberIds());
    for (auto const& [user, internal] : toNew)
    {
      ASSERT_EQ(internal, map.ConstGet(user));
      ASSERT_EQ(user, map.ConstGetUserId(internal));
    }
    ASSERT_EQ(toNew.begin()->first, map.SmallestId());
    ASSERT_EQ(toNew.rbegin()->first, map.LargestId());
  }
}

TEST(inpM_IdMap, RenumbersInPlaceAndRaisesForAnIdWithoutAnEntry)
{
  inpM_IdMap map;
  Fill(map, {{5, 100}, {7, 101}});
  int ids[] = {7, 0, 5, 7};
  map.Renumber(ids, 4);
  EXPECT_EQ((Ints{101, 0, 100, 101}), Ints(ids, ids + 4));
  EXPECT_EQ(ListOf({100, 0}), map.Renumber(ListOf({5, 0}), false));
  EXPECT_EQ(ListOf({7, 0, 5}), map.Renumber(ListOf({101, 0, 100}), true));
  int unknown[] = {5, 6};
  EXPECT_EQ("Unknown id 6", Raised([&] { map.Renumber(unknown, 2); }));
  EXPECT_EQ("Unknown id 5", Raised([&] { map.Renumber(ListOf({5}), true); }));
  EXPECT_EQ("Unknown id 5", Raised([&] { map.ConstGetUserId(5); }));
}

TEST(inpM_IdMap, CountsAndRangesTakeTheChildrenIn)
{
  inpM_IdMap map;
  EXPECT_EQ(0, map.NumberIds() + map.SmallestId() + map.LargestId());
  map.Get("B").Insert(9, 1);
  map.Get("A").Get("INNER").Insert(2, 2);
  EXPECT_FALSE(map.HasIds());
  map.ComputeRemapUserIdRange();
  EXPECT_EQ(2, map.NumberIds());
  EXPECT_EQ(9, map.LargestId());
  map.Insert(1, 3);
  EXPECT_TRUE(map.HasIds());
  EXPECT_EQ(1, map.SmallestId());
  map.Get("B").Insert(12, 4);
  EXPECT_EQ(12, map.LargestId());
  EXPECT_EQ((cow_List<cow_String>("A", "B")), map.Instances());
  EXPECT_FALSE(map.ConstGet("NOWHERE").HasIds() || map.IsMember("NOWHERE"));
}

TEST(inpM_IdMap, MergingAddsWhatIsNotThereYet)
{
  inpM_IdMap map;
  Fill(map, {{1, 10}, {2, 20}});
  Fill(map.Get("A"), {{1, 11}});
  inpM_IdMap other;
  Fill(other, {{2, 99}, {3, 30}});
  Fill(other.Get("A"), {{1, 99}, {2, 12}});
  Fill(other.Get("B"), {{1, 13}});
  map.Merge(other);
  EXPECT_EQ((Ids{{1, 10}, {2, 20}, {3, 30}}), Entries(map.ConstGetToNew()));
  EXPECT_EQ((Ids{{1, 11}, {2, 12}}), Entries(map.ConstGet("A").ConstGetToNew()));
  EXPECT_EQ((Ids{{1, 13}}), Entries(map.ConstGet("B").ConstGetToNew()));
  map.Merge(map);
  EXPECT_EQ(6, map.NumberIds());
}

TEST(inpM_IdMap, DuplicatesAreShiftedInBothDirections)
{
  struct
  {
    char const* what;
    int offset, count;
    Ids expected;
  } const cases[] = {
    {"two copies", 100, 2, {{1, 5}, {2, 6}, {101, 105}, {102, 106}, {201, 205}, {202, 206}}},
    {"an id that is there stays", 1, 1, {{1, 5}, {2, 6}, {3, 7}}},
    {"beyond nine digits", 999999994, 2, {{1, 5}, {2, 6}, {999999995, 999999999}}},
    {"the largest offset", 2147483647, 2147483647, {{1, 5}, {2, 6}}},
  };
  for (auto const& c : cases)
  {
    inpM_IdMap map;
    Fill(map, {{1, 5}, {2, 6}});
    Fill(map.Get("A"), {{1, 5}, {2, 6}});
    map.InsertDuplicateOffsetIds(c.offset, c.count);
    for (inpM_IdMap const& level : {map, map.ConstGet("A")})
    {
      EXPECT_EQ(c.expected, Entries(level.ConstGetToNew())) << c.what;
      EXPECT_EQ(Entries(Invert(level.ConstGetToNew())), Entries(level.ConstGetToUser())) << c.what;
    }
    EXPECT_EQ(c.expected.rbegin()->first, map.LargestId()) << c.what;
  }
}

TEST(inpM_IdMap, AnOffsetMovesUserIdsAlone)
{
  inpM_IdMap map;
  Fill(map, {{1, 1}, {999999990, 2}});
  Fill(map.Get("A"), {{5, 3}});
  map.RenumberUserIdsWithOffset(20);
  EXPECT_EQ((Ids{{21, 1}}), Entries(map.ConstGetToNew()));
  EXPECT_EQ((Ids{{1, 21}}), Entries(map.ConstGetToUser()));
  EXPECT_EQ((Ids{{25, 3}}), Entries(map.ConstGet("A").ConstGetToNew()));
}

TEST(inpM_IdMap, IsMadeOfTheTablesOfInstances)
{
  inpM_InstanceMaps maps;
  maps.forward.Insert(5, 50);
  maps.reverse.Insert(50, 5);
  inpM_InstanceIdMaps byInstance;
  byInstance.Insert("PART-1-1", maps);
  byInstance.Insert("EMPTY", inpM_InstanceMaps());
  byInstance.Get("PART-1-1").forward.Insert(6, 60);
  EXPECT_TRUE(byInstance.IsMember("EMPTY") && !byInstance.IsMember("OTHER"));
  inpM_IdMap const map(byInstance);
  EXPECT_EQ(60, map.ConstGet("PART-1-1").ConstGet(6));
  EXPECT_EQ(5, map.ConstGet("PART-1-1").ConstGetUserId(50));
  EXPECT_FALSE(map.ConstGet("EMPTY").HasIds() || map.HasIds());
  EXPECT_EQ(2, map.NumberIds());
}

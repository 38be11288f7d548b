#include "inpM_PartMap.h"

#include "Lists.h"
#include "inpM_CreateSet.h"

#include <gtest/gtest.h>

TEST(inpM_PartMap, DropsInternalSetsThatRepeatAnotherOfTheirLevel)
{
  auto const setOf = [](std::vector<int> const& items, bool internal, bool unsorted)
  {
    inpM_SetHandle set = CreateSet(internal, unsorted);
    for (int item : items)
      set.Get()->Add(item > 100 ? "A" : "", ListOf({item}));
    return set;
  };
  struct
  {
    char const* name;
    inpM_SetHandle set;
    bool stays;
  } const cases[] = {
    {"PLAIN", setOf({1, 2}, false, false), true},
    {"PLAIN-TOO", setOf({1, 2}, false, false), true},
    {"_OF-PLAIN", setOf({1, 2}, true, false), false},
    {"_OTHER", setOf({1, 3}, true, false), true},
    {"_OTHER-AGAIN", setOf({1, 3}, true, false), false},
    {"_WITH-INSTANCE", setOf({1, 2, 101}, true, false), true},
    {"_OTHER-ORDER", setOf({2, 1}, true, true), true},
  };
  inpM_SetMap sets;
  for (auto const& c : cases)
  {
    sets.InsertSet(c.name, c.set);
    sets.InsertNestedSet("PART-1-1", c.name, c.set);
  }
  sets.InsertNestedSet("ALONE", "_OF-PLAIN", setOf({1, 2}, true, false));
  inpM_PartMap map;
  map.SetNsets(sets);
  map.SetElsets(sets);
  map.RemoveRedundantInternalSets();
  for (inpM_SetMap const& remaining : {map.ConstGetNsets(), map.ConstGetElsets()})
  {
    for (auto const& c : cases)
    {
      EXPECT_EQ(c.stays, remaining.HasSet(c.name)) << c.name;
      EXPECT_EQ(c.stays, remaining.HasNestedSet("PART-1-1", c.name)) << c.name;
    }
    EXPECT_TRUE(remaining.HasNestedSet("ALONE", "_OF-PLAIN"));
  }
}

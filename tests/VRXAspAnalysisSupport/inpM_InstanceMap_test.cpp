#include "inpM_InstanceMap.h"

#include "CapturingSink.h"
#include "Lists.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(inpM_InstanceMap, ChildrenComeInAscendingOrderOfTheirNames)
{
  inpM_InstanceMap<int> map;
  for (char const* name : {"B-1", "A-10", "b", "A-1"})
    map.Insert(name, 1);
  EXPECT_EQ((cow_List<cow_String>("A-1", "A-10", "B-1", "b")), map.Instances());
}

TEST(inpM_InstanceMap, CopiesAndSharedValuesStayWhenOneIsWritten)
{
  inpM_InstanceMap<int> map(7);
  map.Insert("A", 1);
  map.GetMap("A").Insert("INNER", 5);
  inpM_InstanceMap<int> copy = map;
  copy.Get() = 8;
  copy.Get("A") = 2;
  copy.GetMap("A").Get("INNER") = 6;
  copy.Insert("B", 3);
  EXPECT_EQ(7, map.ConstGet());
  EXPECT_EQ(1, map.ConstGet("A"));
  EXPECT_EQ(5, map.ConstGetMap("A").ConstGet("INNER"));
  EXPECT_FALSE(map.IsMember("B"));
  EXPECT_EQ(8, copy.ConstGet());
  EXPECT_EQ(6, copy.ConstGetMap("A").ConstGet("INNER"));
}

TEST(inpM_InstanceMap, InsertOverAChildReplacesItsValueAndKeepsItsChildren)
{
  inpM_InstanceMap<int> map;
  map.Insert("A", 1);
  map.GetMap("A").Insert("INNER", 5);
  map.Insert("A", 2);
  EXPECT_EQ(2, map.ConstGet("A"));
  EXPECT_TRUE(map.ConstGetMap("A").IsMember("INNER"));
  map = inpM_InstanceMap<int>(map.ConstGetMap("A")); // a part of itself
  EXPECT_EQ(2, map.ConstGet());
  EXPECT_EQ(5, map.ConstGet("INNER"));
}

TEST(inpM_InstanceMap, MissingValuesAreAssertionsAndUnknownInstancesFatalErrors)
{
  CapturingSink sink;
  inpM_InstanceMap<int> map;
  EXPECT_EQ("item.HasValue()", Raised<VRXBasAssertException>([&] { map.Get(); }));
  EXPECT_EQ("item.HasValue()", Raised<VRXBasAssertException>([&] { map.ConstGet(); }));
  EXPECT_EQ(std::vector<std::string>(), sink.Lines());
  EXPECT_EQ("GetMap(instanceName).item.HasValue()",
            Raised<VRXBasAssertException>([&] { map.Get("X"); }));
  map.Insert("A", 1);
  map.GetMap("Y").Insert("LOST", 1);
  EXPECT_FALSE(map.ConstGetMap("Z").IsMember("LOST"));
  EXPECT_EQ((std::vector<std::string>{"fatal2: Unknown instance X", "fatal2: Unknown instance Y",
                                      "fatal2: Unknown instance Z"}),
            sink.Lines());
}

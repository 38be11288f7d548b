#include "inp_CoordMap.h"

#include "LabelSource.h"
#include "Lists.h"
#include "VRXBasException.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace
{
using Xs = std::map<int, double>; // label to x

Xs XsOf(inp_MapInt2Coord const& nodes)
{
  return Contents<inp_MapInt2CoordSIT>(nodes, [](auto& it) { return it.CurrentValue().x; });
}

gsl_Matrix Along(double x)
{
  gsl_Matrix matrix;
  matrix.SetTranslation(gsl_Vector(x, 0.0, 0.0));
  return matrix;
}

gsl_Matrix QuarterTurn()
{
  return gsl_Matrix::AxisRotation(gsl_Point(), gsl_Vector(0.0, 0.0, 1.0), 1.5707963267948966);
}

inp_CoordMap MapOf(std::vector<int> const& labels)
{
  inp_CoordMap map;
  for (int label : labels)
    map.Insert(label, inp_Coord(label, 0.0, 0.0));
  return map;
}

} // namespace

TEST(inp_MapInt2Coord, HoldsWhatAMapHoldsWithCopiesTakenHalfway)
{
  for (unsigned seed = 0; seed < 100; ++seed)
  {
    LabelSource labels(seed);
    inp_MapInt2Coord map;
    inp_MapInt2Coord halfway;
    Xs expected;
    Xs expectedHalfway;
    for (int step = 0; step < 600; ++step)
    {
      int const label = labels.Next();
      if (labels.Below(4) == 0)
        ASSERT_EQ(expected.erase(label) == 1, map.Remove(label));
      else
      {
        ASSERT_EQ(expected.count(label) == 0, map.Insert(label, inp_Coord(step, 0.0, 0.0)));
        expected[label] = step;
      }
      if (step == 300)
      {
        halfway = map;
        expectedHalfway = expected;
      }
    }
    ASSERT_EQ(static_cast<int>(expected.size()), map.Size());
    ASSERT_EQ(expected, XsOf(map));
    ASSERT_EQ(expectedHalfway, XsOf(halfway));
    inp_MapInt2CoordSIT last(map);
    last.Last();
    ASSERT_EQ(expected.rbegin()->first, last.CurrentKey());
    map.Clear();
    ASSERT_TRUE(map.IsEmpty() && !halfway.IsEmpty());
  }
}

TEST(inp_MapInt2Coord, AWalkGoesOnOverWhatWasThereAtFirst)
{
  inp_MapInt2Coord map;
  EXPECT_TRUE(inp_MapInt2CoordSIT(map).IsDone());
  map.Insert(1, inp_Coord());
  map.Insert(2, inp_Coord());
  int seen = 0;
  for (inp_MapInt2CoordSIT it(map); !it.IsDone(); it.Next())
  {
    map.Insert(it.CurrentKey() + 10, inp_Coord());
    ++seen;
  }
  EXPECT_EQ(2, seen);
  EXPECT_EQ(4, map.Size());
}

TEST(inp_CoordMap, MotionsComposeAndApplyOnlyWhenRead)
{
  inp_CoordMap map;
  map.Insert(5, inp_Coord(1.0, 2.0, 3.0, 5.0, 0.0, 0.0));
  map.Insert(6, inp_Coord(1.0, 2.0, 3.0));
  inp_CoordMap const before = map;
  EXPECT_EQ(&before.ConstGetStored().ConstGet(5), &map.ConstGet().ConstGet(5)); // a share
  map.Transform(Along(10.0));
  map.Transform(QuarterTurn());
  EXPECT_EQ(&before.ConstGetStored().ConstGet(5), &map.ConstGetStored().ConstGet(5));
  for (inp_Coord const& moved : {map.ConstGet(5), map.ConstGet().ConstGet(5)})
  {
    EXPECT_EQ((std::vector<double>{-2.0, 11.0, 3.0}),
              (std::vector<double>{moved.x, moved.y, moved.z}));
    EXPECT_EQ((std::vector<double>{0.0, 1.0, 0.0}),
              (std::vector<double>{moved.nx, moved.ny, moved.nz}));
  }
  inp_Coord const bare = map.ConstGet(6);
  EXPECT_EQ((std::vector<double>{0.0, 0.0, 0.0}), (std::vector<double>{bare.nx, bare.ny, bare.nz}));
  EXPECT_EQ(1.0, before.ConstGet(5).x);
  EXPECT_EQ(5.0, before.ConstGet(5).nx); // as it was stored
}

TEST(inp_CoordMap, AMotionTakesTheChildrenAlongButNotTheirShares)
{
  inp_CoordMap map;
  map.Insert("A", MapOf({1}));
  map.Insert("B", MapOf({1}));
  inp_CoordMap const share = map;
  map.Get("B").Transform(Along(100.0));
  map.Transform(Along(10.0));
  EXPECT_EQ(11.0, map.ConstGet("A").ConstGet(1).x);
  EXPECT_EQ(111.0, map.ConstGet("B").ConstGet(1).x);
  EXPECT_EQ(1.0, share.ConstGet("B").ConstGet(1).x);
  EXPECT_EQ(&share.ConstGet("A").ConstGetStored().ConstGet(1),
            &map.ConstGet("A").ConstGetStored().ConstGet(1));
}

TEST(inp_CoordMap, NewNumbersReadTheOldRecords)
{
  inp_CoordMap map = MapOf({7, 5});
  inp_CoordMap const before = map;
  inpM_IdMap const ids = map.Renumber(100, false);
  EXPECT_EQ((std::map<int, int>{{5, 100}, {7, 101}}), Entries(ids.ConstGetToNew()));
  EXPECT_EQ((std::map<int, int>{{100, 5}, {101, 7}}), Entries(ids.ConstGetToUser()));
  EXPECT_EQ(5.0, map.ConstGet(100).x);
  EXPECT_EQ(7.0, map.ConstGet(101, inp_Coord()).x);
  EXPECT_TRUE(map.IsMember(5) && map.IsMember(101) && !map.IsMember(102));
  EXPECT_EQ((Xs{{100, 5.0}, {101, 7.0}}), XsOf(map.ConstGet()));
  EXPECT_EQ((Xs{{5, 5.0}, {7, 7.0}}), XsOf(before.ConstGet()));
  EXPECT_FALSE(before.IsMember(100));
  EXPECT_EQ(-1.0, map.ConstGet(102, inp_Coord(-1.0, 0.0, 0.0)).x);

  map.Insert(100, inp_Coord(8.0, 0.0, 0.0)); // goes to the record of the old label
  map.Insert(300, inp_Coord(9.0, 0.0, 0.0));
  EXPECT_EQ((Xs{{100, 8.0}, {101, 7.0}, {300, 9.0}}), XsOf(map.ConstGet()));
  EXPECT_TRUE(map.Remove(101));
  EXPECT_FALSE(map.Remove(101));
  EXPECT_EQ((Xs{{100, 8.0}, {300, 9.0}}), XsOf(map.ConstGet()));
}

TEST(inp_CoordMap, NumbersRunThroughTheLevelsInNameOrder)
{
  for (bool keepIds : {false, true})
  {
    inp_CoordMap map = MapOf({1, 999999999});
    map.Insert("B", MapOf({5}));
    map.Insert("A", MapOf({5, 1 << 20, 4}));
    inpM_IdMap const ids = map.Renumber(10, keepIds);
    EXPECT_EQ(6, ids.NumberIds());
    EXPECT_EQ(keepIds ? 999999999 : 11, ids.ConstGet(999999999));
    EXPECT_EQ(keepIds ? 4 : 12, ids.ConstGet("A").ConstGet(4));
    EXPECT_EQ(keepIds ? 1 << 20 : 14, ids.ConstGet("A").ConstGet(1 << 20));
    EXPECT_EQ(keepIds ? 5 : 15, ids.ConstGet("B").ConstGet(5));
    EXPECT_EQ(5.0, map.ConstGet("B").ConstGet(keepIds ? 5 : 15).x);
    EXPECT_EQ(1, ids.SmallestId());
    EXPECT_EQ(999999999, ids.LargestId());
  }
}

TEST(inp_CoordMap, AssignedNumbersComeFirstAndOthersAdvanceTheCounter)
{
  omi_IntTable<int> assigned;
  assigned.Insert(5, 500);
  assigned.Insert(9, 900);
  inp_CoordMap map = MapOf({3, 5, 7});
  map.Insert("A", MapOf({5}));
  int next = 50;
  inpM_IdMap const ids = map.Renumber(next, false, assigned);
  EXPECT_EQ((std::map<int, int>{{3, 50}, {5, 500}, {7, 51}}), Entries(ids.ConstGetToNew()));
  EXPECT_EQ(52, next);
  EXPECT_EQ(0, ids.Instances().Length());
  EXPECT_EQ(5.0, map.ConstGet(500).x);
  EXPECT_EQ(3, map.Renumber(next, true, assigned).ConstGet(3));
  EXPECT_EQ(52, next);
}

TEST(inp_CoordMap, ChildrenAreCountedRenamedAndPrinted)
{
  inp_CoordMap map = MapOf({2, 1});
  map.Insert("B", MapOf({7}));
  map.Insert("A", MapOf({5, 6}));
  EXPECT_EQ(5, map.Count());
  inp_CoordMap const before = map;
  map.ChangeInstanceName("UNKNOWN", "X");
  map.ChangeInstanceName("B", "B");
  EXPECT_EQ((cow_List<cow_String>("A", "B")), map.Instances());
  map.ChangeInstanceName("A", "C");
  EXPECT_EQ((cow_List<cow_String>("B", "C")), map.Instances());
  EXPECT_TRUE(map.ConstGet("C").IsMember(6));
  EXPECT_TRUE(before.IsMember("A"));
  EXPECT_EQ("1\n2\nB\n7\nC\n5\n6\n", Printed(map));
  EXPECT_THROW(map.ConstGet("A"), VRXBasAssertException);
  EXPECT_THROW(map.Get("A"), VRXBasAssertException);
}

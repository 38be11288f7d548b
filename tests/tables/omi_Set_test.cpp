#include "omi_Set.h"

#include "LabelSource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <set>
#include <vector>

namespace
{
std::vector<unsigned> Ascending(omi_BlkBitVect const& bits)
{
  std::vector<unsigned> found;
  omi_BlkBitVectTrav trav(bits);
  EXPECT_EQ(trav.More(), bits.BitCount() != 0);
  unsigned index = 0;
  for (bool more = trav.First(index); more; more = trav.Next(index))
  {
    found.push_back(index);
    EXPECT_EQ(trav.More(), found.size() < bits.BitCount()) << index;
  }
  EXPECT_FALSE(trav.Next(index));
  return found;
}

void ExpectBits(std::set<unsigned> const& expected, omi_BlkBitVect const& bits)
{
  std::vector<unsigned> const ascending(expected.begin(), expected.end());
  EXPECT_EQ(expected.size(), bits.BitCount());
  EXPECT_EQ(ascending, Ascending(bits));
  std::vector<unsigned> descending;
  omi_BlkBitVectTrav trav(bits);
  unsigned index = 0;
  for (bool more = trav.Last(index); more; more = trav.Previous(index))
    descending.insert(descending.begin(), index);
  EXPECT_EQ(ascending, descending);
}

std::vector<int> Members(omi_Set const& set)
{
  std::vector<int> members;
  for (omi_SetIT it(set); !it.IsDone(); it.Next())
    members.push_back(it.CurrentItem());
  std::vector<int> backwards;
  omi_SetIT it(set);
  for (it.Last(); !it.IsDone(); it.Previous())
    backwards.push_back(it.CurrentItem());
  std::reverse(backwards.begin(), backwards.end());
  EXPECT_EQ(members, backwards);
  EXPECT_EQ(static_cast<int>(members.size()), set.Size());
  return members;
}
} // namespace

TEST(omi_BlkBitVect, BehavesAsASetThroughBitsRangesAndMerges)
{
  for (unsigned seed = 0; seed < 100; ++seed)
  {
    SCOPED_TRACE(seed);
    LabelSource labels(seed);
    omi_BlkBitVect bits[2];
    std::set<unsigned> expected[2];
    for (int step = 0; step < 200; ++step)
    {
      int const which = labels.Below(2);
      unsigned const index = static_cast<unsigned>(labels.Next());
      if (labels.Below(8) == 0)
      {
        unsigned const last = std::max(index, index + static_cast<unsigned>(labels.Below(400)));
        bits[which].SetRange(index, last);
        for (unsigned bit = index; bit <= last && bit >= index; ++bit)
          expected[which].insert(bit);
      }
      else if (labels.Below(4) == 0)
      {
        ASSERT_EQ(expected[which].erase(index) != 0, bits[which].ClearBit(index));
      }
      else
      {
        ASSERT_EQ(expected[which].insert(index).second, bits[which].SetBit(index));
      }
      ASSERT_EQ(expected[which].contains(index + 1), bits[which].GetBit(index + 1));
    }
    omi_BlkBitVect merged(bits[0]);
    merged.Merge(bits[1]);
    ExpectBits(expected[0], bits[0]);
    ExpectBits(expected[1], bits[1]);
    expected[0].merge(expected[1]);
    ExpectBits(expected[0], merged);
    merged.Clear();
    ExpectBits({}, merged);
  }
}

TEST(omi_BlkBitVect, WholeRangeAndHighestIndex)
{
  omi_BlkBitVect bits;
  bits.SetRange(5, 4);
  EXPECT_EQ(0u, bits.BitCount());
  bits.SetRange(31, 100000);
  bits.SetBit(~0u);
  EXPECT_EQ(100000u - 30 + 1, bits.BitCount());
  unsigned found = 0;
  EXPECT_TRUE(bits.FindAtOrAbove(100001, found));
  EXPECT_EQ(~0u, found);
  EXPECT_TRUE(bits.FindAtOrBelow(~0u - 1, found));
  EXPECT_EQ(100000u, found);
  EXPECT_FALSE(bits.FindAtOrBelow(30, found));
}

TEST(omi_BlkBitVect, EstimateBoundsTheBytes)
{
  for (unsigned first : {0u, 1000u, 100000000u, 999999999u})
  {
    for (unsigned count : {1u, 40u, 100000u})
    {
      omi_BlkBitVect bits;
      bits.SetRange(first, first + count - 1);
      std::size_t const estimate = omi_BlkBitVect::EstimateBytes(first, first + count - 1, count);
      EXPECT_LE(bits.Bytes(), estimate) << first << " " << count;
      EXPECT_LE(estimate, 4 * bits.Bytes()) << first << " " << count;
      EXPECT_LE(bits.Bytes(), 280000u) << first << " " << count;
    }
  }
}

TEST(omi_Set, RunsAcrossZeroTakeTheSteps)
{
  struct
  {
    char const* what;
    int first, last;
    unsigned step;
    std::vector<int> members;
  } const cases[] = {
    {"ends descend", 3, 2, 1, {}},
    {"step 1", -2, 2, 1, {-2, -1, 0, 1, 2}},
    {"a step over zero", -5, 5, 3, {-5, -2, 1, 4}},
    {"a step onto zero", -4, 3, 2, {-4, -2, 0, 2}},
    {"the whole range", INT_MIN, INT_MAX, 1u << 31, {INT_MIN, 0}},
    {"a step beyond an int", INT_MIN, INT_MAX, ~0u, {INT_MIN, INT_MAX}},
  };
  for (auto const& c : cases)
  {
    omi_Set set;
    set.InsertRun(c.first, c.last, c.step);
    EXPECT_EQ(c.members, Members(set)) << c.what;
  }
}

TEST(omi_Set, UnionIsAscendingWithoutRepeats)
{
  omi_Set set;
  for (int item : {7, -3, 0, 7, 999999999, INT_MIN})
    set.Insert(item);
  omi_Set other;
  other.Insert(-4);
  other.Insert(7);
  set += other;
  EXPECT_EQ((std::vector<int>{INT_MIN, -4, -3, 0, 7, 999999999}), Members(set));
  EXPECT_TRUE(set.Remove(-3) && !set.Remove(3) && !set.IsMember(-3));
  EXPECT_EQ((std::vector<int>{-4, 7}), Members(other));
}

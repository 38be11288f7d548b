#include "cow_List.h"

#include "cow_String.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <deque>
#include <random>
#include <sstream>
#include <string>

namespace
{

// Counts its live objects, so that an item destroyed twice or never shows.
class Item
{
public:
  Item(int value) : m_value(value) { ++live; }
  Item(Item const& other) : m_value(other.m_value) { ++live; }
  Item& operator=(Item const&) = default;
  ~Item()
  {
    m_value = -1;
    --live;
  }
  int Value() const { return m_value; }
  friend bool operator==(Item const& a, Item const& b) { return a.m_value == b.m_value; }
  friend bool operator<(Item const& a, Item const& b) { return a.m_value < b.m_value; }

  static int live;

private:
  int m_value;
};
int Item::live = 0;

cow_List<int> Numbers(int count)
{
  cow_List<int> list;
  for (int i = 0; i < count; ++i)
    list.Append(i);
  return list;
}

std::string Text(cow_List<int> const& list)
{
  std::ostringstream text;
  for (int x : list)
    text << x << ' ';
  return text.str();
}

} // namespace

TEST(cow_List, HintDecidesBlocksAndDirectory)
{
  struct
  {
    int hint, blockSize, directorySize;
  } const cases[] = {
    {0, 16, 0},    {1, 16, 16},   {255, 16, 16},     {256, 32, 24},     {300, 32, 26},
    {511, 32, 32}, {512, 64, 24}, {16385, 2048, 25}, {32767, 2048, 32}, {1000000, 65536, 32},
  };
  for (auto const& c : cases)
  {
    cow_List<int> const list(cow_ListConstruct(), c.hint);
    EXPECT_EQ(1 << list.Shape().blockShift, c.blockSize) << "hint " << c.hint;
    EXPECT_EQ(list.Shape().directorySize, c.directorySize) << "hint " << c.hint;
    EXPECT_EQ(list.Length(), 0);
  }
}

TEST(cow_List, WriteCopiesTheTouchedBlockOnly)
{
  cow_List<int> list = Numbers(100);
  cow_List<int> const copy = list;
  EXPECT_EQ(&list.ConstGet(0), &copy.ConstGet(0));

  list.Get(0) = 77;
  EXPECT_EQ(copy[0], 0);
  EXPECT_EQ(list[0], 77);
  EXPECT_NE(&list.ConstGet(15), &copy.ConstGet(15)) << "same block as item 0";
  EXPECT_EQ(&list.ConstGet(16), &copy.ConstGet(16)) << "next block";
  EXPECT_EQ(&list.ConstGet(99), &copy.ConstGet(99));

  int const* const own = &list.ConstGet(0);
  list.Get(1) = 78;
  EXPECT_EQ(&list.ConstGet(0), own) << "a block that is its own already stays where it is";

  list.Append(100);
  EXPECT_NE(&list.ConstGet(99), &copy.ConstGet(99));
  list.Resize(40);
  EXPECT_EQ(copy.Length(), 100);
  EXPECT_NE(&list.ConstGet(39), &copy.ConstGet(39)) << "the block with the new end";
  EXPECT_EQ(&list.ConstGet(31), &copy.ConstGet(31));
}

TEST(cow_List, ResizeMakesNoItemsAndZeroResetsTheShape)
{
  cow_List<int> list(cow_ListConstruct(), 16384);
  list.Resize(50000);
  EXPECT_EQ(list.Length(), 0);
  EXPECT_EQ(list.Shape().directorySize, 32) << "32 blocks of 2048 cover 50000, in steps of 16";
  list.Append(1).Prepend(0);
  EXPECT_NE(list.FirstOffset(), 0);
  list.Resize(0);
  EXPECT_EQ(list.Length(), 0);
  EXPECT_EQ(list.Shape().blockShift, 4);
  EXPECT_EQ(list.Shape().directorySize, 0);
  EXPECT_EQ(list.FirstOffset(), 0);
  list.Append(3);
  EXPECT_EQ(Text(list), "3 ");

  cow_List<int> twoBlocks = Numbers(20);
  twoBlocks.Prepend(-1);
  EXPECT_EQ(twoBlocks.FirstOffset(), 14 * 16 - 1) << "to the end of the directory";
  EXPECT_EQ(twoBlocks[0], -1);
  EXPECT_EQ(twoBlocks.Last(), 19);
}

TEST(cow_List, InsertAndRemoveMoveTheShorterSide)
{
  struct
  {
    char const* what;
    int index;
    bool tailMoves;
  } const cases[] = {{"near the front", 2, false}, {"tie", 5, true}, {"near the end", 8, true}};
  for (auto const& c : cases)
  {
    cow_List<int> list = Numbers(10);
    int const* const first = &list.ConstGet(0);
    list.InsertIndex(c.index, 100);
    EXPECT_EQ(list[c.index], 100) << c.what;
    EXPECT_EQ(&list.ConstGet(0) == first, c.tailMoves) << c.what;

    cow_List<int> shorter = Numbers(10);
    shorter.RemoveIndex(c.index);
    EXPECT_EQ(shorter.FirstOffset(), c.tailMoves ? 0 : 1) << c.what;
  }
}

TEST(cow_List, SliceCutsItsBoundsToTheList)
{
  struct
  {
    int lo, hi;
    char const* items;
  } const cases[] = {
    {-4, 2, "0 1 "}, {7, 99, "7 8 9 "}, {5, 2, ""}, {20, 30, ""}, {-5, -2, ""},
  };
  cow_List<int> const list = Numbers(10);
  for (auto const& c : cases)
    EXPECT_EQ(Text(list.Slice(c.lo, c.hi)), c.items) << c.lo << " to " << c.hi;
}

TEST(cow_List, ItemsMayBeGivenBackToTheirOwnList)
{
  cow_List<cow_String> list("a", "b", "c");
  list.Append(list[0]).Prepend(list[1]);
  list.InsertIndex(1, list[2]);
  list.InsertIndex(4, list[4]);
  list.Concatenate(list);
  std::string text;
  for (cow_String const& x : list)
    text += x.CStr();
  EXPECT_EQ(text, "bbabccabbabcca");

  cow_List<cow_List<int>> nested;
  nested.Append(Numbers(3));
  cow_List<int> inner = nested[0];
  inner = nested.Pop();
  EXPECT_EQ(Text(inner), "0 1 2 ");
}

TEST(cow_List, IteratorKeepsTheListThatItCameFrom)
{
  cow_List<int> list = Numbers(40);
  list.Prepend(-1);
  cow_ListIter<int> it(list);
  int expected = -1;
  for (it.First(); !it.IsDone(); it.Next())
  {
    EXPECT_EQ(it.Current(), expected++);
    list.RemoveIndex(0);
    list.Append(99);
  }
  EXPECT_EQ(expected, 40);
  EXPECT_EQ(list[0], 99);
}

TEST(cow_List, ArraysAndMembership)
{
  int const array[] = {4, 2, 9, 2};
  cow_List<int> list = Numbers(3);
  list.SetFromArray(array, 4);
  EXPECT_FALSE(list.AppendUnlessMember(9));
  EXPECT_TRUE(list.AppendUnlessMember(1));
  EXPECT_TRUE(list.RemoveMember(2));
  EXPECT_FALSE(list.RemoveMember(77));
  EXPECT_EQ(Text(list), "4 9 2 1 ");
  int count = 0;
  int* const copies = list.GetCArray(count);
  EXPECT_EQ(count, 4);
  EXPECT_EQ(copies[1], 9);
  delete[] copies;
}

// Four lists and four deques go through the same random operations; copies among the four keep blocks
// shared throughout.
TEST(cow_List, BehavesAsADeque)
{
  int const before = Item::live;
  for (unsigned seed = 0; seed < 300; ++seed)
  {
    std::mt19937 random(seed);
    auto const below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    cow_List<Item> lists[4];
    std::deque<Item> models[4];
    if (seed % 3 == 0)
      lists[0] = cow_List<Item>(cow_ListConstruct(), below(3000));
    for (int step = 0; step < 200; ++step)
    {
      int const which = below(4);
      cow_List<Item>& list = lists[which];
      std::deque<Item>& model = models[which];
      int const length = static_cast<int>(model.size());
      int const at = length == 0 ? 0 : below(length);
      int const operation = below(length == 0 ? 6 : 16);
      switch (operation)
      {
      case 0:
      case 1:
        for (int i = below(40); i >= 0; --i)
        {
          operation == 0 ? list.Append(Item(i)) : list.Prepend(Item(i));
          operation == 0 ? model.push_back(i) : model.push_front(i);
        }
        break;
      case 2:
      case 3:
        list = lists[(which + 1) % 4];
        model = models[(which + 1) % 4];
        break;
      case 4:
        list.Fill(length + 20, Item(step));
        while (static_cast<int>(model.size()) < length + 20)
          model.push_back(step);
        break;
      case 5:
        list.Concatenate(lists[3]);
        for (std::size_t i = 0, n = models[3].size(); i < n; ++i)
          model.push_back(models[3][i]);
        break;
      case 6:
        list.InsertIndex(at, Item(step));
        model.insert(model.begin() + at, step);
        break;
      case 7:
        list.InsertIndex(at, list[length - 1]);
        model.insert(model.begin() + at, Item(model.back()));
        break;
      case 8:
        list.RemoveIndex(at);
        model.erase(model.begin() + at);
        break;
      case 9:
        list.Get(at) = Item(1000 + step);
        model[static_cast<std::size_t>(at)] = Item(1000 + step);
        break;
      case 10:
        EXPECT_EQ(list.Pop(), model.back());
        model.pop_back();
        break;
      case 11:
        list.Resize(at);
        model.resize(static_cast<std::size_t>(at), Item(0));
        break;
      case 12:
        list.Resize(length + below(500));
        break;
      case 13:
        list.Sort();
        std::sort(model.begin(), model.end());
        break;
      case 14:
        list = list.Slice(at / 2, length);
        model.erase(model.begin(), model.begin() + at / 2);
        break;
      case 15: // as a queue, until blocks fall away in front
        for (int i = 0; i < at; ++i)
        {
          list.RemoveIndex(0);
          model.pop_front();
        }
        break;
      }
      ASSERT_EQ(list.Length(), static_cast<int>(model.size())) << seed << ": " << operation;
      for (int i = 0; i < 4 && step % 8 == 0; ++i)
      {
        ASSERT_TRUE(
          std::equal(lists[i].begin(), lists[i].end(), models[i].begin(), models[i].end()))
          << "run " << seed << ", step " << step << ", list " << i;
      }
      ASSERT_TRUE(std::equal(list.begin(), list.end(), model.begin(), model.end()))
        << "run " << seed << ", operation " << operation;
      if (length > 2000)
      {
        list.Clear();
        model.clear();
      }
    }
  }
  EXPECT_EQ(Item::live, before);
}

TEST(cow_ListDeathTest, IndexOutOfRangeAbortsThroughTheHook)
{
  cow_List<int> list = Numbers(3);
  cow_SetOutOfRangeHook([](int index, int length)
                        { std::fprintf(stderr, "index %d, length %d", index, length); });
  EXPECT_DEATH(list.ConstGet(3), "index 3, length 3");
  EXPECT_DEATH(list.Get(-1), "index -1, length 3");
  EXPECT_DEATH(list.RemoveIndex(3), "index 3, length 3");
  EXPECT_DEATH(list.InsertIndex(4, 0), "index 4, length 3");
  EXPECT_DEATH(cow_List<int>().Last(), "index -1, length 0");
  EXPECT_DEATH(cow_List<int>().Pop(), "index -1, length 0");
  cow_SetOutOfRangeHook(nullptr);
}

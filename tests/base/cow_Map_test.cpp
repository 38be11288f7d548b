#include "cow_Map.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace
{

template <class It>
std::string KeysOf(It&& it)
{
  std::string keys;
  for (it.First(); !it.IsDone(); it.Next())
    keys += std::string(it.CurrentKey().CStr()) + " ";
  return keys;
}

using Texts = cow_Map<cow_String, int>;

std::string Preorder(Texts const& map)
{
  return KeysOf(cow_ConstMapIterator<cow_String, int>(map));
}

Texts Parameters()
{
  Texts map;
  int value = 0;
  for (char const* key : {"type", "name", "elset", "a", "ab", "nset", "op"})
    EXPECT_TRUE(map.Insert(key, ++value));
  return map;
}

} // namespace

TEST(cow_MapBit, TakesBytesFromBothEnds)
{
  // Keys, and their bits by depth from 0.
  std::pair<char const*, char const*> const texts[] = {
    {"", "000"},
    {"ab", "1000"},
    {"type", "011000"},
    // e, t, l, e, s, and s once more: at a depth equal to the length a byte is still read
    {"elset", "1001110"},
  };
  for (auto const& [key, expected] : texts)
  {
    std::string bits;
    for (std::size_t depth = 0; expected[depth] != '\0'; ++depth)
      bits += cow_MapBit(cow_String(key), static_cast<int>(depth)) != 0 ? '1' : '0';
    EXPECT_EQ(bits, expected) << key;
  }
  EXPECT_EQ(cow_MapBit(5, 0), 1);
  EXPECT_EQ(cow_MapBit(5, 1), 0);
  EXPECT_EQ(cow_MapBit(5, 34), 1);
  EXPECT_EQ(cow_MapBit(-1, 31), 1);
}

// The low bit of a letter steers, at the root of the first letter, below it of the last one, then of the
// second. Keys go in as type, name, elset, a, ab, nset, op:
//
//                     type
//                name      elset
//             nset        ab    a
//                       op
TEST(cow_Map, IteratesInPreorder)
{
  Texts const map = Parameters();
  EXPECT_EQ(Preorder(map), "type name nset elset ab op a ");
  using Sorted = cow_ConstMapSortedIt<cow_String, int>;
  EXPECT_EQ(KeysOf(Sorted(map, Sorted::AscSortCmp)), "a ab elset name nset op type ");
  EXPECT_EQ(KeysOf(Sorted(map, Sorted::DescSortCmp)), "type op nset name elset ab a ");

  cow_Map<int, int> numbers;
  for (int key : {5, 3, 4, 1, -1}) // by bits: 4 left, 3 right, 1 right left, -1 right right
    numbers.Insert(key, 10 * key);
  std::string keys;
  cow_ConstMapIterator<int, int> it(numbers);
  for (it.First(); !it.IsDone(); it.Next())
    keys += std::to_string(it.CurrentKey()) + ":" + std::to_string(it.CurrentValue()) + " ";
  EXPECT_EQ(keys, "5:50 4:40 3:30 1:10 -1:-10 ");

  cow_ConstMapIterator<int, int> nothing{cow_Map<int, int>()};
  nothing.First();
  EXPECT_TRUE(nothing.IsDone());
}

TEST(cow_Map, WriteCopiesThePathOnly)
{
  Texts map = Parameters();
  Texts const copy = map;
  map.Get("ab") = 50;
  EXPECT_EQ(copy.ConstGet("ab"), 5);
  EXPECT_EQ(map.ConstGet("ab"), 50);
  for (char const* key : {"type", "elset", "ab"})
    EXPECT_NE(map.ConstFind(key), copy.ConstFind(key)) << key;
  for (char const* key : {"name", "nset", "a", "op"})
    EXPECT_EQ(map.ConstFind(key), copy.ConstFind(key)) << key;

  EXPECT_TRUE(map.Insert("name", 20)) << "a present key is replaced";
  EXPECT_EQ(map.Size(), 7);
  EXPECT_EQ(copy.ConstGet("name"), 2);
  EXPECT_EQ(map.ConstFind("none"), nullptr);
}

TEST(cow_Map, IteratorKeepsTheTreeThatItCameFrom)
{
  Texts map = Parameters();
  cow_ConstMapIterator<cow_String, int> it(map);
  std::string keys;
  for (it.First(); !it.IsDone(); it.Next())
  {
    keys += std::string(it.CurrentKey().CStr()) + " ";
    map.Remove(it.CurrentKey());
    map.Insert(cow_String("new") + it.CurrentKey(), 0);
  }
  EXPECT_EQ(keys, "type name nset elset ab op a ");
  EXPECT_EQ(map.Size(), 7);
  EXPECT_TRUE(map.IsMember("newop"));
}

namespace
{

// The tree as it is defined: a node for each key, nothing shared, every search from the root.
template <class K>
class PlainTree
{
public:
  bool IsMember(K const& key) { return *Link(key) >= 0; }

  void Insert(K const& key, int value)
  {
    int& link = *Link(key);
    if (link < 0)
    {
      link = static_cast<int>(m_nodes.size());
      m_nodes.push_back({{key, value}, {-1, -1}});
    }
    m_nodes[link].entry.second = value;
  }

  // The hole is filled from below, by right children first.
  bool Remove(K const& key)
  {
    int* link = Link(key);
    if (*link < 0)
      return false;
    for (Node* node = &m_nodes[*link]; node->child[0] >= 0 || node->child[1] >= 0;)
    {
      link = &node->child[node->child[1] >= 0 ? 1 : 0];
      node->entry = m_nodes[*link].entry;
      node = &m_nodes[*link];
    }
    *link = -1;
    return true;
  }

  std::vector<std::pair<K, int>> Preorder() const
  {
    std::vector<std::pair<K, int>> entries;
    std::vector<int> waiting{m_root};
    while (!waiting.empty())
    {
      int const next = waiting.back();
      waiting.pop_back();
      if (next < 0)
        continue;
      entries.push_back(m_nodes[next].entry);
      waiting.insert(waiting.end(), {m_nodes[next].child[1], m_nodes[next].child[0]});
    }
    return entries;
  }

private:
  struct Node
  {
    std::pair<K, int> entry;
    int child[2];
  };

  int* Link(K const& key)
  {
    int* link = &m_root;
    for (int depth = 0; *link >= 0 && m_nodes[*link].entry.first != key; ++depth)
      link = &m_nodes[*link].child[cow_MapBit(key, depth)];
    return link;
  }

  std::deque<Node> m_nodes;
  int m_root = -1;
};

template <class It>
auto EntriesOf(It&& it)
{
  std::vector<std::pair<std::decay_t<decltype(it.CurrentKey())>, int>> entries;
  for (it.First(); !it.IsDone(); it.Next())
    entries.emplace_back(it.CurrentKey(), it.CurrentValue());
  return entries;
}

template <class K>
void ExpectSame(cow_Map<K, int> const& map, PlainTree<K> const& model, unsigned run)
{
  auto entries = model.Preorder();
  ASSERT_EQ(map.Size(), static_cast<int>(entries.size())) << "run " << run;
  ASSERT_EQ(EntriesOf(cow_ConstMapIterator<K, int>(map)), entries) << "run " << run;
  std::sort(entries.begin(), entries.end());
  ASSERT_EQ(EntriesOf(cow_ConstMapSortedIt<K, int>(map)), entries) << "run " << run;
  for (auto const& [key, value] : entries)
    ASSERT_EQ(map.ConstGet(key), value) << "run " << run;
}

// Three maps and three plain trees go through the same random operations, with copies among them: a
// copy, a removal and a write each in `rarity` operations, insertions otherwise.
template <class K, class MakeKey>
void HoldAgainstPlainTree(int steps, unsigned rarity, MakeKey const& makeKey)
{
  for (unsigned seed = 0; seed < 100; ++seed)
  {
    std::mt19937 random(seed);
    cow_Map<K, int> maps[3];
    PlainTree<K> models[3];
    for (int step = 0; step < steps; ++step)
    {
      std::size_t const which = random() % 3;
      K const key = makeKey(random);
      auto const chance = random() % rarity;
      if (chance == 0)
      {
        maps[which] = maps[(which + 1) % 3];
        models[which] = models[(which + 1) % 3];
      }
      else if (chance == 1)
        ASSERT_EQ(maps[which].Remove(key), models[which].Remove(key));
      else if (chance != 2 || models[which].IsMember(key))
      {
        if (chance == 2)
          maps[which].Get(key) = step;
        else
          ASSERT_TRUE(maps[which].Insert(key, step));
        models[which].Insert(key, step);
      }
      ASSERT_EQ(maps[which].IsMember(key), models[which].IsMember(key));
    }
    for (std::size_t i = 0; i < 3; ++i)
      ExpectSame(maps[i], models[i], seed);
  }
}

cow_String Name(char const* prefix, int number)
{
  return cow_String(prefix).Append(cow_String(number));
}

} // namespace

TEST(cow_Map, BehavesAsAPlainTree)
{
  HoldAgainstPlainTree<int>(150, 6,
                            [](std::mt19937& random)
                            {
                              int const kinds[] = {static_cast<int>(random() % 60),
                                                   -static_cast<int>(random() % 20),
                                                   static_cast<int>(random() % 8) << 20, 999999999};
                              return kinds[random() % 4];
                            });
  HoldAgainstPlainTree<cow_String>(150, 6,
                                   [](std::mt19937& random)
                                   {
                                     cow_String key;
                                     for (auto n = random() % 5; n != 0; --n)
                                       key.Append(
                                         static_cast<char>('a' + static_cast<char>(random() % 3)));
                                     return key;
                                   });
}

// Names of even digits hang in one path, which soon has more than cow_longestPath nodes; a removal makes
// a tree of the map again.
TEST(cow_Map, KeepsTheOrderOfATreeThatIsTooDeep)
{
  auto const makeKey = [](std::mt19937& random)
  {
    cow_String key("I-");
    bool const isEven = random() % 8 != 0;
    for (auto digits = 1 + random() % 3; digits != 0; --digits)
      key.Append(static_cast<char>('0' + (isEven ? 2 * (random() % 5) : random() % 10)));
    return key;
  };
  HoldAgainstPlainTree<cow_String>(1000, 12, makeKey);
  HoldAgainstPlainTree<cow_String>(600, 300, makeKey);
}

TEST(cow_Map, TakesManyNamesThatDifferInTheirNumbers)
{
  int const size = 20000;
  Texts map, half, third;
  PlainTree<cow_String> model, halfModel;
  for (int i = 1; i <= size; ++i)
  {
    map.Insert(Name("I-", i), i);
    model.Insert(Name("I-", i), i);
    if (i == size / 2)
    {
      half = map;
      halfModel = model;
      third = std::move(map);
      EXPECT_TRUE(map.Empty() && !map.IsMember("I-1") &&
                  EntriesOf(cow_ConstMapIterator<cow_String, int>(map)).empty());
      map = third;
    }
  }
  ExpectSame(map, model, 0);
  ExpectSame(half, halfModel, 1);

  third.Insert("I-1", -1);
  third.Get("I-2") = -2;
  EXPECT_EQ(half.ConstGet("I-1") + half.ConstGet("I-2"), 3);
  EXPECT_EQ(third.ConstGet("I-1") + third.ConstGet("I-2"), -3);
  int shared = 0;
  for (int i = 1; i <= size / 2; ++i)
    shared += half.ConstFind(Name("I-", i)) == third.ConstFind(Name("I-", i)) ? 1 : 0;
  EXPECT_GT(shared, size / 2 - 100) << "a write copies what is near the key";

  EXPECT_TRUE(map.Remove("I-1") && model.Remove("I-1"));
  ExpectSame(map, model, 2);
}

namespace
{

// Keys that all go the same way, and tell how often they are compared.
struct Counted
{
  int number;
  static int comparisons;
  friend bool operator==(Counted const& a, Counted const& b)
  {
    ++comparisons;
    return a.number == b.number;
  }
  friend int cow_CompareKeys(Counted const& a, Counted const& b)
  {
    ++comparisons;
    return cow_CompareKeys(a.number, b.number);
  }
  friend int cow_MapBit(Counted const&, int) { return 0; }
  friend int cow_MapBitsEnd(Counted const&) { return 0; }
};
int Counted::comparisons = 0;

} // namespace

TEST(cow_Map, FindsKeysOfOneLongPathWithoutWalkingIt)
{
  static_assert(sizeof(Texts) == 3 * sizeof(void*), "a keyword has one, mostly of a few entries");
  int const size = 20000;
  cow_Map<Counted, int> map;
  for (int i = 0; i < size; ++i)
    map.Insert({i * 7919 % size}, i);
  for (int i = 0; i < size; ++i)
    map.Get({i}) += map.ConstGet({i});
  EXPECT_LT(Counted::comparisons, 150 * size);
}

// Every byte of these keys is even, so that they hang in one chain of left children. A small stack
// shows that neither copying, walking nor deleting the chain descends by recursion.
TEST(cow_Map, LongChainsNeedNoStack)
{
  auto const body = [](void* keysLeft) -> void*
  {
    Texts map;
    for (int i = 0; i < 5000; ++i)
    {
      cow_String key; // "", "2", "4", "6", "02", "22", ...
      for (int digits = i; digits != 0; digits /= 4)
        key.Append(static_cast<char>('0' + 2 * (digits % 4)));
      map.Insert(key, i);
    }
    Texts copy = map;
    copy.Remove("2");
    map.Clear();
    cow_ConstMapIterator<cow_String, int> it(copy);
    for (it.First(); !it.IsDone(); it.Next())
      ++*static_cast<int*>(keysLeft);
    return nullptr;
  };
  pthread_attr_t small;
  pthread_attr_init(&small);
  ASSERT_EQ(pthread_attr_setstacksize(&small, 64 * 1024), 0);
  pthread_t thread;
  int keysLeft = 0;
  ASSERT_EQ(pthread_create(&thread, &small, body, &keysLeft), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&small);
  EXPECT_EQ(keysLeft, 4999);
}

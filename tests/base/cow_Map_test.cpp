#include "cow_Map.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <map>
#include <random>
#include <string>

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

TEST(cow_Map, RemovalFillsTheHoleFromBelowRightFirst)
{
  struct
  {
    char const* key;
    char const* left;
  } const steps[] = {
    {"elset", "type name nset a ab op "}, // its right child a comes up
    {"a", "type name nset ab op "},       // no right child: ab comes up, then op
    {"type", "ab name nset op "},         // the root: ab, then op from the left of ab
    {"nset", "ab name op "},
  };
  Texts map = Parameters();
  EXPECT_FALSE(map.Remove("absent"));
  int size = map.Size();
  for (auto const& step : steps)
  {
    EXPECT_TRUE(map.Remove(step.key));
    EXPECT_EQ(Preorder(map), step.left) << "without " << step.key;
    EXPECT_FALSE(map.IsMember(step.key));
    EXPECT_EQ(map.Size(), --size);
  }
  EXPECT_EQ(map.ConstGet("op"), 7);
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

// Three maps and three standard ones go through the same random operations, with copies among them.
template <class K, class MakeKey>
void HoldAgainstStandardMap(MakeKey const& makeKey)
{
  for (unsigned seed = 0; seed < 200; ++seed)
  {
    std::mt19937 random(seed);
    cow_Map<K, int> maps[3];
    std::map<K, int> models[3];
    for (int step = 0; step < 150; ++step)
    {
      std::size_t const which = random() % 3;
      cow_Map<K, int>& map = maps[which];
      std::map<K, int>& model = models[which];
      K const key = makeKey(random);
      switch (random() % 8)
      {
      case 0:
        map = maps[(which + 1) % 3];
        model = models[(which + 1) % 3];
        break;
      case 1:
      case 2:
        ASSERT_EQ(map.Remove(key), model.erase(key) == 1);
        break;
      case 3:
        if (map.IsMember(key))
        {
          map.Get(key) = step;
          model.at(key) = step;
        }
        break;
      default:
        map.Insert(key, step);
        model[key] = step;
      }
      ASSERT_EQ(map.IsMember(key), model.count(key) == 1);
    }
    for (int i = 0; i < 3; ++i)
    {
      ASSERT_EQ(maps[i].Size(), static_cast<int>(models[i].size())) << "run " << seed;
      cow_ConstMapSortedIt<K, int> it(maps[i]);
      it.First();
      for (auto const& [key, value] : models[i])
      {
        ASSERT_EQ(it.CurrentKey(), key) << "run " << seed;
        ASSERT_EQ(it.CurrentValue(), value) << "run " << seed;
        ASSERT_EQ(maps[i].ConstGet(key), value) << "run " << seed;
        it.Next();
      }
      ASSERT_TRUE(it.IsDone());
    }
  }
}

} // namespace

TEST(cow_Map, BehavesAsAStandardMap)
{
  HoldAgainstStandardMap<int>(
    [](std::mt19937& random)
    {
      int const kinds[] = {static_cast<int>(random() % 60), -static_cast<int>(random() % 20),
                           static_cast<int>(random() % 8) << 20, 999999999};
      return kinds[random() % 4];
    });
  HoldAgainstStandardMap<cow_String>(
    [](std::mt19937& random)
    {
      cow_String key;
      for (auto n = random() % 5; n != 0; --n)
        key.Append(static_cast<char>('a' + static_cast<char>(random() % 3)));
      return key;
    });
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

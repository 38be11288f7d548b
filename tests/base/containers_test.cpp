#include "VRXBasSharedPtr.h"
#include "cow_Btree.h"
#include "cow_COW.h"
#include "cow_String.h"
#include "mem_SlabArray.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace
{

struct Shape
{
  explicit Shape(int s) : sides(s) { ++live; }
  Shape(Shape const& other) : sides(other.sides) { ++live; }
  virtual ~Shape() { --live; }
  virtual Shape* Copy() const { return new Shape(*this); }
  virtual std::string Name() const { return "shape"; }

  int sides;
  static int live;
};
int Shape::live = 0;

struct Square : Shape
{
  Square() : Shape(4) {}
  Square* Copy() const override { return new Square(*this); }
  std::string Name() const override { return "square"; }
};

} // namespace

TEST(cow_CountedHld, SharesWritesAndDeletesOnce)
{
  {
    cow_CountedHld<Shape> a(new Shape(3));
    cow_CountedHld<Shape> const b = a;
    a->sides = 5;
    EXPECT_EQ(b.ConstGet()->sides, 5);
    EXPECT_EQ(a.UseCount(), 2);

    a = new Shape(6); // b keeps the old one
    EXPECT_EQ(b->sides, 5);
    EXPECT_EQ(b.UseCount(), 1);
    EXPECT_EQ(Shape::live, 2);
    a = new Shape(7); // a sole holder deletes it
    EXPECT_EQ(Shape::live, 2);
    a = a.Get();
    EXPECT_EQ(a->sides, 7);

    cow_CountedHld<Shape> none;
    EXPECT_TRUE(none.IsNull());
    EXPECT_EQ(none.UseCount(), 1) << "nothing is counted too";
    cow_CountedHld<Shape> const none2 = none;
    EXPECT_EQ(none.UseCount(), 2);
    none = std::move(a);
    EXPECT_EQ(none->sides, 7);
    EXPECT_EQ(none2.UseCount(), 1);
  }
  EXPECT_EQ(Shape::live, 0);
}

TEST(cow_COW, CopiesOnTheFirstWriteOfASharer)
{
  {
    cow_COW<Shape> a(new Shape(3));
    cow_COW<Shape> b = a;
    Shape const* const first = a.ConstGet();
    EXPECT_EQ(b.ConstGet(), first);
    b.Get()->sides = 4;
    EXPECT_EQ(a->sides, 3);
    EXPECT_EQ(b->sides, 4);
    EXPECT_EQ(a.Get(), first) << "the holder that is left writes in place";

    cow_COW<Shape> none;
    cow_COW<Shape> const none2 = none;
    EXPECT_EQ(none.Get(), nullptr);
    none = new Shape(9);
    EXPECT_TRUE(none2.IsNull());

    cow_ArrayCOW<Shape, cow_Virtual<Shape>> virtually(new Square);
    cow_ArrayCOW<Shape, cow_Virtual<Shape>> copy = virtually;
    copy.Get()->sides = 5;
    EXPECT_EQ(copy->Name(), "square");
    EXPECT_EQ(virtually->sides, 4);
    cow_ArrayCOW<Shape, cow_Virtual<Shape>>& same = copy;
    copy = same;
    EXPECT_EQ(copy->sides, 5);
  }
  EXPECT_EQ(Shape::live, 0);
}

TEST(cow_Btree, BehavesAsAStandardMap)
{
  for (unsigned seed = 0; seed < 60; ++seed)
  {
    std::mt19937 random(seed);
    unsigned const range = seed % 2 == 0 ? 300 : 100000;
    cow_Btree<cow_String, int> tree, half;
    std::map<cow_String, int> model, halfModel;
    for (int step = 0; step < 1500; ++step)
    {
      cow_String const key(static_cast<int>(random() % range));
      ASSERT_EQ(tree.InsertUnlessMember(key, step), model.emplace(key, step).second);
      if (random() % 4 == 0)
      {
        *tree.Find(key) = -step;
        model[key] = -step;
      }
      if (step == 700)
      {
        half = tree;
        halfModel = model;
      }
    }
    EXPECT_EQ(tree.Find("absent"), nullptr);
    EXPECT_EQ(tree.ConstFind("absent"), nullptr);
    auto const expectSame = [&](cow_Btree<cow_String, int> const& a, auto const& b)
    {
      ASSERT_EQ(a.Size(), static_cast<int>(b.size()));
      cow_BtreeIterator<cow_String, int> it(a);
      it.First();
      for (auto const& [key, value] : b)
      {
        ASSERT_EQ(it.CurrentKey(), key) << "run " << seed;
        ASSERT_EQ(it.CurrentValue(), value) << "run " << seed;
        ASSERT_EQ(*a.ConstFind(key), value);
        it.Next();
      }
      ASSERT_TRUE(it.IsDone());
    };
    expectSame(tree, model);
    expectSame(half, halfModel);
  }
}

TEST(cow_Btree, WriteLeavesOtherHoldersAndNestedTablesAlone)
{
  cow_Btree<cow_String, cow_Btree<cow_String, unsigned>> byPart;
  byPart.InsertUnlessMember("PART-1", {});
  auto const before = byPart;
  byPart.Find("PART-1")->InsertUnlessMember("TOP", 1);
  EXPECT_EQ(before.ConstFind("PART-1")->Size(), 0);
  EXPECT_TRUE(byPart.ConstFind("PART-1")->IsMember("TOP"));
  EXPECT_FALSE(byPart.InsertUnlessMember("PART-1", {}));
  EXPECT_EQ(byPart.ConstFind("PART-1")->Size(), 1);
}

TEST(VRXBasSharedPtr, LastOwnerDeletesAndWatchersSeeIt)
{
  VRXBasWeakPtr<Shape> watcher;
  EXPECT_TRUE(watcher.expired());
  {
    VRXBasSharedPtr<Square> const square(new Square);
    VRXBasSharedPtr<Shape> shape = square;
    watcher = shape;
    EXPECT_EQ(shape.use_count(), 2);
    EXPECT_EQ(watcher.lock()->Name(), "square");

    VRXBasSharedPtr<Shape> other(new Shape(3));
    shape.swap(other);
    EXPECT_EQ(shape->sides, 3);
    other.reset(new Shape(6));
    EXPECT_EQ(square.use_count(), 1);
    EXPECT_EQ(Shape::live, 3);
    shape.reset();
    EXPECT_FALSE(shape);
  }
  EXPECT_EQ(Shape::live, 0);
  EXPECT_TRUE(watcher.expired());
  EXPECT_FALSE(watcher.lock());
}

TEST(mem_SlabArray, HoldsItsValuesAcrossBlocksAndMoves)
{
  using Rows = mem_SlabArray<std::size_t[6]>;
  std::size_t const size = 2 * Rows::c_inBlock + 1;
  Rows filled(size);
  for (std::size_t i = 0; i < size; ++i)
    filled[i][0] = filled[i][5] = i;
  Rows moved(std::move(filled));
  Rows rows(3);
  rows = std::move(moved);
  std::size_t next = 0;
  rows.ForEachBlock(size,
                    [&](std::size_t from, std::size_t(*values)[6], std::size_t count)
                    {
                      EXPECT_EQ(from, next);
                      for (std::size_t i = 0; i < count; ++i, ++next)
                      {
                        ASSERT_EQ(&values[i], &rows[next]);
                        ASSERT_EQ(values[i][0] + values[i][5], 2 * next);
                      }
                    });
  EXPECT_EQ(next, size);
  EXPECT_EQ(std::as_const(rows)[Rows::c_inBlock][0], Rows::c_inBlock);
  Rows(0).ForEachBlock(0, [](std::size_t, auto, std::size_t) { FAIL(); });
}

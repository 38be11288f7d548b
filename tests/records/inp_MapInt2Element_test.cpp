#include "inp_MapInt2Element.h"

#include "LabelSource.h"
#include "Lists.h"
#include "VRXBasException.h"
#include "inp_ParserExceptions.h"

#include <gtest/gtest.h>

#include <map>
#include <numeric>
#include <string>
#include <vector>

namespace
{
using Ints = std::vector<int>;
using Elements = std::map<int, Ints>; // label to nodes
using ElementMap = inpM_InstanceMap<inp_MapInt2Element>;

inp_Element* NewElement(Ints const& nodes)
{
  int const count = static_cast<int>(nodes.size());
  return inp_Element::Make("S4", count, nodes.data(), count, 0, 0);
}

Ints NodesOf(inp_Element const& element)
{
  return Ints(element.topology(), element.topology() + element.numNodesPerElement());
}

Elements ElementsOf(inp_MapInt2Element const& map)
{
  return Contents<inp_MapInt2ElementIT>(map, [](auto& it) { return NodesOf(it.CurrentValue()); });
}

inp_MapInt2Element MapOf(Elements const& elements)
{
  inp_MapInt2Element map;
  for (auto const& [label, nodes] : elements)
    map.InsertPtr(label, NewElement(nodes));
  return map;
}

cow_List<int> Counting(int count)
{
  Ints numbers(static_cast<std::size_t>(count));
  std::iota(numbers.begin(), numbers.end(), 1);
  return ListOf(numbers);
}

std::string Fault(ElementMap& map, inpM_IdMap const& ids, int& labels)
{
  try
  {
    map.Update(ids);
  }
  catch (inp_ElementUndefinedNodesError const& error)
  {
    labels = error.Elements().Length();
    return std::string(error.UserReport().View());
  }
  return "";
}
} // namespace

TEST(inp_Element, CopiesAreDeepHoweverTheNodesAreKept)
{
  inp_Element const separate("C3D8", "sub.sim", Counting(8), 6);
  inp_Element const* const inOneBlock = inp_Element::Make(separate);
  for (inp_Element const* source : {&separate, inOneBlock})
  {
    inp_Element copy(*source);
    inp_Element moved(std::move(copy));
    inp_Element assigned("S4", Counting(4), 4, 2, 3);
    assigned = *source;
    inp_Element sameCount("S8", Counting(8), 8, 2, 3);
    int const* const nodesBefore = sameCount.topology();
    sameCount = *source;
    EXPECT_EQ(nodesBefore, sameCount.topology());
    for (inp_Element* made : {&moved, &assigned, &sameCount})
    {
      EXPECT_EQ("C3D8", made->type().View());
      EXPECT_EQ("sub.sim", made->file().View());
      EXPECT_EQ(6, made->numNodesDefined());
      EXPECT_EQ(0, made->nodeOffset() + made->solidElementNumbering());
      EXPECT_EQ((Ints{1, 2, 3, 4, 5, 6, 7, 8}), NodesOf(*made));
      made->topology()[0] = 99;
      EXPECT_EQ(1, source->topology()[0]);
    }
  }
  inp_Element fromBlock(std::move(*const_cast<inp_Element*>(inOneBlock)));
  delete inOneBlock;
  EXPECT_EQ((Ints{1, 2, 3, 4, 5, 6, 7, 8}), NodesOf(fromBlock));
}

TEST(inp_Element, HasAFileWhenItIsASubstructure)
{
  inp_Element element;
  EXPECT_FALSE(element.isSubstructure());
  element.setFile("a.sim");
  element.setFile("b.sim");
  EXPECT_TRUE(element.isSubstructure());
  EXPECT_EQ("b.sim", element.file().View());
  inp_Element const& itself = element;
  element = itself;
  EXPECT_EQ("b.sim", element.file().View());
  element = inp_Element("S4", Counting(4), 4, 10, 1);
  EXPECT_FALSE(element.isSubstructure());
  EXPECT_EQ(10, element.nodeOffset());
  EXPECT_EQ(1, element.solidElementNumbering());
}

TEST(inp_Element, HoldsAsManyNodesAsASmallIntegerCounts)
{
  EXPECT_EQ(inp_Element::c_mostNodes,
            inp_Element("SUB", Counting(inp_Element::c_mostNodes), 1, 0, 0).numNodesPerElement());
  EXPECT_THROW(inp_Element("SUB", Counting(inp_Element::c_mostNodes + 1), 1, 0, 0),
               VRXBasAssertException);
}

TEST(inp_MapInt2Element, HoldsWhatAMapHoldsAndCopiesSeeItsWrites)
{
  for (unsigned seed = 0; seed < 60; ++seed)
  {
    LabelSource labels(seed);
    inp_MapInt2Element map;
    inp_MapInt2Element const same = map;
    Elements expected;
    for (int step = 0; step < 400; ++step)
    {
      int const label = labels.Next();
      Ints const nodes(static_cast<std::size_t>(labels.Below(20)), step);
      bool const isNew = expected.count(label) == 0;
      switch (labels.Below(4))
      {
      case 0:
        ASSERT_EQ(expected.erase(label) == 1, map.Remove(label));
        continue;
      case 1:
        ASSERT_EQ(isNew, map.Insert(label, inp_Element("S4", static_cast<int>(nodes.size()),
                                                       nodes.data(), 0, 0, 0)));
        break;
      default:
        ASSERT_EQ(isNew, map.InsertPtr(label, NewElement(nodes)));
      }
      expected[label] = nodes;
    }
    ASSERT_EQ(expected, ElementsOf(same));
    ASSERT_EQ(static_cast<int>(expected.size()), same.Size());
  }
}

TEST(inp_MapInt2Element, TablesAreAdoptedAndReleased)
{
  inp_MapInt2Element map = MapOf({{1, {1, 2}}});
  inp_MapInt2Element other = map;
  EXPECT_EQ(2, map.UseCount());
  map.AdoptNewTable();
  EXPECT_EQ(1, map.UseCount());
  EXPECT_TRUE(map.IsEmpty() && !other.IsEmpty());
  other.ReleaseTable();
  EXPECT_EQ(0, other.UseCount());
  EXPECT_TRUE(other.IsEmpty() && !other.IsMember(1) && other.GetEltPtr(1) == nullptr);
  EXPECT_TRUE(inp_MapInt2ElementIT(other).IsDone());
  EXPECT_FALSE(other.Remove(1));
  other.Insert(3, inp_Element());
  EXPECT_EQ(1, other.Size());
}

TEST(inp_MapInt2Element, NullCellsArePassedOverAndFilled)
{
  inp_MapInt2Element map;
  EXPECT_TRUE(map.InsertPtr(1, nullptr));
  EXPECT_TRUE(map.InsertPtr(2, NewElement({5})));
  EXPECT_FALSE(map.InsertPtr(2, map.GetEltPtr(2)));
  EXPECT_EQ(nullptr, map.GetEltPtr(1));
  EXPECT_EQ((Elements{{2, {5}}}), ElementsOf(map));
  omi_IntTableElement table;
  table.Insert(1, nullptr);
  table.Insert(2, NewElement({5}));
  EXPECT_EQ(1, omi_IntTableElement(table).Size()) << "a copy leaves them out";
  EXPECT_FALSE(map.Insert(1, inp_Element("S4", Counting(2), 2, 0, 0)));
  EXPECT_EQ((Elements{{1, {1, 2}}, {2, {5}}}), ElementsOf(map));
}

TEST(inp_MapInt2Element, RenumberingMovesElementsThatNobodyShares)
{
  ElementMap map(MapOf({{7, {1}}, {3, {2}}, {1 << 20, {3}}, {999999999, {4}}}));
  inp_Element const* const element = map.ConstGet().GetEltPtr(7);
  inpM_IdMap const ids = map.Renumber(5, false);
  EXPECT_EQ((Elements{{5, {2}}, {6, {1}}, {7, {3}}, {8, {4}}}), ElementsOf(map.ConstGet()));
  EXPECT_EQ(element, map.ConstGet().GetEltPtr(6));
  EXPECT_EQ(6, ids.ConstGet(7));
  EXPECT_EQ(999999999, ids.ConstGetUserId(8));
  EXPECT_EQ(999999999, ids.LargestId());
}

TEST(inp_MapInt2Element, RenumberingLeavesSharesAsTheyWere)
{
  Elements const before{{3, {2}}, {7, {1}}};
  struct
  {
    char const* what;
    bool sharesTable, sharesLevel, sharesParent;
  } const cases[] = {{"another handle on the table", true, false, false},
                     {"a copy of the level", false, true, false},
                     {"a copy of the level above", false, false, true}};
  for (auto const& c : cases)
  {
    ElementMap parent;
    parent.Insert("A", MapOf(before));
    inp_MapInt2Element const table = c.sharesTable ? parent.ConstGet("A") : inp_MapInt2Element();
    ElementMap const level = c.sharesLevel ? parent.ConstGetMap("A") : ElementMap();
    ElementMap const above = c.sharesParent ? parent : ElementMap();
    parent.Renumber(100, false);
    EXPECT_EQ((Elements{{100, {2}}, {101, {1}}}), ElementsOf(parent.ConstGet("A"))) << c.what;
    EXPECT_EQ(c.sharesTable ? before : Elements(), ElementsOf(table)) << c.what;
    EXPECT_TRUE(!c.sharesLevel || before == ElementsOf(level.ConstGet())) << c.what;
    EXPECT_TRUE(!c.sharesParent || before == ElementsOf(above.ConstGet("A"))) << c.what;
  }
}

TEST(inp_MapInt2Element, NumbersRunThroughTheLevelsInNameOrder)
{
  for (bool keepIds : {false, true})
  {
    ElementMap map(MapOf({{9, {1}}}));
    map.Insert("B", MapOf({{5, {2}}}));
    map.Insert("A", MapOf({{5, {3}}, {4, {4}}}));
    inp_Element const* const inChild = map.ConstGet("B").GetEltPtr(5);
    inpM_IdMap const ids = map.Renumber(1, keepIds);
    EXPECT_EQ(keepIds ? 9 : 1, ids.ConstGet(9));
    EXPECT_EQ(keepIds ? 4 : 2, ids.ConstGet("A").ConstGet(4));
    EXPECT_EQ(keepIds ? 5 : 4, ids.ConstGet("B").ConstGet(5));
    EXPECT_EQ(inChild, map.ConstGet("B").GetEltPtr(keepIds ? 5 : 4));
    EXPECT_EQ(4, ids.NumberIds());
  }
}

TEST(inp_MapInt2Element, AssignedNumbersAreTakenAndTheCounterStays)
{
  omi_IntTable<int> assigned;
  assigned.Insert(3, 30);
  assigned.Insert(7, 10);
  ElementMap map(MapOf({{3, {1}}, {7, {2}}, {8, {3}}}));
  map.Insert("A", MapOf({{3, {4}}}));
  int next = 50;
  inpM_IdMap const ids = map.Renumber(next, false, assigned);
  EXPECT_EQ((Elements{{10, {2}}, {30, {1}}, {50, {3}}}), ElementsOf(map.ConstGet()));
  EXPECT_EQ(50, next);
  EXPECT_EQ(50, ids.ConstGet(8));
  EXPECT_EQ((Elements{{3, {4}}}), ElementsOf(map.ConstGet("A")));
  EXPECT_EQ(30, map.Renumber(next, true, assigned).ConstGet(30));

  ElementMap oneNumber(MapOf({{1, {1}}, {2, {2}}, {3, {3}}}));
  oneNumber.Renumber(next, false, omi_IntTable<int>());
  EXPECT_EQ((Elements{{50, {3}}}), ElementsOf(oneNumber.ConstGet())) << "the last is left";
}

TEST(inp_MapInt2Element, UpdateRewritesTheConnectivityOfEveryLevel)
{
  ElementMap map(MapOf({{1, {5, 0, 7}}}));
  map.Insert("A", MapOf({{1, {5, 5}}, {2, {}}}));
  inp_Element const* const element = map.ConstGet().GetEltPtr(1);
  inpM_IdMap ids;
  ids.Insert(5, 100);
  ids.Insert(7, 101);
  ids.Get("A").Insert(5, 200);
  map.Update(ids);
  EXPECT_EQ((Ints{100, 0, 101}), NodesOf(*element));
  EXPECT_EQ((Elements{{1, {200, 200}}, {2, {}}}), ElementsOf(map.ConstGet("A")));
}

TEST(inp_MapInt2Element, UpdateNamesTheFirstHundredElementsWithUnknownNodes)
{
  Elements elements;
  for (int label = 1; label <= 300; ++label)
    elements[label] = {label % 2 == 0 ? 5 : 6};
  inpM_IdMap ids;
  ids.Insert(5, 100);
  ids.Get("A").Insert(5, 100);
  int labels = 0;
  ElementMap own(MapOf(elements));
  EXPECT_EQ("The following elements reference one or more nodes that do not exist",
            Fault(own, ids, labels));
  EXPECT_EQ(100, labels);
  ElementMap nested;
  nested.Insert("A", MapOf({{1, {5}}, {2, {6}}}));
  EXPECT_EQ("The following elements in instance A reference one or more nodes that do not exist",
            Fault(nested, ids, labels));
  EXPECT_EQ(1, labels);
}

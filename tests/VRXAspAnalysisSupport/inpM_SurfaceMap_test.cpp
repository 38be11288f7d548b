#include "inpM_SurfaceMap.h"

#include "Lists.h"
#include "VRXBasException.h"
#include "inpM_ElementFaceIdSurface.h"
#include "inpM_IdMap.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>

namespace
{
using Faces = std::map<std::string, std::set<int>>;
using Areas = std::map<int, double>;

inpM_ElementFaceIdSurface ElementSurface(Faces const& faces)
{
  inpM_ElementFaceIdSurface surface;
  for (auto const& [faceId, elements] : faces)
    surface.Add(faceId.c_str(), ListOf({elements.begin(), elements.end()}));
  return surface;
}

Faces FacesOf(inpM_PartInstanceSurface const& surface)
{
  Faces faces;
  for (inpM_SurfaceFacetIT it(surface); !it.IsDone(); it.Next())
  {
    inpM_SurfaceFacet const facet = it.CurrentFacet();
    EXPECT_TRUE(facet.isValid());
    faces[std::string(facet.faceId.View())].insert(facet.elementId);
  }
  return faces;
}

inpM_NodeAreaSurface NodeSurface(Areas const& areas)
{
  inpM_NodeAreaSurface surface;
  for (auto const& [node, area] : areas)
    surface.Add(ListOf({node}), area);
  return surface;
}

Areas AreasOf(inpM_PartInstanceSurface const& surface)
{
  return Contents<inpM_NodeAreaListIT>(surface.ConstGetNodeAreaList(),
                                       [](auto& it) { return it.CurrentValue(); });
}

Faces RandomFaces(std::mt19937& random)
{
  Faces faces;
  for (int i = 0; i < 30; ++i)
    faces["S" + std::to_string(random() % 4)].insert(1 + static_cast<int>(random() % 20));
  return faces;
}
} // namespace

TEST(inpM_ElementFaceIdSurface, CombinesFaceByFaceAndLeavesCopiesAlone)
{
  std::mt19937 random(3);
  for (int run = 0; run < 40; ++run)
  {
    Faces const a = RandomFaces(random);
    Faces const b = RandomFaces(random);
    Faces sum = a;
    Faces difference;
    Faces common;
    for (auto const& [faceId, elements] : b)
      sum[faceId].insert(elements.begin(), elements.end());
    for (auto const& [faceId, elements] : a)
    {
      for (int const element : elements)
      {
        bool const inBoth = b.contains(faceId) && b.at(faceId).contains(element);
        (inBoth ? common : difference)[faceId].insert(element);
      }
    }
    inpM_ElementFaceIdSurface const surface = ElementSurface(a);
    inpM_ElementFaceIdSurface const other = ElementSurface(b);
    inpM_ElementFaceIdSurface changed = surface;
    changed.Add(other);
    ASSERT_EQ(sum, FacesOf(changed));
    ASSERT_EQ(surface.Count() + other.Count(), changed.Count());
    changed = surface;
    changed.Difference(other);
    ASSERT_EQ(difference, FacesOf(changed));
    int const differing = changed.Count();
    changed = surface;
    changed.Intersection(other);
    ASSERT_EQ(common, FacesOf(changed));
    ASSERT_EQ(surface.Count(), differing + changed.Count());
    ASSERT_EQ(a, FacesOf(surface));
  }
}

TEST(inpM_ElementFaceIdSurface, KeepsOrderAndRepeatsAndLosesAFaceWithItsLastElement)
{
  inpM_ElementFaceIdSurface surface("SPOS", ListOf({9, 2}));
  surface.Add("S1", ListOf({5}));
  surface.Add("SPOS", ListOf({2, 4}));
  surface.Add("S2", cow_List<int>());
  EXPECT_EQ("S1 5\nSPOS 9 2 2 4\n", Printed(surface));
  surface.Difference("S1", ListOf({5, 9}));
  surface.Difference("S3", ListOf({5}));
  surface.Difference("SPOS", ListOf({2}));
  EXPECT_EQ(2, surface.Count());
  surface.Add(surface);
  EXPECT_EQ("SPOS 9 4 9 4\n", Printed(surface));
  surface.Difference(surface);
  EXPECT_TRUE(surface.IsEmpty() && surface.IsElementSurface());
}

TEST(inpM_NodeAreaSurface, HoldsANodeOnceWithItsLastArea)
{
  inpM_NodeAreaSurface surface(1.0, ListOf({7, 3}));
  inpM_NodeAreaSurface const before = surface;
  surface.Add(NodeSurface({{3, 2.5}, {8, 4.0}}));
  EXPECT_EQ("3 2.5\n7 1\n8 4\n", Printed(surface));
  EXPECT_EQ((Areas{{3, 1.0}, {7, 1.0}}), AreasOf(before));
  inpM_NodeAreaSurface common = surface;
  common.Intersection(before);
  EXPECT_EQ((Areas{{3, 2.5}, {7, 1.0}}), AreasOf(common));
  surface.Difference(before);
  EXPECT_EQ((Areas{{8, 4.0}}), AreasOf(surface));
  surface.Difference(surface);
  EXPECT_TRUE(surface.IsEmpty());
}

TEST(inpM_PartInstanceSurface, KindsDoNotMix)
{
  inpM_PartInstanceSurfaceHandle nodes = CreateSurface(inpM_nodeSurface);
  inpM_PartInstanceSurfaceHandle elements = CreateSurface(inpM_elementSurface);
  nodes.Get()->Add(NodeSurface({{1, 1.0}}));
  elements.Get()->Add(ElementSurface({{"S1", {1}}}));
  inpM_PartInstanceSurfaceHandle const nodesBefore = nodes;
  nodes.Get()->Add(*elements);
  nodes.Get()->Difference(*elements);
  elements.Get()->Add(*nodes);
  elements.Get()->Difference(*nodes);
  EXPECT_EQ((Areas{{1, 1.0}}), AreasOf(*nodes));
  EXPECT_EQ((Faces{{"S1", {1}}}), FacesOf(*elements));
  nodes.Get()->Intersection(*elements);
  elements.Get()->Intersection(*nodesBefore);
  EXPECT_TRUE(nodes->IsEmpty() && elements->IsEmpty());
  EXPECT_FALSE(nodesBefore->IsEmpty());
}

TEST(inpM_PartInstanceSurface, RenumberingAndCleanupDropWhatTheMapDoesNotKnow)
{
  inpM_IdMap ids;
  ids.Insert(1, 10);
  ids.Insert(2, 20);
  inpM_ElementFaceIdSurface elements = ElementSurface({{"S1", {1, 2, 3}}, {"S2", {3}}});
  inpM_NodeAreaSurface nodes = NodeSurface({{1, 0.5}, {3, 1.5}});
  inpM_ElementFaceIdSurface const elementsBefore = elements;
  for (inpM_PartInstanceSurface* const surface :
       std::initializer_list<inpM_PartInstanceSurface*>{&elements, &nodes})
  {
    surface->Renumber(inpM_IdMap(), false);
    surface->Cleanup(inpM_IdMap());
  }
  EXPECT_EQ(FacesOf(elementsBefore), FacesOf(elements));
  elements.Cleanup(ids);
  EXPECT_EQ((Faces{{"S1", {1, 2}}}), FacesOf(elements));
  elements.Renumber(ids, false);
  EXPECT_EQ((Faces{{"S1", {10, 20}}}), FacesOf(elements));
  elements.Renumber(ids, true);
  EXPECT_EQ((Faces{{"S1", {1, 2}}}), FacesOf(elements));
  nodes.Renumber(ids, false);
  EXPECT_EQ((Areas{{10, 0.5}}), AreasOf(nodes));
  nodes.Cleanup(ids);
  EXPECT_TRUE(nodes.IsEmpty());
}

TEST(inpM_AssemblyInstanceSurface, CombinesInstanceByInstance)
{
  inpM_AssemblyInstanceSurface surface;
  surface.Add("A", NodeSurface({{1, 1.0}, {2, 1.0}}));
  EXPECT_FALSE(surface.IsCrossInstanceNodeBasedSurface());
  surface.Add("B", NodeSurface({{1, 1.0}}));
  surface.Add(NodeSurface({{5, 3.0}}));
  EXPECT_TRUE(surface.IsCrossInstanceNodeBasedSurface());
  inpM_AssemblyInstanceSurface const all = surface;

  surface.Difference("A", NodeSurface({{2, 9.0}}));
  surface.Difference("UNKNOWN", NodeSurface({{1, 9.0}}));
  inpM_PartInstanceSurfaceMap const& pieces = surface.ConstGetInstance2PartInstanceSurfaceMap();
  EXPECT_EQ((Areas{{1, 1.0}}), AreasOf(pieces.ConstGet("A")));
  EXPECT_EQ(2, pieces.Size());

  inpM_AssemblyInstanceSurface common = all;
  common.Intersection(surface);
  EXPECT_EQ((Areas{{1, 1.0}}),
            AreasOf(common.ConstGetInstance2PartInstanceSurfaceMap().ConstGet("A")));
  EXPECT_EQ((Areas{{5, 3.0}}), AreasOf(common.ConstGetNodeSurface()));
  common = all;
  common.Intersection("B", NodeSurface({{1, 9.0}}));
  EXPECT_FALSE(common.ConstGetInstance2PartInstanceSurfaceMap().IsMember("A"));
  EXPECT_TRUE(common.ConstGetNodeSurface().IsEmpty());

  common = all;
  common.Difference(all);
  EXPECT_TRUE(common.IsEmpty());
  EXPECT_FALSE(all.IsEmpty());
}

TEST(inpM_SurfaceMap, MergingPutsTheOthersSurfacesInPlace)
{
  inpM_SurfaceMap map;
  map.InsertPartInstanceSurface("A", "S", ElementSurface({{"S1", {1}}}));
  map.InsertPartInstanceSurface("A", "T", ElementSurface({{"S1", {2}}}));
  inpM_AssemblyInstanceSurface whole;
  whole.Add("A", NodeSurface({{1, 1.0}}));
  map.InsertAssemblyInstanceSurface("W", whole);
  inpM_SurfaceMap const before = map;

  inpM_SurfaceMap other;
  other.InsertPartInstanceSurface("A", "S", ElementSurface({{"S2", {3}}}));
  other.InsertPartInstanceSurfaceMap("B", map.ConstGetPartInstanceSurfaceMap("A"));
  whole.SetInternal(true);
  other.InsertAssemblyInstanceSurface("W", whole);
  map.Merge(other);

  EXPECT_EQ((Faces{{"S2", {3}}}), FacesOf(map.ConstGetPartInstanceSurface("A", "S")));
  EXPECT_EQ((Faces{{"S1", {2}}}), FacesOf(map.ConstGetPartInstanceSurface("A", "T")));
  EXPECT_EQ(&before.ConstGetPartInstanceSurface("A", "T"),
            &map.ConstGetPartInstanceSurface("B", "T"));
  EXPECT_TRUE(map.ConstGetAssemblyInstanceSurface("W").IsInternal());
  EXPECT_FALSE(before.ConstGetAssemblyInstanceSurface("W").IsInternal());
  EXPECT_FALSE(before.HasInstanceInPartInstanceSurfaceMap("B"));
  EXPECT_THROW(map.ConstGetPartInstanceSurface("C", "S"), VRXBasAssertException);
  EXPECT_THROW(map.ConstGetAssemblyInstanceSurface("X"), VRXBasAssertException);
}

TEST(inpM_SurfaceMap, RenumberingTakesEachInstancesTableOfItsKind)
{
  inpM_IdMap nodes;
  nodes.Insert(1, 100);
  nodes.Get("A").Insert(1, 101);
  inpM_IdMap elements;
  elements.Get("A").Insert(1, 201);
  inpM_SurfaceMap map;
  map.InsertPartInstanceSurface("A", "E", ElementSurface({{"S1", {1}}}));
  map.InsertPartInstanceSurface("A", "N", NodeSurface({{1, 1.0}}));
  map.InsertPartInstanceSurface("B", "E", ElementSurface({{"S1", {1}}}));
  inpM_AssemblyInstanceSurface whole;
  whole.Add("A", NodeSurface({{1, 1.0}}));
  whole.Add(NodeSurface({{1, 1.0}}));
  map.InsertAssemblyInstanceSurface("W", whole);
  inpM_SurfaceMap const before = map;

  map.Renumber(nodes, elements, false);
  EXPECT_EQ((Faces{{"S1", {201}}}), FacesOf(map.ConstGetPartInstanceSurface("A", "E")));
  EXPECT_EQ((Areas{{101, 1.0}}), AreasOf(map.ConstGetPartInstanceSurface("A", "N")));
  EXPECT_EQ((Faces{{"S1", {1}}}), FacesOf(map.ConstGetPartInstanceSurface("B", "E")));
  inpM_AssemblyInstanceSurface const& renumbered = map.ConstGetAssemblyInstanceSurface("W");
  EXPECT_EQ((Areas{{101, 1.0}}),
            AreasOf(renumbered.ConstGetInstance2PartInstanceSurfaceMap().ConstGet("A")));
  EXPECT_EQ((Areas{{100, 1.0}}), AreasOf(renumbered.ConstGetNodeSurface()));
  EXPECT_EQ((Areas{{1, 1.0}}), AreasOf(before.ConstGetPartInstanceSurface("A", "N")));
}

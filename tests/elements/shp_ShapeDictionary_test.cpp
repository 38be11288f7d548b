#include "inp_ElementInfo.h"
#include "shp_ShapeDictionary.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <vector>

#include <gtest/gtest.h>

namespace
{
using Point = std::array<double, 3>;
using Edge = std::pair<int, int>;

/// Corners of the shapes, in node order.
std::vector<Point> Corners(shp_shapeEnm shape)
{
  std::vector<Point> const brick{{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
                                 {-1, -1, 1},  {1, -1, 1},  {1, 1, 1},  {-1, 1, 1}};
  std::vector<Point> const wedge{{0, 0, -1}, {1, 0, -1}, {0, 1, -1},
                                 {0, 0, 1},  {1, 0, 1},  {0, 1, 1}};
  switch (shape)
  {
  case shp_tet4:
  case shp_tet10:
    return {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  case shp_pyramid5:
    return {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}, {0, 0, 1}};
  case shp_wedge6:
  case shp_wedge15:
  case shp_wedge18:
    return wedge;
  default:
    return brick;
  }
}

/// The edge on whose middle a node stands, in each shape with midside nodes.
std::map<int, Edge> Midsides(shp_shapeEnm shape)
{
  switch (shape)
  {
  case shp_tet10:
    return {{4, {0, 1}}, {5, {1, 2}}, {6, {0, 2}}, {7, {0, 3}}, {8, {1, 3}}, {9, {2, 3}}};
  case shp_wedge15:
  case shp_wedge18:
    return {{6, {0, 1}},  {7, {1, 2}},  {8, {0, 2}},  {9, {3, 4}}, {10, {4, 5}},
            {11, {3, 5}}, {12, {0, 3}}, {13, {1, 4}}, {14, {2, 5}}};
  case shp_brick20:
  case shp_brick27:
    return {{8, {0, 1}},  {9, {1, 2}},  {10, {2, 3}}, {11, {0, 3}}, {12, {4, 5}}, {13, {5, 6}},
            {14, {6, 7}}, {15, {4, 7}}, {16, {0, 4}}, {17, {1, 5}}, {18, {2, 6}}, {19, {3, 7}}};
  default:
    return {};
  }
}

double InwardVolume(std::vector<Point> const& at, std::vector<int> const& face, Point const& middle)
{
  double volume = 0;
  for (std::size_t i = 2; i < face.size(); ++i)
  {
    Point const& a = at[face[0]];
    Point const& b = at[face[i - 1]];
    Point const& c = at[face[i]];
    double m[3][3];
    for (int k = 0; k < 3; ++k)
    {
      m[0][k] = b[k] - a[k];
      m[1][k] = c[k] - a[k];
      m[2][k] = middle[k] - a[k];
    }
    volume += m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
              m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
              m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
  }
  return volume;
}
} // namespace

TEST(shp_ShapeDictionary, FacesOfSolidsCloseThemAndLookInside)
{
  for (char const* type :
       {"C3D4", "C3D10", "C3D5", "C3D6", "C3D15", "C3D15V", "C3D8", "C3D20", "C3D27"})
  {
    SCOPED_TRACE(type);
    shp_Shape const* const shape = shp_ShapeDictionary::GetShape(type);
    ASSERT_NE(shape, nullptr);
    std::vector<Point> const at = Corners(shape->Kind());
    std::map<int, Edge> const midsides = Midsides(shape->Kind());
    Point middle{};
    for (Point const& corner : at)
      for (int k = 0; k < 3; ++k)
        middle[k] += corner[k] / static_cast<double>(at.size());

    std::map<Edge, int> edges;
    std::set<int> nodes;
    for (shp_Face const& face : shape->Faces())
    {
      std::vector<int> corners;
      for (int node : face.Nodes())
      {
        nodes.insert(node);
        if (node < static_cast<int>(at.size()))
          corners.push_back(node);
      }
      EXPECT_GT(InwardVolume(at, corners, middle), 0);
      for (std::size_t i = 0; i < corners.size(); ++i)
      {
        Edge const edge(corners[i], corners[(i + 1) % corners.size()]);
        EXPECT_EQ(++edges[edge], 1) << "an edge is walked once in each direction";
        if (!midsides.empty())
        {
          int const node = face.Nodes()[corners.size() + i];
          EXPECT_EQ(midsides.at(node), Edge(std::minmax(edge.first, edge.second)));
        }
      }
    }
    for (auto const& [edge, count] : edges)
      EXPECT_EQ(edges.count({edge.second, edge.first}), 1u) << "the neighbour has it too";
    EXPECT_EQ(static_cast<int>(nodes.size()),
              shape->NumNodes() - (shape->Kind() == shp_brick27 ? 1 : 0))
      << "all nodes but the one inside are on faces";
  }
}

TEST(shp_ShapeDictionary, FindsTheShapeOfATypeAndItsFaces)
{
  struct
  {
    char const* type;
    int nodes; // 0: no shape
    bool isContinuum;
    int faces;
  } const cases[] = {
    {"c3d8r", 8, true, 6},    {"C3D10MHT", 10, true, 4}, {"DC3D6", 6, true, 5},
    {"CPEG4", 4, true, 4},    {"CPE3", 3, true, 3},      {"CAX6M", 6, true, 3},
    {"CAX8R", 8, true, 4},    {"SC8R", 8, true, 6},      {"COH3D8", 8, false, 6},
    {"COH2D4P", 0, false, 0}, {"COD3D8P", 0, false, 0},  {"GK3D8", 8, false, 6},
    {"GK3D6", 6, false, 5},   {"GK3D6L", 0, false, 0},   {"GK3D18", 0, false, 0},
    {"GK3D4L", 0, false, 0},  {"CAXA41", 0, false, 0},   {"S4R5", 4, false, 2},
    {"STRI65", 6, false, 2},  {"S9R5", 9, false, 2},     {"M3D4", 4, false, 2},
    {"SAX1", 2, false, 2},    {"B31", 0, false, 0},      {"C3D1MAT", 0, false, 0},
    {"U1", 0, false, 0},      {"", 0, false, 0},         {"CIN3D8", 0, false, 0},
  };
  for (auto const& c : cases)
  {
    shp_Shape const* const shape = shp_ShapeDictionary::GetShape(c.type);
    ASSERT_EQ(shape != nullptr, c.nodes > 0) << c.type;
    if (shape != nullptr)
    {
      EXPECT_EQ(shape->NumNodes(), c.nodes) << c.type;
      EXPECT_EQ(shape->IsContinuum(), c.isContinuum) << c.type;
      EXPECT_EQ(static_cast<int>(shape->Faces().size()), c.faces) << c.type;
    }
  }
  shp_Shape const& wedge = *shp_ShapeDictionary::GetShape("C3D6");
  shp_Shape const& shell = *shp_ShapeDictionary::GetShape("S4");
  for (auto const& [name, index] : std::map<char const*, int>{
         {"S1", 0}, {"s5", 4}, {"S6", -1}, {"S0", -1}, {"SPOS", -1}, {"", -1}, {"S10", -1}})
    EXPECT_EQ(wedge.FaceIndex(name), index) << name;
  for (auto const& [name, index] :
       std::map<char const*, int>{{"spos", 0}, {"SNEG", 1}, {"S1", -1}, {"E1", -1}})
    EXPECT_EQ(shell.FaceIndex(name), index) << name;
}

TEST(shp_ShapeDictionary, NoShapeTakesMoreNodesThanItsTypes)
{
  int shapes = 0;
  for (inp_ElementInfo const& type : inp_ElementInfo::AllTypes())
    if (shp_Shape const* const shape = shp_ShapeDictionary::GetShape(type.name))
    {
      ++shapes;
      EXPECT_LE(shape->NumNodes(), type.maxNodes) << type.name;
      EXPECT_GE(shape->NumNodes(), type.minNodes) << type.name;
      for (shp_Face const& face : shape->Faces())
        for (int node : face.Nodes())
          EXPECT_LT(node, shape->NumNodes()) << type.name;
    }
  EXPECT_GT(shapes, 400);
}

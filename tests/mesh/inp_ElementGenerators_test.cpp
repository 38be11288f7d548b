#include "ElementDeck.h"
#include "inp_ElementReflection.h"
#include "shp_ShapeDictionary.h"

#include <array>
#include <functional>
#include <map>
#include <random>

#include <gtest/gtest.h>

namespace
{
struct Case
{
  char const* what;
  char const* deck;
  char const* elements;
  char const* sets;
  char const* messages;
};

template <std::size_t N>
void Check(Case const (&cases)[N], ElementDeckSetting const& setting = {})
{
  for (Case const& c : cases)
  {
    ElementDeck const deck(c.deck, setting);
    EXPECT_EQ(deck.elements, c.elements) << c.what;
    EXPECT_EQ(deck.sets, c.sets) << c.what;
    EXPECT_EQ(deck.messages, c.messages) << c.what;
  }
}
} // namespace

TEST(inp_ElementGenerators, ElgenRepeatsAMaster)
{
  Case const cases[] = {
    {"one direction", "*ELEMENT, TYPE=T3D2\n1, 1, 2\n*ELGEN, ELSET=E\n1, 3, 1, 10\n",
     "1 T3D2: 1 2; 11 T3D2: 2 3; 21 T3D2: 3 4", "{\"E\": [1, 11, 21]}", ""},
    {"shifts that are left out are 1", "*ELEMENT, TYPE=T3D2\n1, 1, 2\n*ELGEN\n1, 3\n",
     "1 T3D2: 1 2; 2 T3D2: 2 3; 3 T3D2: 3 4", "{}", ""},
    {"descending", "*ELEMENT, TYPE=T3D2\n9, 9, 8\n*ELGEN\n9, 3, -2, -3\n",
     "3 T3D2: 5 4; 6 T3D2: 7 6; 9 T3D2: 9 8", "{}", ""},
    {"counts below 1 and blank rows",
     "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN, ELSET=E\n1, 0\n\n1, 2, 1, "
     "1, -4, 5, 6, 0\n1, , 1\n",
     "1 MASS: 1; 2 MASS: 2", "{\"E\": [1, 2]}", ""},
    {"places without a node", "*ELEMENT, TYPE=CONN3D2\n1, 0, 5\n*ELGEN\n1, 2, 10, 1\n",
     "1 CONN3D2: 0 5; 2 CONN3D2: 0 15", "{}", ""},
    {"what the master has", "*ELEMENT, TYPE=CAXA41, OFFSET=10\n1, 1, 2, 3, 4\n*ELGEN\n1, 2, 100\n",
     "1 CAXA41: 1 2 3 4 11 12 13 14 <4 given> <offset 10>; "
     "2 CAXA41: 101 102 103 104 111 112 113 114 <4 given> <offset 10>",
     "{}", ""},
    {"orientation nodes stay",
     "*ELEMENT, TYPE=B31\n1, 1, 2, 99\n11, 1, 2\n*ELEMENT, TYPE=PIPE32\n21, 1, 2, 3, 99\n"
     "*ELEMENT, TYPE=T3D3\n31, 1, 2, 3\n*ELGEN\n1, 2\n11, 2\n21, 2\n31, 2\n",
     "1 B31: 1 2 99; 2 B31: 2 3 99; 11 B31: 1 2; 12 B31: 2 3; 21 PIPE32: 1 2 3 99; "
     "22 PIPE32: 2 3 4 99; 31 T3D3: 1 2 3; 32 T3D3: 2 3 4",
     "{}", ""},
    {"sections of elbows stay", "*ELEMENT, TYPE=ELBOW32\n1, 1, 2, 99\n*ELGEN\n1, 2\n",
     "1 ELBOW32: 1 2 99; 2 ELBOW32: 2 2 99", "{}", ""},
    {"unless all nodes move", "*ELEMENT, TYPE=ELBOW32\n1, 1, 2, 99\n*ELGEN, ALL NODES\n1, 2\n",
     "1 ELBOW32: 1 2 99; 2 ELBOW32: 2 3 100", "{}", ""},
    {"no integer",
     "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN\n1, 2, x\n1, 2.5\n1, 2, 1, 1, 1, 1, 1, 1, 1, "
     "1, x\n",
     "1 MASS: 1; 2 MASS: 2", "{}",
     "4 error: Data item #3 must be an integer value.\n"
     "4 error: Data item #2 must be an integer value.\n"},
    {"no master, the next row runs", "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN\n7, 2\n1, 2\n",
     "1 MASS: 1; 2 MASS: 2", "{}", "4 error: Master element 7 is not defined.\n"},
  };
  Check(cases);
}

TEST(inp_ElementGenerators, ElgenStaysWithinLabels)
{
  char const* const largest = "4 error: Maximum element number allowed is 999999999.\n";
  auto const tooMany =
    "4 error: More than 50000000 elements would be generated from element 1. They "
    "are left out.\n";
  Case const cases[] = {
    {"the last label", "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN\n1, 2, 1, 999999998\n",
     "1 MASS: 1; 999999999 MASS: 2", "{}", ""},
    {"one more, and the keyword ends",
     "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN, ELSET=E\n1, 2\n1, 2, 1, 999999999\n1, 3\n",
     "1 MASS: 1; 2 MASS: 2", "{}", largest},
    {"10^12 elements", "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN\n1, 1000000, 1, 1, 1000000, 1, 1000000\n",
     "1 MASS: 1", "{}", largest},
    {"beyond 64 bits",
     "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN\n1, 999999999, 999999999, 999999999, "
     "999999999, 999999999, 999999999, 999999999, 999999999, 999999999\n",
     "1 MASS: 1", "{}", largest},
    {"10^27 elements of one label",
     "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN\n1, 999999999, 0, 0, "
     "999999999, 0, 0, 999999999, 0, 0\n",
     "1 MASS: 1", "{}", tooMany},
    {"steps that cancel out", "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN\n1, 100000, 0, 1, 100000, 0, -1\n",
     "1 MASS: 1", "{}", tooMany},
    {"below 1", "*ELEMENT, TYPE=MASS\n5, 50\n*ELGEN\n5, 6, 1, -1\n", "5 MASS: 50", "{}",
     "4 error: Element 0 would be generated, but element labels are 1 to 999999999.\n"},
    {"nodes below 1", "*ELEMENT, TYPE=MASS\n5, 5\n*ELGEN\n5, 6, -1, 1\n", "5 MASS: 5", "{}",
     "4 error: The elements made from element 5 would have nodes outside of 1 to 999999999.\n"},
    {"nodes too large", "*ELEMENT, TYPE=T3D2\n5, 5, 999999999\n*ELGEN\n5, 2, 1, 1\n",
     "5 T3D2: 5 999999999", "{}",
     "4 error: The elements made from element 5 would have nodes outside of 1 to 999999999.\n"},
  };
  Check(cases);
}

// Against the rule written down plainly: three nested loops over labels and shifts.
TEST(inp_ElementGenerators, ElgenMakesTheBlockOfTheRule)
{
  std::mt19937 random(7);
  auto const between = [&](int low, int high)
  { return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1)); };
  for (int run = 0; run < 60; ++run)
  {
    int n[3], s[3], e[3];
    std::string row = "5000";
    for (int d = 0; d < 3; ++d)
    {
      n[d] = between(1, 4);
      s[d] = between(-20, 40);
      e[d] = between(-30, 60);
      row +=
        ", " + std::to_string(n[d]) + ", " + std::to_string(s[d]) + ", " + std::to_string(e[d]);
    }
    std::map<int, std::array<int, 2>> expected{{5000, {1000, 1007}}};
    for (int k3 = 0; k3 < n[2]; ++k3)
      for (int k2 = 0; k2 < n[1]; ++k2)
        for (int k1 = 0; k1 < n[0]; ++k1)
        {
          int const label = 5000 + k1 * e[0] + k2 * e[1] + k3 * e[2];
          int const shift = k1 * s[0] + k2 * s[1] + k3 * s[2];
          if (label != 5000)
            expected[label] = {1000 + shift, 1007 + shift};
        }
    ElementDeck const deck("*ELEMENT, TYPE=T3D2\n5000, 1000, 1007\n*ELGEN\n" + row + "\n");
    EXPECT_EQ(deck.messages, "") << row;
    ASSERT_EQ(deck.Map().Size(), static_cast<int>(expected.size())) << row;
    for (auto const& [label, nodes] : expected)
    {
      EXPECT_EQ(deck.Element(label).topology()[0], nodes[0]) << row << ": " << label;
      EXPECT_EQ(deck.Element(label).topology()[1], nodes[1]) << row << ": " << label;
    }
  }
}

TEST(inp_ElementGenerators, ElcopyCopiesASet)
{
  Case const cases[] = {
    {"a set",
     "*ELEMENT, TYPE=T3D2, ELSET=A\n1, 1, 2\n2, 2, 3\n*ELCOPY, OLD SET=A, NEW SET=B, ELEMENT "
     "SHIFT=10, SHIFT NODES=100\n",
     "1 T3D2: 1 2; 2 T3D2: 2 3; 11 T3D2: 101 102; 12 T3D2: 102 103",
     "{\"A\": [1, 2], \"B\": [11, 12]}", ""},
    {"members that do not exist, and empty places",
     "*ELEMENT, TYPE=CONN3D2\n1, 0, 2\n*ELSET, ELSET=A\n1, 9\n*ELCOPY, OLD SET=A, ELEMENT SHIFT=1, "
     "SHIFT NODES=3\n",
     "1 CONN3D2: 0 2; 2 CONN3D2: 0 5", "{\"A\": [1, 9]}", ""},
    {"sections of elbows stay",
     "*ELEMENT, TYPE=ELBOW32, ELSET=A\n1, 1, 2, 99\n*ELCOPY, OLD SET=A, "
     "ELEMENT SHIFT=1, SHIFT NODES=5\n",
     "1 ELBOW32: 1 2 99; 2 ELBOW32: 6 2 99", "{\"A\": [1]}", ""},
    {"parameters",
     "*ELCOPY, OLD SET=A, ELEMENT SHIFT=1\n*ELCOPY, OLD SET=A, SHIFT NODES=1\n*ELCOPY, "
     "ELEMENT SHIFT=1, SHIFT NODES=1\n",
     "", "{}",
     "2 error: ELEMENTSHIFT, OLDSET, and SHIFTNODES are required parameters.\n"
     "3 error: ELEMENTSHIFT, OLDSET, and SHIFTNODES are required parameters.\n"
     "4 error: ELEMENTSHIFT, OLDSET, and SHIFTNODES are required parameters.\n"},
    {"no set", "*ELCOPY, OLD SET=A, ELEMENT SHIFT=1, SHIFT NODES=1\n", "", "{}",
     "2 error: Element set A does not exist.\n"},
    {"no continuum: the copies so far remain",
     "*ELEMENT, TYPE=CPS3, ELSET=A\n1, 1, 2, 3\n*ELEMENT, TYPE=B31, ELSET=A\n2, 1, 2\n*ELCOPY, OLD "
     "SET=A, NEW SET=B, ELEMENT SHIFT=10, SHIFT NODES=10, REFLECT\n",
     "1 CPS3: 1 2 3; 2 B31: 1 2; 11 CPS3: 11 13 12", "{\"A\": [1, 2]}",
     "6 error: The element type \"B31\" is either not a continuum element or not yet implemented "
     "for "
     "the REFLECT option in *ELCOPY.\n"},
    {"labels that end",
     "*ELEMENT, TYPE=MASS, ELSET=A\n1, 1\n2, 1\n*ELCOPY, OLD SET=A, ELEMENT "
     "SHIFT=999999998, SHIFT NODES=1\n",
     "1 MASS: 1; 2 MASS: 1; 999999999 MASS: 2", "{\"A\": [1, 2]}",
     "5 error: Element 1000000000 would be generated, but element labels are 1 to 999999999.\n"},
    {"nodes below 1",
     "*ELEMENT, TYPE=MASS, ELSET=A\n1, 1\n*ELCOPY, OLD SET=A, ELEMENT SHIFT=1, SHIFT "
     "NODES=-1\n",
     "1 MASS: 1", "{\"A\": [1]}",
     "4 error: The elements made from element 1 would have nodes outside of 1 to 999999999.\n"},
  };
  Check(cases);
}

TEST(inp_ElementGenerators, WithoutConnectivityThereAreLabelsAlone)
{
  Case const cases[] = {
    {"labels",
     "*ELEMENT, TYPE=T3D2, ELSET=A\n1, 1, 2\n*ELGEN, ELSET=A\n1, 3\n9, 3\n*ELCOPY, OLD "
     "SET=A, NEW SET=B, ELEMENT SHIFT=10, SHIFT NODES=1, REFLECT\n",
     "1 T3D2: 1 2; 2 :; 3 :; 11 :; 12 :; 13 :", "{\"A\": [1, 2, 3], \"B\": [11, 12, 13]}", ""},
  };
  Check(cases, {.computesConnectivity = false});
}

namespace
{
using Point = std::array<double, 3>;

/// The place of a node in the element's own system, and the powers of its shape functions.
struct ReferenceShape
{
  std::vector<Point> nodes;
  std::vector<std::array<int, 3>> powers;
  int dimension;
};

Point Middle(Point const& a, Point const& b)
{
  return {(a[0] + b[0]) / 2, (a[1] + b[1]) / 2, (a[2] + b[2]) / 2};
}

/// Corners, then the middles of edges and of quadrilateral faces.
std::vector<Point> WithMiddles(std::vector<Point> nodes,
                               std::vector<std::pair<int, int>> const& pairs)
{
  for (auto const& [a, b] : pairs)
    nodes.push_back(Middle(nodes[a], nodes[b]));
  return nodes;
}

ReferenceShape Reference(shp_shapeEnm shape)
{
  std::vector<Point> const triangle{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  std::vector<Point> const quad{{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
  std::vector<Point> const tet{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  std::vector<Point> const wedge{{0, 0, -1}, {1, 0, -1}, {0, 1, -1},
                                 {0, 0, 1},  {1, 0, 1},  {0, 1, 1}};
  std::vector<Point> const brick{{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
                                 {-1, -1, 1},  {1, -1, 1},  {1, 1, 1},  {-1, 1, 1}};
  std::vector<std::pair<int, int>> const wedgeEdges{{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5},
                                                    {5, 3}, {0, 3}, {1, 4}, {2, 5}};
  std::vector<std::pair<int, int>> const brickEdges{{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6},
                                                    {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
  // All powers up to `highest` that a test admits.
  auto const powers = [](int highest, auto const& admits)
  {
    std::vector<std::array<int, 3>> found;
    for (int a = 0; a <= highest; ++a)
      for (int b = 0; b <= highest; ++b)
        for (int c = 0; c <= highest; ++c)
          if (admits(a, b, c))
            found.push_back({a, b, c});
    return found;
  };
  // Powers above 1 count in the degree that serendipity elements keep to.
  auto const superlinear = [](int a, int b, int c)
  { return (a > 1 ? a : 0) + (b > 1 ? b : 0) + (c > 1 ? c : 0); };
  switch (shape)
  {
  case shp_triangle3:
    return {triangle, powers(1, [](int a, int b, int c) { return a + b <= 1 && c == 0; }), 2};
  case shp_triangle6:
    return {WithMiddles(triangle, {{0, 1}, {1, 2}, {2, 0}}),
            powers(2, [](int a, int b, int c) { return a + b <= 2 && c == 0; }), 2};
  case shp_quad4:
    return {quad, powers(1, [](int, int, int c) { return c == 0; }), 2};
  case shp_quad8:
    return {WithMiddles(quad, {{0, 1}, {1, 2}, {2, 3}, {3, 0}}),
            powers(2, [=](int a, int b, int c) { return superlinear(a, b, 0) <= 2 && c == 0; }), 2};
  case shp_tet4:
    return {tet, powers(1, [](int a, int b, int c) { return a + b + c <= 1; }), 3};
  case shp_tet10:
    return {WithMiddles(tet, {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}}),
            powers(2, [](int a, int b, int c) { return a + b + c <= 2; }), 3};
  case shp_pyramid5:
  {
    std::vector<Point> nodes = quad;
    nodes.push_back({0, 0, 1});
    return {nodes, powers(1, [](int a, int b, int c) { return c == 0 || a + b == 0; }), 3};
  }
  case shp_wedge6:
    return {wedge, powers(1, [](int a, int b, int) { return a + b <= 1; }), 3};
  case shp_wedge15:
    return {WithMiddles(wedge, wedgeEdges),
            powers(2, [](int a, int b, int c) { return a + b <= 2 && (c <= 1 || a + b <= 1); }), 3};
  case shp_wedge18:
  {
    auto edges = wedgeEdges;
    edges.insert(edges.end(), {{0, 4}, {1, 5}, {2, 3}});
    return {WithMiddles(wedge, edges), powers(2, [](int a, int b, int) { return a + b <= 2; }), 3};
  }
  case shp_brick8:
    return {brick, powers(1, [](int, int, int) { return true; }), 3};
  case shp_brick20:
    return {WithMiddles(brick, brickEdges),
            powers(2, [=](int a, int b, int c) { return superlinear(a, b, c) <= 2; }), 3};
  default:
  {
    auto pairs = brickEdges;
    pairs.insert(pairs.end(), {{0, 6}, {0, 2}, {4, 6}, {0, 5}, {1, 6}, {2, 7}, {3, 4}});
    return {WithMiddles(brick, pairs), powers(2, [](int, int, int) { return true; }), 3};
  }
  }
}

/// Values of the powers, or of their derivatives along one axis, at a point.
double Power(std::array<int, 3> const& powers, Point const& at, int axis)
{
  double value = 1;
  for (int k = 0; k < 3; ++k)
  {
    int const p = powers[k];
    value *= k == axis ? (p == 0 ? 0 : p * std::pow(at[k], p - 1)) : std::pow(at[k], p);
  }
  return value;
}

/// Solves a x = b for several right hand sides, in place.
std::vector<Point> Solve(std::vector<std::vector<double>> a, std::vector<Point> b)
{
  std::size_t const n = a.size();
  for (std::size_t i = 0; i < n; ++i)
  {
    std::size_t pivot = i;
    for (std::size_t r = i; r < n; ++r)
      if (std::fabs(a[r][i]) > std::fabs(a[pivot][i]))
        pivot = r;
    std::swap(a[i], a[pivot]);
    std::swap(b[i], b[pivot]);
    EXPECT_GT(std::fabs(a[i][i]), 1e-9) << "the shape functions do not fit the nodes";
    for (std::size_t r = 0; r < n; ++r)
    {
      double const f = r == i ? 0 : a[r][i] / a[i][i];
      for (std::size_t c = i; c < n && f != 0; ++c)
        a[r][c] -= f * a[i][c];
      for (int k = 0; k < 3; ++k)
        b[r][k] -= f * b[i][k];
    }
  }
  for (std::size_t i = 0; i < n; ++i)
    for (int k = 0; k < 3; ++k)
      b[i][k] /= a[i][i];
  return b;
}

/// The determinants of the element's map from its own system to space, at points inside it.
std::vector<double> Jacobians(ReferenceShape const& shape, std::vector<Point> const& places)
{
  std::vector<std::vector<double>> values;
  for (Point const& node : shape.nodes)
  {
    values.emplace_back();
    for (auto const& powers : shape.powers)
      values.back().push_back(Power(powers, node, -1));
  }
  std::vector<Point> const factors = Solve(values, places);
  std::vector<double> determinants;
  for (Point const& at : {Point{0.2, 0.3, 0.1}, Point{0.1, 0.15, 0.4}, Point{0.45, 0.35, 0.05},
                          Point{0.05, 0.6, 0.2}})
  {
    double j[3][3] = {{0, 0, 0}, {0, 0, 0}, {0, 0, shape.dimension == 2 ? 1.0 : 0.0}};
    for (std::size_t i = 0; i < factors.size(); ++i)
      for (int row = 0; row < shape.dimension; ++row)
        for (int axis = 0; axis < shape.dimension; ++axis)
          j[row][axis] += factors[i][row] * Power(shape.powers[i], at, axis);
    determinants.push_back(j[0][0] * (j[1][1] * j[2][2] - j[1][2] * j[2][1]) -
                           j[0][1] * (j[1][0] * j[2][2] - j[1][2] * j[2][0]) +
                           j[0][2] * (j[1][0] * j[2][1] - j[1][1] * j[2][0]));
  }
  return determinants;
}
} // namespace

// An element under an affine map, so that its Jacobian is the same everywhere, and its image in the
// plane x = 0 as *ELCOPY, REFLECT describes it: same Jacobian everywhere, which a midside node at the
// wrong edge would spoil. In the old order the image has the Jacobian with the other sign.
TEST(inp_ElementGenerators, ReflectedCopiesHavePositiveVolume)
{
  for (char const* type :
       {"CPE3",  "CPS6",    "CAX4",  "CPEG8R", "CGAX4", "CGAX8", "DC2D3", "DC2D6", "AC2D4",
        "ACAX8", "WARP2D3", "C3D4",  "C3D10M", "C3D5",  "DC3D6", "C3D6",  "C3D15", "C3D15V",
        "C3D8R", "AC3D8",   "Q3D20", "C3D20",  "C3D27", "SC6R",  "SC8R",  "CSS8",  "EMC3D4"})
  {
    SCOPED_TRACE(type);
    ReferenceShape const shape = Reference(shp_ShapeDictionary::GetShape(type)->Kind());
    int const count = static_cast<int>(shape.nodes.size());
    std::string row = "1";
    std::map<int, Point> nodes;
    for (int i = 0; i < count; ++i)
    {
      Point const& p = shape.nodes[i];
      Point const at{5 + 2 * p[0] + 0.3 * p[1], 1 + 1.5 * p[1] + 0.2 * p[0],
                     shape.dimension == 2 ? 0 : 3 * p[2] + 0.4 * p[0] - 0.1 * p[1]};
      nodes[i + 1] = at;
      nodes[i + 101] = {-at[0], at[1], at[2]};
      row += (i == 15 ? ",\n" : ", ") + std::to_string(i + 1);
    }
    ElementDeck const deck("*ELEMENT, TYPE=" + std::string(type) + ", ELSET=A\n" + row +
                           "\n*ELCOPY, OLD SET=A, ELEMENT SHIFT=1, SHIFT NODES=100, REFLECT\n");
    EXPECT_EQ(deck.messages, "");
    auto const places = [&](std::function<int(int)> const& label)
    {
      std::vector<Point> found;
      for (int i = 0; i < count; ++i)
        found.push_back(nodes.at(label(i)));
      return found;
    };
    ASSERT_EQ(deck.Element(2).numNodesPerElement(), count);
    double const volume = shape.dimension == 2 ? 2.94 : 8.82;
    for (double const j :
         Jacobians(shape, places([&](int i) { return deck.Element(1).topology()[i]; })))
      EXPECT_NEAR(j, volume, 1e-9) << "the original";
    for (double const j :
         Jacobians(shape, places([&](int i) { return deck.Element(2).topology()[i]; })))
      EXPECT_NEAR(j, volume, 1e-9) << "the copy";
    for (double const j : Jacobians(shape, places([](int i) { return i + 101; })))
      EXPECT_NEAR(j, -volume, 1e-9) << "the copy in the old order";
  }
}

TEST(inp_ElementGenerators, EveryContinuumTypeCanBeReflectedAndNoOther)
{
  int reflected = 0;
  for (inp_ElementInfo const& type : inp_ElementInfo::AllTypes())
  {
    std::span<int const> const order = inp_ReflectionOrder(type.name);
    std::vector<int> sorted(order.begin(), order.end());
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t i = 0; i < sorted.size(); ++i)
      EXPECT_EQ(sorted[i], static_cast<int>(i) + 1) << type.name;
    reflected += !order.empty();
    EXPECT_TRUE(order.empty() || static_cast<int>(order.size()) == type.maxNodes) << type.name;
  }
  EXPECT_GT(reflected, 300);
  for (char const* type : {"S4", "M3D4", "B31", "T3D2", "GK3D8", "COH3D8", "CAXA41", "CIN3D8",
                           "C3D1MAT", "DC1D2", "Z1"})
    EXPECT_TRUE(inp_ReflectionOrder(type).empty()) << type;

  // Optional nodes that are not there take no part.
  std::vector<int> nodes(24);
  for (int i = 0; i < 24; ++i)
    nodes[i] = i + 1;
  EXPECT_TRUE(inp_ReflectNodes("C3D27", nodes));
  EXPECT_EQ((std::vector<int>(nodes.begin() + 20, nodes.end())),
            (std::vector<int>{21, 22, 23, 24}));
}

#include "NodePlaces.h"
#include "inp_KeywordEnm.h"

TEST(inp_NodeVisitor, NodeRowsGiveNodesAndASet)
{
  MeshDeck const deck("*NODE, NSET=ALL\n"
                      "1, 1.5, -2., 3e-1\n"
                      "7, 0.1, 0.2, 0.3, 0., 0., 2.\n"
                      "3\n"
                      "*NODE, NSET=ALL\n"
                      "7, 9.\n");
  EXPECT_EQ(deck.Maps(),
            "{\"nodes\": {\"1\": [1.5, -2.0, 0.3, 0.0, 0.0, 0.0], \"3\": [0.0, 0.0, 0.0, 0.0, 0.0, "
            "0.0], \"7\": [9.0, 0.0, 0.0, 0.0, 0.0, 0.0]}, \"nsets\": {\"ALL\": [1, 3, 7]}}");
  EXPECT_EQ(deck.messages, "");
}

TEST(inp_NodeVisitor, RowsKeptAsTextReadAlikeAndBadOnesAreSkipped)
{
  MeshDeckSetting setting;
  setting.bulkConversion = false;
  DeckCase const cases[] = {
    {"good row beside labels below 1, which nobody speaks of", "0, 1.\n-3, 1.\n\n4, 1.D1\n",
     "{\"4\": [10.0, 0.0, 0.0, 0.0, 0.0, 0.0]}", ""},
    {"ten digits", "1234567890, 1.\n999999999\n", "{\"999999999\": [0.0, 0.0, 0.0, 0.0, 0.0, 0.0]}",
     "1 error: Node label exceeds 9 digits: 1234567890\n"},
    {"no number", "5, nan\n6, 1e999\n7, 1.\n", "{\"7\": [1.0, 0.0, 0.0, 0.0, 0.0, 0.0]}",
     "1 error: Invalid nodal coordinate values were specified for the following nodes: 5\n"
     "1 error: Invalid nodal coordinate values were specified for the following nodes: 6\n"},
  };
  for (auto const& c : cases)
  {
    MeshDeck const deck("*NODE\n" + c.deck, setting);
    EXPECT_EQ(deck.nodes, c.made) << c.what;
    EXPECT_EQ(deck.messages, c.messages) << c.what;
  }
}

TEST(inp_NodeVisitor, CurvilinearRowsBecomeRectangular)
{
  MeshDeck const deck("*NODE, SYSTEM=C\n1, 2., 30., 4., 1., 90., 0.\n"
                      "*NODE, SYSTEM=S\n2, 2., 30., 60.\n");
  ExpectNodes(deck, {{1, 1.73205080757, 1, 4, 0, 1, 0}, {2, 0.866025403784, 0.5, 1.73205080757}});
}

TEST(inp_NodeVisitor, LocalSystemsHoldUntilTheNext)
{
  struct
  {
    char const* what;
    char const* system;
    NodePlace node; // of 2, 3, 4 with the normal 0.6, 0.8, 0
  } const cases[] = {
    {"C off the axis", "*SYSTEM\n1., 1., 0., 1., 3., 0.\n-3., 7., 0.\n", {5, -2, 3, 4, -.8, .6, 0}},
    {"one row keeps z", "*SYSTEM\n1., 1., 0., 1., 3., 9.\n", {5, -2, 3, 4, -.8, .6, 0}},
    {"B at the origin: A is all", "*SYSTEM\n1., 1., 5.\n", {5, 3, 4, 9, .6, .8, 0}},
    {"no rows", "*SYSTEM\n1., 1., 0., 1., 3., 0.\n*SYSTEM\n", {5, 2, 3, 4, .6, .8, 0}},
  };
  for (auto const& c : cases)
  {
    MeshDeck const deck(std::string(c.system) + "*NODE\n5, 2., 3., 4., 3., 4., 0.\n");
    ExpectNodes(deck, {c.node});
    EXPECT_EQ(deck.messages, "") << c.what;
  }
}

TEST(inp_NodeVisitor, LocalSystemsThatAreNoneAreReportedAxisByAxis)
{
  std::pair<char const*, char const*> const cases[] = {
    {"1., 1., 1., 1., 1., 1.\n",
     "1 error: The x-axis of the local coordinate system is not defined.\n"
     "1 error: The x-axis and the z-axis of the local coordinate system are parallel or almost "
     "parallel.\n"},
    {"0., 0., 0., 1., 0., 0.\n0., 0., 0.\n",
     "1 error: The y-axis of the local coordinate system is not defined.\n"
     "1 error: The x-axis and the y-axis of the local coordinate system are parallel or almost "
     "parallel.\n"},
    {"1e308\n*NODE\n5, 1e308\n",
     "3 error: Invalid nodal coordinate values were specified for the following nodes: 5\n"},
  };
  for (auto const& [rows, messages] : cases)
    EXPECT_EQ(MeshDeck(std::string("*SYSTEM\n") + rows).messages, messages) << rows;
}

TEST(inp_NodeVisitor, APointIsThreeFieldsOfWhichSomeMayBeMissing)
{
  inp_Keyword keyword(inp_kwNcopy);
  keyword.data.Append("7, 1., , 3., 4.");
  auto const point = [&](int row, int column)
  {
    gsl_Point const p = inp_NodeVisitor::ReadPointFromKeywordData(keyword, row, column);
    return std::vector<double>{p.X(), p.Y(), p.Z()};
  };
  EXPECT_EQ(point(0, 1), (std::vector<double>{1.0, 0.0, 3.0}));
  EXPECT_EQ(point(0, 4), (std::vector<double>{4.0, 0.0, 0.0}));
  EXPECT_EQ(point(1, 0), (std::vector<double>{0.0, 0.0, 0.0}));
}

TEST(inp_NodeVisitor, RoundingOfALocalSystemLeavesNoDust)
{
  MeshDeck const deck("*SYSTEM\n0.1, 0.2, 0.3\n*NODE\n1\n"
                      "*SYSTEM\n0., 0., 0., 0., 1., 0.\n*NODE\n2, 7.\n");
  EXPECT_EQ(deck.nodes,
            "{\"1\": [0.1, 0.2, 0.3, 0.0, 0.0, 0.0], \"2\": [0.0, 7.0, 0.0, 0.0, 0.0, 0.0]}");
}

TEST(inp_NodeVisitor, WithoutAMapForTheScopeTheSetIsMadeAlone)
{
  MeshDeckSetting setting;
  setting.hasScopeMap = false;
  MeshDeck const deck("*NODE, NSET=A\n1, 1.\n2, 1.\n", setting);
  EXPECT_EQ(deck.Maps(), "{\"nodes\": {}, \"nsets\": {\"A\": [1, 2]}}");
  EXPECT_EQ(deck.messages, "1 error: Unknown instance or part name P is encountered while "
                           "processing the *NODE keyword.\n");
  setting.scope = "";
  EXPECT_EQ(MeshDeck("*NODE, NSET=A\n4, 1.\n", setting).Maps(),
            "{\"nodes\": {\"4\": [1.0, 0.0, 0.0, 0.0, 0.0, 0.0]}, \"nsets\": {\"A\": [4]}}")
    << "nodes of the assembly stand in the map itself";
}

TEST(inp_NodeVisitor, NumberingAloneMakesTheSameLabelsAndSetsAtTheOrigin)
{
  char const* const text = "*NODE, NSET=A, SYSTEM=C\n1, 2., 30.\n5, 2., 120., 0., 1., 0., 0.\n"
                           "*NGEN, LINE=C, NSET=B\n1, 5, 1, 99\n"
                           "*NSET, NSET=ONE\n1\n*NSET, NSET=FIVE\n5\n"
                           "*NFILL, NSET=C\nONE, FIVE, 2, 2\n"
                           "*NCOPY, OLD SET=B, CHANGE NUMBER=10, POLE, NEW SET=D\n1\n"
                           "*NMAP, NSET=B, TYPE=ROTATION\n";
  MeshDeckSetting setting;
  setting.computeGeometry = false;
  MeshDeck const numbers(text, setting);
  EXPECT_EQ(numbers.messages, "");
  EXPECT_EQ(numbers.nsets, "{\"A\": [1, 5], \"B\": [1, 2, 3, 4, 5], \"C\": [1, 3, 5], \"D\": [11, "
                           "12, 13, 14, 15], \"FIVE\": [5], \"ONE\": [1]}");
  std::vector<NodePlace> nodes;
  for (int const label : {1, 2, 3, 4, 5, 11, 12, 13, 14, 15})
    nodes.push_back({label, 0, 0, 0});
  ExpectNodes(numbers, nodes);
}

// Whatever the position of the instance, its generators see the nodes where they stand, and what they
// make lies where it would lie in a part that is moved as a whole.
TEST(inp_NodeVisitor, GeneratorsCommuteWithThePositionOfAnInstance)
{
  char const* const text = "*NODE\n1, 2., 0., 0., 1., 0., 0.\n4, 0., 2., 0., 0., 1., 0.\n"
                           "20, 5., 1., 7., 0., 0., 1.\n21, 8., 8., 8.\n"
                           "*NGEN, LINE=C, NSET=ARC\n1, 4, 1, , 0., 0., 0.\n"
                           "*NGEN\n20, 24, 1\n"
                           "*NSET, NSET=L\n1\n*NSET, NSET=R\n20\n*NFILL\nL, R, 2, 100\n"
                           "*NCOPY, OLD SET=ARC, CHANGE NUMBER=50, SHIFT\n1., 2., 3.\n"
                           "0., 0., 0., 0., 1., 1., 30.\n"
                           "*NCOPY, OLD SET=ARC, CHANGE NUMBER=60, POLE\n20\n";
  MeshDeckSetting moved;
  moved.isInstance = true;
  moved.position.SetTranslation(gsl_Vector(10.0, -3.0, 0.5));
  moved.position.Concatenate(
    gsl_Matrix::AxisRotation(gsl_Point(1.0, 2.0, 3.0), gsl_Vector(1.0, 1.0, 0.2), 0.7));
  MeshDeck const part(text);
  MeshDeck const instance(text, moved);
  EXPECT_EQ(part.messages, instance.messages);
  inp_CoordMap expected = part.Nodes();
  expected.Transform(moved.position);
  std::vector<NodePlace> places;
  inp_MapInt2Coord const all = expected.ConstGet();
  for (inp_MapInt2CoordSIT it(all); !it.IsDone(); it.Next())
  {
    inp_Coord const& node = it.CurrentValue();
    places.push_back({it.CurrentKey(), node.x, node.y, node.z, node.nx, node.ny, node.nz});
  }
  ASSERT_EQ(places.size(), 18u);
  ExpectNodes(instance, places);
}

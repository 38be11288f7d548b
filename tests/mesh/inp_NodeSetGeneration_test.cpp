#include "NodePlaces.h"

#include <cmath>

namespace
{

/// Nodes 1 and 9 from 0 to 8 on the x-axis, in the sets L and R.
char const* const c_ends = "*NODE\n1, 0.\n9, 8.\n*NSET, NSET=L\n1\n*NSET, NSET=R\n9\n";

/// One node at 3, 4, 5 with a normal, in the set S.
char const* const c_one = "*NODE, NSET=S\n1, 3., 4., 5., .6, 0., .8\n";

} // namespace

TEST(inp_NodeFill, SpacingFollowsBiasAndSingularEnd)
{
  struct
  {
    char const* parameters;
    int intervals;
    std::vector<double> parts;
  } const cases[] = {
    {"", 4, {0.25, 0.5, 0.75}},
    {", BIAS=0.5", 3, {1 / 7.0, 3 / 7.0}},
    {", BIAS=1.5", 4, {0.415384615384615, 0.692307692307692, 0.876923076923077}},
    {", BIAS=2., TWO STEP", 4, {1 / 3.0, 2 / 3.0, 5 / 6.0}},
    {", BIAS=2, TWO STEP", 5, {4 / 13.0, 8 / 13.0, 10 / 13.0, 12 / 13.0}},
    {", SINGULAR=1", 4, {0.0625, 0.25, 0.625}},
    {", SINGULAR=2", 4, {0.375, 0.75, 0.9375}},
    {", SINGULAR=1", 6, {1 / 36.0, 1 / 9.0, 5 / 18.0, 4 / 9.0, 13 / 18.0}},
    {", SINGULAR=2", 6, {5 / 18.0, 5 / 9.0, 13 / 18.0, 8 / 9.0, 35 / 36.0}},
    {", SINGULAR=1", 2, {0.25}},
    {", SINGULAR=2", 2, {0.75}},
    {"", 1, {}},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.parameters);
    int const last = 100 + 3 * c.intervals;
    std::string const end = std::to_string(last);
    MeshDeck const deck("*NODE\n100, 0., 1., -2.\n" + end +
                        ", 8., 1., 2.\n*NSET, NSET=L\n100\n*NSET, NSET=R\n" + end +
                        "\n*NFILL, NSET=ALL" + c.parameters + "\nL, R, " +
                        std::to_string(c.intervals) + ", 3\n");
    EXPECT_EQ(deck.messages, "");
    EXPECT_EQ(deck.Nodes().Count(), c.intervals + 1);
    int label = 100;
    for (double const part : c.parts)
    {
      inp_Coord const node = deck.Node(label += 3);
      EXPECT_NEAR(node.x, 8 * part, 1e-12) << label;
      EXPECT_EQ(node.y, 1.0) << label;
      EXPECT_NEAR(node.z, -2 + 4 * part, 1e-12) << label;
    }
  }
}

TEST(inp_NodeFill, NormalsAreInterpolatedFromOneEndOrBoth)
{
  MeshDeck const deck("*NODE\n1, 0., 0., 0., 0., 0., 2.\n3, 4., 0., 0., 0., 1., 0.\n"
                      "5, 0.\n7, 4., 0., 0., 0., 1., 0.\n11, 0.\n13, 4.\n"
                      "*NSET, NSET=L, UNSORTED\n1, 5, 11\n*NSET, NSET=R, UNSORTED\n3, 7, 13\n"
                      "*NFILL, NSET=N\nL, R, 2\n");
  double const half = std::sqrt(0.5);
  ExpectNodes(deck, {{2, 2, 0, 0, 0, half, half}, {6, 2, 0, 0, 0, 1, 0}, {12, 2, 0, 0}}, 6);
  EXPECT_NE(deck.nsets.find("\"N\": [1, 2, 3, 5, 6, 7, 11, 12, 13]"), std::string::npos)
    << deck.nsets;
}

TEST(inp_NodeFill, UnsortedSetsPairNodesInTheirOrder)
{
  MeshDeck const deck("*NODE\n1, 0.\n2, 0., 2.\n11, 10.\n12, 10., 2.\n"
                      "*NSET, NSET=L, UNSORTED\n2, 1\n*NSET, NSET=R\n11, 12\n"
                      "*NFILL\nL, R, 2, 5\n");
  ExpectNodes(deck, {{7, 5, 1, 0}, {6, 5, 1, 0}}, 4);
  EXPECT_EQ(deck.messages,
            "10 warning: The number of intervals 2 and the node increment 5 are inconsistent with "
            "the node numbers of two sets: L - 2, R - 11 .\n"
            "10 warning: The number of intervals 2 and the node increment 5 are inconsistent with "
            "the node numbers of two sets: L - 1, R - 12 .\n");
}

TEST(inp_NodeFill, ReportsBadInput)
{
  struct
  {
    char const* what;
    char const* keyword;
    char const* made; // labels of the set N
    char const* messages;
  } const cases[] = {
    {"parameters that exclude each other", "*NFILL, NSET=N, BIAS=2., SINGULAR=1\nL, R, 2, 4\n", "",
     "8 error: Parameters SINGULAR and BIAS are mutually exclusive.\n"},
    {"no such end", "*NFILL, NSET=N, SINGULAR=3\nL, R, 2, 4\n", "",
     "8 error: Parameter SINGULAR=3 is invalid.\n"},
    {"two steps of equal length", "*NFILL, NSET=N, TWO STEP\nL, R, 2, 4\n", "[1, 5, 9]",
     "8 warning: The TWO STEP parameter is ignored as the BIAS parameter not specified.\n"},
    {"too few fields, the keyword ends", "*NFILL, NSET=N\nL, R, 2, 4\nL, R\n", "",
     "8 error: Invalid data line: L, R\n"},
    {"unknown set", "*NFILL, NSET=N\nL, NONE, 2, 4\n", "",
     "8 error: Node set NONE does not exist. Node sets should be defined before they are used.\n"},
    {"no intervals", "*NFILL, NSET=N\nL, R, 0, 4\n", "",
     "8 error: The number of intervals must be given.\n"},
    {"intervals of no number", "*NFILL, NSET=N\nL, R, X\n", "",
     "8 error: The number of intervals must be given.\n"},
    {"odd intervals", "*NFILL, NSET=N, SINGULAR=1\nL, R, 3, 4\n", "",
     "8 error: The number of intervals must be even when the SINGULAR parameter is specified.\n"},
    {"sets of different size, and nodes that are missing",
     "*NSET, NSET=M\n1, 77, 78\n"
     "*NSET, NSET=Q\n9, 85, 86, 87\n*NFILL, NSET=N\nM, Q, 2, 4\n",
     "[1, 5, 9, 77, 78, 85, 86, 87]",
     "12 warning: Node sets M and Q have different number of nodes - 3 and 4. Only 3 nodes will be "
     "used.\n"
     "12 error: Node set M entered under an *NFILL definition contains non-existent nodes. \n"
     "12 error: Node set Q entered under an *NFILL definition contains non-existent nodes. \n"},
    {"labels below 1", "*NFILL, NSET=N\nL, R, 3, -1\n", "",
     "8 warning: The number of intervals 3 and the node increment -1 are inconsistent with the "
     "node "
     "numbers of two sets: L - 1, R - 9 .\n"
     "8 error: Node 0 would be generated, but node labels are 1 to 999999999. Nothing more is "
     "generated by this keyword.\n"},
    {"labels of ten digits", "*NFILL, NSET=N\nL, R, 4, 999999999\n", "",
     "8 warning: The number of intervals 4 and the node increment 999999999 are inconsistent with "
     "the node numbers of two sets: L - 1, R - 9 .\n"
     "8 error: Node 1000000000 would be generated, but node labels are 1 to 999999999. Nothing "
     "more "
     "is generated by this keyword.\n"},
    {"more than can be held", "*NFILL, NSET=N\nL, R, 2147483647\n", "",
     "8 error: 2147483646 nodes would be generated at once. Nothing more is generated by this "
     "keyword.\n"},
  };
  for (auto const& c : cases)
  {
    MeshDeck const deck(std::string(c_ends) + c.keyword);
    // Warnings come first in the list of a walk, whatever the order of the faults.
    EXPECT_EQ(deck.messages, c.messages) << c.what;
    std::string const set = std::string("\"N\": ") + c.made;
    EXPECT_EQ(deck.nsets.find(set) != std::string::npos, *c.made != '\0')
      << c.what << ": " << deck.nsets;
  }
}

TEST(inp_NodeCopy, MotionsOfOneNode)
{
  struct
  {
    char const* what;
    char const* rest; // of the keyword
    NodePlace copy;
  } const cases[] = {
    {"translation", "SHIFT\n1., 2., -3.\n", {101, 4, 6, 2, .6, 0, .8}},
    {"rotation", "SHIFT\n0.\n1., 0., 0., 1., 2., 2., 180.\n", {101, -1, 5, 4, -.6, .8, 0}},
    {"a turn of 0 needs no axis",
     "SHIFT\n1.\n1., 1., 1., 1., 1., 1., 0.\n",
     {101, 4, 4, 5, .6, 0, .8}},
    {"line", "REFLECT=LINE\n1., 0., 0., 1., 2., 2.\n", {101, -1, 5, 4, -.6, .8, 0}},
    {"mirror", "REFLECT=MIRROR\n0., 0., 1., 1., 0., 2.\n0., 1., 1.\n", {101, 4, 4, 4, .8, 0, .6}},
    {"a point turns normals round", "REFLECT=POINT\n1., 1., 1.\n", {101, -1, -2, -3, -.6, 0, -.8}},
    {"a pole keeps them", "POLE\n, 1., 1., 1.\n", {101, -1, -2, -3, .6, 0, .8}},
    {"a node as pole", "POLE\n2, 9., 9., 9.\n", {101, -1, -2, -3, .6, 0, .8}},
    {"shift before reflection", "SHIFT, REFLECT=POINT\n1.\n", {101, 4, 4, 5, .6, 0, .8}},
    {"reflection before pole", "POLE, REFLECT=POINT\n1., 1., 1.\n", {101, -1, -2, -3, -.6, 0, -.8}},
    {"backwards",
     "SHIFT, MULTIPLE=0\n1.\n*NCOPY, OLD SET=S, CHANGE NUMBER=100, SHIFT\n",
     {101, 3, 4, 5, .6, 0, .8}},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.what);
    MeshDeck const deck(std::string(c_one) +
                        "*NODE\n2, 1., 1., 1.\n*NCOPY, OLD SET=S, CHANGE NUMBER=100, " + c.rest);
    ExpectNodes(deck, {c.copy}, 2);
    EXPECT_EQ(deck.messages, "");
  }
}

TEST(inp_NodeCopy, ManyShiftsAdvanceAlongAHelix)
{
  MeshDeck const deck("*NODE\n1, 3., 0., 0., 1.\n5, 1., 0., 0.\n"
                      "*NSET, NSET=S, UNSORTED, INTERNAL\n5, 99, 1\n"
                      "*NCOPY, OLD SET=S, CHANGE NUMBER=10, SHIFT, MULTIPLE=3, NEW SET=H\n"
                      "0., 0., 1.\n1., 0., 0., 1., 0., 1., 90.\n");
  ExpectNodes(deck,
              {{11, 1, 2, 1, 0, 1, 0},
               {21, -1, 0, 2, -1, 0, 0},
               {31, 1, -2, 3, 0, -1, 0},
               {15, 1, 0, 1},
               {25, 1, 0, 2},
               {35, 1, 0, 3}},
              2);
  EXPECT_EQ(deck.nsets, "{\"H\": [15, 11, 25, 21, 35, 31], \"S\": [5, 99, 1]}");
  EXPECT_TRUE(deck.Visitor().GetSets().ConstGetNestedSet("P", "H").IsPicked());
  EXPECT_EQ(deck.messages, "");
}

TEST(inp_NodeCopy, ReportsBadInput)
{
  struct
  {
    char const* keyword;
    char const* message;
  } const cases[] = {
    {"*NCOPY, CHANGE NUMBER=1, POLE\n", "Both CHANGE NUMBER and OLD SET are required parameters."},
    {"*NCOPY, OLD SET=S, POLE\n", "Both CHANGE NUMBER and OLD SET are required parameters."},
    {"*NCOPY, OLD SET=NONE, CHANGE NUMBER=1, POLE\n",
     "Node set NONE does not exist. Node sets should be defined before they are used."},
    {"*NCOPY, OLD SET=S, CHANGE NUMBER=1\n",
     "POLE, REFLECT, and SHIFT are required, mutually exclusive parameters."},
    {"*NCOPY, OLD SET=S, CHANGE NUMBER=1, REFLECT=LINE\n1., 1., 1., 1., 1., 1.\n",
     "Points A & B given for REFLECT=LINE are coincident."},
    {"*NCOPY, OLD SET=S, CHANGE NUMBER=1, REFLECT=MIRROR\n0., 0., 0., 1.\n2.\n",
     "Points A, B, & C given for REFLECT=MIRROR do not form a plane (co-linear or coincident)."},
    {"*NCOPY, OLD SET=S, CHANGE NUMBER=1, SHIFT\n\n1., 1., 1., 1., 1., 1., 5.\n",
     "The points defining the axis of rotation for SHIFT are almost coincident."},
    {"*NCOPY, OLD SET=S, CHANGE NUMBER=-1, SHIFT\n1.\n",
     "Node 0 would be generated, but node labels are 1 to 999999999. Nothing more is generated by "
     "this keyword."},
    {"*NCOPY, OLD SET=S, CHANGE NUMBER=999999999, SHIFT, MULTIPLE=2\n1.\n",
     "Node 1000000000 would be generated, but node labels are 1 to 999999999. Nothing more is "
     "generated by this keyword."},
    {"*NCOPY, OLD SET=S, CHANGE NUMBER=0, SHIFT, MULTIPLE=999999999\n1.\n",
     "999999999 nodes would be generated at once. Nothing more is generated by this keyword."},
  };
  for (auto const& c : cases)
  {
    MeshDeck const deck(std::string(c_one) + c.keyword);
    EXPECT_EQ(deck.messages, std::string("3 error: ") + c.message + "\n") << c.keyword;
    EXPECT_EQ(deck.Nodes().Count(), 1) << c.keyword;
  }
}

TEST(inp_NodeMap, MovesANodeByEachMapping)
{
  char const* const node = "2., 30., 4., .6, .8, 0.";
  struct
  {
    char const* what;
    char const* node;
    char const* rest; // of the keyword
    NodePlace moved;
  } const cases[] = {
    {"translation by a length",
     node,
     "TRANSLATION\n1., 2., 3., 1., 5., 7.\n2.5\n",
     {1, 2, 31.5, 6, .6, .8, 0}},
    {"translation by 1",
     node,
     "TRANSLATION\n1., 2., 3., 1., 5., 7.\n",
     {1, 2, 30.6, 4.8, .6, .8, 0}},
    {"rotation",
     node,
     "ROTATION\n1., 2., 3., 1., 7., 3.\n1., 1., 1.\n30.\n",
     {1, 2.36602540378, 30, 3.36602540378, .519615242271, .8, -.3}},
    {"scale drops the normal; 0 leaves an axis",
     node,
     "SCALE\n1., 2., 3.\n2., 0., .5\n",
     {1, 3, 30, 3.5}},
    {"rectangular",
     node,
     "RECTANGULAR\n1., 2., 3., 1., 5., 3.\n-2., 2., 3.\n1.5, 2., 1.\n",
     {1, -59, 5, 7, -.8, .6, 0}},
    {"rectangular, z stays",
     node,
     "RECTANGULAR\n1., 2., 3., 4., 6., 3.\n",
     {1, -21.8, 21.6, 7, -.28, .96, 0}},
    {"rectangular, axes stay",
     node,
     "RECTANGULAR\n1., 2., 3.\n-2., 2., 3.\n",
     {1, 3, 32, 7, .6, .8, 0}},
    {"cylindrical",
     node,
     "CYLINDRICAL\n1., 2., 3., 1., 2., 7.\n1., 5., 4.\n1.5, 2., 1.\n",
     {1, -1.59807621135, 3.5, 7, -.904763520313, .425914278124, 0}},
    {"spherical",
     "2., 30., 40., .6, .8, 0.",
     "SPHERICAL\n1., 2., 3., 1., 2., 7.\n1., 5., 4.\n1.5, 2., 1.\n",
     {1, -.990241844507, 3.14906666468, 4.92836282906, -.693923120251, .326661893633,
      .641687393073}},
    {"toroidal",
     ".5, 60., 45., .6, .8, 0.",
     "TOROIDAL\n1., 2., 3., 1., 5., 3.\n-2., 2., 3.\n",
     {1, -.944543648263, 3.94454364826, 3.43301270189, -.8, .6, 0}},
    {"diamond",
     node,
     "DIAMOND\n1., 2., 3., 3., 2., 3.\n1., 6., 6., 1., 2., 4.\n1.5, 2., 1.\n",
     {1, 4, 50, 43, .6, .8, 0}},
    {"no normal, none made",
     "2., 30., 4.",
     "CYLINDRICAL\n0., 0., 0., 0., 0., 1.\n1., 0., 0.\n",
     {1, 1.73205080757, 1, 4}},
    {"points as nodes",
     node,
     "ROTATION, DEFINITION=NODES\n7, 8\n\n30.\n",
     {1, 2.36602540378, 30, 3.36602540378, .519615242271, .8, -.3}},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.what);
    MeshDeck const deck(std::string("*NODE\n7, 1., 2., 3.\n8, 1., 7., 3.\n*NODE, NSET=S\n1, ") +
                        c.node + "\n*NSET, NSET=S\n99\n*NMAP, NSET=S, TYPE=" + c.rest);
    ExpectNodes(deck, {c.moved}, 2);
  }
}

TEST(inp_NodeMap, ReportsBadInput)
{
  struct
  {
    char const* keyword;
    std::vector<char const*> errors;
  } const cases[] = {
    {"*NMAP, TYPE=SCALE\n", {"Both NSET and TYPE are required parameters."}},
    {"*NMAP, NSET=NONE, TYPE=SCALE\n",
     {"Node set NONE does not exist. Node sets should be defined before they are used."}},
    {"*NMAP, NSET=S, TYPE=ROTATION\n1., 1., 1., 1., 1., 1.\n",
     {"Point B is too close to point A. "}},
    {"*NMAP, NSET=S, TYPE=DIAMOND\n",
     {"Point B is too close to point A. ", "Point C is too close to point A. ",
      "Point D is too close to point A. "}},
    {"*NMAP, NSET=S, TYPE=SPHERICAL\n",
     {"Point B is too close to point A so the local z-axis is ill-defined. ",
      "Point C is too close to point A so the local x-axis is ill-defined. ",
      "The local x and z axes are parallel. "}},
    {"*NMAP, NSET=S, TYPE=CYLINDRICAL\n0., 0., 0., 1.\n2.\n",
     {"The local x and z axes are parallel. "}},
    {"*NMAP, NSET=S, TYPE=RECTANGULAR\n0., 0., 0., 0., 0., 2.\n",
     {"The x-axis and the z-axis of the local coordinate system are parallel or almost parallel."}},
    {"*NMAP, NSET=S, TYPE=TOROIDAL\n1., 0., 0., 1., 0., 0.\n1.\n",
     {"The x-axis of the local coordinate system is not defined.",
      "The y-axis of the local coordinate system is not defined.",
      "The x-axis and the y-axis of the local coordinate system are parallel or almost parallel."}},
  };
  for (auto const& c : cases)
  {
    MeshDeck const deck(std::string(c_one) + c.keyword);
    std::string expected;
    for (char const* const error : c.errors)
      expected += std::string("3 error: ") + error + "\n";
    EXPECT_EQ(deck.messages, expected) << c.keyword;
  }
}

TEST(inp_NodeMap, IsRefusedInAPositionedInstanceAndSilentWhenBlended)
{
  MeshDeckSetting setting;
  setting.isInstance = true;
  setting.position.SetTranslation(gsl_Vector(1.0, 0.0, 0.0));
  MeshDeck const moved(std::string(c_one) + "*NMAP, NSET=S, TYPE=SCALE\n\n2., 2., 2.\n", setting);
  EXPECT_EQ(moved.nodes, "{\"1\": [4.0, 4.0, 5.0, 0.6, 0.0, 0.8]}");
  EXPECT_EQ(moved.messages,
            "3 error: The part instance has undergone translation and/or rotation. This implies "
            "*NMAP is used in a v6 input file.  This is not allowed. \n");
  setting = MeshDeckSetting();
  for (bool const reports : {false, true})
  {
    setting.reportBlended = reports;
    MeshDeck const blended(std::string(c_one) + "*NMAP, NSET=NONE, TYPE=BLENDED\n", setting);
    EXPECT_EQ(blended.messages.find("*NMAP with TYPE=BLENDED is not supported.") !=
                std::string::npos,
              reports);
    EXPECT_EQ(blended.messages.find("NONE"), std::string::npos);
  }
}

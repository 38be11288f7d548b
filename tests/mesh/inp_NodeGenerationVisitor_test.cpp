#include "ElementDeck.h"
#include "inp_NodeGenerationVisitor.h"

#include <cmath>

#include <gtest/gtest.h>

namespace
{
/// The roads on which the nodes are made, see inp_NodeGenerationVisitor.
struct Road
{
  bool checkNodes = true;
  bool restartJob = false;
  bool inParts = true;
};

/// A part's elements, the nodes that it gives, and what the walk makes of both.
class Generation
{
public:
  explicit Generation(std::string const& deck, inp_CoordMap const& nodesOfPart, Road road = {})
    : m_deck(deck)
  {
    inp_CoordMap coords;
    coords.Insert("P", nodesOfPart);
    inp_NodeGenerationVisitor visitor(coords, m_deck.Visitor().GetElements(),
                                      m_deck.Visitor().GetSets(), road.checkNodes, road.restartJob,
                                      road.inParts, "");
    visitor.VisitList(m_deck.List());
    for (atr_String const& message : visitor.GetErrorList())
      messages += MessageText("error", message, m_deck.List().ConstGet(0).fileName) + "\n";
    nodes = visitor.GetCoordMap().ConstGet("P");
    inp_MapInt2Coord const all = nodes.ConstGet();
    for (inp_MapInt2CoordSIT it(all); !it.IsDone(); it.Next())
      labels += (labels.empty() ? "" : " ") + std::to_string(it.CurrentKey());
    elements = ElementsText(m_deck.Map());
  }

  inp_CoordMap nodes;
  std::string labels;
  std::string elements;
  std::string messages;

private:
  ElementDeck m_deck;
};

/// Nodes 1 to `count`, each at a place of its own.
inp_CoordMap Nodes(int count)
{
  inp_CoordMap nodes;
  for (int label = 1; label <= count; ++label)
    nodes.Insert(label, inp_Coord(label, 10.0 * label, -label));
  return nodes;
}
} // namespace

TEST(inp_NodeGenerationVisitor, LayersStandWhereTheBottomDoes)
{
  struct
  {
    char const* what;
    char const* deck;
    int given;
    char const* labels;
    char const* messages;
  } const cases[] = {
    {"two", "*ELEMENT, TYPE=CAXA42, OFFSET=10\n1, 1, 2, 3, 4\n", 4,
     "1 2 3 4 11 12 13 14 21 22 23 24", ""},
    {"bottom nodes that do not exist", "*ELEMENT, TYPE=CAXA41, OFFSET=10\n1, 1, 2, 3, 4\n", 3,
     "1 2 3 11 12 13", ""},
    {"gaskets", "*ELEMENT, TYPE=GK3D8, OFFSET=10\n1, 1, 2, 3, 4\n2, 1, 2, 3, 4, 31, 32, 33, 34\n",
     4, "1 2 3 4 11 12 13 14", ""},
    {"cohesive elements", "*ELEMENT, TYPE=COH2D4P, OFFSET=10\n1, 1, 2\n", 2, "1 2 11 12 21 22", ""},
    {"pipes", "*ELEMENT, TYPE=FP2D2AT, OFFSET=10\n1, 1, 2\n", 2, "1 2 11 12 21 22 31 32", ""},
    {"generated elements", "*ELEMENT, TYPE=SAXA11, OFFSET=10\n1, 1, 2\n*ELGEN\n1, 3, 1, 1\n", 4,
     "1 2 3 4 11 12 13 14", ""},
    {"copied elements",
     "*ELEMENT, TYPE=SAXA11, OFFSET=10, ELSET=A\n1, 1, 2\n*ELCOPY, OLD SET=A, ELEMENT SHIFT=1, "
     "SHIFT NODES=2\n",
     4, "1 2 3 4 11 12 13 14", ""},
    {"a number of nodes between",
     "*ELEMENT, TYPE=CAXA42, ELSET=A\n1, 1, 2, 3, 4, 5, 6, 7, 8\n*ELCOPY, OLD SET=A, ELEMENT "
     "SHIFT=1, SHIFT NODES=0\n",
     4, "1 2 3 4",
     "2 error: Internal error: number of nodes in asymmetric element of type \"CAXA42\", number = "
     "8 is less than expected\n"
     "4 error: Internal error: number of nodes in asymmetric element of type \"CAXA42\", number = "
     "8 is less than expected.\n"},
    {"types",
     "*ELEMENT\n1, 2\n*ELEMENT, TYPE=XY\n1, 2\n*ELEMENT, TYPE=Z1\n1, 2\n*ELEMENT, TYPE=U1\n1, 2\n",
     0, "", "2 error: Element type is required.\n4 error: Element type XY is not supported.\n"},
    {"generators",
     "*ELEMENT, TYPE=MASS\n1, 1\n*ELGEN\n\n1, 0\n9, 2\n1, 2\n*ELCOPY, OLD SET=A\n*ELCOPY, OLD "
     "SET=A, ELEMENT SHIFT=1, SHIFT NODES=1\n",
     1, "1",
     "4 error: There is no data specified in at least one data line.\n"
     "4 error: Number of elements to be generated is zero.\n"
     "4 error: Master element 9 is not defined.\n"
     "9 error: ELEMENTSHIFT, OLDSET, and SHIFTNODES are required.\n"
     "10 error: Element set A does not exist.\n"},
  };
  for (auto const& c : cases)
  {
    Generation const made(c.deck, Nodes(c.given));
    EXPECT_EQ(made.labels, c.labels) << c.what;
    EXPECT_EQ(made.messages, c.messages) << c.what;
  }

  inp_CoordMap nodes = Nodes(4);
  nodes.Insert(12, inp_Coord(7, 7, 7));
  Generation const made("*ELEMENT, TYPE=CAXA42, OFFSET=10\n1, 1, 2, 3, 4\n", nodes);
  EXPECT_EQ(made.nodes.ConstGet(12).y, 7.0) << "a node of the deck stays";
  EXPECT_EQ(made.nodes.ConstGet(22).y, 20.0);
  EXPECT_EQ(made.nodes.ConstGet(14).z, -4.0);
}

TEST(inp_NodeGenerationVisitor, OtherRoadsMakeNothingOrSayLess)
{
  std::string const deck = "*ELEMENT, TYPE=CAXA41, OFFSET=10\n1, 1, 2, 3, 4\n*ELGEN\n9, "
                           "2\n*ELCOPY, OLD SET=A, ELEMENT SHIFT=1, SHIFT NODES=1\n";
  Generation const unchecked(deck, Nodes(4), {.checkNodes = false});
  EXPECT_EQ(unchecked.labels + unchecked.messages, "1 2 3 4");
  Generation const instances(deck, Nodes(4), {.inParts = false});
  EXPECT_EQ(instances.labels + instances.messages, "1 2 3 4") << "not a keyword of an instance";
  Generation const restart(deck, Nodes(4), {.restartJob = true});
  EXPECT_EQ(restart.labels + restart.messages, "1 2 3 4 11 12 13 14");
}

// On a curved face x = r, y = s, z = 1 - r^2 - s^2 + shift the middle lies at z = shift plus what the
// interpolation of the eight nodes gives there.
TEST(inp_NodeGenerationVisitor, QuadraticGasketsGetNodesInTheMiddleOfTheirFaces)
{
  double const places[8][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1},
                               {0, -1},  {1, 0},  {0, 1}, {-1, 0}};
  inp_CoordMap nodes;
  for (int face = 0; face < 2; ++face)
    for (int i = 0; i < 8; ++i)
    {
      double const r = places[i][0];
      double const s = places[i][1];
      nodes.Insert(8 * face + i + 1, inp_Coord(r, s, 1 - r * r - s * s + 10 * face));
    }
  nodes.Insert(500, inp_Coord(3, 4, 5));
  std::string const first = "1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15,\n16";
  Generation const made("*ELEMENT, TYPE=GK3D18\n" + first + "\n2" + first.substr(1) +
                          ", 500\n*ELGEN\n1, 2, 0, 10\n",
                        nodes);
  EXPECT_EQ(made.messages, "");
  EXPECT_EQ(made.labels, "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 500 502 503 504 505 506");
  std::string const common = "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 ";
  EXPECT_EQ(made.elements, "1 GK3D18: " + common + "502 503 <16 given>; 2 GK3D18: " + common +
                             "500 504 <17 given>; 11 GK3D18: " + common + "505 506 <16 given>");
  inp_Coord const bottom = made.nodes.ConstGet(502);
  inp_Coord const top = made.nodes.ConstGet(503);
  EXPECT_NEAR(std::hypot(bottom.x, bottom.y), 0, 1e-15);
  EXPECT_NEAR(bottom.z, 1.0, 1e-14) << "r^2 and s^2 are within what eight nodes interpolate";
  EXPECT_NEAR(top.z, 11.0, 1e-14);
  EXPECT_EQ(made.nodes.ConstGet(500).z, 5.0) << "a given midside node stays";

  nodes.Insert(999999998, inp_Coord());
  Generation const full("*ELEMENT, TYPE=GK3D18\n" + first + "\n", nodes);
  EXPECT_EQ(full.messages,
            "2 error: No node label up to 999999999 is left for a midside node of element 1.\n"
            "2 error: No node label up to 999999999 is left for a midside node of element 1.\n");
  EXPECT_EQ(full.elements, "1 GK3D18: " + common + "0 0 <16 given>");
}

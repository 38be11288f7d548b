#include "ElementDeck.h"
#include "inp_ElementRows.h"
#include "inp_GasketOrders.h"

#include <numeric>
#include <set>

#include <gtest/gtest.h>

namespace
{
/// "first, first + 1, ...": `count` numbers.
std::string Numbers(int first, int count, char const* separator = ", ")
{
  std::string text;
  for (int i = 0; i < count; ++i)
    text += (i > 0 ? separator : "") + std::to_string(first + i);
  return text;
}

ElementDeckSetting const inFlatDeck{.inPart = false};
} // namespace

TEST(inp_ElementVisitor, TypesAndParametersAreChecked)
{
  DeckCase const cases[] = {
    {"case of a type", "*ELEMENT, TYPE=c3d4\n7, 1, 2, 3, 4\n", "7 C3D4: 1 2 3 4", ""},
    {"no type", "*ELEMENT\n7, 1, 2\n", "", "2 error: Element type is required.\n"},
    {"unknown", "*ELEMENT, TYPE=c3d99\n7, 1, 2\n", "",
     "2 error: Element type \"C3D99\" is not supported.\n"},
    {"retired", "*ELEMENT, TYPE=old8\n7, 1, 2\n", "",
     "2 error: Element type \"OLD8\" has become obsolete.  Please check the User's manual for the "
     "current release.\n"},
    {"substructure of any size", "*ELEMENT, TYPE=z1, FILE=sub\n7, 1, 2, 3\n8, 4\n9\n",
     "7 Z1: 1 2 3 <sub>; 8 Z1: 4 <sub>; 9 Z1: <sub>", ""},
    {"user element without definition", "*ELEMENT, TYPE=U1\n7, 1, 2\n", "",
     "2 error: This user element type has not been defined properly.Check *USER ELEMENT "
     "definitions.\n"},
    {"user element", "*USER ELEMENT, TYPE=u1, NODES=3\n*ELEMENT, TYPE=U1\n7, 1, 2,\n3\n8, 1, 2\n",
     "7 U1: 1 2 3; 8 U1: 1 2", "3 error: Too few nodes for element(s) of type \"U1\" :\n8\n"},
    {"user element redefined",
     "*USER ELEMENT, TYPE=VU2, NODES=2\n*USER ELEMENT, TYPE=VU2, NODES=1\n*ELEMENT, TYPE=vu2\n7, "
     "1\n",
     "7 VU2: 1", ""},
    {"parameters of user elements",
     "*USER ELEMENT, NODES=3\n*USER ELEMENT, TYPE=U1\n*USER ELEMENT, TYPE=U1, NODES=0\n", "",
     "2 error: The TYPE parameter is required.\n3 error: The NODES parameter is required.\n"
     "4 error: The number of nodes on a user element must be greater than zero.\n"},
    {"offset below 1", "*ELEMENT, TYPE=C3D4, OFFSET=0\n7, 1, 2, 3, 4\n", "",
     "2 error: Offset parameter must be positive.\n"},
  };
  ElementDeckSetting setting;
  setting.obsoleteTypes.Insert("OLD8", inpM_InstanceMap<cow_String>());
  ExpectElements(cases, setting);
}

TEST(inp_ElementVisitor, RowsAreChecked)
{
  DeckCase const numbers[] = {
    {"label 0", "*ELEMENT, TYPE=T3D2\n0, 1, 2\n8, 1, 2\n", "8 T3D2: 1 2",
     "2 error: Element number is not a positive integer for element of type T3D2.\n"},
    {"label of ten digits", "*ELEMENT, TYPE=T3D2\n1234567890, 1, 2\n999999999, 1, 2\n",
     "999999999 T3D2: 1 2",
     "2 error: Element number is not an integer or exceeds 9 digits for element of type T3D2.\n"},
    {"nodes that are none", "*ELEMENT, TYPE=T3D2\n7, 0, 2\n8, -1, 2\n9, 1, 1234567890\n10, 3, 4\n",
     "10 T3D2: 3 4",
     "2 error: Integer in element connectivity for element 7 is zero.\n"
     "2 error: Integer in element connectivity for element 8 is negative.\n"
     "2 error: Non integer or label exceeds 9 digits in element connectivity for element 9\n"},
    {"what is no number, or 0 where a blank field would mean more rows",
     "*ELEMENT, TYPE=T3D2\n5, 1, x\n2.5, 1, 2\n7, 1, 0\n8, 1, 2\n", "8 T3D2: 1 2",
     "2 error: Non integer or label exceeds 9 digits in element connectivity for element 5\n"
     "2 error: Element number is not an integer or exceeds 9 digits for element of type T3D2.\n"
     "2 error: Integer in element connectivity for element 7 is zero.\n"},
    {"no nodes", "*ELEMENT, TYPE=T3D2\n7\n8,\n", "",
     "2 error: Element connectivity is missing for element 7 of type \"T3D2\"\n"
     "2 error: Element connectivity is missing for element 8 of type \"T3D2\"\n"},
    {"a repeated label", "*ELEMENT, TYPE=T3D2\n7, 1, 2\n*ELEMENT, TYPE=C3D4\n7, 1, 2, 3, 4\n",
     "7 C3D4: 1 2 3 4", ""},
    {"beams", "*ELEMENT, TYPE=B31\n1, 1, 2\n2, 1, 2, 3\n3, 1, 2, 3, 4\n4, 1\n",
     "1 B31: 1 2; 2 B31: 1 2 3; 3 B31: 1 2 3; 4 B31: 1",
     "2 warning: Too many nodes for element(s) of type \"B31\" :\n3\n"
     "2 error: Too few nodes for element(s) of type \"B31\" :\n4\n"},
  };
  ExpectElements(numbers);
  DeckCase const texts[] = {
    {"labels", "*ELEMENT, TYPE=T3D2\nx, 1, 2\n-3, 1, 2\n\n8, 1, 2\n", "8 T3D2: 1 2",
     "1 error: Element number is not an integer or exceeds 9 digits for element of type T3D2.\n"
     "1 error: Element number is not a positive integer for element of type T3D2.\n"
     "1 error: Element number is not an integer or exceeds 9 digits for element of type T3D2.\n"},
    {"nodes",
     "*ELEMENT, TYPE=C3D4\n1, 1, 2, 3., 4\n3, 1, , 3, 4\n4, 1,\n2, 3, A 5\n5, 0, 1, 2, 3\n"
     "6, +1, 2 ,\t3, 4 \n",
     "6 C3D4: 1 2 3 4",
     "1 error: Non integer or label exceeds 9 digits in element connectivity for element 1\n"
     "1 error: Non integer or label exceeds 9 digits in element connectivity for element 3\n"
     "1 error: Label \"A5\" is non integer or exceeds 9 digits in element connectivity for element "
     "4\n"
     "1 error: Integer in element connectivity for element 5 is zero.\n"},
  };
  ExpectElements(texts, inFlatDeck);
  DeckCase const assembly[] = {
    {"taken as they are", "*ELEMENT, TYPE=SPRING2\n1, 5, 6\n2, 5, -6\n3, 0, 6\n4, 5, 9.5\n",
     "1 SPRING2: 5 6; 4 SPRING2: 5 9",
     "1 error: Node numbers must be positive in element 2:\n5, -6\n"
     "1 error: Node numbers must be positive in element 3:\n0, 6\n"},
  };
  ExpectElements(assembly, {.scope = "", .inPart = false});
}

TEST(inp_ElementVisitor, ElementsGoOnBehindAComma)
{
  for (bool const inPart : {true, false})
  {
    ElementDeckSetting const setting{.inPart = inPart};
    std::string const line = inPart ? "4" : "3";
    auto const check = [&](char const* what, char const* type, std::string const& rows,
                           std::string const& elements, std::string const& messages = "")
    {
      DeckCase const cases[] = {
        {what + std::string(inPart ? "" : ", as text"),
         "*USER ELEMENT, TYPE=U16, NODES=16\n*USER ELEMENT, TYPE=U32, NODES=32\n*ELEMENT, TYPE=" +
           std::string(type) + "\n" + rows + "\n",
         elements, messages.empty() ? "" : line + messages}};
      ExpectElements(cases, setting);
    };
    std::string const at15 = Numbers(1, 15, " ");
    check("all nodes there, with and without a comma", "C3D15",
          "1, " + Numbers(1, 15) + ",\n2, " + Numbers(1, 15) + "\n",
          "1 C3D15: " + at15 + "; 2 C3D15: " + at15);
    check("16 over two", "U16", "1, " + Numbers(1, 15) + ",\n16\n2, " + Numbers(1, 15) + ",\n16,\n",
          "1 U16: " + Numbers(1, 16, " ") + "; 2 U16: " + Numbers(1, 16, " "));
    check("32 over three", "U32", "1, " + Numbers(1, 15) + ",\n" + Numbers(16, 16) + ",\n32\n",
          "1 U32: " + Numbers(1, 32, " "));
    check("rows of any length", "C3D20",
          "1, 1, 2,\n" + Numbers(3, 17) + ",\n20\n2,\n" + Numbers(1, 20),
          "1 C3D20: " + Numbers(1, 20, " ") + "; 2 C3D20: " + Numbers(1, 20, " "));
    check("a comma is missing", "C3D20", "1, " + Numbers(1, 15) + "\n16, 17, 18, 19, 20\n",
          "1 C3D20: " + at15 + "; 16 C3D20: 17 18 19 20",
          " error: Too few nodes for element(s) of type \"C3D20\" :\n1, 16\n");
    check("the deck ends behind a comma", "C3D20", "1, " + Numbers(1, 15) + ",\n",
          "1 C3D20: " + at15, " error: Too few nodes for element(s) of type \"C3D20\" :\n1\n");
    check("one row too many", "C3D20",
          "1, " + Numbers(1, 15) + ",\n" + Numbers(16, 6) + ",\n2, 3\n",
          "1 C3D20: " + Numbers(1, 20, " ") + "; 2 C3D20: 3",
          " warning: Too many nodes for element(s) of type \"C3D20\" :\n1\n" + line +
            " error: Too few nodes for element(s) of type \"C3D20\" :\n2\n");
    check("optional nodes, next element", "C3D27",
          "1, " + Numbers(1, 15) + ",\n" + Numbers(16, 6) + ",\n2, " + Numbers(1, 15) + ",\n" +
            Numbers(16, 12),
          "1 C3D27: " + Numbers(1, 21, " ") + "; 2 C3D27: " + Numbers(1, 27, " "));
    check("beams with commas", "B31", "1, 10, 11,\n2, 12, 13,\n3, 14, 15,\n16\n",
          "1 B31: 10 11; 2 B31: 12 13; 3 B31: 14 15 16");
  }
}

TEST(inp_ElementVisitor, BlankOptionalNodesAreDroppedOrMarked)
{
  std::string const rows = "*ELEMENT, TYPE=C3D15V\n1, " + Numbers(1, 15) + ",\n, 17, \n";
  for (bool const inPart : {true, false})
    for (bool const marks : {false, true})
    {
      ElementDeck const deck(rows, {.inPart = inPart, .allowBlankMidNodes = marks});
      EXPECT_EQ(deck.elements, "1 C3D15V: " + Numbers(1, 15, " ") + (marks ? " -91440 17" : " 17"));
      EXPECT_EQ(deck.messages, "");
    }
  ElementDeck const corner("*ELEMENT, TYPE=C3D15V\n1, 1, , 3, " + Numbers(4, 12) + "\n",
                           inFlatDeck);
  EXPECT_EQ(corner.elements, "");
  EXPECT_EQ(
    corner.messages,
    "1 error: Non integer or label exceeds 9 digits in element connectivity for element 1\n");
}

TEST(inp_ElementVisitor, ConnectorsMayLackANode)
{
  DeckCase const cases[] = {
    {"both, one, the other", "*ELEMENT, TYPE=CONN3D2\n1, 5, 6\n2, 5\n3, 0, 6\n4, , 6\n",
     "1 CONN3D2: 5 6; 2 CONN3D2: 5; 3 CONN3D2: 0 6; 4 CONN3D2: 0 6", ""},
    {"a comma in place of the second", "*ELEMENT, TYPE=CONN3D2\n1, 5,\n2, 6,\n3, 7, 8\n",
     "1 CONN3D2: 5; 2 CONN3D2: 6; 3 CONN3D2: 7 8", ""},
    {"at least two", "*ELEMENT, TYPE=CONN3D3\n1, 5,\n2, 6,\n3, 7,\n",
     "1 CONN3D3: 5 0; 2 CONN3D3: 6 0; 3 CONN3D3: 7 0", ""},
    {"nothing but the label", "*ELEMENT, TYPE=CONN2D2\n1,\n2, 5, 6\n",
     "1 CONN2D2: 0; 2 CONN2D2: 5 6", ""},
  };
  for (bool const inPart : {true, false})
    ExpectElements(cases, {.inPart = inPart});
}

TEST(inp_ElementVisitor, OffsetMakesLayers)
{
  DeckCase const cases[] = {
    {"one layer", "*ELEMENT, TYPE=CAXA41, OFFSET=10\n1, 1, 2, 3, 4\n",
     "1 CAXA41: 1 2 3 4 11 12 13 14 <4 given> <offset 10>", ""},
    {"two layers", "*ELEMENT, TYPE=SAXA12, OFFSET=100\n1, 1, 2\n",
     "1 SAXA12: 1 2 101 102 201 202 <2 given> <offset 100>", ""},
    {"no offset", "*ELEMENT, TYPE=CAXA41\n1, 1, 2, 3, 4\n2, 1, 2, 3, 4\n", "",
     "2 error: Offset is a required parameter when only bottom nodes are specified.\n"},
    {"no integer", "*ELEMENT, TYPE=CAXA41, OFFSET=ten\n1, 1, 2, 3, 4\n", "",
     "2 error: Offset must be a positive integer value.\n"},
    {"gaskets", "*ELEMENT, TYPE=GK3D8, OFFSET=10\n1, 1, 2, 3, 4\n2, 1, 2, 3, 4, 5, 6, 7, 8\n",
     "1 GK3D8: 1 2 3 4 11 12 13 14 <4 given> <offset 10>; 2 GK3D8: 1 2 3 4 5 6 7 8", ""},
    {"a gasket in the plane, the optional nodes left out",
     "*ELEMENT, TYPE=GKPE6, OFFSET=10\n1, 1, 2, 3\n",
     "1 GKPE6: 1 2 3 11 12 13 <3 given> <offset 10>", ""},
    {"a gasket without offset", "*ELEMENT, TYPE=GK3D8\n1, 1, 2, 3, 4\n", "1 GK3D8: 1 2 3 4",
     "2 error: Too few nodes for element(s) of type \"GK3D8\" :\n1\n"},
    {"cohesive with pressure: two", "*ELEMENT, TYPE=COH2D4P, OFFSET=10\n1, 1, 2\n",
     "1 COH2D4P: 1 2 11 12 21 22 <2 given> <offset 10>", ""},
    {"a longer name: one", "*ELEMENT, TYPE=COD2D4PT, OFFSET=10\n1, 1, 2, 3\n",
     "1 COD2D4PT: 1 2 3 11 12 13 <3 given> <offset 10>", ""},
    {"pipes, three layers", "*ELEMENT, TYPE=FPC2D2AT, OFFSET=10\n1, 1, 2\n",
     "1 FPC2D2AT: 1 2 11 12 21 22 31 32 <2 given> <offset 10>", ""},
    {"labels that end", "*ELEMENT, TYPE=SAXA12, OFFSET=499999999\n1, 1, 2\n2, 1, 1\n",
     "2 SAXA12: 1 1 500000000 500000000 999999999 999999999 <2 given> <offset 499999999>",
     "2 error: The offset leads to node labels above 999999999. The elements are left out:\n1\n"},
  };
  ExpectElements(cases);
}

TEST(inp_ElementVisitor, ACompletedKeywordHoldsTheCompleteElements)
{
  ElementDeck deck("*ELEMENT, TYPE=CAXA44, OFFSET=10, ELSET=E\n3, 1, 2, 3, 4\n1, 5, 6, 7, 8\n");
  inp_Keyword const& keyword = deck.List().ConstGet(1);
  EXPECT_EQ(KeywordText(keyword),
            "element elset=E, type=CAXA44: 3|1|2|3|4|11|12|13|14|21|22|23|24|31|32|33|0 / "
            "34|41|42|43|44 / 1|5|6|7|8|15|16|17|18|25|26|27|28|35|36|37|0 / 38|45|46|47|48");
  EXPECT_EQ(deck.sets, "{\"E\": [1, 3]}");

  ElementDeck again("*ELEMENT, TYPE=CAXA44\n3, 1, 2, 3, 4, 11, 12, 13, 14, 21, 22, 23, 24, 31, 32, "
                    "33,\n34, 41, 42, 43, 44\n");
  EXPECT_EQ(ElementsText(again.Map()).substr(0, 40),
            deck.elements.substr(deck.elements.find("3 C"), 40));

  ElementDeck unchanged("*ELEMENT, TYPE=GK3D8, OFFSET=10\n2, 1, 2, 3, 4, 5, 6, 7, 8\n");
  EXPECT_TRUE(unchanged.List().ConstGet(1).HasParameter("offset"));
}

TEST(inp_ElementVisitor, SolidElementNumberingTurnsAFaceDown)
{
  std::string const solid = "1, " + Numbers(1, 15) + ",\n" + Numbers(16, 5) + "\n";
  std::pair<char const*, char const*> const cases[] = {
    {"=1", "1 2 3 4 9 10 11 12 5 6 7 8 13 14 15 16"},
    {"=2", "8 7 6 5 15 14 13 16 4 3 2 1 11 10 9 12"},
    {"=3", "1 5 6 2 17 13 18 9 4 8 7 3 20 15 19 11"},
    {"=4", "3 2 6 7 10 18 14 19 4 1 5 8 12 17 16 20"},
    {"=5", "8 4 3 7 20 11 19 15 5 1 2 6 17 9 18 13"},
    {"=6", "5 1 4 8 17 12 20 16 6 2 3 7 18 10 19 14"},
    {"", "1 2 3 4 9 10 11 12 5 6 7 8 13 14 15 16"},
    {"=-2", "1 2 3 4 9 10 11 12 5 6 7 8 13 14 15 16"},
  };
  for (auto const& [value, nodes] : cases)
  {
    ElementDeck const deck("*ELEMENT, TYPE=GK3D18, SOLID ELEMENT NUMBERING" + std::string(value) +
                           "\n" + solid);
    EXPECT_EQ(deck.elements.substr(0, deck.elements.find(" <")),
              "1 GK3D18: " + std::string(nodes) + " 0 0")
      << value;
    EXPECT_EQ(deck.messages, "") << value;
  }
  DeckCase const others[] = {
    {"the faces end",
     "*ELEMENT, TYPE=GK3D18, SOLID ELEMENT NUMBERING=7\n1, 1, 2, 3, 4, 5, 6, 7, 8\n", "",
     "2 error: SOLID ELEMENT NUMBERING=7 is not a face of the solid element. Faces are 1 to 6 for "
     "element type \"GK3D18\".\n"},
    {"a face needs nodes that are not there",
     "*ELEMENT, TYPE=GK3D8, SOLID ELEMENT NUMBERING=3\n1, 1, 2, 3, 4\n",
     "1 GK3D8: 1 2 3 4 <face 3>", "2 error: Too few nodes for element(s) of type \"GK3D8\" :\n1\n"},
    {"a brick", "*ELEMENT, TYPE=GK3D8, SOLID ELEMENT NUMBERING=3\n1, 1, 2, 3, 4, 5, 6, 7, 8\n",
     "1 GK3D8: 1 5 6 2 4 8 7 3 <face 3>", ""},
    {"a wedge with all its nodes",
     "*ELEMENT, TYPE=GK3D12M, SOLID ELEMENT NUMBERING=2\n1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, "
     "13, 14, 15\n",
     "1 GK3D12M: 6 5 4 11 10 12 3 2 1 8 7 9 <15 given> <face 2>", ""},
    {"a quad", "*ELEMENT, TYPE=GKPE6, SOLID ELEMENT NUMBERING=2\n1, 1, 2, 3, 4, 5, 6, 7, 8\n",
     "1 GKPE6: 2 3 6 1 4 8 <8 given> <face 2>", ""},
    {"a type without a solid element", "*ELEMENT, TYPE=GKAX2, SOLID ELEMENT NUMBERING=2\n1, 1, 2\n",
     "1 GKAX2: 1 2", ""},
    {"midside nodes to come",
     "*ELEMENT, TYPE=GK3D18\n1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15,\n16\n"
     "2, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15,\n16, 17\n",
     "1 GK3D18: 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 0 0 <16 given>; 2 GK3D18: 1 2 3 4 5 6 7 8 9 "
     "10 11 12 13 14 15 16 17 0 <17 given>",
     ""},
  };
  ExpectElements(others);
}

// The bottom of a gasket is a face of the solid, its top the opposite one, and the nodes above each other
// are joined by an edge.
TEST(inp_ElementVisitor, GasketOrdersFollowTheSolidElement)
{
  struct
  {
    char const* type;
    int perLayer;
    int ring; // corners of the solid's bottom, or of the plane element
    bool isSolid;
  } const cases[] = {{"GK3D8", 4, 4, true},
                     {"GK3D6TN", 3, 3, true},
                     {"GKPS4", 2, 4, false},
                     {"GK3D4LN", 2, 4, false}};
  for (auto const& c : cases)
  {
    std::set<std::pair<int, int>> edges;
    for (int i = 0; i < c.ring; ++i)
    {
      int const next = (i + 1) % c.ring;
      edges.insert(std::minmax({i, next}));
      if (c.isSolid)
        edges.insert({std::minmax({c.ring + i, c.ring + next}), {i, c.ring + i}});
    }
    auto const isEdge = [&](int a, int b) { return edges.count(std::minmax({a, b})) > 0; };
    std::set<std::set<int>> bottoms;
    int const faces = inp_GasketOrderOf(c.type, 1).faces;
    for (int face = 1; face <= faces; ++face)
    {
      inp_GasketOrder const gasket = inp_GasketOrderOf(c.type, face);
      ASSERT_EQ(static_cast<int>(gasket.order.size()), 2 * c.perLayer) << c.type;
      std::set<int> const all(gasket.order.begin(), gasket.order.end());
      EXPECT_EQ(all.size(), gasket.order.size()) << c.type << " " << face;
      EXPECT_EQ(gasket.nodesRequired, *all.rbegin() + 1);
      bottoms.insert({gasket.order.begin(), gasket.order.begin() + c.perLayer});
      for (int i = 0; i < c.perLayer; ++i)
      {
        int const next = (i + 1) % c.perLayer;
        EXPECT_TRUE(isEdge(gasket.order[i], gasket.order[i + c.perLayer])) << c.type << " " << face;
        EXPECT_TRUE(isEdge(gasket.order[i], gasket.order[next])) << c.type << " " << face;
        EXPECT_TRUE(isEdge(gasket.order[i + c.perLayer], gasket.order[next + c.perLayer]));
      }
    }
    EXPECT_EQ(static_cast<int>(bottoms.size()), faces) << c.type << ": each face once";
  }
  for (char const* type : {"GK3D6L", "GKAX6", "GK3D2", "GKAX2", "C3D8"})
    EXPECT_EQ(inp_GasketOrderOf(type, 1).faces, 0) << type;
}

TEST(inp_ElementVisitor, ListsOfLongElementsAreBounded)
{
  std::string rows;
  std::string bare;
  for (int label = 1; label <= 1001; ++label)
  {
    rows += std::to_string(label) + ", 1, 2, 3\n";
    bare += std::to_string(label) + ", 1\n";
  }
  ElementDeck const tooLong("*ELEMENT, TYPE=T3D2, ELSET=E\n" + rows);
  EXPECT_EQ(tooLong.messages, "2 warning: Too many nodes for element(s) of type \"T3D2\" :\n" +
                                Numbers(1, 999) + "\n");
  EXPECT_EQ(tooLong.Map().Size(), 1001);
  EXPECT_EQ(tooLong.sets.substr(0, 12), "{\"E\": [1, 2,") << "too many is a warning";
  ElementDeck const tooShort("*ELEMENT, TYPE=T3D2, ELSET=E\n" + bare);
  EXPECT_EQ(tooShort.messages,
            "2 error: Too few nodes for element(s) of type \"T3D2\" :\n" + Numbers(1, 1001) + "\n");
  EXPECT_EQ(tooShort.sets, "{}") << "no set of elements that are too short";
}

TEST(inp_ElementVisitor, ElementsShareTheirType)
{
  ElementDeck const deck("*ELEMENT, TYPE=T3D2\n1, 1, 2\n2, 2, 3\n");
  EXPECT_EQ(deck.Element(1).type().CStr(), deck.Element(2).type().CStr());
  std::string rows;
  for (int label : {1, 2})
  {
    rows += std::to_string(label) + ", 1";
    for (int node = 2; node <= 32769 - label; ++node)
      rows += (node % 16 == 0 ? ",\n" : ", ") + std::to_string(node);
    rows += "\n";
  }
  ElementDeck const big("*ELEMENT, TYPE=Z1\n" + rows);
  EXPECT_EQ(big.messages,
            "2 error: More than 32767 nodes are given for element 1. The element is left out.\n");
  EXPECT_EQ(big.Element(2).numNodesPerElement(), 32767);
}

// Who holds a part's elements keeps them as they are; the walk goes on with all of them.
TEST(inp_ElementVisitor, OtherHoldersDoNotSeeLaterElements)
{
  ElementDeck deck("*ELEMENT, TYPE=T3D2\n1, 1, 2\n");
  inpM_InstanceMap<inp_MapInt2Element> const before = deck.Visitor().GetElements();
  cow_List<inp_Keyword> list =
    DeckKeywords("*PART, NAME=P\n*ELEMENT, TYPE=T3D2\n2, 2, 3\n*ELGEN\n2, 2\n*END PART\n");
  deck.Visitor().VisitList(list);
  EXPECT_EQ(ElementsText(deck.Visitor().GetElements().ConstGet("P")),
            "1 T3D2: 1 2; 2 T3D2: 2 3; 3 T3D2: 3 4");
  EXPECT_EQ(ElementsText(before.ConstGet("P")), "1 T3D2: 1 2");
}

TEST(inp_ElementVisitor, ElementSets)
{
  DeckCase const cases[] = {
    {"of an element keyword, growing",
     "*ELEMENT, TYPE=MASS, ELSET=E\n3, 1\n*ELEMENT, TYPE=MASS, ELSET=E\n2, 1\n",
     "2 MASS: 1; 3 MASS: 1 {\"E\": [2, 3]}", ""},
    {"ids and names", "*ELSET, ELSET=A\n5, 3\n*ELSET, ELSET=B, UNSORTED\n9, A, 1\n",
     "{\"A\": [3, 5], \"B\": [9, 3, 5, 1]}", ""},
    {"growing, and sorted in the end", "*ELSET, ELSET=A, UNSORTED\n5, 3\n*ELSET, ELSET=A\n4\n",
     "{\"A\": [3, 4, 5]}", ""},
    {"generated", "*ELSET, ELSET=A, GENERATE\n1, 9, 4\n", "{\"A\": [1, 5, 9]}", ""},
    {"missing", "*ELSET, ELSET=A\n5, B\n", "{\"A\": [5]}",
     "2 error: The following sets specified do not exist. Sets should be defined before they are "
     "used:\nB\n"},
    {"of a fastener",
     "*FASTENER, ELSET=A, PROPERTY=P, INTERACTION NAME=F\n\n*ELSET, ELSET=B\n1, A\n",
     "{\"A\": [], \"B\": [1]}", ""},
    {"of a fastener elsewhere", "*FASTENER, ELSET=I.A, PROPERTY=P, INTERACTION NAME=F\n\n", "",
     "2 error: Unknown instance I.\n"},
    {"for particles", "*ELSET, ELSET=OLD\n1\n*PARTICLE GENERATOR MIXTURE\nNEW, 5, OLD\n",
     "{\"NEW\": [], \"OLD\": [1]}", "4 error: The following sets already exist:\n    OLD\n"},
  };
  ExpectElements(cases);
  ElementDeck const assembly("*ELSET, ELSET=A\n7\n*ELSET, ELSET=B, GENERATE\n1, 3\n"
                             "*ELSET, ELSET=C\nA, 9\n*ELEMENT, TYPE=SPRINGA, ELSET=D\n4, 1, 2\n",
                             {.scope = "", .inPart = false});
  EXPECT_EQ(SetsText(const_cast<ElementDeck&>(assembly).Visitor().GetSets().ConstGetMap()),
            "{\"A\": [7], \"B\": [1, 2, 3], \"C\": [7, 9], \"D\": [4]}");
  EXPECT_EQ(assembly.messages, "");

  ElementDeck unexpanded("");
  cow_List<inp_Keyword> list = DeckKeywords("*ELSET\n5, 3\n");
  unexpanded.Visitor().VisitList(list);
  ASSERT_EQ(unexpanded.Visitor().GetErrorList().Length(), 1);
  EXPECT_NE(
    unexpanded.Visitor().GetErrorList().ConstGet(0).View().find(": ELSET parameter is required."),
    std::string_view::npos);
}

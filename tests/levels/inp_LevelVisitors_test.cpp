#include "ElementDeck.h"
#include "LevelDeck.h"
#include "inp_AssyLevelElemVisitor.h"

#include <gtest/gtest.h>

namespace
{

// A part of one spring and one mass; keywords of an instance and of the assembly go where they belong.
std::string Deck(std::string const& inInstance, std::string const& inAssembly = "",
                 std::string const& position = "")
{
  return "*PART, NAME=ARM\n"
         "*NODE, NSET=ENDS\n1, 1., 0., 0.\n2, 2., 0., 0., 0., 1., 0.\n"
         "*ELEMENT, TYPE=SPRINGA, ELSET=SPRINGS\n1, 1, 2\n"
         "*SURFACE, NAME=FACE, TYPE=NODE\nENDS\n"
         "*END PART\n"
         "*ASSEMBLY, NAME=ALL\n"
         "*INSTANCE, NAME=ARM-1, PART=ARM\n" +
         position + inInstance + "*END INSTANCE\n" + inAssembly + "*END ASSEMBLY\n";
}
constexpr int c_firstLine = 12; // of what a test puts into the instance

std::string Error(int line, std::string const& words)
{
  return std::to_string(line) + " error: " + words + "\n";
}

} // namespace

TEST(inp_LevelVisitors, AnInstanceMayNotChangeWhatItsPartHas)
{
  DeckCase const cases[] = {
    {"nodes", "*NSET, NSET=ENDS\n1\n", "",
     Error(c_firstLine, "The node set ENDS was defined within part ARM, then redefined within part "
                        "instance ARM-1. A node set cannot be defined at the part level, then "
                        "modified at the part instance level.")},
    {"elements", "*ELSET, ELSET=SPRINGS\n1\n", "",
     Error(c_firstLine, "The element set SPRINGS was defined within part ARM, then redefined "
                        "within part instance ARM-1. An element set cannot be defined at the part "
                        "level, then modified at the part instance level.")},
    {"surfaces", "*SURFACE, NAME=FACE\nSPRINGS, SPOS\n", "",
     Error(
       c_firstLine,
       "The surface FACE was defined within part ARM, then redefined within part instance ARM-1. A "
       "surface cannot be defined at the part level, then redefined at the part instance level.")},
    {"what is new",
     "*NSET, NSET=TIP\n2\n*ELSET, ELSET=MORE\n1\n*SURFACE, NAME=BACK, TYPE=NODE\nTIP\n", "", ""},
  };
  for (auto const& c : cases)
  {
    LevelDeck const deck(Deck(c.deck));
    EXPECT_EQ(c.messages, deck.messages) << c.what;
    bool const isNew = c.messages.empty();
    EXPECT_EQ(isNew ? "{\"ENDS\": [1, 2], \"TIP\": [2]}" : "{\"ENDS\": [1, 2]}",
              SetsText(deck.nodes->GetSets().ConstGet("ARM-1")));
    EXPECT_EQ(isNew ? "{\"MORE\": [1], \"SPRINGS\": [1]}" : "{\"SPRINGS\": [1]}",
              SetsText(deck.elements->GetSets().ConstGet("ARM-1")));
    EXPECT_EQ(isNew ? "BACK {2=1.0} FACE {1=1.0 2=1.0}" : "FACE {1=1.0 2=1.0}",
              deck.InstanceSurfaces("ARM-1"));
    EXPECT_EQ("{\"ENDS\": [1, 2]}", SetsText(deck.partNodes->GetSets().ConstGet("ARM")));
  }
}

TEST(inp_LevelVisitors, AnInstanceIsMovedAndThenTurned)
{
  std::string const there =
    "{\"1\": [1.0, 0.0, 0.0, 0.0, 0.0, 0.0], \"2\": [2.0, 0.0, 0.0, 0.0, 1.0, 0.0]}";
  DeckCase const cases[] = {
    {"a translation", "10., 20.\n",
     "{\"1\": [11.0, 20.0, 0.0, 0.0, 0.0, 0.0], \"2\": [12.0, 20.0, 0.0, 0.0, 1.0, 0.0]}", ""},
    {"then a quarter turn about z through (10, 0)", "10., 0., 0.\n10., 0., 0., 10., 0., 5., 90.\n",
     "{\"1\": [10.0, 1.0, 0.0, 0.0, 0.0, 0.0], \"2\": [10.0, 2.0, 0.0, -1.0, 0.0, 0.0]}", ""},
    {"a turn alone", "\n0., 0., 0., 0., 0., 1., 180.\n",
     "{\"1\": [-1.0, 0.0, 0.0, 0.0, 0.0, 0.0], \"2\": [-2.0, 0.0, 0.0, 0.0, -1.0, 0.0]}", ""},
    {"an axis without direction leaves the translation",
     "1., 0., 0.\n3., 4., 5., 3., 4., 5., 90.\n",
     "{\"1\": [2.0, 0.0, 0.0, 0.0, 0.0, 0.0], \"2\": [3.0, 0.0, 0.0, 0.0, 1.0, 0.0]}",
     Error(c_firstLine - 1,
           "The points defining the axis of rotation are coincident or almost coincident.")},
  };
  for (auto const& c : cases)
  {
    LevelDeck const deck(Deck("", "*NODE\n1, 1., 0., 0.\n", c.deck));
    EXPECT_EQ(c.made, NodesText(deck.nodes->GetCoordMap().ConstGet("ARM-1"))) << c.what;
    EXPECT_EQ(c.messages, deck.messages) << c.what;
    EXPECT_EQ(there, NodesText(deck.partNodes->GetCoordMap().ConstGet("ARM"))) << c.what;
    EXPECT_EQ("{\"1\": [1.0, 0.0, 0.0, 0.0, 0.0, 0.0]}", NodesText(deck.nodes->GetCoordMap()));
  }
}

TEST(inp_LevelVisitors, InstancesShareWhatTheyDoNotChange)
{
  std::string const other = "*INSTANCE, NAME=ARM-2, PART=ARM\n0., 0., 5.\n";
  LevelDeck const deck(Deck("",
                            other +
                              "*NODE\n3, 0., 0., 0.\n*ELEMENT, TYPE=SPRINGA, ELSET=NEW\n2, 2, 3\n"
                              "*END INSTANCE\n",
                            "1., 0., 0.\n"));
  EXPECT_EQ("", deck.messages);
  inp_CoordMap const& part = deck.partNodes->GetCoordMap().ConstGet("ARM");
  inp_CoordMap const& nodes = deck.nodes->GetCoordMap();
  EXPECT_EQ(&part.ConstGetStored().ConstGet(1),
            &nodes.ConstGet("ARM-1").ConstGetStored().ConstGet(1));
  EXPECT_EQ("{\"1\": [1.0, 0.0, 5.0, 0.0, 0.0, 0.0], \"2\": [2.0, 0.0, 5.0, 0.0, 1.0, 0.0], \"3\": "
            "[0.0, 0.0, 5.0, 0.0, 0.0, 0.0]}",
            NodesText(nodes.ConstGet("ARM-2")));
  auto const& elements = deck.elements->GetElements();
  EXPECT_EQ(deck.partElements.GetElements().ConstGet("ARM").GetEltPtr(1),
            elements.ConstGet("ARM-1").GetEltPtr(1));
  EXPECT_EQ(2, elements.ConstGet("ARM-2").Size());
  EXPECT_EQ(1, elements.ConstGet("ARM-1").Size());
}

TEST(inp_LevelVisitors, SetsOfTheAssemblyReachIntoInstances)
{
  LevelDeck const deck(Deck("*NSET, NSET=TIP\n2\n", "*NODE, NSET=OWN\n9, 0., 0., 0.\n"
                                                    "*NSET, NSET=MIX\nARM-1.TIP, ARM-1.1, OWN\n"
                                                    "*NSET, NSET=FAR, INSTANCE=ARM-1\n1\n"
                                                    "*ELSET, ELSET=ALL\nARM-1.SPRINGS\n"
                                                    "*NSET, NSET=OFALL, ELSET=ALL\n"
                                                    "*NSET, NSET=BAD\nARM-2.1\n"));
  EXPECT_EQ("{\"BAD\": [], \"FAR\": {\"ARM-1\": [1]}, \"MIX\": {\"\": [9], \"ARM-1\": [1, 2]}, "
            "\"OFALL\": {\"ARM-1\": [1, 2]}, \"OWN\": [9]}",
            SetsText(deck.nodes->GetSets().ConstGetMap()));
  EXPECT_EQ("{\"ALL\": {\"ARM-1\": [1]}}", SetsText(deck.elements->GetSets().ConstGetMap()));
  EXPECT_EQ(Error(c_firstLine + 12, "The following sets/ids do not exist:\nARM-2.1"),
            deck.messages);
}

TEST(inp_LevelVisitors, PartsShareTypesOfUsersButNoLocalSystem)
{
  LevelDeck const deck("*USER ELEMENT, TYPE=U1, NODES=2\n"
                       "*PART, NAME=A\n*SYSTEM\n5., 0., 0.\n*NODE\n1, 1.\n*END PART\n"
                       "*PART, NAME=B\n*NODE\n1, 1.\n*ELEMENT, TYPE=U1\n1, 1, 1\n*END PART\n"
                       "*PART, NAME=C\n*END PART\n*ASSEMBLY, NAME=ALL\n*INSTANCE, NAME=I, PART=B\n"
                       "*ELEMENT, TYPE=U1\n2, 1, 1\n*END INSTANCE\n*END ASSEMBLY\n");
  inp_CoordMap const& nodes = deck.partNodes->GetCoordMap();
  EXPECT_EQ(6.0, nodes.ConstGet("A").ConstGet(1).x);
  EXPECT_EQ(1.0, nodes.ConstGet("B").ConstGet(1).x);
  EXPECT_EQ(2, deck.elements->GetElements().ConstGet("I").Size());
  EXPECT_EQ("", deck.messages);
}

namespace
{

struct AssemblyElements
{
  explicit AssemblyElements(std::string const& keywords)
  {
    ids.Insert(7, 70);
    ids.Get("I").Insert(5, 105);
    ids.Get("I").Insert(6, 106);
    ids.Get("J").Insert(5, 205);
    cow_List<inp_Keyword> list = DeckKeywords(keywords);
    inp_AssyLevelElemVisitor visitor(ids);
    visitor.VisitList(list);
    if (visitor.GetElements().HasValue())
      elements = ElementsText(visitor.GetElements().ConstGet());
    sets = SetsText(visitor.GetSets().ConstGetMap());
    for (auto const* messageList : {&visitor.GetWarningList(), &visitor.GetErrorList()})
      for (atr_String const& message : *messageList)
        messages += std::string(message.View().substr(message.View().find(": ") + 2)) + "\n";
  }

  inpM_IdMap ids;
  std::string elements;
  std::string sets;
  std::string messages;
};

} // namespace

TEST(inp_AssyLevelElemVisitor, PutsNumbersForTheNodesOfInstances)
{
  DeckCase const cases[] = {
    {"instances and the assembly", "*ELEMENT, TYPE=conn3d2\n1, I.5, 7\n2, J.5, I.6\n",
     "1 CONN3D2: 105 70; 2 CONN3D2: 205 106", ""},
    {"a place without node", "*ELEMENT, TYPE=CONN3D2\n1, , I.5\n2, I.5,\n3, I.6\n",
     "1 CONN3D2: 0 105; 2 CONN3D2: 105; 3 CONN3D2: 106", ""},
    {"keywords that others have read",
     "*USER ELEMENT\n*FASTENER, ELSET=X.Y\n*ELEMENT, TYPE=MASS\n1, 7\n", "1 MASS: 70", ""},
    {"other kinds",
     "*ELEMENT, TYPE=MASS\n1, I.5\n*ELEMENT, TYPE=SPRINGA\n2, I.5, J.5\n"
     "*ELEMENT, TYPE=DASHPOT2\n3, 7, 7\n*ELEMENT, TYPE=ROTARYI\n4, 7\n"
     "*ELEMENT, TYPE=HEATCAP\n5, 7\n",
     "1 MASS: 105; 2 SPRINGA: 105 205; 3 DASHPOT2: 70 70; 4 ROTARYI: 70; 5 HEATCAP: 70", ""},
    {"no solids", "*ELEMENT, TYPE=C3D4\n1, 7, 7, 7, 7\n", "",
     "Only connector, spring, dashpot, mass, rotary inertia, and capacitance elements can be "
     "created at the assembly level.\n"},
    {"no type", "*ELEMENT\n1, 7\n", "", "Element type is required\n"},
    {"no number", "*ELEMENT, TYPE=MASS\n0, 7\nX, 7\n1, 7\n", "1 MASS: 70",
     "element number is not defined or is zero for element of type MASS\n"
     "element number is not defined or is zero for element of type MASS\n"},
    {"nodes that are not there",
     "*ELEMENT, TYPE=SPRINGA\n1, I.SET, TIP\n2, 8, K.5\n3, I.7, A.B.C.1\n4, 2.5, I.5\n5, I.5, "
     "J.5\n",
     "5 SPRINGA: 105 205",
     "Connectivity item I.SET appears to be a node set. This is not allowed.\n"
     "Connectivity item TIP appears to be a node set. This is not allowed.\n"
     "Connectivity item 8 is an undefined assembly level node.\n"
     "Unknown instance name K\n"
     "Unknown local ID 7 in instance I\n"
     "Connectivity item A.B.C.1 is unrecognizable as a scoped ID ( <instanceName>.<integer ID> ).\n"
     "*Element: an unrecognizable item (neither integer nor text string) is detected in the "
     "connectivity list for element 4 of type \"SPRINGA\". The item in question is: 2.5\n"},
    {"no nodes", "*ELEMENT, TYPE=MASS\n1\n", "",
     "*Element: topology information is missing for element 1 of type \"MASS\"\n"},
    {"too many, too few", "*ELEMENT, TYPE=SPRINGA, ELSET=S\n1, 7\n2, I.5, I.6, 7\n",
     "1 SPRINGA: 70; 2 SPRINGA: 105 106",
     "Too many nodes for element(s) of type \"SPRINGA\":\n2\n"
     "Too few nodes for element(s) of type \"SPRINGA\":\n1\n"},
  };
  for (auto const& c : cases)
  {
    AssemblyElements const found(c.deck);
    EXPECT_EQ(c.made, found.elements) << c.what;
    EXPECT_EQ(c.messages, found.messages) << c.what;
    EXPECT_EQ("{}", found.sets) << c.what;
  }
}

TEST(inp_AssyLevelElemVisitor, ListsNoMoreElementsThanThoseOfParts)
{
  std::string rows;
  for (int i = 1; i <= 1001; ++i)
    rows += std::to_string(i) + ", 7\n";
  std::string const messages = AssemblyElements("*ELEMENT, TYPE=SPRINGA\n" + rows).messages;
  EXPECT_NE(std::string::npos, messages.find("999"));
  EXPECT_EQ(std::string::npos, messages.find("1000"));
}

TEST(inp_AssyLevelElemVisitor, ReadsWhatTheWalkOverTheAssemblySetAside)
{
  LevelDeck const deck(Deck("",
                            "*NODE\n7, 0., 0., 0.\n"
                            "*ELEMENT, TYPE=CONN3D2, ELSET=JOINTS\n1, ARM-1.2, 7\n2, 7, ARM-1.1\n"
                            "*ELSET, ELSET=SOME\n2, JOINTS\n"));
  EXPECT_EQ("", deck.messages);
  EXPECT_EQ("{\"JOINTS\": [1, 2], \"SOME\": [1, 2]}",
            SetsText(deck.elements->GetSets().ConstGetMap()));
  inp_MapInt2Element const& known = deck.elements->GetElements().ConstGet();
  EXPECT_EQ(0, known.ConstGet(2).numNodesPerElement());

  inp_CoordMap nodes = deck.nodes->GetCoordMap();
  inpM_IdMap const ids = nodes.Renumber(1, false); // 7 is 1, then ARM-1.1 and ARM-1.2
  cow_List<inp_Keyword> setAside = deck.elements->GetKeywords();
  inp_AssyLevelElemVisitor visitor(ids);
  visitor.VisitList(setAside);
  EXPECT_FALSE(visitor.IsError()) << visitor.Errors().View();
  EXPECT_EQ("1 CONN3D2: 3 1; 2 CONN3D2: 1 2", ElementsText(visitor.GetElements().ConstGet()));
  EXPECT_EQ("{\"JOINTS\": [1, 2]}", SetsText(visitor.GetSets().ConstGetMap()));
}

TEST(inp_LevelVisitors, RigidSurfacesBelongIntoParts)
{
  std::string const keyword = "*RIGID SURFACE, TYPE=SEGMENTS, NAME=R\nSTART, 0., 0.\n";
  cow_List<inp_Keyword> list =
    DeckKeywords("*NODE\n1\n" + keyword + "*INSTANCE, NAME=I\n" + keyword);
  inp_AssemblySurfaceVisitor visitor(inpM_SetMap(), inpM_SetMap(), {}, inp_CoordMap(),
                                     inpM_SurfaceMap());
  visitor.VisitList(list);
  ASSERT_EQ(1, visitor.GetErrorList().Length());
  EXPECT_TRUE(visitor.GetErrorList().ConstGet(0).View().ends_with(
    "line 3: There should not be any Analytical Surfaces at the assembly level."));
}

#include "ElementDeck.h"
#include "LevelDeck.h"
#include "inp_NodeNumbers.h"

#include <gtest/gtest.h>

namespace
{

// A part of one spring; keywords of an instance and of the assembly go where they belong.
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

TEST(inp_AssyLevelElemVisitor, ListsNoMoreElementsThanThoseOfParts)
{
  std::string rows, listed;
  for (int i = 1; i <= 1001; ++i)
  {
    rows += std::to_string(i) + ", ARM-1.1\n";
    listed += (i == 1 ? "" : i < 1000 ? ", " : "") + (i < 1000 ? std::to_string(i) : "");
  }
  LevelDeck const deck(Deck("", "*ELEMENT, TYPE=SPRINGA\n" + rows));
  EXPECT_EQ(Error(c_firstLine + 1, "Too few nodes for element(s) of type \"SPRINGA\":\n" + listed),
            deck.messages);
  EXPECT_EQ(1001, deck.elements->GetElements().ConstGet().Size());
}

TEST(inp_AssyLevelElemVisitor, ReadsTheSameAloneAndWithinTheWalkOverTheAssembly)
{
  LevelDeck deck(Deck("", "*NODE\n7, 0., 0., 0.\n"
                          "*ELEMENT, TYPE=SPRINGA, ELSET=S\n1, ARM-1.1, ALL.ARM-1.2, 7\n2, 8, 7\n"
                          "*ELSET, ELSET=T, INTERNAL\n2, S\n"));
  std::string const tooMany = "Too many nodes for element(s) of type \"SPRINGA\":\n1";
  std::string const missing = "Connectivity item 8 is an undefined assembly level node.";
  EXPECT_EQ(std::to_string(c_firstLine + 3) + " warning: " + tooMany + "\n" +
              Error(c_firstLine + 3, missing),
            deck.messages);
  inpM_BaseSetMap const& sets = deck.elements->GetSets().ConstGetMap();
  EXPECT_EQ("{\"S\": [1], \"T\": [1]}", SetsText(sets));
  EXPECT_TRUE(sets.ConstGet("T").IsPicked());
  EXPECT_EQ("1 SPRINGA: 2 3", ElementsText(deck.elements->GetElements().ConstGet()));

  inp_AssyLevelElemVisitor alone;
  alone.VisitList(deck.list);
  inp_NodeNumbers numbers(deck.nodes->GetCoordMap());
  alone.PutNumbers(numbers);
  EXPECT_EQ("1 SPRINGA: 2 3", ElementsText(alone.GetElements().ConstGet()));
  EXPECT_EQ(deck.messages, MessagesText(alone, deck.list.ConstGet(0).fileName));
}

// Instances that share the nodes of a part, one with nodes of its own, one with a level below, one without.
TEST(inp_NodeNumbers, AreThoseOfTheWholeNumbering)
{
  inp_CoordMap part, coords;
  for (int const label : {3, 4, 5, 900, 999999999})
    part.Insert(label, inp_Coord());
  inp_CoordMap other = part;
  other.Insert(1, inp_Coord());
  inp_CoordMap nested = part;
  nested.Insert("BELOW", other);
  coords.Insert(70, inp_Coord());
  coords.Insert(7, inp_Coord());
  for (auto const& [name, nodes] : {std::pair<char const*, inp_CoordMap>{"D", part},
                                    {"A", part},
                                    {"B", other},
                                    {"C", nested},
                                    {"AA", inp_CoordMap()}})
    coords.Insert(name, nodes);
  inp_NodeNumbers numbers(coords);
  inp_CoordMap numbered = coords;
  inpM_IdMap const ids = numbered.Renumber(1, false);
  for (char const* name : {"D", "", "A", "AA", "B", "C", "D"})
  {
    inpM_IdMap const& expected = *name == '\0' ? ids : ids.ConstGet(name);
    EXPECT_TRUE(numbers.HasInstance(name));
    for (int const label : {0, 1, 3, 4, 5, 7, 8, 70, 900, 999999999})
    {
      int number = -1;
      EXPECT_EQ(expected.IsMember(label), numbers.Find(name, label, number)) << name << label;
      EXPECT_EQ(expected.IsMember(label) ? expected.ConstGet(label) : -1, number) << name << label;
    }
  }
  int number = 0;
  EXPECT_FALSE(numbers.HasInstance("E") || numbers.Find("E", 3, number));
}

TEST(inp_LevelVisitors, RigidSurfacesBelongIntoParts)
{
  std::string const keyword = "*RIGID SURFACE, TYPE=SEGMENTS, NAME=R\nSTART, 0., 0.\n";
  cow_List<inp_Keyword> list =
    DeckKeywords("*NODE\n1\n" + keyword + "*INSTANCE, NAME=I\n" + keyword);
  inp_AssemblySurfaceVisitor visitor(inp_LevelMaps{}, inp_PartMaps{});
  visitor.VisitList(list);
  EXPECT_EQ(Error(3, "There should not be any Analytical Surfaces at the assembly level."),
            MessagesText(visitor, list.ConstGet(0).fileName));
}

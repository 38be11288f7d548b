#include "DebugOutput.h"
#include "Lists.h"
#include "MeshDeck.h"
#include "inp_SetVisitor.h"

#include <span>
#include <sstream>

namespace
{

inpM_SetHandle SetOf(std::vector<int> const& ids, bool unsorted = false)
{
  return CreateSet(ListOf(ids), false, unsorted);
}

/// An assembly with the instances I and "J K": sets A and B of I, F of PART-1-1, and T of its own.
MeshDeckSetting Assembly()
{
  MeshDeckSetting setting;
  setting.scope = "";
  setting.instances = {"PART-1-1", "I", "\"J K\""};
  setting.sets.InsertNestedSet("I", "A", SetOf({1, 2}));
  setting.sets.InsertNestedSet("I", "B", SetOf({9, 3, 9}, true));
  setting.sets.InsertNestedSet("PART-1-1", "F", SetOf({8}));
  inpM_SetHandle own = SetOf({70});
  own.Get()->Add("I", SetOf({5})->ConstGetOwnIds());
  setting.sets.InsertSet("T", own);
  return setting;
}

/// Holds each case against the sets that a deck makes in one scope, and the messages.
void ExpectSets(std::span<DeckCase const> cases, MeshDeckSetting const& setting = {})
{
  for (DeckCase const& c : cases)
  {
    MeshDeck const deck(c.deck, setting);
    EXPECT_EQ(deck.nsets, c.made) << c.what << ": " << c.deck;
    EXPECT_EQ(deck.messages, c.messages) << c.what << ": " << c.deck;
  }
}

} // namespace

TEST(inp_SetVisitor, PartRowsHoldIdsAndNamesOfSets)
{
  DeckCase const cases[] = {
    {"ids and names in one row", "*NSET, NSET=A\n3, 1\n*NSET, NSET=B\n7, a , 2\n",
     "{\"A\": [1, 3], \"B\": [1, 2, 3, 7]}", ""},
    {"unsorted keeps order and repeats",
     "*NSET, NSET=A, UNSORTED\n3, 1, 3\n*NSET, NSET=B, UNSORTED\n"
     "7, A, 2, A\n",
     "{\"A\": [3, 1, 3], \"B\": [7, 3, 1, 3, 2, 3, 1, 3]}", ""},
    {"what is bad is told once, what is good counts",
     "*NSET, NSET=A\n1, NONE, 2.5\n1234567890, 1e3, NONE, +4, , 999999999\nLATER\n*NSET, "
     "NSET=LATER\n",
     "{\"A\": [1, 4, 999999999], \"LATER\": []}",
     "1 error: Invalid data:\n2.5, 1234567890, 1E3\n"
     "1 error: The following sets specified do not exist. Sets should be defined before they are "
     "used:\nNONE, LATER\n"},
    {"a set that names itself", "*NSET, NSET=A\nA, 1\n*NSET, NSET=A\nA, 2\n", "{\"A\": [1, 2]}",
     "1 error: The following sets specified do not exist. Sets should be defined before they are "
     "used:\nA\n"},
    {"an unsorted set that names itself",
     "*NSET, NSET=A, UNSORTED\n2, 1\n*NSET, NSET=A, UNSORTED\nA\n", "{\"A\": [2, 1, 2, 1]}", ""},
  };
  ExpectSets(cases);
}

TEST(inp_SetVisitor, ALaterKeywordExtendsTheSet)
{
  struct
  {
    std::string what, first, second, members;
  } const cases[] = {
    {"sorted", "", "", "[1, 2, 3, 5]"},
    {"unsorted", ", UNSORTED", ", UNSORTED", "[3, 1, 5, 2, 3]"},
    {"unsorted turns sorted", ", UNSORTED", "", "[1, 2, 3, 5]"},
    {"sorted stays so", "", ", UNSORTED", "[1, 2, 3, 5]"},
  };
  for (auto const& c : cases)
  {
    MeshDeck const deck("*NSET, NSET=A, INTERNAL" + c.first + "\n3, 1\n*NSET, NSET=A" + c.second +
                        "\n5, 2, 3\n");
    EXPECT_EQ(deck.nsets, "{\"A\": " + c.members + "}") << c.what;
    EXPECT_TRUE(deck.Visitor().GetSets().ConstGetNestedSet("P", "A").IsPicked()) << c.what;
  }
}

TEST(inp_SetVisitor, WithSetsFromTheStartNamesAreSearchedInTheWholeModel)
{
  MeshDeckSetting setting = Assembly();
  setting.scope = "P";
  MeshDeck const deck("*NODE, NSET=MINE\n1\n2, 4.\n5\n"
                      "*NSET, NSET=X\nT, A, F, MINE\n"
                      "*NFILL, NSET=Y\nA, T, 1\n"
                      "*NCOPY, OLD SET=F, CHANGE NUMBER=1, POLE, NEW SET=Z\n",
                      setting);
  EXPECT_EQ(
    deck.nsets,
    "{\"MINE\": [1, 2, 5], \"X\": {\"\": [1, 2, 5, 8, 70], \"I\": [5]}, \"Y\": [1, 2, 70]}");
  EXPECT_EQ(
    deck.messages,
    "7 warning: Node sets A and T have different number of nodes - 2 and 1. Only 1 nodes will be "
    "used.\n"
    "7 error: Node set T entered under an *NFILL definition contains non-existent nodes. \n");
}

TEST(inp_SetVisitor, NamesOfSets)
{
  std::string const eighty(80, 'N');
  std::pair<std::string, std::string> const cases[] = {
    {eighty, ""},
    {eighty + "N", "Set name  \"" + eighty + "N\" cannot be more than 80 characters."},
    {"7", "Invalid set name \"7\"."},
    {"\"5 A\"", ""},
  };
  for (auto const& [name, message] : cases)
  {
    MeshDeck const deck("*NODE\n1\n*NSET, NSET=" + name + "\n1\n");
    EXPECT_EQ(deck.messages, message.empty() ? "" : "3 error: " + message + "\n");
    EXPECT_EQ(deck.nsets, message.empty() ? "{\"" + name + "\": [1]}" : "{}");
  }
}

TEST(inp_SetVisitor, GeneratedRanges)
{
  DeckCase const cases[] = {
    {"unsorted", "*NSET, NSET=A, GENERATE, UNSORTED\n9, 1, -4\n1, 2, 0\n",
     "{\"A\": [9, 5, 1, 1, 2]}", ""},
    {"bad rows are left out",
     "*NSET, NSET=A, GENERATE\n10, 1\n1, 10, 2\n5\n0, 4\n1, 9999999999\n2.5, 4\nA, 4\n7, 7, 3\n",
     "{\"A\": [7]}",
     "1 error: Increment of 1 cannot be used to step from 10 to 1 on *NSET keyword.\n"
     "1 error: Increment of 2 cannot be used to step from 1 to 10 on *NSET keyword.\n"
     "1 error: There are fewer than 2 items on a data line for which a generation sequence (start "
     "id, end id, optional increment number) is expected.  The keyword in question is related to "
     "*NSET.  Please check input data.\n"
     "1 error: The range from 0 to 4 on *NSET is not within 1 to 999999999. It is left out.\n"
     "1 error: Invalid data:\n9999999999, 2.5, A\n"},
    {"more than can be held", "*NSET, NSET=A, GENERATE, UNSORTED\n1, 999999999\n3, 4\n",
     "{\"A\": [3, 4]}",
     "1 error: The range from 1 to 999999999 with a step of 1 on *NSET holds more ids than a set "
     "can. It is left out.\n"},
  };
  ExpectSets(cases);
  MeshDeck const twice("*NSET, NSET=A, UNSORTED\n5\n*NSET, NSET=A, GENERATE, UNSORTED\n3, 1, -1\n");
  EXPECT_EQ(twice.nsets, "{\"A\": [5, 3, 2, 1]}");
}

TEST(inp_SetVisitor, AssemblyRowsReachIntoInstances)
{
  DeckCase const cases[] = {
    {"own ids and ids of instances", "*NSET, NSET=X\n7, I.4, i.3 , \"J K\".2, I.9\n",
     "\"X\": {\"\": [7], \"\"J K\"\": [2], \"I\": [3, 4, 9]}", ""},
    {"order and repeats of an instance", "*NSET, NSET=X, UNSORTED\nI.B, I.1, I.A, I.A\n",
     "\"X\": {\"I\": [9, 3, 9, 1, 1, 2, 1, 2]}", ""},
    {"ids and sets in turn, at each level",
     "*NSET, NSET=X, UNSORTED\n8, T, 7, I.A, 8\nI.9, T, I.8, 6\n",
     "\"X\": {\"\": [8, 70, 7, 8, 70, 6], \"I\": [5, 1, 2, 9, 5, 8]}", ""},
    {"a second keyword begins anew",
     "*NSET, NSET=X\nI.A, I.3, 4, I.NONE\n*NSET, NSET=Y, UNSORTED\n.3, 4, I.A, F\n",
     "\"X\": {\"\": [4], \"I\": [1, 2, 3]}, \"Y\": {\"\": [4], \"I\": [1, 2], \"PART-1-1\": [8]}",
     "1 error: The following sets/ids do not exist:\nI.NONE\n3 error: The following sets/ids do "
     "not "
     "exist:\n.3\n"},
    {"a set of the assembly with all its levels", "*NSET, NSET=U\nT, 3\n",
     "\"U\": {\"\": [3, 70], \"I\": [5]}", ""},
    {"a plain name that only the instance of a flat deck knows", "*NSET, NSET=X\nF\n",
     "\"X\": {\"PART-1-1\": [8]}", ""},
    {"INSTANCE stands before each field", "*NSET, NSET=X, INSTANCE=I\n5, A, , 7\n",
     "\"X\": {\"I\": [1, 2, 5, 7]}", ""},
    {"ranges", "*NSET, NSET=X, GENERATE\n1, 5, 2\nI.3, I.4\n",
     "\"X\": {\"\": [1, 3, 5], \"I\": [3, 4]}", ""},
    {"what does not exist",
     "*NSET, NSET=X\nNONE, I.NONE, Q.1, 1.5, I.1.2, I., .5, I.1234567890, 12345678901, I.2X, I.6\n",
     "\"X\": {\"I\": [6]}",
     "1 error: The following sets/ids do not exist:\nNONE, I.NONE, Q.1, 1.5, I.1.2, I., .5, "
     "I.1234567890, 12345678901, I.2X\n"},
    {"ranges that are none",
     "*NSET, NSET=X, GENERATE\n5\n, 7\nI.1, 4\nI.1, \"J K\".4\nQ.1, Q.4\nI.A, I.4\nI.1, I.9, 0.5\n"
     "I.0, I.4\n2, 3\n",
     "\"X\": [2, 3]",
     "1 error: Not enough data provided to generate the *NSET: 5\n"
     "1 error: Not enough data provided to generate the *NSET: , 7\n"
     "1 error: The start and end id instance names must match when generating assembly *NSET ids: "
     "I.1, 4\n"
     "1 error: The start and end id instance names must match when generating assembly *NSET ids: "
     "I.1, \"J K\".4\n"
     "1 error: The range from 0 to 4 on *NSET is not within 1 to 999999999. It is left out.\n"
     "1 error: Invalid data:\n0.5\n"
     "1 error: The following sets/ids do not exist:\nQ.1, Q.4, I.A\n"},
  };
  for (auto const& c : cases)
  {
    MeshDeck const deck(c.deck, Assembly());
    EXPECT_EQ(deck.nsets, "{\"T\": {\"\": [70], \"I\": [5]}, " + c.made + "}") << c.what;
    EXPECT_EQ(deck.messages, c.messages) << c.what;
  }
}

TEST(inp_SetVisitor, TheInstanceParameterIsReplacedByScopedNames)
{
  MeshDeck const deck("*NSET, NSET=X, INSTANCE=I\n5, , A\n7\n", Assembly());
  EXPECT_EQ(KeywordText(deck.Keyword(0)), "nset nset=X: I.5||I.A / I.7");
  // A field that would grow beyond a cell names nothing.
  std::string const name = "I" + std::string(140, 'N');
  MeshDeck const huge("*NSET, NSET=X, INSTANCE=" + name + "\n" + std::string(140, 'Z') + ", 3\n",
                      Assembly());
  EXPECT_EQ(KeywordText(huge.Keyword(0)), "nset nset=X: |" + name + ".3");
}

TEST(inp_SetVisitor, PassesThroughTheAssemblysNameInAScope)
{
  class Restart : public inp_SetVisitor
  {
  public:
    explicit Restart(MeshDeckSetting const& setting) : inp_SetVisitor(setting.sets)
    {
      m_assemblyName = "Assembly-1";
      setInstanceNames(cow_List<cow_String>(cow_String("I")));
    }
    cow_String KeywordName() const override { return "NSET"; }
    void VisitNset(inp_Keyword& keyword) override
    {
      AddAssySet(keyword, "X", ReadAssemblyIdsAndSetNames(sets, keyword, false), false);
    }
  };
  cow_List<inp_Keyword> list =
    DeckKeywords("*NSET, NSET=X\nASSEMBLY-1.I.A, assembly-1.I.7, OTHER.I.8, ASSEMBLY-1.T.I.1\n");
  Restart walk(Assembly());
  walk.VisitList(list);
  EXPECT_EQ(SetText(walk.GetSets().ConstGetSet("X")), "{\"I\": [1, 2, 7]}");
  EXPECT_NE(walk.Errors().Find("do not exist:\nOTHER.I.8, ASSEMBLY-1.T.I.1\n"),
            walk.Errors().Length());
}

// Each keyword may make a set sixteen times as large as the one above: ten would fill any memory.
TEST(inp_SetVisitor, WhatCannotBeHeldIsRefused)
{
  std::string const extend = "*NSET, NSET=A, UNSORTED\nA,A,A,A,A,A,A,A,A,A,A,A,A,A,A,A\n";
  std::string const range = "*NSET, NSET=A, GENERATE, UNSORTED\n1, 300\n";
  std::string const refused =
    " error: The following sets hold more ids than can be added. They are left out:\n";
  struct
  {
    char const* what;
    std::string deck;
    std::string messages;
  } const cases[] = {
    {"a set that names itself", "*NSET, NSET=A, UNSORTED\n7\n" + extend + extend + extend + extend,
     "7" + refused + "A\n9" + refused + "A\n"},
    {"ranges of many keywords", range + range + range + range,
     "7 error: The range from 1 to 300 with a step of 1 on *NSET holds more ids than a set can. It "
     "is left out.\n"},
    {"a sorted set that is small for its ids",
     "*NSET, NSET=R, GENERATE\n1, 9000\n*NSET, NSET=A, UNSORTED\n3, R, 1, R\n",
     "3" + refused + "R\n"},
  };
  for (char const* scope : {"P", ""})
  {
    MeshDeckSetting setting;
    setting.scope = scope;
    setting.mostBytes = 4000;
    for (auto const& c : cases)
    {
      MeshDeck const deck(c.deck, setting);
      EXPECT_EQ(deck.messages, c.messages) << c.what;
      inpM_BaseSet const& set = deck.Visitor().GetSets().ConstGetNestedSet(scope, "A");
      EXPECT_LE(set.CountIds(), 1000u) << c.what;
      EXPECT_GE(set.CountIds(), 2u) << c.what;
    }
  }
}

TEST(inp_SetVisitor, NodesOfElementSets)
{
  MeshDeckSetting part;
  inp_MapInt2Element elements;
  int const nodes[] = {4, 5, 6, 4, 7, 0};
  elements.Insert(1, inp_Element("S3", 3, nodes, 3, 0, 0));
  elements.Insert(2, inp_Element("S3", 3, nodes + 3, 3, 0, 0));
  part.elements.Insert("P", elements);
  part.elementSets.InsertNestedSet("P", "E", SetOf({1, 2, 3}));
  DeckCase const ofPart[] = {
    {"", "*NSET, NSET=N, ELSET=E\n", "{\"N\": [4, 5, 6, 7]}", ""},
    {"", "*NSET, NSET=N\n1\n*NSET, NSET=N, ELSET=E\n", "{\"N\": [1, 4, 5, 6, 7]}", ""},
    {"", "*NSET, NSET=N, ELSET=NONE\n", "{}", "1 error: Element set NONE does not exist.\n"},
    {"", "*NSET, NSET=N, ELSET=E, GENERATE\n", "{}",
     "1 error: The ELSET and GENERATE parameters are mutually exclusive. \n"},
    {"", "*NSET, NSET=N, ELSET=E, UNSORTED\n", "{}",
     "1 error: The UNSORTED parameter cannot be used with the ELSET parameter. \n"},
  };
  ExpectSets(ofPart, part);

  MeshDeckSetting assembly;
  assembly.scope = "";
  assembly.instances = {"I", "OLD"};
  assembly.imported = {"OLD"};
  assembly.elements.Insert("I", elements);
  assembly.elements.Insert(elements);
  assembly.elementSets.InsertNestedSet("I", "E", SetOf({2, 9}));
  inpM_SetHandle const own = SetOf({1, 8});
  assembly.elementSets.InsertSet("OWN", own);
  auto const reaching = [&](char const* name, char const* instance, std::vector<int> const& ids)
  {
    inpM_SetHandle set = SetOf({1});
    set.Get()->Add(instance, SetOf(ids)->ConstGetOwnIds());
    assembly.elementSets.InsertSet(name, set);
  };
  reaching("R", "I", {2});
  reaching("GAP", "I", {2, 8, 9});
  reaching("LOST", "Q", {1});
  reaching("RUN", "OLD", {1});
  DeckCase const ofAssembly[] = {
    {"", "*NSET, NSET=N, ELSET=I.E\n", "{\"N\": {\"I\": [4, 7]}}", ""},
    {"", "*NSET, NSET=N, ELSET=R\n", "{\"N\": {\"\": [4, 5, 6], \"I\": [4, 7]}}", ""},
    {"", "*NSET, NSET=N, ELSET=OWN\n", "{\"N\": [4, 5, 6]}",
     "1 error: The following elements from elset OWN are not found at assembly level:\n8\n"},
    {"", "*NSET, NSET=N, ELSET=GAP\n", "{\"N\": {\"\": [4, 5, 6], \"I\": [4, 7]}}",
     "1 error: The following elements from elset GAP are not found at part instance I:\n8, 9\n"},
    {"", "*NSET, NSET=N, ELSET=LOST\n", "{\"N\": [4, 5, 6]}",
     "1 error: Part instance Q in elset LOST items has not been found.\n"},
    {"", "*NSET, NSET=N, ELSET=RUN\n", "{}",
     "1 error: *NSET,ELSET is not supported for imported instances; instances name = OLD\n"},
    {"", "*NSET, NSET=N, ELSET=I.NONE\n", "{}", "1 error: Element set I.NONE does not exist.\n"},
  };
  ExpectSets(ofAssembly, assembly);
}

TEST(inp_SetVisitor, ParticleGeneratorsBeginEmptySets)
{
  MeshDeck const deck("*NSET, NSET=A\n1\n*PARTICLE GENERATOR MIXTURE\nA, B, 4\nC, A\n");
  EXPECT_EQ(deck.nsets, "{\"A\": [1], \"B\": [], \"C\": []}");
  EXPECT_EQ(deck.messages, "3 error: The following sets already exist:\n    A, A\n");
  EXPECT_TRUE(deck.Visitor().GetSets().ConstGetNestedSet("P", "B").IsUnsorted());
}

TEST(inp_SetVisitor, DebugPrintsTellWhereASetGoes)
{
  DebugOutput const lines(2);
  MeshDeck("*NODE, NSET=A\n1\n*NSET, NSET=A\n2\n");
  MeshDeck("*NODE, NSET=B\n1\n*NODE, NSET=B\n2\n", Assembly());
  std::string adding;
  std::istringstream all(lines.Text());
  for (std::string line; std::getline(all, line);)
    adding += line.starts_with("AddSet") ? line + "\n" : "";
  EXPECT_EQ(adding, "AddSet: Adding new set A in part/instance P\n"
                    "AddSet: Adding set A to existing set in part/instance P\n"
                    "AddSet: Adding new set B in assembly\n"
                    "AddSet: Adding set B to existing assembly set\n");
}

// A deck may extend one set, or name sets that do not exist, as often as it has lines.
TEST(inp_SetVisitor, TakesAnyNumberOfSmallKeywordsAndUnknownNames)
{
  constexpr int count = 40000;
  std::string grown;
  std::string unknown = "*NSET, NSET=U\n";
  std::string names;
  for (int i = 1; i <= 2 * count; ++i)
  {
    std::string const name = "NAME" + std::to_string(i % count);
    grown += i <= count ? "*NSET, NSET=ALL\n" + std::to_string(1000 * i) + "\n" : "";
    unknown += name + (i % 12 == 0 ? "\n" : ",");
    names += i <= count ? (i > 1 ? ", " : "") + name : "";
  }
  MeshDeck const sets(grown + unknown + "\n");
  EXPECT_EQ(sets.Visitor().GetSets().ConstGetNestedSet("P", "ALL").ConstGetIds().Length(), count);
  EXPECT_EQ(sets.messages, std::to_string(2 * count + 1) +
                             " error: The following sets specified do not exist. Sets should be "
                             "defined before they are used:\n" +
                             names + "\n");
}

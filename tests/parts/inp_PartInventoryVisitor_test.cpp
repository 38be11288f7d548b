#include "inp_PartInventoryVisitor.h"

#include "CapturingSink.h"
#include "DeckKeywords.h"
#include "inpM_SortedSet.h"
#include "inp_KeywordEnm.h"
#include "inp_OrganizerVisitor.h"
#include "inp_PartMessages.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

/// Fills the maps of parts and instances with the elements and element sets that a deck's keywords
/// list: the mesh itself is of no interest here.
class MapFiller : public inp_Visitor
{
public:
  void DefaultAction(inp_Keyword&) override {}
  void VisitElement(inp_Keyword& keyword) override
  {
    inp_MapInt2Element ofLevel;
    auto& levels = Maps().elements;
    if (levels.IsMember(MeshScope()))
      ofLevel = levels.ConstGet(MeshScope());
    for (int i = 0; i < keyword.data.Rows(); ++i)
      ofLevel.Insert(keyword.data.AsInt(i, 0),
                     inp_Element(keyword.GetParameterAsString("type", ""), 0, nullptr, 0, 0, 0));
    levels.Insert(MeshScope(), ofLevel);
  }
  void VisitElset(inp_Keyword& keyword) override
  {
    inpM_OmiSet ids;
    for (int i = 0; i < keyword.data.Rows(); ++i)
      for (int j = 0; j < keyword.data.Cols(i); ++j)
        ids.Insert(keyword.data.AsInt(i, j));
    Maps().elsets.InsertNestedSet(MeshScope(), keyword.GetParameterAsString("elset", ""),
                                  inpM_SortedSet(ids));
  }

  inp_PartMaps parts;
  inp_LevelMaps assembly;

private:
  inp_LevelMaps& Maps() { return IsInPart() ? parts : assembly; }
};

/// All that is said of a deck, a line each: the keyword's line and the words.
std::string Inventory(std::string const& deck)
{
  cow_List<inp_Keyword> list = DeckKeywords(deck);
  CapturingSink sink;
  inp_OrganizerVisitor organizer(true);
  organizer.VisitListAndReport(list);
  list = organizer.Keywords();
  MapFiller maps;
  maps.VisitList(list);
  inp_PartInventoryVisitor visitor(maps.parts, maps.assembly);
  visitor.VisitList(list);
  visitor.CheckViolations();
  visitor.CheckOutOfPlace(list);
  visitor.Report();
  std::string lines;
  for (wip_Message const& message : sink.Messages())
  {
    EXPECT_FALSE(message.isWarning);
    EXPECT_EQ(wip_error, message.level);
    lines += std::to_string(message.text.Origin()->line) + " " + message.text.CStr() + "\n";
  }
  return lines;
}

template <int Places, class... Arguments>
std::string At(int line, atr_MessageRow<Places> const& row, Arguments const&... arguments)
{
  return std::to_string(line) + " " + atr_Say(row, arguments...).CStr() + "\n";
}

struct Case
{
  char const* what;
  std::string deck, messages;
};

template <std::size_t Size>
void Check(Case const (&cases)[Size])
{
  for (Case const& c : cases)
    EXPECT_EQ(c.messages, Inventory(c.deck)) << c.what;
}

/// A deck of one part P, and an assembly A with its instance I.
std::string Deck(std::string const& inPart, std::string const& inInstance,
                 std::string const& inAssembly)
{
  return "*PART, NAME=P\n" + inPart + "*END PART\n*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n" +
         inInstance + "*END INSTANCE\n" + inAssembly + "*END ASSEMBLY\n";
}

std::string Part(std::string const& contents)
{
  return "*PART, NAME=P\n" + contents + "*END PART\n";
}

} // namespace

TEST(inp_PartInventoryVisitor, APartHoldsOneKindOfThing)
{
  std::string const surface = "*SURFACE, TYPE=CYLINDER, NAME=S\n";
  std::string const body = "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=S\n";
  Case const cases[] = {
    {"a mass beside a surface is no matter", Part("*ELEMENT, TYPE=MASS\n1\n" + surface + body), ""},
    {"nor is any other neutral type",
     Part("*ELEMENT, TYPE=ROTARYI\n1\n*ELEMENT, TYPE=HEATCAP\n2\n*ELEMENT, TYPE=SPRING1\n3\n"
          "*ELEMENT, TYPE=SPRING2\n4\n*ELEMENT, TYPE=SPRINGA\n5\n*ELEMENT, TYPE=R3D4\n6\n"),
     ""},
    {"all rigid types",
     Part("*ELEMENT, TYPE=R3D4\n1\n*ELEMENT, TYPE=R2D2\n2\n"
          "*ELEMENT, TYPE=RAX2\n3\n*ELEMENT, TYPE=RB3D2\n4\n"),
     ""},
    {"all deformable",
     Part("*ELEMENT, TYPE=C3D8\n1\n*ELEMENT, TYPE=SPRING3\n2\n"
          "*ELEMENT, TYPE=MASS2\n3\n*ELEMENT, TYPE=DASHPOT1\n4\n"),
     ""},
    {"rigid and deformable", Part("*ELEMENT, TYPE=R3D4\n1\n*ELEMENT, TYPE=C3D8\n2\n"),
     At(1, inp_msgPartCombinesKinds, "P")},
    {"deformable and a surface", Part("*ELEMENT, TYPE=C3D8\n1\n" + surface + body),
     At(1, inp_msgPartCombinesKinds, "P")},
    {"rigid and a surface", Part("*ELEMENT, TYPE=RB2D2\n1\n" + surface + body),
     At(1, inp_msgPartCombinesKinds, "P")},
    {"a surface of elements is none of these",
     Part("*ELEMENT, TYPE=C3D8\n1\n*SURFACE, TYPE=ELEMENT, NAME=S\n*SURFACE, NAME=T\n"), ""},
    {"two surfaces",
     Part(surface + body +
          "*SURFACE, TYPE=SEGMENTS, NAME=T\n"
          "*RIGID BODY, REF NODE=2, ANALYTICAL SURFACE=T\n"),
     At(1, inp_msgPartHasManySurfaces, "P")},
    {"parts in the order of their names",
     "*PART, NAME=Q\n*ELEMENT, TYPE=R3D4\n1\n*ELEMENT, TYPE=S4\n2\n*END PART\n" +
       Part("*ELEMENT, TYPE=R3D4\n1\n*ELEMENT, TYPE=S4\n2\n"),
     At(7, inp_msgPartCombinesKinds, "P") + At(1, inp_msgPartCombinesKinds, "Q")},
  };
  Check(cases);
}

TEST(inp_PartInventoryVisitor, ARigidBodyTakesAllOfItsPartOrNothing)
{
  std::string const ten =
    "*ELEMENT, TYPE=C3D8\n1\n2\n3\n4\n5\n6\n7\n8\n9\n*ELSET, ELSET=E\n1, 2, 3, 4, 5, 6, 7, 8, 9\n";
  std::string const body = "*RIGID BODY, REF NODE=1, ELSET=E\n";
  Case const cases[] = {
    {"all", Part(ten + body), ""},
    {"but one", Part(ten + "*ELEMENT, TYPE=C3D8\n10\n" + body),
     At(16, inp_msgPartRigidBodyIncomplete, "P")},
    {"but one that is a spring", Part(ten + "*ELEMENT, TYPE=SPRING1\n10\n" + body), ""},
    {"a set of as many labels is not looked into",
     Part("*ELEMENT, TYPE=S4\n1\n2\n*ELSET, ELSET=E\n2, 3\n" + body), ""},
    {"an unknown set holds none", Part("*ELEMENT, TYPE=S4\n1\n" + body),
     At(4, inp_msgRigidBodyElsetNotInPart, "E", "P") + At(4, inp_msgPartRigidBodyIncomplete, "P")},
    {"a body of the assembly on a part that has one",
     Part(ten + body) +
       "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n*RIGID BODY, ELSET=I.E\n"
       "*RIGID BODY, REF NODE=A.I.1\n*RIGID BODY, REF NODE=1\n*RIGID BODY, ELSET=J.E\n"
       "*END ASSEMBLY\n",
     At(19, inp_msgRigidBodyOfRigidPart, "P") + At(20, inp_msgRigidBodyOfRigidPart, "P")},
  };
  Check(cases);
}

TEST(inp_PartInventoryVisitor, ASurfaceAndItsRigidBodyStandAtOneLevel)
{
  std::string const define = "*SURFACE, TYPE=REVOLUTION, NAME=S\n";
  std::string const refer = "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=S\n";
  std::string const referScoped = "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=I.S\n";
  Case const cases[] = {
    {"both in the part", Deck(define + refer, "", ""), ""},
    {"body above surface", Deck(refer + define, "", ""), ""},
    {"both in the instance", Deck("", refer + define, ""), ""},
    {"in the part, body in the assembly", Deck(define, "", referScoped), ""},
    {"in the instance, body in the assembly", Deck("", define, referScoped), ""},
    {"with the assembly's name in front",
     Deck(define, "", "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=A.I.S\n"), ""},
    {"surface in the instance, body in the part", Deck(refer, define, ""),
     At(2, inp_msgPartSurfaceUndefined, "S", "P") +
       At(6, inp_msgSurfaceOnOtherLevel, "S", "P", "I")},
    {"surface in the part, body in the instance", Deck(define, refer, ""),
     At(6, inp_msgSurfaceOnOtherLevel, "S", "P", "I")},
    {"a body of the assembly, where the instance defines the surface again, which is refused",
     Deck(define, define, referScoped), ""},
    {"both in the instance, beside a body of the part", Deck(refer, define + refer, ""),
     At(2, inp_msgPartSurfaceUndefined, "S", "P")},
    {"an unknown instance", Deck(define + refer, "", "*RIGID BODY, ANALYTICAL SURFACE=J.S\n"),
     At(8, inp_msgAssemblySurfaceUndefined, "S", "J")},
    {"surfaces behind an instance are the assembly's again", Deck("", define + refer, define),
     At(8, inp_msgAnalyticalSurfaceInAssembly, "S")},
    {"names in quotes may hold periods",
     Deck("*SURFACE, TYPE=USER, NAME=\"S.1\"\n", "", "*RIGID BODY, ANALYTICAL SURFACE=I.\"S.1\"\n"),
     ""},
  };
  Check(cases);
}

TEST(inp_PartInventoryVisitor, ARigidSurfaceStandsOnSlidingElements)
{
  std::string const option = "*RIGID SURFACE, TYPE=SEGMENTS, ELSET=E\n";
  std::string const irs = "*ELEMENT, TYPE=IRS21\n1\n2\n*ELSET, ELSET=E\n1, 2\n";
  Case const cases[] = {
    {"in a part", Part(irs + option), ""},
    {"on a drag chain, some of the set",
     Part("*ELEMENT, TYPE=DRAG3D\n1\n*ELEMENT, TYPE=B31\n2\n"
          "*ELSET, ELSET=E\n1, 2\n" +
          option),
     ""},
    {"in an instance", Deck("", irs + option, ""), ""},
    {"without a type", Part(irs + "*RIGID SURFACE, ELSET=E\n"),
     At(7, inp_msgRigidSurfaceRequirements)},
    {"without a set", Part(irs + "*RIGID SURFACE, TYPE=SEGMENTS\n"),
     At(7, inp_msgRigidSurfaceRequirements)},
    {"the part's set is not the instance's", Deck(irs, option, ""),
     At(10, inp_msgRigidSurfaceElsetNotInInstance, "E", "I")},
    {"each unknown element",
     Part(irs + "*ELSET, ELSET=F\n2, 8, 9\n*RIGID SURFACE, TYPE=A, ELSET=F\n"),
     At(9, inp_msgRigidSurfaceElementUnknown, 8, "P") +
       At(9, inp_msgRigidSurfaceElementUnknown, 9, "P")},
  };
  Check(cases);
}

TEST(inp_PartInventoryVisitor, LevelsAreClosed)
{
  Case const cases[] = {
    {"all closed", Deck("", "", ""), ""},
    {"a part", Part("") + "*PART, NAME=Q\n*NODE\n",
     At(3, inp_msgClosingKeywordMissing, "PART", "*END PART")},
    {"assembly and instance",
     "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I\n*END INSTANCE\n*INSTANCE, NAME=J\n",
     At(1, inp_msgClosingKeywordMissing, "ASSEMBLY", "*END ASSEMBLY") +
       At(4, inp_msgClosingKeywordMissing, "INSTANCE", "*END INSTANCE")},
    {"a step is closed by the end of the deck", "*STEP, NAME=S\n*STATIC\n", ""},
  };
  Check(cases);
}

TEST(inp_PartInventoryVisitor, CountsByTheOpeningKeywordsName)
{
  inp_PartInventoryVisitor visitor({}, {});
  cow_Btree<cow_String, int> counts;
  inp_PartInventoryVisitor::KeywordPair const steps = {inp_kwStep, inp_kwEndStep, "STEP",
                                                       "*END STEP"};
  visitor.CountNodeElementKeywords(
    DeckKeywords("*STEP, NAME=S\n*END STEP\n*STEP, NAME=T\n*STEP, NAME=U\n"), steps, counts);
  EXPECT_EQ(2, *counts.ConstFind("step"));
  visitor.CountNodeElementKeywords(DeckKeywords("*END STEP\n*END STEP\n"), steps, counts);
  EXPECT_EQ(0, *counts.ConstFind("step"));
  ASSERT_EQ(1, visitor.GetErrorList().Length());
  EXPECT_EQ(3, visitor.GetErrorList().ConstGet(0).Origin()->line);
}

// Every rule broken, each once, in the words of the rule.
TEST(inp_PartInventoryVisitor, ReportsEveryBrokenRuleOnce)
{
  std::string const deck =
    "*PART, NAME=MIXED\n*ELEMENT, TYPE=R3D4\n1\n*ELEMENT, TYPE=C3D8\n2\n"
    "*ELSET, ELSET=SOME\n1\n*RIGID BODY, REF NODE=1, ELSET=SOME\n"
    "*RIGID SURFACE, TYPE=SEGMENTS, ELSET=NONE\n*ELSET, ELSET=EMPTY\n"
    "*RIGID SURFACE, TYPE=SEGMENTS, ELSET=EMPTY\n*ELSET, ELSET=STRANGE\n77\n"
    "*RIGID SURFACE, TYPE=SEGMENTS, ELSET=STRANGE\n"
    "*RIGID SURFACE, TYPE=SEGMENTS, ELSET=SOME\n*END PART\n"
    "*PART, NAME=TWO\n*SURFACE, TYPE=SEGMENTS, NAME=S1\n"
    "*SURFACE, TYPE=SEGMENTS, NAME=S2\n*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=S2\n"
    "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=S3\n*SURFACE, TYPE=SEGMENTS, NAME=S4\n"
    "*END PART\n"
    "*ASSEMBLY, NAME=A\n"
    "*INSTANCE, NAME=M-1, PART=MIXED\n*RIGID SURFACE, TYPE=SEGMENTS, ELSET=NONE\n"
    "*END INSTANCE\n"
    "*INSTANCE, NAME=T-1, PART=TWO\n*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=S4\n"
    "*SURFACE, TYPE=SEGMENTS, NAME=S5\n*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=S6\n"
    "*SURFACE, TYPE=SEGMENTS, NAME=S7\n*END INSTANCE\n"
    "*RIGID BODY, REF NODE=M-1.1\n*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=OWN\n"
    "*SURFACE, TYPE=SEGMENTS, NAME=OWN\n"
    "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=T-1.S7\n"
    "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=T-1.S7\n"
    "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=T-1.S8\n";
  char const* const messages =
    "8 If a part contains a rigid body definition, all elements in the part must belong to the "
    "element set given on the *RIGID BODY option. A part-level rigid body that refers to only "
    "some of the elements within the part is not allowed. This rule is violated by part MIXED\n"
    "9 The elset NONE, which is referenced by a *RIGID SURFACE, is not defined in part: MIXED\n"
    "11 The elset EMPTY, which is referenced by a *RIGID SURFACE, is empty. This is detected "
    "during the processing of part MIXED\n"
    "14 Unknown element ID 77 is detected in the elset referenced by the *RIGID SURFACE option. "
    "This takes place during the processing of part MIXED\n"
    "15 *RIGID SURFACE can be used in a parts & assembly input file only if all the following "
    "requirements are met: (a) Both the TYPE and ELSET parameters are used; (b) The ELSET "
    "contains IRS or drag chain elements; and (c) The *RIGID SURFACE option is inside the same "
    "part/instance as the elements in the ELSET.\n"
    "26 The elset NONE, which is referenced by a *RIGID SURFACE, is not defined in instance: M-1\n"
    "34 A part that contains a rigid body definition (part: MIXED) cannot be referenced by an "
    "assembly-level rigid body definition. \n"
    "35 An assembly level rigid body definition references an assembly level analytical rigid "
    "surface (OWN). Analytical rigid surfaces must be defined at the part or part instance "
    "levels.\n"
    "36 Analytical rigid surface OWN was defined at the assembly level. Analytical rigid surfaces "
    "can only be defined within a part or part instance.\n"
    "1 Rigid elements, deformable elements, connectors and analytical surfaces cannot be combined "
    "within a part. This rule is violated by part MIXED\n"
    "17 Only one analytical surface is allowed per part. This rule is violated by part TWO\n"
    "37 Analytical rigid surface S7 of part instance T-1 is referenced by multiple rigid bodies. "
    "A part instance may contain only one analytical rigid surface and it is permitted to be "
    "referenced by only one rigid body definition.\n"
    "18 *SURFACE keyword defining analytical rigid surface S1 of part TWO is not associated with "
    "a rigid body definition.\n"
    "21 Analytical rigid surface S3 of part TWO is not defined, but is referenced by a rigid body "
    "definition.\n"
    "29 If a rigid body definition is defined at the part or part instance level, the "
    "corresponding analytical rigid surface definition must be defined at the same level. "
    "Analytical rigid surface S4 violates this rule with regard to part TWO and part instance "
    "T-1.\n"
    "30 *SURFACE keyword defining analytical rigid surface S5 of part instance T-1 is not "
    "associated with a rigid body definition.\n"
    "31 Analytical rigid surface S6 of part instance T-1 is not defined, but is referenced by a "
    "rigid body definition.\n"
    "39 Analytical rigid surface S8 of part instance T-1 is not defined, but is referenced by a "
    "rigid body definition at the assembly level.\n"
    "24 The following *ASSEMBLY keywords are missing their closing *END ASSEMBLY keywords\n";
  EXPECT_EQ(messages, Inventory(deck));
}

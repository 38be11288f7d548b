#include "ExpansionCases.h"
#include "inp_KeywordEnm.h"
#include "inp_ParserExceptions.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace
{

std::string Assembly(std::string const& error, std::string const& start = "The following option")
{
  return start +
         " is currently not supported in a model defined in terms of an assembly of part "
         "instances: " +
         error + "\n";
}

/// "1, 2, ..., count", with a comma at the end if wanted.
std::string Row(int count, char const* end = "")
{
  std::string row;
  for (int i = 1; i <= count; ++i)
    row += (i > 1 ? "," : "") + std::to_string(i);
  return row + end + "\n";
}

std::string PartsOf(inp_KeywordExpansionVisitor const& visitor)
{
  std::string text;
  for (char const* instance : {"I", "J", "K", "\"I 1\""})
    if (visitor.ConstGetInstancePartNames().IsMember(instance))
      text += std::string(instance) + ":" +
              visitor.ConstGetInstancePartNames().ConstGet(instance).CStr() + " ";
  return text;
}

} // namespace

TEST(inp_ExpansionHandlers, DemandParameters)
{
  struct
  {
    std::string message;
    std::vector<std::string> decks;
  } const cases[] = {
    {"The NAME parameter is required.", {"*AMPLITUDE", "*MATERIAL", "*MATRIX INPUT", "*SURFACE"}},
    {"The TYPE parameter is required.", {"*CAPACITY"}},
    {"The PROPERTY parameter is required.", {"*SPOT WELD, REFERENCE NODE SET=N"}},
    {"The INTERACTIONNAME parameter is required.", {"*FASTENER, PROPERTY=P"}},
    {"The REFERENCENODESET parameter is required.", {"*SPOT WELD, PROPERTY=P"}},
    {"The ELSET parameter is required.", {"*HEATCAP"}},
    {"The NSET parameter is required.", {"*TRANSFORM"}},
    {"The EVOLUTION parameter is required.", {"*MANIFEST"}},
    {"Parameter UPDATE is a required parameter.", {"*IMPORT"}},
    {"Parameter REFNODE is a required parameter.",
     {"*COUPLING, CONSTRAINT NAME=C, SURFACE=S", "*RIGID BODY, ELSET=E"}},
    {"Parameter ORIENTATION requires a value.",
     {"*COUPLING, CONSTRAINT NAME=C, REF NODE=1, SURFACE=S, ORIENTATION"}},
    {"Parameter REFNODE requires a value.", {"*RIGID BODY, ELSET=E, REF NODE"}},
    {"Parameter ANALYTICALSURFACE requires a value.",
     {"*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE"}},
    {"At least one of the parameters - analytical surface, elset, pinnset, tienset is required.",
     {"*RIGID BODY, REF NODE=1"}},
    {"",
     {"*CO-SIMULATION CONTROLS, NAME",
      "*COUPLING, CONSTRAINT NAME=C, REF NODE=1, SURFACE=S, ORIENTATION=O",
      "*FASTENER, PROPERTY=P, INTERACTION NAME=I", "*SPOT WELD, PROPERTY=P, REFERENCE NODE SET=N",
      "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=S", "*RIGID BODY, REF NODE=N, ELSET=E",
      "*RIGID BODY, REF NODE=N, PIN NSET=P", "*RIGID BODY, REF NODE=N, TIE NSET=T",
      "*IMPORT, UPDATE=NO"}},
  };
  for (auto const& c : cases)
    for (std::string const& deck : c.decks)
    {
      DeckExpansion const expansion(deck + "\n");
      EXPECT_EQ(expansion.messages, c.message.empty() ? "" : "1 error: " + c.message + "\n")
        << deck;
      EXPECT_FALSE(expansion.list.ConstGet(0).Is(inp_kwUndefined)) << deck;
    }
}

TEST(inp_ExpansionHandlers, BlankWhatIsUselessWithoutAName)
{
  ExpansionCase const cases[] = {
    {"sets", "*NSET, GENERATE\n1, 2\n*ELSET\n1\n*NSET, NSET=A\n",
     "undefined keyword\nundefined keyword\nnset nset=A\n",
     "1 error: The NSET parameter is required.\n3 error: The ELSET parameter is required.\n"},
    {"names without a value", "*NSET, NSET\n1\n*ELSET, ELSET=\n1\n*MATERIAL, NAME\n",
     "undefined keyword\nundefined keyword\nmaterial name\n",
     "1 error: Parameter NSET requires a value.\n3 error: Parameter ELSET requires a value.\n"
     "5 error: Parameter NAME requires a value.\n"},
  };
  CheckExpansions(cases);
  // The reader takes these away; a list may come from elsewhere.
  inp_KeywordExpansionVisitor visitor;
  inp_Keyword include(inp_kwInclude);
  include.parameters.Insert("password", inp_Item::Text("p"));
  visitor.Visit(include);
  EXPECT_TRUE(include.Is(inp_kwUndefined));
  ASSERT_EQ(visitor.GetErrorList().Length(), 1);
  EXPECT_EQ(MessageText("error", visitor.GetErrorList()[0], ""),
            "0 error: The \"input\" parameter is required.");
}

TEST(inp_ExpansionHandlers, CutLongRows)
{
  std::string const eight = "1|2|3|4|5|6|7|8";
  std::string const sixteen = eight + "|9|10|11|12|13|14|15|16";
  struct
  {
    std::string keyword, rows, data;
    int cut;
  } const cases[] = {
    {"nset, nset=A", Row(16) + Row(16, ",") + "a b\n", sixteen + " / " + sixteen + "| / a b", 0},
    {"nset, nset=A", Row(17) + Row(16, ",") + "\na b, \"c,d\"\n",
     sixteen + " / " + sixteen + " /  / AB|\"c,d\"", 16},
    {"nset, nset=A", Row(16, ",,"), sixteen, 16},
    {"elset, elset=A", Row(18), sixteen, 16},
    {"timepoints, name=A", Row(8, ", "), eight + "|", 0},
    {"timepoints, name=A", Row(9), eight, 8},
  };
  for (auto const& c : cases)
  {
    DeckExpansion const expansion("*" + c.keyword + "\n" + c.rows);
    std::string const heading = std::string(c.keyword).erase(c.keyword.find(','), 1);
    EXPECT_EQ(expansion.keywords, heading + ": " + c.data + "\n");
    EXPECT_EQ(expansion.messages,
              c.cut == 0
                ? ""
                : "1 warning: One or more data lines contain more than " + std::to_string(c.cut) +
                    " items (counting those after trailing commas).  The extra items are "
                    "deleted.\n")
      << c.rows;
  }
}

TEST(inp_ExpansionHandlers, RefuseWhatAnAssemblyDoesNotTakeOnceItIsKnownToBeOne)
{
  std::string const shortFiber = "Type=SHORTFIBER (used for CMOLD) is currently not supported in a "
                                 "model defined in terms of an assembly of part instances.\n";
  std::vector<std::pair<std::string, std::string>> cases{
    {"*MATRIX INPUT, NAME=N", Assembly("*MATRIX INPUT")},
    {"*USER ELEMENT, FILE=F", Assembly("*USER ELEMENT, FILE=")},
    {"*USER ELEMENT", ""},
    {"*SUBSTRUCTURE COPY", Assembly("*SUBSTRUCTURE COPY", "Option")},
    {"*PARAMETER SHAPE VARIATION, FILE=F", Assembly("*PARAMETER SHAPE VARIATION, FILE=", "Option")},
    {"*PARAMETER SHAPE VARIATION", ""},
    {"*INITIAL CONDITIONS, TYPE=RAT, FILE=F",
     Assembly("*INITIAL CONDITIONS, TYPE=RATIO, FILE=", "Option")},
    {"*INITIAL CONDITIONS, FILE=F", Assembly("*INITIAL CONDITIONS, TYPE=, FILE=", "Option")},
    {"*INITIAL CONDITIONS, TYPE=RATIO", ""},
    {"*ELASTIC, TYPE=SHORT", shortFiber},
    {"*EXPANSION, TYPE=SHORT", shortFiber},
    {"*ELASTIC, TYPE=ISO", ""},
    {"*EXPANSION", ""},
  };
  for (char const* name : {"*NMAP", "*MATRIX ASSEMBLE", "*SUBSTRUCTURE PATH"})
    cases.emplace_back(name, Assembly(name));
  for (auto const& [keyword, refusal] : cases)
  {
    std::string const deck = keyword + "\n";
    std::string const words = refusal.empty() ? "" : " error: " + refusal;
    std::string const first = refusal.empty() ? "" : "1" + words;
    EXPECT_EQ(DeckExpansion(deck).messages, "");
    EXPECT_EQ(DeckExpansion(deck + "*PART, NAME=P\n").messages, first) << "before a part";
    EXPECT_EQ(DeckExpansion(deck + "*ASSEMBLY, NAME=A\n").messages, first);
    EXPECT_EQ(DeckExpansion(deck + "*INSTANCE, INSTANCE=I\n").messages, first);
    EXPECT_EQ(DeckExpansion("*PART, NAME=P\n*END PART\n" + deck).messages,
              refusal.empty() ? "" : "3" + words)
      << "behind one";
  }
}

TEST(inp_ExpansionHandlers, RefusalsComeOutWhereTheFirstPartStands)
{
  DeckExpansion const expansion("*NMAP\n*MATERIAL\n*SUBSTRUCTURE PATH\n"
                                "*PART, NAME=P, UPDATE=MAYBE\n*SURFACE\n*NMAP\n*PART, NAME=Q\n");
  EXPECT_EQ(
    expansion.messages,
    "2 error: The NAME parameter is required.\n"
    "4 error: Illegal value \"MAYBE\" for parameter \"update\".  The value may be misspelled, "
    "obsolete, or invalid.\n"
    "1 error: " +
      Assembly("*NMAP") + "3 error: " + Assembly("*SUBSTRUCTURE PATH") +
      "5 error: The NAME parameter is required.\n"
      "6 error: " +
      Assembly("*NMAP"));
}

TEST(inp_ExpansionHandlers, Parts)
{
  ExpansionCase const cases[] = {
    {"enumerated parameters, names in upper case",
     "*PART, NAME=p a, STATE=y, UPDATE=n\n*END PART\n",
     "part name=PA, state=YES, update=NO\nendpart\n", ""},
    {"names in front of the other errors",
     "*MATERIAL\n*PART, NAME=P\n*PART, NAME=p\n*PART, NAME=Q\n*PART, NAME=Q\n",
     "material\npart name=P\npart name=P\npart name=Q\npart name=Q\n",
     "5 error: Part with the name \"Q\" has already been defined in the model.\n"
     "3 error: Part with the name \"P\" has already been defined in the model.\n"
     "1 error: The NAME parameter is required.\n"},
    {"without a name", "*PART\n*PART, NAME\n*PART, NAME=12\n*PART, NAME=\"12\"\n",
     "part\npart name\npart name=12\npart name=\"12\"\n",
     "1 fatal: Part must have a name.\n"
     "2 fatal: Part was not assigned a valid name.\n"
     "3 fatal: Part was not assigned a valid name.\n"},
    {"an end without a beginning", "*END PART, NAME=P\n*ASSEMBLY, NAME=A\n*END PART\n",
     "endpart name=P\nassembly name=A\nendpart\n",
     "1 error: Unknown parameter: name. The parameter may be misspelled, obsolete, or invalid.\n"
     "1 error: Misplaced keyword: No matching *Part keyword has been defined.\n"},
  };
  CheckExpansions(cases);
}

TEST(inp_ExpansionHandlers, Instances)
{
  struct
  {
    char const *what, *deck, *messages, *parts;
  } const cases[] = {
    {"of parts above",
     "*PART, NAME=P\n*INSTANCE, NAME=i, PART=p\n*INSTANCE, NAME=\"I 1\", PART=P\n", "",
     "I:P \"I 1\":P "},
    {"of an unknown part are kept", "*MATERIAL\n*INSTANCE, NAME=I, PART=Q\n*PART, NAME=Q\n",
     "2 error: Part with the name \"Q\" has not been defined.\n"
     "1 error: The NAME parameter is required.\n",
     "I:Q "},
    {"of one name: the later holds",
     "*PART, NAME=P\n*PART, NAME=Q\n*INSTANCE, NAME=I, PART=P\n*INSTANCE, NAME=I, PART=Q\n",
     "4 error: Instance with the name \"I\" already exists in the assembly.\n", "I:Q "},
    {"of an unknown part take no name",
     "*PART, NAME=P\n*INSTANCE, NAME=I, PART=Q\n*INSTANCE, NAME=I, PART=P\n",
     "2 error: Part with the name \"Q\" has not been defined.\n", "I:P "},
    {"without name or part",
     "*INSTANCE\n*INSTANCE, NAME=I\n*INSTANCE, PART=P\n*INSTANCE, NAME=1, PART\n",
     "1 fatal: Instance must have a name\n"
     "1 fatal: Instance must refer to a part. \n"
     "2 fatal: Instance must refer to a part. \n"
     "3 fatal: Instance must have a name\n"
     "4 fatal: Instance must have a name\n"
     "4 fatal: Instance must refer to a part. \n",
     ""},
    {"taken over from an earlier job need neither", "*INSTANCE, INSTANCE=J\n", "", ""},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.what);
    DeckExpansion const expansion(c.deck);
    EXPECT_EQ(expansion.messages, c.messages);
    EXPECT_EQ(PartsOf(expansion.visitor), c.parts);
    EXPECT_TRUE(expansion.visitor.FeatureEnhanced());
  }
}

TEST(inp_ExpansionHandlers, Assemblies)
{
  ExpansionCase const cases[] = {
    {"one", "*ASSEMBLY, NAME=a 1\n", "assembly name=A1\n", ""},
    {"without a name", "*ASSEMBLY\n", "assembly\n", "1 fatal: The NAME parameter is required.\n"},
    {"with an empty one", "*ASSEMBLY, NAME=\n", "assembly name\n",
     "1 fatal: The NAME parameter is required.\n"},
    {"with a name that is none", "*ASSEMBLY, NAME=12\n", "assembly name=12\n",
     "1 error: Invalid assembly label \"12\".\n"},
    {"a second one, in which names begin anew",
     "*PART, NAME=P\n*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*END ASSEMBLY\n"
     "*ASSEMBLY, NAME=B\n*INSTANCE, NAME=I, PART=P\n*INSTANCE, NAME=I, PART=P\n",
     "part name=P\nassembly name=A\ninstance name=I, part=P\nendassembly\nassembly name=B\n"
     "instance name=I, part=P\ninstance name=I, part=P\n",
     "7 error: Instance with the name \"I\" already exists in the assembly.\n"
     "5 error: Only one assembly can be defined in a model.\n"},
  };
  CheckExpansions(cases);
}

TEST(inp_ExpansionHandlers, Steps)
{
  ExpansionCase const cases[] = {
    {"are numbered where they have no name", "*STEP\n*END STEP\n*STEP, NAME=b\n*STEP\n",
     "step name=Step-1\nendstep\nstep name=b\nstep name=Step-3\n", ""},
    {"of one name are told apart", "*STEP, NAME=A\n*STEP, NAME=A\n*STEP, NAME=a\n*STEP, NAME=A\n",
     "step name=A\nstep name=2-Duplicate-A\nstep name=a\nstep name=4-Duplicate-A\n",
     "4 fatal: Step with the name \"A\" has already been defined.\n"
     "2 fatal: Step with the name \"A\" has already been defined.\n"},
    {"may meet a name that was made", "*STEP\n*STEP, NAME=Step-1\n",
     "step name=Step-1\nstep name=2-Duplicate-Step-1\n",
     "2 fatal: Step with the name \"Step-1\" has already been defined.\n"},
    {"are not named by a number", "*STEP, NAME=7\n*STEP, NAME=\"7\"\n*STEP, NAME=7\n",
     "step name=7\nstep name=\"7\"\nstep name=3-Duplicate-7\n",
     "1 error: Name as a label should not be pure numbers unless within quotes.\n"
     "3 error: Name as a label should not be pure numbers unless within quotes.\n"
     "3 fatal: Step with the name \"7\" has already been defined.\n"},
    {"expand their words",
     "*STEP, AMPL=R, EXTR=PARA, NLGEOM, UNSYMM=Y, SOLVER=I, CONVERT SDI=N, PERT, INC=5, DSA=N\n",
     "step amplitude=RAMP, convertsdi=NO, dsa=NO, extrapolation=PARABOLIC, inc=5, name=Step-1, "
     "nlgeom, perturbation, solver=ITERATIVE, unsymm=YES\n",
     ""},
  };
  CheckExpansions(cases);
}

TEST(inp_ExpansionHandlers, StepsGoOnFromWhereTheDriverOrARestartSays)
{
  struct
  {
    char const* what;
    std::string deck;
    char const *last, *messages;
  } const cases[] = {
    {"driver", "*STEP\n", "Step-5", ""},
    {"restart at a step", "*RESTART, READ, STEP=2, INC=1\n*STEP\n", "Step-3", ""},
    {"restart without one", "*RESTART, READ\n*STEP\n", "Step-10", ""},
    {"no reading", "*RESTART, WRITE, STEP=2, INC=x, FREQUENCY=3, TIME MARKS=Y\n*STEP\n", "Step-5",
     ""},
    {"none but integers", "*RESTART, READ, STEP=two, INC=1.5, END STEP=x\n*STEP\n", "Step-5",
     "1 error: step parameter must be an integer\n1 error: inc parameter must be an integer\n"},
    {"the largest number", "*RESTART, READ, STEP=2147483647\n*STEP\n*STEP, NAME=Step-2147483648\n",
     "2147483648-Duplicate-Step-2147483648",
     "3 fatal: Step with the name \"Step-2147483648\" has already been defined.\n"},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.what);
    DeckExpansion const expansion(c.deck,
                                  [](inp_KeywordExpansionVisitor& visitor)
                                  {
                                    visitor.SetNumberSteps(4);
                                    visitor.SetNumberRestartSteps(9);
                                  });
    EXPECT_EQ(expansion.list.Last().GetParameterAsString("name", ""), c.last);
    EXPECT_EQ(expansion.messages, c.messages);
  }
}

TEST(inp_ExpansionHandlers, TestsOfValues)
{
  std::string const range =
    "The parameter NUMBER BACKSTRESSES on the option *PLASTIC must have value "
    "larger than 0 and smaller than or equal to 10. The value specified is ";
  struct
  {
    char const* deck;
    std::string messages;
  } const cases[] = {
    {"*MATERIAL, NAME=\"1 a\"\n*MATERIAL, NAME=A1\n*MATERIAL, NAME=12\n*BOUNDARY, NAME=B\n"
     "*BOUNDARY\n*CONTACT INCLUSIONS, ALL EXTERIOR\n*CONTACT INCLUSIONS, ALL ELEMENT\n"
     "*PLASTIC, NUMBER BACKSTRESSES=1\n*PLASTIC, NUMBER BACKSTRESSES=10\n*PLASTIC\n"
     "*INITIAL CONDITIONS, TYPE=HARD, NUMBER BACKSTRESSES=3\n"
     "*PLASTIC, HARDENING=USER, PROPERTIES=2\n1, 2\n*PLASTIC, HARDENING=USER\n"
     "*PLASTIC, HARDENING=USER, PROPERTIES=0\n*PLASTIC, PROPERTIES=2\n",
     ""},
    {"*MATERIAL, NAME=1A\n",
     "1 error: The material name must be an alphanumeric string starting with an alphabet. \n"},
    {"*BOUNDARY, NAME=_B\n",
     "1 error: The boundary name must be an alphanumeric string starting with an alphabet. \n"},
    {"*MATRIX INPUT, NAME=1A\n",
     "1 error: The matrix name must be an alphanumeric string starting with an alphabet. \n"},
    {"*SURFACE, NAME=S, REF NODE=1\n",
     "1 warning: The parameter REFNODE is deprecated. It must be used on the corresponding *RIGID "
     "BODY keyword\n"},
    {"*IMPORT, UPDATE=NO, HOURGLASS=STIFFNESS\n",
     "1 warning: THE HOURGLASS PARAMETER HAS BEEN USED WITH *IMPORT. RESULTS SHOULD BE INTERPRETED "
     "WITH CAUTION.\n"},
    {"*CONTACT INCLUSIONS, ALL\n",
     "1 error: The parameter ALL EXTERIOR cannot be abbreviated to ALL.\n"},
    {"*PLASTIC, NUMBER BACKSTRESSES=0\n*PLASTIC, NUMBER BACKSTRESSES=11\n"
     "*PLASTIC, NUMBER BACKSTRESSES=2.5\n*PLASTIC, NUMBER BACKSTRESSES=two\n",
     "1 error: " + range + "0.\n2 error: " + range + "11.\n3 error: " + range +
       "2.5.\n4 error: " + range + "TWO.\n"},
    {"*INITIAL CONDITIONS, TYPE=RATIO, NUMBER BACKSTRESSES=11\n",
     "1 error: " + range +
       "11.\n1 error: The parameter NUMBER BACKSTRESSES must be used in conjunction with the "
       "parameter TYPE=HARDENING.\n"},
    {"*PLASTIC, HARDENING=US, PROPERTIES=1\n*PLASTIC, HARDENING=USER, PROPERTIES=0.5\n",
     "1 error: Required values need to be specified on the dataline.\n"
     "2 error: Required values need to be specified on the dataline.\n"},
    {"*CONFLICTS, FOO=1\n",
     "1 error: Unknown parameter: foo. The parameter may be misspelled, obsolete, or invalid.\n"
     "1 error: Keyword *Conflicts is generated by Zorvek/Lumen to highlight changes made via the "
     "Keywords Editor that conflict with changes made subsequently via the native GUI.\n"},
  };
  for (auto const& c : cases)
    EXPECT_EQ(DeckExpansion(c.deck).messages, c.messages) << c.deck;
}

TEST(inp_ExpansionHandlers, RememberWhatTheDeckUses)
{
  auto const facts = [](char const* deck)
  {
    DeckExpansion const expansion(deck);
    EXPECT_EQ(expansion.messages, "") << deck;
    inp_KeywordExpansionVisitor const& visitor = expansion.visitor;
    std::string text;
    text += visitor.FeatureEnhanced() ? " parts" : "";
    text += visitor.IsElementFileParameter() ? " elementFile" : "";
    text += visitor.IsExplicitJob() ? " explicit" : "";
    text += visitor.HasRigidSurfaceKeyword() ? " rigidSurface" : "";
    text += visitor.HasNmapBlended() ? " nmapBlended" : "";
    text += visitor.IsParameterized() ? " parameterized" : "";
    text += visitor.HasManifest() ? " manifest" : "";
    return text;
  };
  EXPECT_EQ(facts("*NODE\n*ELEMENT, TYPE=C3D8\n*DYNAMIC\n*NMAP, TYPE=RECT\n"), "");
  EXPECT_EQ(facts("*ELEMENT, FILE=F\n"), " elementFile");
  EXPECT_EQ(facts("*DYNAMIC, EXPL\n"), " explicit");
  EXPECT_EQ(facts("*RIGID SURFACE, TYPE=SEG\n"), " rigidSurface");
  EXPECT_EQ(facts("*NMAP, TYPE=BL\n"), " nmapBlended");
  EXPECT_EQ(facts("*PARAMETER\na = 1\n"), " parameterized");
  EXPECT_EQ(facts("*MANIFEST, EVOLUTION=NONE\n"), " manifest");
  EXPECT_EQ(facts("*ASSEMBLY, NAME=A\n"), " parts");
}

TEST(inp_ExpansionHandlers, GiveMeshRowsAloneTheirNumericForm)
{
  ExpansionCase const cases[] = {
    {"those of *PARAMETER stay text", "*PARAMETER, Dep Endent=x y\na = 'B c'\n",
     "parameter dependent=x y: a = 'B c'\n", ""},
    {"nodes always; the system is a word",
     "*NODE, NSET=n, SYSTEM=c\n 1, 1.5D1 , 2\n\n2,,,,1,,1e2,9,9\n",
     "node nset=N, system=C: 1|15.|2.|0.|0.|0.|0. / 0|0.|0.|0.|0.|0.|0. / 2|0.|0.|0.|1.|0.|100.\n",
     ""},
    {"elements within a part or an instance, unless a fault would not show any more",
     "*ELEMENT, TYPE=c3d4\n01, 02,\n"
     "*PART, NAME=P\n*ELEMENT\n01, 02,\n*END PART\n*ELEMENT\n01\n"
     "*INSTANCE, INSTANCE=I\n*ELEMENT\n01, x\n*END INSTANCE\n*ELEMENT\n01\n",
     "element type=C3D4: 01|02|\n"
     "part name=P\nelement: 1|2|0\nendpart\nelement: 01\n"
     "instance instance=I\nelement: 01|x\nendinstance\nelement: 01\n",
     ""},
  };
  CheckExpansions(cases);
}

TEST(inp_ExpansionHandlers, RaiseForBadNodeRowsUnlessToldToKeepThem)
{
  char const* const deck = "*MATERIAL\n*NODE\n1, 0.\nx, 1.\n*SURFACE\n";
  cow_List<inp_Keyword> keywords = DeckKeywords(deck);
  inp_KeywordExpansionVisitor visitor;
  try
  {
    visitor.VisitList(keywords);
    FAIL();
  }
  catch (nex_AtrException const& fault)
  {
    atr_String const message = fault.UserReport();
    EXPECT_EQ(message, "Node label is not an integer: X");
    ASSERT_NE(message.Origin(), nullptr);
    EXPECT_EQ(message.Origin()->code, std::string("NodeLabelNotInteger"));
    EXPECT_EQ(message.Origin()->keyword, "node");
    EXPECT_EQ(message.Origin()->line, 2);
    EXPECT_EQ(message.Origin()->file, keywords[1].fileName);
  }
  EXPECT_EQ(visitor.GetErrorList().Length(), 1) << "that of *MATERIAL";

  DeckExpansion const kept(deck, [](inp_KeywordExpansionVisitor& other)
                           { other.SetBulkConversion(false); });
  EXPECT_EQ(kept.keywords, "material\nnode: 1|0. / x|1.\nsurface\n");
  EXPECT_EQ(kept.messages, "1 error: The NAME parameter is required.\n"
                           "5 error: The NAME parameter is required.\n");
}

// Their keywords are gone from the language; the operations are there for a host that calls them.
TEST(inp_ExpansionHandlers, ServeKeywordsThatNoDeckReaches)
{
  inp_KeywordExpansionVisitor visitor;
  inp_Keyword keyword(inp_kwStatic);
  keyword.parameters.Insert("vari", inp_Item::Text("for"));
  visitor.VisitUserGasketBehavior(keyword);
  EXPECT_EQ(KeywordText(keyword), "static variable=FORCE");
  inp_Keyword part(inp_kwPart);
  part.parameters.Insert("name", inp_Item::Text("P"));
  keyword.parameters.Clear();
  visitor.VisitReactiveAcousticSurface(keyword);
  visitor.VisitSurfaceImpedance(keyword);
  EXPECT_EQ(visitor.GetErrorList().Length(), 0);
  visitor.Visit(part);
  ASSERT_EQ(visitor.GetErrorList().Length(), 2);
  EXPECT_EQ(
    visitor.GetErrorList()[0],
    "in keyword *STATIC Option will be eliminated in a future release, and is not supported "
    "in a model defined in terms of an assembly of part instances: *REACTIVE ACOUSTIC "
    "SURFACE");
  EXPECT_EQ(
    visitor.GetErrorList()[1],
    "in keyword *STATIC The following option will be eliminated in a future release, and is "
    "not supported in a model defined in terms of an assembly of part instances: *SURFACE "
    "IMPEDANCE");
}

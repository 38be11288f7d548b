#include "DeckFiles.h"
#include "ExpansionCases.h"
#include "inp_KeywordEnm.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace
{

std::string Unknown(int line, std::string const& parameter)
{
  return std::to_string(line) + " error: Unknown parameter: " + parameter +
         ". The parameter may be misspelled, obsolete, or invalid.\n";
}

std::string Illegal(int line, std::string const& value, std::string const& parameter)
{
  return std::to_string(line) + " error: Illegal value \"" + value + "\" for parameter \"" +
         parameter + "\".  The value may be misspelled, obsolete, or invalid.\n";
}

std::string Repeated(std::string const& parameter, std::string const& value)
{
  return "1 warning: Repeated parameter: " + parameter + ".  New definition of \"" + value +
         "\" overrides previous setting.\n";
}

/// What handlers use, in the open.
struct Handler : inp_KeywordExpansionVisitor
{
  using inp_KeywordExpansionVisitor::ExpandEnumData;
  using inp_KeywordExpansionVisitor::ExpandParameters;
};

/// A keyword of the rule's own kind with one parameter.
inp_Keyword KeywordWith(inp_KeywordEnm kind, cow_String const& parameter, inp_Item const& item)
{
  inp_Keyword keyword(kind);
  keyword.parameters.Insert(parameter, item);
  return keyword;
}

struct Rule
{
  char const* stem;
  inp_KeywordEnm keyword;
  bool isByHand;
};

constexpr Rule c_rules[] = {
#define INP_RULE(stem, ...) {#stem, inp_kw##stem, false},
#define INP_RULE_BY_HAND(stem, ...) {#stem, inp_kw##stem, true},
#define INP_RULE_UNREACHED(stem, ...)
#include "inp_ExpansionRules.def"
};

/// What the walk says of a keyword; what it misses beside parameters and words does not count.
std::string Objections(Rule const& rule, inp_Keyword& keyword)
{
  bool const hasMore =
    rule.isByHand || inp_ExpansionRuleOf(rule.keyword)->requirements->kind != inp_Requirement::none;
  inp_KeywordExpansionVisitor visitor;
  visitor.Visit(keyword);
  std::string objections;
  for (auto const* list :
       {&visitor.GetWarningList(), &visitor.GetErrorList(), &visitor.GetFatalErrorList()})
    for (atr_String const& message : *list)
    {
      std::string const code = message.Origin()->code;
      if (!hasMore || code == "UnknownParameter" || code == "AmbiguousParameter" ||
          code == "IllegalValue" || code == "AmbiguousValue")
        objections += " " + code;
    }
  return objections;
}

} // namespace

TEST(inp_KeywordExpansionVisitor, CompletesParameterNames)
{
  ExpansionCase const cases[] = {
    {"an abbreviation", "*ORIENTATION, NAM=O, SYS=R\n", "orientation name=O, system=RECTANGULAR\n",
     ""},
    {"of several entries the first in the order of the table",
     "*ORIENTATION, D=NODES\n*DYNAMIC, I=NO\n",
     "orientation definition=NODES\ndynamic initial=NO\n", ""},
    {"one that goes on behind the common beginning of two entries",
     "*IMPORT, ST=Y, UPDATE=N\n*IMPORT, STE=3, UPDATE=N\n",
     "import state=YES, update=NO\nimport step=3, update=NO\n", ""},
    {"a spelling that goes on behind an entry", "*ORIENTATION, NAME OF IT=O\n*ORNL, ABC=1\n",
     "orientation name=O\nornl a=1\n", ""},
    {"of entries that begin each other the longest that agrees",
     "*HYPERELASTIC, N=2, NEOHOOKEAN\n*CONNECTOR HARDENING, RATE, RATE FILTER FACTOR=1\n",
     "hyperelastic n=2, neohooke\nconnectorhardening rate, ratefilterfactor=1\n", ""},
    {"case and blanks do not count", "*Output, Mode List\n", "output modelist\n", ""},
    {"unknown ones stay as spelled", "*ORIENTATION, NAME=O, Colour = red x, SYSTEMS=S\n",
     "orientation colour=red x, name=O, system=SPHERICAL\n", Unknown(1, "colour")},
    {"a keyword without a rule knows none", "*HEADING, A\n*STEP, NAME=S\n*END STEP, B=1\n",
     "heading a\nstep name=S\nendstep b=1\n", Unknown(1, "a") + Unknown(3, "b")},
    {"an unknown one may still be enumerated", "*DFLUX, REGION TYPE=EUL\n",
     "dflux regiontype=EULERIAN\n", Unknown(1, "regiontype")},
    {"an entry that stands twice is met once by its name, and twice by what goes on behind it",
     "*DAMPING CONTROLS, VISCOUS=NONE, STRUCT=NONE\n*DAMPING CONTROLS, VISCOUSLY=NONE\n",
     "dampingcontrols structural=NONE, viscous=NONE\ndampingcontrols viscous=NONE\n",
     "2 error: Ambiguous parameter: viscously\n"},
    {"names of models with capitals are never reached", "*UNDEX CHARGE PROPERTY, HICKS\n",
     "undexchargeproperty hicks\n", Unknown(1, "hicks")},
  };
  CheckExpansions(cases);
}

TEST(inp_KeywordExpansionVisitor, ReportsAnAmbiguityEvenWhenALongerEntryWins)
{
  char const* const table[] = {"ab", "ab", "abcd", "abcde", nullptr};
  Handler handler;
  inp_Keyword keyword = KeywordWith(inp_kwStatic, "abcdef", inp_Item(true));
  handler.ExpandParameters(keyword, table);
  EXPECT_EQ(KeywordText(keyword), "static abcde");
  EXPECT_EQ(MessagesText(handler, ""), "0 error: Ambiguous parameter: abcdef\n");
}

TEST(inp_KeywordExpansionVisitor, CleansValues)
{
  ExpansionCase const cases[] = {
    {"upper case without blanks, but for quoted text",
     "*MATERIAL, NAME= Steel one \n*MATERIAL, NAME=\"Steel one\"\n*MATERIAL, NAME=a\"b c\"d e\n",
     "material name=STEELONE\nmaterial name=\"Steel one\"\nmaterial name=A\"b c\"DE\n", ""},
    {"numbers stay numbers", "*MATERIAL, NAME=M, RTOL=1.5D3\n*BOUNDARY, STEP=007\n",
     "material name=M, rtol=1500.\nboundary step=7\n", ""},
    {"file names keep their case",
     "*USER ELEMENT, FILE=My File.inp\n*IMPORT, UPDATE=NO, LIBRARY=\"My Lib\"\n*WAVE, DATA FILE=W "
     "v\n",
     "userelement file=MyFile.inp\nimport library=\"My Lib\", update=NO\nwave datafile=Wv\n", ""},
    {"so do the names of steps and of shape parameters",
     "*STEP, NAME=Load Case\n*PARAMETER SHAPE VARIATION, PARAMETER=a B\n",
     "step name=LoadCase\nparametershapevariation parameter=aB\n", ""},
    {"a value of an unknown parameter is not touched", "*DESIGN SHAPE VARIATION, PARAMETER=a B\n",
     "designshapevariation parameter=a B\n", Unknown(1, "parameter")},
  };
  CheckExpansions(cases);
}

TEST(inp_KeywordExpansionVisitor, KeepsTheCaseOfReferencesWhereDataAreNotRead)
{
  char const* const deck = "*ORIENTATION, NAME=<a B>, SYSTEM=<sys>\n*ORIENTATION, NAME=b<a>\n";
  DeckExpansion const analysis(deck);
  EXPECT_EQ(analysis.keywords, "orientation name=<AB>, system=<SYS>\norientation name=B<A>\n");
  EXPECT_EQ(analysis.messages, "");
  DeckExpansion const listing(deck, [](inp_KeywordExpansionVisitor& visitor)
                              { visitor.SetBulkDataProcess(false); });
  EXPECT_EQ(listing.keywords, "orientation name=<aB>, system=<sys>\norientation name=B<A>\n");
  EXPECT_EQ(listing.messages, "");
}

TEST(inp_KeywordExpansionVisitor, WarnsOfTwoSpellingsOfOneParameter)
{
  ExpansionCase const cases[] = {
    {"the one that the parameter map holds later counts", "*ORIENTATION, NAME=first, NA=second\n",
     "orientation name=SECOND\n", Repeated("name", "SECOND")},
    {"each repeat is one", "*STATIC, STA=1, STAB=2, STABI=3\n", "static stabilize=3\n",
     Repeated("stabilize", "2") + Repeated("stabilize", "3")},
    {"one without a value counts as TRUE", "*STATIC, STA, STAB\n", "static stabilize\n",
     Repeated("stabilize", "TRUE")},
  };
  CheckExpansions(cases);

  char const* const table[] = {"name", nullptr};
  Handler handler;
  inp_Keyword keyword = KeywordWith(inp_kwStatic, "n", inp_Item(1));
  keyword.parameters.Insert("na", inp_Item::Text(""));
  handler.ExpandParameters(keyword, table);
  EXPECT_EQ(MessagesText(handler, ""),
            "0 warning: Repeated parameter: na.  New definition overrides previous setting.\n");
}

TEST(inp_KeywordExpansionVisitor, CompletesWords)
{
  ExpansionCase const cases[] = {
    {"abbreviated, in any case, by any abbreviation of the parameter",
     "*BOUNDARY, OP=n, TYPE=vel, REGION=s\n",
     "boundary op=NEW, regiontype=SLIDING, type=VELOCITY\n", ""},
    {"exact ones, whatever begins with them",
     "*SOLID SECTION, CONTROLS=C\n*INITIAL CONDITIONS, TYPE=STRESS\n",
     "solidsection controls=C\ninitialconditions type=STRESS\n", ""},
    {"digits", "*CLOAD, SECTOR NUMBER=2\n*BOUNDARY, LOAD CASE=1\n",
     "cload sectornumber=2\nboundary loadcase=1\n", ""},
    {"no word of the table",
     "*BOUNDARY, OP=modify\n*BOUNDARY, LOAD CASE=3\n*BOUNDARY, OP=1.5\n*BOUNDARY, OP=\"MOD\"\n",
     "boundary op=MODIFY\nboundary loadcase=3\nboundary op=1.5\nboundary op=\"MOD\"\n",
     Illegal(1, "MODIFY", "op") + Illegal(2, "3", "loadcase") + Illegal(3, "1.5", "op") +
       Illegal(4, "\"MOD\"", "op")},
    {"several of them", "*ELASTIC, TYPE=SH\n*ELASTIC, TYPE=SHEA\n",
     "elastic type=SH\nelastic type=SHEAR\n",
     "1 error: Ambiguous value \"SH\" for parameter \"type\".\n"},
    {"a parameter without a value has none to complete", "*BOUNDARY, OP\n*STEP, NLGEOM, NAME=S\n",
     "boundary op\nstep name=S, nlgeom\n", ""},
    {"an empty value is no word", "*BOUNDARY, TYPE=\n", "boundary type\n", Illegal(1, "", "type")},
    {"a reference is none, unless in quotes", "*BOUNDARY, OP=<op>\n*BOUNDARY, OP=\"<op>\"\n",
     "boundary op=<OP>\nboundary op=\"<op>\"\n", Illegal(2, "\"<op>\"", "op")},
  };
  CheckExpansions(cases);
}

TEST(inp_KeywordExpansionVisitor, ASecondTableOfAParameterServesWhatTheFirstDoesNotKnow)
{
  ExpansionCase const cases[] = {
    {"first", "*CLAY HARDENING, TYPE=T\n", "clayhardening type=TENSION\n", ""},
    {"second", "*CLAY HARDENING, TYPE=OF\n", "clayhardening type=OFF\n", ""},
    {"both, the first", "*RESPONSE SPECTRUM, COMP=SRSS\n", "responsespectrum comp=SRSS\n", ""},
    {"ambiguous in the first, and so not looked for in the second",
     "*RESPONSE SPECTRUM, COMP=R\n*RESPONSE SPECTRUM, COMP=A\n",
     "responsespectrum comp=R\nresponsespectrum comp=ALGEBRAIC\n",
     "1 error: Ambiguous value \"R\" for parameter \"comp\".\n"},
    {"none, said once", "*CLAY HARDENING, TYPE=0.1\n", "clayhardening type=0.1\n",
     Illegal(1, "0.1", "type")},
    {"none, where names and numbers stand beside the words",
     "*CONTACT PAIR, ADJUST=0.1\n*CONTACT PAIR, ADJUST=N\n*CONTACT PAIR, ADJUST=near\n",
     "contactpair adjust=0.1\ncontactpair adjust=NO\ncontactpair adjust=NEAR\n", ""},
  };
  CheckExpansions(cases);
}

TEST(inp_KeywordExpansionVisitor, CountsTheWordsThatFit)
{
  char const* const table[] = {"EXPONENTIAL", "EXPLICIT", "EXP-2", "EXPLICITLY", "LINEAR", nullptr};
  struct
  {
    char const* value;
    int count;
    char const* result;
  } const cases[] = {
    {" \t ", 0, "before"},    {" \tlinear \t", 1, "LINEAR"}, {"LINEARLY", 0, "before"},
    {"EXP", 4, "EXPLICITLY"}, {"EXPLICIT", 1, "EXPLICIT"},   {"EX P", 0, "before"},
  };
  for (auto const& c : cases)
  {
    cow_String result("before");
    EXPECT_EQ(inp_KeywordExpansionVisitor::inp_ExpandEnum(result, table, c.value), c.count)
      << c.value;
    EXPECT_EQ(result, c.result) << c.value;
  }
}

TEST(inp_KeywordExpansionVisitor, CompletesWordsInDataLines)
{
  char const* const table[] = {"MASTER", "SLAVE", "SLIDING", nullptr};
  Handler handler;
  inp_Keyword keyword(inp_kwContactPair);
  for (char const* line : {"a, m a, 1", "b, sl", "c, x"})
    keyword.data.Append(line);
  for (int row = 0; row < 3; ++row)
    handler.ExpandEnumData(keyword, row, 1, table);
  EXPECT_EQ(KeywordText(keyword), "contactpair: a|MASTER|1 / b|sl / c|x");
  EXPECT_EQ(MessagesText(handler, ""),
            "0 error: Ambiguous value \"SL\" for data item under keyword \"contactpair\".\n"
            "0 error: Illegal value \"X\" for data item under keyword \"contactpair\".\n");
}

// A row of the tables that no deck can use is a fault in the table, or one that is known.
TEST(inp_KeywordExpansionVisitor, EveryParameterOfEveryRulePasses)
{
  DeckFiles files;
  files.Write("data", "1\n");
  std::string refused;
  int readers = 0; // of a file of rows
  for (Rule const& rule : c_rules)
  {
    inp_ExpansionRule const& tables = *inp_ExpansionRuleOf(rule.keyword);
    ASSERT_EQ(tables.handler, std::string("Visit") + rule.stem);
    for (char const* const* parameter = tables.parameters; *parameter != nullptr; ++parameter)
    {
      cow_String const asRead = cow_String(*parameter).ToLower().RightTrim(" ");
      inp_Item const item =
        asRead == "input" ? inp_Item::Text(files.Path("data").c_str()) : inp_Item(true);
      inp_Keyword keyword = KeywordWith(rule.keyword, asRead, item);
      std::string objections = Objections(rule, keyword);
      bool const isRead = asRead == "input" && rule.keyword != inp_kwInclude;
      readers += isRead && keyword.data.Rows() == 1 && !keyword.HasParameter(asRead);
      if (asRead != "input" && !keyword.Is(inp_kwUndefined) && !keyword.HasParameter(asRead))
        objections += " lost";
      if (!objections.empty())
        refused += std::string(rule.stem) + " " + asRead.CStr() + ":" + objections + "\n";
    }
  }
  EXPECT_EQ(readers, 29);
  // "all" has an entry of its own, with a blank. The others have capitals, which the reader takes away.
  EXPECT_EQ(refused, "ContactInclusions all: lost\n"
                     "ConwepChargeProperty randerspehrson: UnknownParameter\n"
                     "ConwepChargeProperty bannister: UnknownParameter\n"
                     "UndexChargeProperty huntergeers: UnknownParameter\n"
                     "UndexChargeProperty hicks: UnknownParameter\n");
}

TEST(inp_KeywordExpansionVisitor, EveryWordOfEveryRulePasses)
{
  std::string refused;
  for (Rule const& rule : c_rules)
  {
    char const* const* run = inp_ExpansionRuleOf(rule.keyword)->values;
    for (; *run != nullptr; run = inp_NextValues(run))
      for (char const* const* word = run + 1; *word != nullptr; ++word)
      {
        inp_Keyword keyword = KeywordWith(rule.keyword, *run, inp_Item(cow_String(*word)));
        std::string objections = Objections(rule, keyword);
        if (keyword.GetParameterAsString(*run, "") != *word)
          objections += " lost";
        if (!objections.empty())
          refused += std::string(rule.stem) + " " + *run + "=" + *word + ":" + objections + "\n";
      }
  }
  // Parameters that their own rule does not list.
  EXPECT_EQ(refused,
            "ConnectorFriction extrapolation=CONSTANT: lost\n" // "extrapolationflow" takes it
            "ConnectorFriction extrapolation=LINEAR: lost\n"
            "ConnectorFriction flow=ASSOCIATIVE: UnknownParameter\n"
            "ConnectorFriction flow=NONASSOCIATIVE: UnknownParameter\n"
            "Dflux regiontype=EULERIAN: UnknownParameter\n"
            "Dflux regiontype=LAGRANGIAN: UnknownParameter\n"
            "Dflux regiontype=SLIDING: UnknownParameter\n"
            "MatrixGenerate transformation=YES: UnknownParameter\n"
            "MatrixGenerate transformation=NO: UnknownParameter\n"
            "PMLCoefficient type=LINEAR: UnknownParameter\n"
            "PMLCoefficient type=QUADRATIC: UnknownParameter\n");
}

// What the tables call required is missed when it is absent, by handlers with a body too, and
// nothing else is.
TEST(inp_KeywordExpansionVisitor, MissesWhatTheTablesRequire)
{
  auto const misses = [](inp_Keyword keyword)
  {
    inp_KeywordExpansionVisitor visitor;
    visitor.Visit(keyword);
    int count = 0;
    for (auto const* list : {&visitor.GetErrorList(), &visitor.GetFatalErrorList()})
      for (atr_String const& message : *list)
      {
        std::string const code = message.Origin()->code;
        count += code.find("Required") != code.npos || code.ends_with("Missing") ||
                 code == "RigidBodyEmpty";
      }
    return count;
  };
  for (Rule const& rule : c_rules)
  {
    inp_Keyword all(rule.keyword);
    std::vector<cow_String> required;
    for (inp_Requirement const* row = inp_ExpansionRuleOf(rule.keyword)->requirements;
         row->kind != inp_Requirement::none; ++row)
      for (char const* name : row->words)
        if (name != nullptr && row->kind <= inp_Requirement::required && !all.HasParameter(name))
        {
          all.parameters.Insert(name, inp_Item::Text("A"));
          required.push_back(name);
          if (row->kind == inp_Requirement::demandedOne)
            break;
        }
    EXPECT_EQ(misses(all), 0) << rule.stem;
    for (cow_String const& name : required)
    {
      inp_Keyword incomplete = all;
      incomplete.parameters.Remove(name);
      EXPECT_EQ(misses(incomplete), 1) << rule.stem << " without " << name;
    }
  }
}

TEST(inp_KeywordExpansionVisitor, RefusesTheNameOfTheEndOfTheFile)
{
  DeckExpansion const expansion("*EOF, A=1\n1, 2\n*NODE\n");
  EXPECT_EQ(expansion.keywords, "undefined keyword\nnode\n");
  EXPECT_EQ(expansion.messages, "1 error: The keyword is reserved and cannot be used in a deck.\n");
}

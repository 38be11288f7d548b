#include "inp_InputFile.h"

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CapturingSink.h"
#include "DeckFiles.h"
#include "DeckKeywords.h"
#include "KeywordText.h"
#include "VRXBasException.h"
#include "eli_eostream.h"
#include "inp_KeywordEnm.h"
#include "inp_ParserExceptions.h"
#include "omi_Singleton.h"
#include "utl_CommandLine.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// One deck through the first three stages, with what they say.
struct Staged
{
  explicit Staged(std::string const& deck,
                  std::vector<std::pair<std::string, std::string>> const& others = {})
  {
    files.Write("deck.inp", deck);
    for (auto const& [name, text] : others)
      files.Write(name, text);
    input.includePath = files.Folder().c_str();
    input.Parse(files.Path("deck.inp").c_str());
    input.ExpandKeywords();
    input.setModelParameters();
  }

  std::string Keywords() const
  {
    std::string text;
    for (inp_Keyword const& keyword : input.keywords)
      text += KeywordText(keyword) + "\n";
    return text;
  }

  std::string Printed() const
  {
    std::ostringstream text;
    {
      eli_eostream stream(text); // writes at its end
      input.Print(stream);
    }
    return text.str();
  }

  std::vector<std::string> Messages() const
  {
    std::vector<std::string> lines;
    for (std::string const& line : sink.Lines())
      lines.push_back(files.WithoutFolder(line));
    return lines;
  }

  DeckFiles files;
  CapturingSink sink;
  inp_InputFile input;
};

} // namespace

TEST(inp_InputFile, ReadsCompletesAndPrintsADeck)
{
  Staged const run("** a comment\n"
                   "*HEADING\nA title\n"
                   "*PARAMETER\na = 1\n"
                   "*NODE, NSE=all nodes\n1, 0., 1.5D1\n"
                   "*PART, NAME=p\n*END PART\n"
                   "*ASSEMBLY, NAME=a\n*INSTANCE, NAME=i, PA=p\n*END INSTANCE\n*END ASSEMBLY\n"
                   "*MANIFEST, EVOLUTION=NONE\n"
                   "*STEP, NLGEOM\n*STATIC, STAB=0.5\n1., 1.\n*END STEP\n");
  EXPECT_THAT(run.Messages(), IsEmpty());
  EXPECT_EQ(run.Printed(),
            "*heading\nATITLE\n"
            "*parameter\nA=1\n"
            "*node, nset=ALLNODES\n1, 0., 15., 0., 0., 0., 0.\n"
            "*part, name=P\n*endpart\n"
            "*assembly, name=A\n*instance, name=I, part=P\n*endinstance\n*endassembly\n"
            "*manifest, evolution=NONE\n"
            "*step, nlgeom, name=Step-1\n*static, stabilize=0.5\n1., 1.\n*endstep\n");
  EXPECT_EQ(run.files.WithoutFolder(run.input.inputFileName.CStr()), "deck.inp");
  EXPECT_TRUE(run.input.FeatureEnhanced());
  EXPECT_TRUE(run.input.parameterized);
  EXPECT_TRUE(run.input.hasManifest);
  EXPECT_TRUE(run.input.modelParameters.isFeatureEnhanced());
  EXPECT_EQ(run.input.instancePartNames.ConstGet("I"), "P");
}

TEST(inp_InputFile, AnEmptyDeckIsAFlatModelOfNothing)
{
  Staged const run("");
  EXPECT_THAT(run.Messages(), IsEmpty());
  EXPECT_EQ(run.Keywords(), "");
  EXPECT_TRUE(run.input.partConvertible);
  EXPECT_FALSE(run.input.FeatureEnhanced() || run.input.parameterized || run.input.hasManifest ||
               run.input.IsRestartJob());
}

TEST(inp_InputFile, StagesReportOneBehindTheOther)
{
  Staged const run("*BAD\n*INCLUDE, INPUT=gone\n*MATERIAL, NAM=A, NAM=B\n*PART\n"
                   "*IMPORT, HOURGLASS\n*SURFACE\n*NSET\n*DYNAMIC, EXPLICIT\n"
                   "*RIGID SURFACE, TYPE=SEGMENTS\n");
  EXPECT_EQ(run.Keywords(), "material name=B\npart\nimport hourglass\nsurface\n"
                            "dynamic explicit\nrigidsurface type=SEGMENTS\n")
    << "without *NSET, which is rejected";
  EXPECT_THAT(
    run.Messages(),
    ElementsAre(
      "fatal0: Include file \"gone\" does not exist.",
      "error: Unknown keyword \"bad\". The keyword may be misspelled, obsolete, or invalid.",
      "warning: in keyword *MATERIAL, file \"deck.inp\", line 3: Repeated parameter: nam.  New "
      "definition of \"B\" overrides previous setting.",
      "warning: in keyword *IMPORT, file \"deck.inp\", line 5: THE HOURGLASS PARAMETER HAS "
      "BEEN USED WITH *IMPORT. RESULTS SHOULD BE INTERPRETED WITH CAUTION.",
      "error: in keyword *IMPORT, file \"deck.inp\", line 5: Parameter UPDATE is a required "
      "parameter.",
      "error: in keyword *SURFACE, file \"deck.inp\", line 6: The NAME parameter is required.",
      "error: in keyword *NSET, file \"deck.inp\", line 7: The NSET parameter is required.",
      "fatal2: in keyword *PART, file \"deck.inp\", line 4: Part must have a name.",
      "error: the *RIGID SURFACE option is not supported in Zorvek/Explicit; use the *SURFACE "
      "option in conjunction with the *RIGID BODY option instead."));
}

TEST(inp_InputFile, TellsWhetherAModelCanBeDividedIntoParts)
{
  struct
  {
    char const* deck;
    bool convertible;
  } const cases[] = {
    {"*RIGID SURFACE\n*DYNAMIC\n", true},
    {"*ELEMENT, FILE=F\n", false},
    {"*NMAP, TYPE=BLENDED\n", false},
    {"*RIGID SURFACE\n*DYNAMIC, EXPLICIT\n", false},
    {"*ELEMENT, FILE=F\n*PART, NAME=P\n", true},
  };
  for (auto const& c : cases)
    EXPECT_EQ(Staged(c.deck).input.partConvertible, c.convertible) << c.deck;

  inp_InputFile found; // what an earlier deck has found out holds
  found.partConvertible = false;
  found.ExpandKeywords();
  EXPECT_FALSE(found.partConvertible);
}

TEST(inp_InputFile, TakesWhatTheDriverGivesAndCountsStepsOnFromEarlierJobs)
{
  inp_InputFile input;
  EXPECT_FALSE(input.InOdbConverter() || input.GetIncludePath().Length() > 0);
  input.inOdbConverter = true;
  input.includePath = "there";
  EXPECT_TRUE(input.InOdbConverter() && input.GetIncludePath() == "there");
  input.numberSteps = 3;
  input.numberRestartSteps = 7;
  input.keywords = DeckKeywords("*STEP\n*RESTART, READ\n*STEP\n");
  input.ExpandKeywords();
  EXPECT_EQ(input.keywords[0].GetParameterAsString("name", ""), "Step-4");
  EXPECT_EQ(input.keywords[2].GetParameterAsString("name", ""), "Step-8");
}

TEST(inp_InputFile, TellsOfFiles)
{
  Staged const run("1, a row\n*INCLUDE, INPUT=inc\n*MPC, INPUT=data\n*MPC, INPUT=no/gone\n",
                   {{"data", "1\n"}, {"inc", "*NSET, NSET=A\n"}});
  EXPECT_EQ(run.Keywords(), "nset nset=A\nmpc: 1\nmpc\n");
  EXPECT_THAT(run.input.readerFacts.includedFiles, ElementsAre(cow_String("inc")));
  EXPECT_EQ(run.input.readerFacts.skippedDataLines, 1);
  EXPECT_EQ(run.input.readerFacts.firstSkippedLine, 1);
  EXPECT_THAT(run.input.expansionFacts.includedFiles, ElementsAre(cow_String("data")));
  EXPECT_THAT(run.input.expansionFacts.missingIncludeFiles, ElementsAre(cow_String("gone")));
}

TEST(inp_InputFile, ReportsWhatItHasFoundBeforeBadNodesEndIt)
{
  DeckFiles files;
  files.Write("deck.inp", "*SURFACE\n*NODE\n1, x\n*SURFACE\n");
  CapturingSink sink;
  inp_InputFile input;
  input.Parse(files.Path("deck.inp").c_str());
  EXPECT_THROW(input.ExpandKeywords(), nex_AtrException);
  ASSERT_EQ(sink.Lines().size(), 1u);
  EXPECT_THAT(sink.Lines()[0], testing::HasSubstr("line 1: The NAME parameter is required."));
}

// Three names each, all of them twice: a search through the names met so far would take a minute.
TEST(inp_InputFile, ManyNamesAreNoBurden)
{
  constexpr int count = 10000;
  std::string deck;
  for (int i = 0; i < count; ++i)
  {
    std::string const number = std::to_string(i);
    deck += "*PART, NAME=P" + number + "\n*END PART\n*INSTANCE, NAME=I" + number + ", PART=P" +
            number + "\n*END INSTANCE\n*STEP, NAME=S" + number + "\n*END STEP\n";
  }
  deck += deck;
  Staged const run(deck);
  EXPECT_EQ(run.sink.Messages().size(), 3u * count);
  EXPECT_EQ(run.input.keywords.Last().keyword, inp_kwEndStep);
  EXPECT_EQ(run.input.keywords[12 * count - 2].GetParameterAsString("name", ""),
            "20000-Duplicate-S9999");
}

TEST(inp_InputFile, TakesSpacesOutOfALine)
{
  struct
  {
    std::string text, result;
  } const cases[] = {
    {" a\tB \r", "aB"},
    {"a \"b c\" d", "a\"b c\"d"},
    {"a b\n c", "ab\n"},
    {"\"a \n b\"", "\"a \n"},
    {std::string(256, 'x') + "   \t", std::string(256, 'x')},
    {std::string(255, 'x') + "\nyyy", std::string(255, 'x') + "\n"},
  };
  for (auto const& c : cases)
    EXPECT_EQ(inp_InputFile::TakeOutSpacesOutsideQuoted(c.text.c_str()), c.result.c_str());
  EXPECT_THROW(inp_InputFile::TakeOutSpacesOutsideQuoted(std::string(257, 'x').c_str()),
               VRXBasAssertException);
}

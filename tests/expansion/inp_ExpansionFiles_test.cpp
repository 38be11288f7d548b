#include "DeckExpansion.h"
#include "DeckFiles.h"
#include "inp_KeywordEnm.h"
#include "inp_ParserExceptions.h"
#include "omi_Singleton.h"
#include "utl_CommandLine.h"

#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

DeckExpansion::Prepare In(DeckFiles const& files, bool expandManifest = false)
{
  return [&files, expandManifest](inp_KeywordExpansionVisitor& visitor)
  {
    visitor.SetIncludePath(files.Folder().c_str());
    visitor.SetExpandManifest(expandManifest);
  };
}

std::string Joined(cow_List<cow_String> const& names)
{
  std::string text;
  for (cow_String const& name : names)
    text += std::string(name.View()) + ";";
  return text;
}

/// What *MPC, INPUT=data becomes, without its name.
std::string RowsOf(std::string const& data, std::string const& messages = "")
{
  DeckFiles files;
  files.Write("data", data);
  DeckExpansion const expansion("*MPC, INPUT=data\n", In(files));
  EXPECT_EQ(expansion.messages, messages) << data.substr(0, 300);
  return expansion.keywords.substr(3);
}

std::string HoldsKeyword(char const* keyword)
{
  return std::string(
           "1 error: Data file \"data\" contains a keyword definition. It must only contain "
           "the data required under keyword \"") +
         keyword + "\". You may use the *INCLUDE keyword instead.\n";
}

} // namespace

TEST(inp_ExpansionFiles, DataFilesFollowTheRowsOfTheDeck)
{
  DeckFiles files;
  files.Write("a", "2, b c\n");
  files.Write("sub/a b", "3\n");
  DeckExpansion const expansion("*MPC, INP=a\n1, x\n*EQUATION, INPUT=\"sub/a b\"\n"
                                "*NODE, INPUT=\"sub/a b\"\n",
                                In(files));
  EXPECT_EQ(expansion.keywords, "mpc: 1|X / 2|BC\nequation: 3\nnode: 3|0.|0.|0.|0.|0.|0.\n");
  EXPECT_EQ(expansion.messages, "");
  EXPECT_EQ(Joined(expansion.visitor.GetIncludedFiles()), "a;sub/a b;sub/a b;");
  EXPECT_EQ(Joined(expansion.visitor.GetMissingIncludedFiles()), "");
}

TEST(inp_ExpansionFiles, ReadsRowsOfDataFiles)
{
  struct
  {
    char const* what;
    std::string data;
    char const* rows;
  } const cases[] = {
    {"without case and blanks, but for quoted text", " 1 , b c ,\"D, e\"f \"g\n2,\n",
     ": 1|BC|\"D, e\"F\"g / 2|\n"},
    {"no line feed at the end", "1\n2", ": 1 / 2\n"},
    {"carriage returns", "1,a\r\n2\r\n", ": 1|A / 2\n"},
    {"comments go", "** first\n1\n**\n2\n** last, no line feed", ": 1 / 2\n"},
    {"a lone asterisk is a row", "1\n*\n", ": 1 / *\n"},
    {"an asterisk behind blanks too", " *NODE\n", ": *NODE\n"},
    {"empty", "", "\n"},
    {"blank rows stay between others", "1,a\n\n \t\n2,b\n", ": 1|A /  /  / 2|B\n"},
    {"an empty last line is the end", "1,a b\n\n", ": 1|AB\n"},
    {"blank rows at the end go", "1,a b,\"c d\"\n\n \n", ": 1|AB|\"c d\"\n"},
    {"also above a comment", "1,a b\n\n** end\n", ": 1|AB\n"},
    {"cells without text are no blank row", "1,a b\n,,\n", ": 1|AB / ||\n"},
    {"none but blank rows", "\n\n\n", "\n"},
  };
  for (auto const& c : cases)
    EXPECT_EQ(RowsOf(c.data), c.rows) << c.what;
  DeckFiles files;
  files.Write("data", "\n\n");
  EXPECT_EQ(DeckExpansion("*MPC, INPUT=data\na b\n\n", In(files)).keywords, "mpc: AB\n")
    << "rows of the deck that end blank go too";
}

TEST(inp_ExpansionFiles, DataFilesHoldNoKeywords)
{
  EXPECT_EQ(RowsOf("1\n*NODE\n2\n", HoldsKeyword("MPC")), ": 1\n");
  EXPECT_EQ(RowsOf("*1\n", HoldsKeyword("MPC")), "\n");
  EXPECT_EQ(RowsOf("1,a b\n\n\n* x\n", HoldsKeyword("MPC")), ": 1|AB\n")
    << "the rows so far are as clean as ever";
}

TEST(inp_ExpansionFiles, LongLines)
{
  std::string const item(255, 'X');
  auto const cut = [](std::string const& line)
  { return "1 warning: Line #" + line + " of data file \"data\" has been truncated.\n"; };
  auto const leftOut = [](std::string const& line)
  {
    return "1 error: Line #" + line +
           " of data file \"data\" holds an item of more than 255 characters and is left out.\n";
  };
  EXPECT_EQ(RowsOf(item + "\n1\n"), ": " + item + " / 1\n");
  EXPECT_EQ(RowsOf(item + ",\n1\n"), ": " + item + "| / 1\n") << "256 characters";
  EXPECT_EQ(RowsOf("1\n" + item + ",23\n1\n", cut("2")), ": 1 / " + item + "| / 1\n");
  EXPECT_EQ(RowsOf(item + "x\n1\n", leftOut("1")), ": 1\n");
  EXPECT_EQ(RowsOf("1," + std::string(300, ' ') + "\n1\n", cut("1")), ": 1| / 1\n");
  EXPECT_EQ(RowsOf("** " + item + item + "\n1\n", cut("1")), ": 1\n");
  EXPECT_EQ(RowsOf("1\n" + std::string(1000000, 'x') + "\n2\n", cut("2") + leftOut("2")),
            ": 1 / 2\n");
}

TEST(inp_ExpansionFiles, ReportsFilesThatCannotBeRead)
{
  DeckFiles files;
  files.Write("dir/file", "");
  ASSERT_EQ(mkfifo(files.Path("pipe").c_str(), 0600), 0);
  files.Write("utf16", "\xff\xfe"
                       "1\n");
  struct
  {
    char const *what, *deck, *message, *missing;
  } const cases[] = {
    {"missing", "*MPC, INPUT=a/b c\n", "Input file \"a/bc\" does not exist.", "bc;"},
    {"missing, quoted", "*MPC, INPUT=\"a/b c\"\n", "Input file \"a/b c\" does not exist.", "b c;"},
    {"none", "*MPC, INPUT=None\n", "Input file \"None\" does not exist.", ""},
    {"without a value", "*MPC, INPUT\n", "Input file is missing", ""},
    {"a number", "*MPC, INPUT=12\n", "Input file \"12\" does not exist.", "12;"},
    {"directory", "*MPC, INPUT=dir\n",
     "Input file \"dir\" is a directory, pipe, socket or device and is not read.", ""},
    {"pipe, which nobody writes to", "*MPC, INPUT=pipe\n",
     "Input file \"pipe\" is a directory, pipe, socket or device and is not read.", ""},
    {"UTF-16", "*MPC, INPUT=utf16\n", "Input file \"utf16\" is not readable.", ""},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.what);
    DeckExpansion const expansion(c.deck, In(files));
    EXPECT_EQ(expansion.messages, std::string("1 error: ") + c.message + "\n");
    EXPECT_EQ(Joined(expansion.visitor.GetMissingIncludedFiles()), c.missing);
    EXPECT_EQ(expansion.keywords, "mpc\n") << "the parameter goes in any case";
  }
  inp_KeywordExpansionVisitor visitor;
  inp_Keyword keyword(inp_kwMpc);
  keyword.parameters.Insert("input", inp_Item::Text(""));
  visitor.Visit(keyword);
  ASSERT_EQ(visitor.GetErrorList().Length(), 1);
  EXPECT_EQ(MessageText("error", visitor.GetErrorList()[0], ""), "0 error: Input file is missing");
}

TEST(inp_ExpansionFiles, ReportsFilesWithoutPermission)
{
  if (geteuid() == 0)
    GTEST_SKIP() << "nothing is unreadable to root";
  DeckFiles files;
  files.Write("secret", "1\n");
  ASSERT_EQ(chmod(files.Path("secret").c_str(), 0), 0);
  DeckExpansion const expansion("*MPC, INPUT=secret\n", In(files));
  EXPECT_EQ(expansion.messages, "1 error: Input file \"secret\" is not readable.\n");
  EXPECT_EQ(Joined(expansion.visitor.GetIncludedFiles()), "");
}

TEST(inp_ExpansionFiles, AListingLooksForFilesAndDoesNotReadThem)
{
  DeckFiles files;
  files.Write("bad", "*NODE\n");
  auto const listing = [&files](inp_KeywordExpansionVisitor& visitor)
  {
    visitor.SetIncludePath(files.Folder().c_str());
    visitor.SetBulkDataProcess(false);
  };
  DeckExpansion const expansion(
    "*MPC, INPUT=bad\n1\n*MPC, INPUT=<Ref>\n*MPC, INPUT=x<y>\n*MPC, INPUT=other\n"
    "*MPC, INPUT=sub/other\n",
    listing);
  EXPECT_EQ(expansion.keywords, "mpc: 1\nmpc\nmpc\nmpc\nmpc\n");
  EXPECT_EQ(expansion.messages, "3 error: Input file \"<Ref>\" does not exist.\n"
                                "4 error: Input file \"x<y>\" does not exist.\n"
                                "5 error: Input file \"other\" does not exist.\n"
                                "6 error: Input file \"sub/other\" does not exist.\n");
  EXPECT_EQ(Joined(expansion.visitor.GetIncludedFiles()), "bad;");
  EXPECT_EQ(Joined(expansion.visitor.GetMissingIncludedFiles()), "x<y>;other;") << "each once";
}

TEST(inp_ExpansionFiles, ManifestsAreFollowedOnlyWhenWanted)
{
  DeckFiles files;
  files.Write("m.inp", "*MATERIAL\n");
  DeckExpansion const expansion("*MANIFEST, EVOL=HIST\nm.inp\n", In(files));
  EXPECT_EQ(expansion.keywords, "manifest evolution=HISTORY: m.inp\n");
  EXPECT_EQ(expansion.messages, "");
  EXPECT_TRUE(expansion.visitor.HasManifest());
  EXPECT_EQ(Joined(expansion.visitor.GetIncludedFiles()), "");
}

TEST(inp_ExpansionFiles, AManifestNamesDecks)
{
  DeckFiles files;
  files.Write("one.inp", "*NSET, NSE=a\n1\n*STEP\n*MATERIAL\n*MANIFEST, EVOLUTION=NONE\ntwo\n");
  files.Write("Two b.inp", "*INCLUDE, INPUT=inc\n*INCLUDE, INPUT=gone\n*STEP\n*IMPORT, UPDATE=NO, "
                           "HOURGLASS\n*MPC, INPUT=lost\n*BAD\n*PART\n");
  files.Write("inc", "*ELSET\n1\n");
  DeckExpansion const expansion("*MANIFEST, EVOLUTION=NONE\n"
                                "one, x\n"
                                "12\n"
                                "\n"
                                "\"Two b.inp\"\n"
                                "three\n",
                                [&files](inp_KeywordExpansionVisitor& visitor)
                                {
                                  In(files, true)(visitor);
                                  visitor.SetNumberSteps(4);
                                });
  std::string keywords;
  for (inp_Keyword const& keyword : expansion.visitor.GetManifestKeywords())
    keywords += KeywordText(keyword) + "\n";
  EXPECT_EQ(keywords,
            "nset nset=A: 1\nstep name=Step-5\nmaterial\nmanifest evolution=NONE: two\n"
            "undefined keyword\nstep name=Step-5\nimport hourglass, update=NO\nmpc\npart\n");
  EXPECT_EQ(Joined(expansion.visitor.GetIncludedFiles()), "one.inp;Two b.inp;inc;");
  EXPECT_EQ(Joined(expansion.visitor.GetMissingIncludedFiles()), "gone;lost;three.inp;");
  EXPECT_EQ(
    expansion.messages,
    "Two b.inp:4 warning: THE HOURGLASS PARAMETER HAS BEEN USED WITH *IMPORT. RESULTS SHOULD "
    "BE INTERPRETED WITH CAUTION.\n"
    "one.inp:4 error: The NAME parameter is required.\n"
    "Two b.inp:6 error: untitled: Unknown keyword \"bad\". The keyword may be misspelled, "
    "obsolete, or invalid.\n"
    "inc:1 error: The ELSET parameter is required.\n"
    "Two b.inp:5 error: Input file \"lost\" does not exist.\n"
    "1 error: Input file \"three.inp\" does not exist.\n"
    "Two b.inp:2 fatal: untitled: Include file \"gone\" does not exist.\n"
    "Two b.inp:7 fatal: Part must have a name.\n");
}

TEST(inp_ExpansionFiles, ManifestsAreLookedForInTheDirectoryOfTheJobFirst)
{
  DeckFiles files;
  files.Write("job/m.inp", "*NSET, NSET=JOB\n");
  files.Write("m.inp", "*NSET, NSET=INCLUDE\n");
  files.Write("n.inp", "*MANIFEST, EVOLUTION=NONE\nn\n"); // names itself
  utl_CommandLine& commandLine = omi_Singleton<utl_CommandLine>::Instance();
  commandLine.SetOption("indir", files.Path("job").c_str());
  DeckExpansion const expansion("*MANIFEST, EVOLUTION=NONE\nm\nn\n", In(files, true));
  commandLine.Clear();
  EXPECT_EQ(expansion.messages, "");
  ASSERT_EQ(expansion.visitor.GetManifestKeywords().Length(), 2);
  EXPECT_EQ(KeywordText(expansion.visitor.GetManifestKeywords()[0]), "nset nset=JOB");
  EXPECT_EQ(KeywordText(expansion.visitor.GetManifestKeywords()[1]), "manifest evolution=NONE: n");
  EXPECT_EQ(Joined(expansion.visitor.GetIncludedFiles()), "m.inp;n.inp;");
}

TEST(inp_ExpansionFiles, ManifestsThatAreNoDecks)
{
  DeckFiles files;
  files.Write("dir.inp/file", "");
  files.Write("utf16.inp", "\xff\xfe*");
  DeckExpansion const expansion("*MANIFEST, EVOLUTION=NONE\ndir\nutf16\n\"\"\n*MATERIAL\n",
                                In(files, true));
  EXPECT_EQ(expansion.messages,
            "1 error: Input file \"dir.inp\" is a directory, pipe, socket or device and is not "
            "read.\n"
            "1 error: Input file \"\"\".inp\" does not exist.\n"
            "5 error: The NAME parameter is required.\n"
            "1 fatal: Could not read file " +
              files.Path("utf16.inp") +
              ": it is encoded in UTF-16. Save it as UTF-8 or plain ASCII text.\n");
}

TEST(inp_ExpansionFiles, BadNodesInAManifestAreRaisedBehindWhatWasFoundBefore)
{
  DeckFiles files;
  files.Write("m.inp", "*MATERIAL\n*NODE\nx\n");
  cow_List<inp_Keyword> keywords = DeckKeywords("*MANIFEST, EVOLUTION=NONE\nm\n");
  inp_KeywordExpansionVisitor visitor;
  In(files, true)(visitor);
  EXPECT_THROW(visitor.VisitList(keywords), nex_AtrException);
  ASSERT_EQ(visitor.GetErrorList().Length(), 1);
  EXPECT_EQ(visitor.GetErrorList()[0].Origin()->code, std::string("NameRequired"));
}

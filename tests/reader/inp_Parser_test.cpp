#include "inp_Parser.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "DebugOutput.h"
#include "DeckReading.h"
#include "inp_KeywordEnm.h"
#include "inp_ParserExceptions.h"

namespace
{

struct Case
{
  char const* what;
  std::string deck, keywords, messages;
};

/// Of the keyword at a line, by its name as it is written.
std::string Unknown(int line, std::string const& name)
{
  return std::to_string(line) + " error UnknownKeyword(" + name + "): Unknown keyword \"" + name +
         "\". The keyword may be misspelled, obsolete, or invalid.\n";
}

void Check(Case const& c, bool strict = true)
{
  SCOPED_TRACE(c.what);
  DeckFiles files;
  files.Write("deck.inp", c.deck);
  DeckReading const read(files, "deck.inp", {.strict = strict});
  EXPECT_EQ(read.keywords, c.keywords);
  EXPECT_EQ(read.messages, c.messages);
}

} // namespace

TEST(inp_Parser, TellsLinesApart)
{
  Case const cases[] = {
    {"blanks at both ends go, names lose theirs, values keep those within",
     " \t*  Element\tOutput , Nset = A  b\t,POSITION TOLERANCE=0.5, Generate \r\n\t1 , 2 \r\n",
     "1 elementoutput generate, nset=A  b, positiontolerance=0.5: 1|2\n", ""},
    {"an asterisk without a letter begins data, an empty line is data", "*NODE\n*1, 2\n*\n\n* *\n",
     "1 node: *1|2 / * /  / * *\n", ""},
    {"two asterisks make a comment, more or less blank ones too", "*NODE\n  ** a\n***NODE\n**\n1\n",
     "1 node: 1\n", ""},
    {"abbreviations count where they are unique, whole names always",
     "*SHELLSEC\n*STEP\n*Beam Section\n", "1 shellsection\n2 step\n3 beamsection\n", ""},
    {"headings and steps keep lines whole", "*HEADING\na, b \"c\n\n*STEP, NAME=\"a,b\"\nx,y\n",
     "1 heading: a, b \"c / \n4 step name=\"a,b\": x,y\n", ""},
    {"data rows divide at commas outside quotes and never join", "*NSET\n1,2,\n3,\"a,b\",\n",
     "1 nset: 1|2| / 3|\"a,b\"|\n", ""},
    {"the last line needs no line feed", "*NODE\n1, 2", "1 node: 1|2\n", ""},
    {"values of all types", "*NODE, I=-3, R=1d2, S=2abc, N=, B, Q=\"A b\", E=a.\"b=c\", T=TRUE\n",
     "1 node b, e=a.\"b=c\", i=-3, n, q=\"A b\", r=100., s=2abc, t=TRUE\n", ""},
    {"empty pieces between commas vanish", "*NODE, , NSET=A,, B\n", "1 node b, nset=A\n", ""},
  };
  for (Case const& c : cases)
    Check(c);
}

TEST(inp_Parser, CommentsBelongToTheKeywordBelow)
{
  Check({"directly above, also above the first, and below a heading's lines",
         "**one\n** two\n*HEADING\nTitle\n** three\nmore\n*NODE\n",
         "3 heading {one;  two}: Title / more\n7 node { three}\n", ""});
  Check({"not across a data line", "*NODE\n** gone\n1\n** kept\n*NSET\n",
         "1 node: 1\n5 nset { kept}\n", ""});
  Check({"a lost keyword takes its own along", "** a\n*NONSENSE\n1\n** b\n*NODE\n", "5 node { b}\n",
         Unknown(2, "nonsense")});
}

TEST(inp_Parser, KeywordLinesContinueBehindAComma)
{
  Check({"over comments, with the number of the first line",
         "*NODE,\n ** not here\nNSET=A ,\nSYSTEM=R\n1\n", "1 node nset=A, system=R: 1\n", ""});
  Check({"nothing stands between the lines but the comma", "*NODE, NSET=\"a,\nb\"\n",
         "1 node nset=\"a,b\"\n", ""});
  Check({"an empty line ends it", "*NODE, NSET=A, ,\n\n1\n", "1 node nset=A: 1\n", ""});
  Check({"so does the end of the file", "*NODE, NSET=A,", "1 node nset=A\n", ""});
  Check({"and even a name may be continued", "*NODE,\n,\n,\nB\n", "1 node b\n", ""});

  std::string const deck = "*NODE, NSET=A,\n*NSET, NSET=B\n1\n*ELSET\n";
  Check({"a keyword there is a fault of both", deck, "4 elset\n",
         "2 error KeywordOnContinuationLine(): A keyword has been detected on what is supposed to "
         "be a continuation line. Please check that a trailing comma has not been mistakenly "
         "placed in: *NODE, NSET=A,\n"});
  Check({"and is passed over when that is wished", deck, "1 node 1, nset=A\n4 elset\n", ""}, false);
}

TEST(inp_Parser, FaultsInParametersCostTheKeyword)
{
  auto const problem = [](std::string const& words)
  {
    return "1 error KeywordParameter(node): Problem when parsing keyword: NODE     " + words + "\n";
  };
  std::string const badName = " The parameter may be misspelled, obsolete, or invalid.";
  std::string const badValue = "The value may be misspelled, obsolete, or invalid.";
  Case const strict[] = {
    {"name", "*NODE, N_SET=A\n1\n*STEP\n", "3 step\n",
     problem("Invalid parameter: N_SET=A." + badName)},
    {"value", "*NODE, NSET= a=b\n", "",
     problem("Invalid value \" a=b\" for parameter \"nset\". " + badValue)},
    {"empty quotes", "*NODE, NSET=\"\"\n", "",
     problem("Invalid value \"\"\"\" for parameter \"nset\". " + badValue)},
    {"quote without end", "*NODE, A=1, NSET=\"a, B\n", "",
     problem("Missing end quote in parameter data \"A=1, NSET=\"a, B\".")},
  };
  for (Case const& c : strict)
    Check(c);
  Case const lenient[] = {
    {"a name stays as it is written", "*NODE, N SET_=A, Q R=1\n", "1 node N SET_=A, qr=1\n", ""},
    {"a value is none", "*NODE, NSET=\"\"\n", "1 node nset=None\n", ""},
    {"a quote without end remains a fault", "*NODE, A=\"b\n", "",
     problem("Missing end quote in parameter data \"A=\"b\".")},
  };
  for (Case const& c : lenient)
    Check(c, false);
}

TEST(inp_Parser, TheLastOfRepeatedParametersCounts)
{
  Check({"with a warning each", "*NODE, NSET=A, N SET=B\n*ELSET, GENERATE, GENERATE\n",
         "1 node nset=B\n2 elset generate\n",
         "1 warning RepeatedParameterValue(node): in keyword *NODE, file \"deck.inp\", line 1: "
         "Repeated parameter: nset.  New definition of \"B\" overrides previous setting.\n"
         "2 warning RepeatedParameter(elset): in keyword *ELSET, file \"deck.inp\", line 2: "
         "Repeated parameter: generate.  New definition overrides previous setting.\n"});
}

TEST(inp_Parser, LinesEndAfter256Characters)
{
  std::string const full = "*NODE, NSET=" + std::string(244, 'a');
  std::string const kept = "1 node nset=" + std::string(244, 'a');
  std::string const warning = "1 warning LineTruncated(): Line #1 has been truncated.\n";
  Case const cases[] = {
    {"256", full + "\n1\n", kept + ": 1\n", ""},
    {"257", full + "b\n1\n", kept + ": 1\n", warning},
    {"257 at the end", full + "b", kept + "\n", ""},
    {"258 at the end", full + "bb", kept + "\n", warning},
    {"256 with carriage return", full + "\r\n1\n", kept + ": 1\n", warning},
    {"a comma at the cut continues", "*NODE" + std::string(250, ' ') + ",b\nNSET=A\n",
     "1 node nset=A\n", warning},
    {"blanks count before they go", std::string(300, ' ') + "*NODE\n*NSET\n", "2 nset\n", warning},
  };
  for (Case const& c : cases)
    Check(c);
}

TEST(inp_Parser, LongItemsAreRefused)
{
  std::string const text255(255, 'x'), text256(256, 'x');
  std::string const tooLong = "The data line holds an item of 256 characters; at most 255 can be "
                              "kept.\n";
  auto const titled = [&](char const* keyword, char const* line)
  {
    std::string const place = ", file \"deck.inp\", line 1: ";
    return line + std::string(" error DataItemTooLong(") + keyword + "): in keyword *" +
           cow_String(keyword).ToUpper().CStr() + place + tooLong;
  };
  Case const cases[] = {
    {"a row that is one item", "*NODE\n" + text256 + "\n" + text255 + "\n",
     "1 node: " + text255 + "\n", titled("node", "2")},
    {"of two items none can be as long", "*NODE\n" + text255.substr(1) + ",1\n",
     "1 node: " + text255.substr(1) + "|1\n", ""},
    {"a text line is one item, commas or not",
     "*HEADING\n" + text255.substr(0, 254) + ",x\n" + text255.substr(0, 200) +
       std::string(55, ' ') + "x\n",
     "1 heading: " + text255.substr(0, 200) + std::string(55, ' ') + "x\n", titled("heading", "2")},
    {"a parameter's value",
     "*NODE, NSET=\"" + text255.substr(0, 240) + ",\n" + std::string(13, 'y') + "\"\n", "",
     "1 error KeywordParameter(node): Problem when parsing keyword: NODE     The value of "
     "parameter "
     "\"nset\" has 256 characters; at most 255 can be kept.\n"},
    {"one of 255",
     "*NODE, NSET=\"" + text255.substr(0, 240) + ",\n" + std::string(12, 'y') + "\"\n",
     "1 node nset=\"" + text255.substr(0, 240) + "," + std::string(12, 'y') + "\"\n", ""},
  };
  for (Case const& c : cases)
    Check(c);
}

TEST(inp_Parser, ManyErrorsEndInANotice)
{
  std::string deck, expected;
  for (int i = 1; i <= 30; ++i)
  {
    deck += "*BAD" + std::to_string(i) + "\n1, 2\n*NODE\n";
    std::string const name = "bad" + std::to_string(i);
    if (i <= 26)
      expected += Unknown(3 * i - 2, name);
  }
  DeckFiles files;
  files.Write("deck.inp", deck);
  DeckReading const read(files, "deck.inp");
  EXPECT_EQ(read.messages,
            expected + "0 error NoMoreErrors(): No more (non-fatal) errors will be reported ...\n");
  EXPECT_EQ(read.list.Length(), 30);

  deck.clear();
  for (int i = 1; i <= 30; ++i)
    deck += "*INCLUDE\n";
  files.Write("deck.inp", deck);
  DeckReading const fatal(files, "deck.inp");
  EXPECT_EQ(std::count(fatal.messages.begin(), fatal.messages.end(), '\n'), 27);
  EXPECT_TRUE(fatal.messages.ends_with(
    "26 fatal NoInputParameter(include): Missing input parameter\n"
    "0 fatal NoMoreFatalErrors(): No more fatal errors will be reported ...\n"));
}

TEST(inp_Parser, TellsUnknownFromAmbiguous)
{
  Check({"by the written name",
         "*Ele Ment Oooo, X=1\n1\n*NOD E, A\n*ELEM\n1\n*SHELL Sec\n*UNDEFINED\n",
         "3 node a\n6 shellsection\n",
         Unknown(1, "elementoooo") +
           "4 error AmbiguousKeyword(elem): Ambiguous keyword definition \"elem\".\n" +
           Unknown(7, "undefined")}); // although a row of the table has that name
}

TEST(inp_Parser, ReadsALimitedRangeOfLines)
{
  DeckFiles files;
  files.Write("deck.inp", "0\n*NODE\n1\n*NSET\n2\n3\n*ELSET\n4\n");
  struct
  {
    int start, end;
    char const *keywords, *skipped;
  } const cases[] = {
    {0, 0, "2 node: 1\n4 nset: 2 / 3\n7 elset: 4\n", "0"},
    {5, 0, "7 elset: 4\n", "2; 3"},
    {3, 5, "4 nset: 2\n", "1"},
    {9, 12, "", ""},
  };
  for (auto const& c : cases)
  {
    DeckReading const read(files, "deck.inp", {.startLine = c.start, .endLine = c.end});
    EXPECT_EQ(read.keywords, c.keywords) << c.start;
    EXPECT_EQ(read.skipped, c.skipped) << c.start;
    EXPECT_EQ(read.messages, "");
  }
}

TEST(inp_Parser, WithoutDataKeepsWhatSteersTheReading)
{
  DeckFiles files;
  files.Write("deck.inp", "0\n*HEADING\nT\n*NODE\n1\n*PARAMETER\na=1\n*MANIFEST\nm\n*STEP\ns\n");
  DeckReading const read(files, "deck.inp", {.keepData = false});
  EXPECT_EQ(read.keywords, "2 heading: T\n4 node\n6 parameter: a=1\n8 manifest: m\n10 step: s\n");
  EXPECT_EQ(read.skipped, "");
}

TEST(inp_Parser, RecordsHowAKeywordWasRead)
{
  DeckFiles files;
  files.Write("deck.inp", "1, 2\n** c\n\n*NODE\n*EOF\n");
  std::string const path = files.Path("deck.inp");
  inp_Parser parser(path.c_str(), "", cow_List<cow_String>(), "", false, true, true, 0, 0);
  cow_List<inp_Keyword> const list = parser.Parse(false);
  ASSERT_EQ(list.Length(), 2);
  EXPECT_TRUE(list.ConstGet(0).rawSource);
  EXPECT_FALSE(list.ConstGet(0).encrypted);
  EXPECT_EQ(list.ConstGet(0).fileName, path.c_str());
  EXPECT_TRUE(list.ConstGet(1).Is(inp_kwEof));
  EXPECT_EQ(parser.GetSkippedDataLines().Length(), 2);
  EXPECT_EQ(parser.FirstSkippedLine(), 1);
  EXPECT_EQ(parser.TotalBytes(), 22);
}

TEST(inp_Parser, AFileThatCannotBeOpenedRaises)
{
  DeckFiles files;
  files.Write("utf16.inp", std::string_view("\xff\xfe*\0N\0", 6));
  std::filesystem::create_directory(files.Path("folder"));
  struct
  {
    std::string name, code, words, printed;
  } const cases[] = {
    {"folder", "CouldNotOpen", "Could not open file folder\n",
     "inp_Parser ERROR: could not open file: 'folder'\n"},
    {"absent", "CouldNotOpen", "Could not open file absent\n",
     "inp_Parser ERROR: could not open file: 'absent'\n"},
    {"utf16.inp", "FileIsUtf16",
     "Could not read file utf16.inp: it is encoded in UTF-16. Save it as UTF-8 or plain ASCII "
     "text.",
     ""},
  };
  for (auto const& c : cases)
  {
    testing::internal::CaptureStderr();
    try
    {
      DeckReading const read(files, c.name);
      ADD_FAILURE() << c.name << " was read";
    }
    catch (nex_AtrException const& fault)
    {
      EXPECT_EQ(files.WithoutFolder(fault.UserReport().CStr()), c.words);
      EXPECT_EQ(fault.GetCode(), c.code);
      EXPECT_EQ(fault.UserReport().Origin()->file, files.Path(c.name).c_str());
    }
    EXPECT_EQ(files.WithoutFolder(testing::internal::GetCapturedStderr()), c.printed);
  }
}

TEST(inp_Parser, EncryptedLinesNeedAPassword)
{
  std::string const refusal = "The encrypted input file, \"deck.inp\", requires a password.\n";
  Check({"at the head of the file nothing is read", "  ** encrypted input\n*NODE\n", "",
         "1 fatal PasswordRequired(): " + refusal});
  Check({"within a keyword it is a fault like any other", "*NODE\n1\n** encrypted input\n*NSET\n",
         "4 nset\n", "3 error PasswordRequired(node): " + refusal});
}

TEST(inp_Parser, DebugLevelsSayWhatIsRead)
{
  DeckFiles files;
  files.Write("deck.inp", "*NOD E\n*NSET\n");
  DebugOutput const output(2);
  DeckReading const read(files, "deck.inp");
  std::string const text = files.WithoutFolder(output.Text());
  EXPECT_TRUE(text.starts_with("Creating keyword: \"node\".\nCreating keyword: \"nset\".\n"
                               "Parse - File: deck.inp  Elapsed time: "))
    << text;
  EXPECT_NE(text.find("  Decryption time: 0.  CPU time: "), std::string::npos) << text;
}

#include "inp_Parser.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "DeckReading.h"

namespace
{

using Files = std::vector<std::pair<std::string, std::string>>;

struct Case
{
  char const* what;
  Files files; ///< the first is read
  std::string keywords, messages;
};

DeckReading Read(DeckFiles const& files, Files const& contents, bool strict = true)
{
  for (auto const& [name, text] : contents)
    files.Write(name, text);
  return DeckReading(files, contents.front().first, {.strict = strict});
}

void Check(Case const& c)
{
  SCOPED_TRACE(c.what);
  DeckFiles files;
  DeckReading const read = Read(files, c.files);
  EXPECT_EQ(read.keywords, c.keywords);
  EXPECT_EQ(read.messages, c.messages);
}

} // namespace

TEST(inp_ParserInclude, SplicesKeywordsAndData)
{
  Case const cases[] = {
    {"keywords stand in the place of the *INCLUDE",
     {{"deck", "*NODE\n*INCLUDE, INPUT=a\n*ELSET\n"}, {"a", "*NSET\n1\n*STEP\n"}},
     "1 node\na:1 nset: 1\na:3 step\n3 elset\n",
     ""},
    {"data alone go on with the keyword above, without comments",
     {{"deck", "*NODE\n1\n*INCLUDE, INPUT=a\n*NSET\n"}, {"a", "2, x\n** no data\n\n3\n"}},
     "1 node: 1 / 2|x /  / 3\n4 nset\n",
     ""},
    {"data below the *INCLUDE go to the last keyword of the file",
     {{"deck", "*NODE\n*INCLUDE, INPUT=a\n7\n** gone\n8\n*NSET\n"}, {"a", "0\n*ELSET\n1\n"}},
     "1 node: 0\na:2 elset: 1 / 7 / 8\n6 nset\n",
     ""},
    {"or to that above it when the file has none",
     {{"deck", "*NODE\n*INCLUDE, INPUT=a\n7\n"}, {"a", ""}},
     "1 node: 7\n",
     ""},
    {"a file of comments alone has neither keyword nor comment for what follows",
     {{"deck", "*NODE\n1\n*INCLUDE, INPUT=a\n7\n*NSET\n"}, {"a", "** only\n"}},
     "1 node: 1 / 7\n5 nset\n",
     ""},
    {"text lines are divided when they come that way",
     {{"deck", "*HEADING\na,b\n*INCLUDE, INPUT=a\n"}, {"a", "c,d\n"}},
     "1 heading: a,b / c|d\n",
     ""},
    {"comments above a keyword below the *INCLUDE are not kept",
     {{"deck", "*NODE\n** a\n*INCLUDE, INPUT=a\n** b\n*NSET\n"}, {"a", "** c\n*ELSET\n** d\n"}},
     "1 node\na:2 elset { c}\n5 nset\n",
     ""},
    {"data find their keyword through several files",
     {{"deck", "*NODE\n*INCLUDE, INPUT=a\n3\n"}, {"a", "1\n*INCLUDE, INPUT=b\n"}, {"b", "2\n"}},
     "1 node: 1 / 2 / 3\n",
     ""},
    {"a file may be read twice, and a name needs no more than its quotes",
     {{"deck", "*INCLUDE, INPUT=\"a b.inp\"\n*INCLUDE, INP=\"a b.inp\"\n"}, {"a b.inp", "*NODE\n"}},
     "a b.inp:1 node\na b.inp:1 node\n",
     ""},
    {"the first abbreviation of a name counts",
     {{"deck", "*INCLUDE, I=b, INPUT=a\n"}, {"a", "*NODE\n"}, {"b", "*NSET\n"}},
     "b:1 nset\n",
     ""},
    {"errors of the file come along, warnings stay behind",
     {{"deck", "*INCLUDE, INPUT=a\n"}, {"a", "*NODE, B, B\n*BAD\n*INCLUDE\n"}},
     "a:1 node b\n",
     "a:3 fatal NoInputParameter(include): Missing input parameter\n"
     "a:2 error UnknownKeyword(bad): Unknown keyword \"bad\". The keyword may be misspelled, "
     "obsolete, or invalid.\n"},
  };
  for (Case const& c : cases)
    Check(c);
}

TEST(inp_ParserInclude, KeepsDataWithoutAnyKeyword)
{
  DeckFiles files;
  DeckReading const read =
    Read(files, {{"deck", "\n*INCLUDE, INPUT=a\n3\n** x\n4\n"}, {"a", "1, x\n** no\n2\n"}});
  EXPECT_EQ(read.keywords, "");
  EXPECT_EQ(read.skipped, "; 1, x; 2; 3; 4");
}

TEST(inp_ParserInclude, ReadsARangeOfLines)
{
  std::string const incomplete =
    "1 error LineRangeIncomplete(include): Both startLine and endLine parameters must be given.\n"
    "1 error StartLineNotPositive(include): Parameter \"startLine\" must be a positive integer; "
    "startLine=0\n";
  std::string const whole = "a:1 node: 2 / 3\na:4 nset: 5\n";
  struct
  {
    char const* range;
    std::string keywords, skipped, messages;
  } const cases[] = {
    {"", whole, "", ""},
    {", STARTLINE=2, ENDLINE=2", "", "2", ""},
    {", STARTLINE=3, ENDLINE=4", "a:4 nset\n", "3", ""},
    {", STARTLINE=4, ENDLINE=99", "a:4 nset: 5\n", "", ""},
    {", STARTLINE=3", whole, "", incomplete},
    {", STARTLINE=3, ENDLINE=2", whole, "",
     "1 error EndLineBelowStartLine(include): Parameter \"endLine\" must be endLine >=startLine; "
     "endLine=2, startLine=3\n"},
    {", STARTLINE, ENDLINE=x", "", "", // the first one is said
     "1 error ValueNotInteger(include): Value cannot be converted to an integer: TRUE\n"},
    {", STARTL=2, ENDL=2", whole, "", ""}, // no abbreviations
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.range);
    DeckFiles files;
    DeckReading const read = Read(files, {{"deck", std::string("*INCLUDE, INPUT=a") + c.range},
                                          {"a", "*NODE\n2\n3\n*NSET\n5\n"}});
    EXPECT_EQ(read.keywords, c.keywords);
    EXPECT_EQ(read.skipped, c.skipped);
    EXPECT_EQ(read.messages, c.messages);
  }
}

TEST(inp_ParserInclude, FilesThatCannotBeReadCostTheKeywordAlone)
{
  DeckFiles files;
  std::filesystem::create_directory(files.Path("folder"));
  ASSERT_EQ(::mkfifo(files.Path("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("deck", files.Path("link"));
  files.Write("utf16", "\xff\xfe*");
  struct
  {
    char const* input;
    std::string message;
    char const* missing;
  } const cases[] = {
    {"", "fatal NoInputParameter(include): Missing input parameter\n", ""},
    {", INPUT=no/such.inp",
     "fatal MissingIncludeFile(include): Include file \"no/such.inp\" does not exist.\n",
     "such.inp"},
    {", INPUT=None", "fatal MissingIncludeFile(include): Include file \"None\" does not exist.\n",
     ""},
    {", INPUT=<file>",
     "error ParameterizedIncludeFile(include): Include file \"<file>\" name is parameterized and "
     "not substituted.\n",
     ""},
    {", INPUT=folder",
     "error IncludeFileIsDirectory(include): *INCLUDE, INPUT=folder : file is a directory.\n\n",
     ""},
    {", INPUT=pipe",
     "error IncludeFileNotRegular(include): *INCLUDE, INPUT=pipe : file is a pipe, socket or "
     "device and is not read.\n",
     ""},
    {", INPUT=deck",
     "fatal CircularIncludeFile(include): Include file \"deck\" has already been included.\n", ""},
    {", INPUT=link",
     "fatal CircularIncludeFile(include): Include file \"link\" has already been included.\n", ""},
    {", INPUT=utf16",
     "error FileIsUtf16(include): Could not read file utf16: it is encoded in UTF-16. Save it as "
     "UTF-8 or plain ASCII text.\n",
     ""},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.input);
    DeckReading const read =
      Read(files, {{"deck", std::string("*NODE\n*INCLUDE") + c.input + "\n1\n*NSET\n"}});
    EXPECT_EQ(read.keywords, "1 node\n4 nset\n");
    EXPECT_EQ(read.messages, "2 " + c.message);
    EXPECT_EQ(read.missing, c.missing);
  }
}

TEST(inp_ParserInclude, AnUnreadableFileIsFatal)
{
  if (::geteuid() == 0)
    GTEST_SKIP() << "the superuser reads everything";
  DeckFiles files;
  files.Write("a", "*NODE\n");
  ASSERT_EQ(::chmod(files.Path("a").c_str(), 0), 0);
  EXPECT_EQ(Read(files, {{"deck", "*INCLUDE, INPUT=a\n"}}).messages,
            "1 fatal UnreadableIncludeFile(include): Input file \"a\" is unreadable.\n");
}

TEST(inp_ParserInclude, FilesAreListedAsWrittenAndMissingOnesAreNoFaultOfALenientReading)
{
  DeckFiles files;
  files.Write("sub/c", "");
  DeckReading const read =
    Read(files,
         {{"deck", "*INCLUDE, INPUT=x/b\n*INCLUDE, INPUT=sub/../a\n*INCLUDE, INPUT=\"\"\n*NODE\n"
                   "*INCLUDE, INPUT=\"a\"\n"},
          {"a", "*INCLUDE, INPUT=b\n*INCLUDE, INPUT=c\n"}},
         false);
  EXPECT_EQ(read.keywords, "4 node\n");
  EXPECT_EQ(read.messages, "3 fatal NoInputParameter(include): Missing input parameter\n");
  EXPECT_EQ(read.missing, "b; c");
  EXPECT_EQ(read.included, "sub/../a; a");
}

TEST(inp_ParserInclude, CirclesAreFoundAtAnyDepth)
{
  DeckFiles files;
  DeckReading const read = Read(files, {{"deck", "*INCLUDE, INPUT=a\n*NODE\n"},
                                        {"a", "*NSET\n*INCLUDE, INPUT=b\n*ELSET\n"},
                                        {"b", "*STEP\n*INCLUDE, INPUT=a\n*BOUNDARY\n"}});
  EXPECT_EQ(read.keywords, "a:1 nset\nb:1 step\nb:3 boundary\na:3 elset\n2 node\n");
  EXPECT_EQ(
    read.messages,
    "b:2 fatal CircularIncludeFile(include): Include file \"a\" has already been included.\n");
}

TEST(inp_ParserInclude, FilesNestUpToADepth)
{
  DeckFiles files;
  for (int i = 1; i <= 1000; ++i)
    files.Write("f" + std::to_string(i),
                "*NODE\n*INCLUDE, INPUT=f" + std::to_string(i + 1) + "\n*NSET\n");
  DeckReading const read = Read(files, {{"deck", "*INCLUDE, INPUT=f1\n"}});
  EXPECT_EQ(read.list.Length(), 2 * inp_Parser::c_deepestInclude);
  EXPECT_EQ(read.messages, "f200:2 error IncludesTooDeep(include): *INCLUDE, INPUT=f201 : include "
                           "files are nested more than 200 deep.\n");
}

TEST(inp_ParserInclude, TheWorkingFolderComesBeforeTheIncludeFolder)
{
  DeckFiles here, there;
  here.Write("a", "*NODE\n");
  there.Write("a", "*NSET\n");
  there.Write("b", "*ELSET\n");
  here.Write("deck", "*INCLUDE, INPUT=a\n*INCLUDE, INPUT=b\n");
  InFolder const working(here.Folder());
  inp_Parser parser("deck", there.Folder().c_str(), cow_List<cow_String>(), "", true, true, false,
                    0, 0);
  cow_List<inp_Keyword> const list = parser.Parse(true);
  ASSERT_EQ(list.Length(), 2);
  EXPECT_EQ(list.ConstGet(0).fileName, here.Path("a").c_str());
  EXPECT_EQ(list.ConstGet(1).fileName, there.Path("b").c_str());
}

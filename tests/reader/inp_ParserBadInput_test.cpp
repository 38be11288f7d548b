#include "inp_Parser.h"

#include <algorithm>
#include <random>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "DeckReading.h"
#include "aio_ostream.h"

namespace
{

DeckReading Read(std::string const& deck, bool strict = true)
{
  DeckFiles files;
  files.Write("deck", deck);
  return DeckReading(files, "deck", {.strict = strict});
}

std::string Repeated(std::string const& text, int times)
{
  std::string repeated;
  repeated.reserve(text.size() * static_cast<std::size_t>(times));
  for (int i = 0; i < times; ++i)
    repeated += text;
  return repeated;
}

/// All but the warnings.
std::string Faults(DeckReading const& read)
{
  std::istringstream messages(read.messages);
  std::string faults;
  for (std::string line; std::getline(messages, line);)
    faults += line.find(" warning ") == line.npos ? line + "\n" : "";
  return faults;
}

std::string Printed(cow_List<inp_Keyword> const& list)
{
  std::ostringstream text;
  aio_ostream stream(text);
  for (inp_Keyword const& keyword : list)
    keyword.Print(stream, true);
  return text.str();
}

} // namespace

TEST(inp_ParserBadInput, StandsAnyBytes)
{
  struct
  {
    char const* what;
    std::string deck, keywords, messages;
  } const cases[] = {
    {"a line feed", "\n", "", ""},
    {"asterisks alone", "*NODE\n*\n*,\n***", "1 node: * / *|\n", ""},
    {"a comma alone behind the name", "*NODE,", "1 node\n", ""},
    {"NUL bytes", std::string("*NO\0DE\n1,\0 2\n", 13), "1 node: 1|2\n",
     "0 warning NulBytes(): The file holds NUL characters; they are read as blanks.\n"},
    {"Latin-1", "*NODE, NSET=M\xfcz\n\xe4,\"\xf6\"\n", "1 node nset=M\xfcz: \xe4|\"\xf6\"\n", ""},
    {"UTF-8 with its mark", "\xef\xbb\xbf*NODE, NSET=A\xc3\xa4\n", "1 node nset=A\xc3\xa4\n", ""},
    {"a quote without end", "*NODE\n1,\"2,3\n4\n", "1 node: 1|\"2,3 / 4\n", ""},
    {"carriage returns alone", "*NODE\r1\r*NSET\r", "",
     "1 error UnknownKeyword(node\r1\r*nset): Unknown keyword \"node\r1\r*nset\". The keyword may "
     "be misspelled, obsolete, or invalid.\n"},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.what);
    DeckReading const read = Read(c.deck);
    EXPECT_EQ(read.keywords, c.keywords);
    EXPECT_EQ(read.messages, c.messages);
  }
}

TEST(inp_ParserBadInput, ReadsPastALineOf100MB)
{
  DeckReading const read = Read("*NODE\n1," + std::string(100'000'000, ' ') + "\n2\n*NSET\n");
  EXPECT_EQ(read.keywords, "1 node: 1| / 2\n4 nset\n");
  EXPECT_EQ(read.messages, "2 warning LineTruncated(): Line #2 has been truncated.\n");
}

TEST(inp_ParserBadInput, ReadsAnyNumberOfLines)
{
  DeckReading const comments = Read(Repeated("** c\n", 1'000'000) + "*NODE\n");
  ASSERT_EQ(comments.list.Length(), 1);
  EXPECT_EQ(comments.list.ConstGet(0).comments.Length(), 1'000'000);
  EXPECT_EQ(comments.messages, "");
  DeckReading const unknown = Read(Repeated("*NONSENSE\n1, 2\n", 100'000) + "*NODE\n1\n");
  EXPECT_EQ(unknown.keywords, "200001 node: 1\n");
  EXPECT_EQ(std::count(unknown.messages.begin(), unknown.messages.end(), '\n'), 27);
  DeckReading const continued = Read("*NODE,\n" + Repeated("NSET=A,\n", 100'000) + "\n1\n");
  EXPECT_EQ(continued.keywords, "1 node nset=A: 1\n");
  EXPECT_EQ(std::count(continued.messages.begin(), continued.messages.end(), '\n'), 99'999);
}

TEST(inp_ParserBadInput, RandomTextNeverGivesMoreKeywordsThanLines)
{
  static constexpr std::string_view pieces[] = {
    "*NODE", "*nset",  "*STEP", "*HEADING", "*INCLUDE", "INPUT=", "**",   "*",
    ",",     ", ",     "=",     "\"",       "\n",       "\n",     "\r\n", "\n\n",
    "\t",    "A.B",    "1e5",   "-1",       "x y",      "\f",     "<",    ">",
    "\"\"",  "NSET=A", "\xff",  "*ELEMEN",  "1,2,",     "\v",     "NAME="};
  std::mt19937 random(11);
  for (int run = 0; run < 400; ++run)
  {
    std::string deck;
    for (int i = 0; i < 200; ++i)
      if (random() % 3 == 0)
        deck += static_cast<char>(random());
      else
        deck += pieces[random() % std::size(pieces)];
    if (deck.starts_with("\xff\xfe") || deck.starts_with("\xfe\xff"))
      continue;
    for (bool const strict : {true, false})
    {
      DeckReading const read = Read(deck, strict);
      EXPECT_LE(read.list.Length(), 1 + std::count(deck.begin(), deck.end(), '\n')) << deck;
      EXPECT_EQ(read.list.Length() == 0, Printed(read.list).empty()) << deck;
    }
  }
}

TEST(inp_ParserRoundTrip, WhatIsPrintedReadsBackTheSame)
{
  DeckFiles files;
  int decks = 0;
  for (char const* tree : {"/examples", "/tests/decks"})
  {
    std::filesystem::path const top = std::string(INPDECK_SOURCE_DIR) + tree;
    if (!std::filesystem::exists(top))
      continue;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(top))
    {
      if (entry.path().extension() != ".inp")
        continue;
      inp_Parser parser(entry.path().c_str(), entry.path().parent_path().c_str(),
                        cow_List<cow_String>(), "", true, true, false, 0, 0);
      std::string const first = Printed(parser.Parse(false));
      files.Write("again.inp", first);
      DeckReading const again(files, "again.inp", {.strict = false});
      EXPECT_EQ(Printed(again.list), first) << entry.path();
      EXPECT_EQ(Faults(again), "") << entry.path();
      decks += !first.empty();
    }
  }
  EXPECT_GE(decks, 4);
}

#include "nex_Exception.h"
#include "rgx_Regex.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

// The standard header itself sets off this warning where sanitizers and optimization meet.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <regex>
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

namespace
{

// The patterns by which values of a deck are told apart.
char const* const deckPatterns[] = {
  "^[ \t]*([-+]?[0-9]+)[ \t]*$",
  "^[ \t]*([-+]?[0-9]*\\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\\.?[0-9]*[eE][-+]?[0-9]+)[ \t]*$",
  "^[ \t]*([-+]?[0-9]*\\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\\.?[0-9]*[dD][-+]?[0-9]+)[ \t]*$",
  "^[ \t]*([a-zA-Z_][^,=\n]*?)[ \t]*$|^[ \t]*(\"[^\"\n]*\")[ \t]*$",
  "^[ \t]*([a-zA-Z][-a-zA-Z0-9 \t]*?[a-zA-Z0-9]*)[ \t]*$",
  ("^[ \t]*((([a-zA-Z_][^,=\n]*?)|(\"[^\"\n]+\"))(\\.(([a-zA-Z_][^,=\n]*?)|(\"[^\"\n]+\")))*?)[ "
   "\t]*$"),
  "^[ \t]*(([a-zA-Z_][^\\.]*|\"[^\"]+\")\\.)*[0-9]+[ \t]*$",
  "^[ \t\\<]*([a-zA-Z0-9_$%/\\.][^,=\n]*?)[ \t\\>]*$|^[ \t\\<]*(\"[^\"\n]+\")[ \t\\>]*$",
  "^[ \t]*([Zz][0-9]+)[ \t]*$",
  "^[ \t]*([Vv]*[Uu][0-9]+)[ \t]*$",
};

// The standard engine knows no escape of a bracket of an angle.
std::string ForStandard(std::string pattern)
{
  for (std::size_t at = 0; (at = pattern.find('\\', at)) != std::string::npos; at += 1)
    if (pattern[at + 1] == '<' || pattern[at + 1] == '>')
      pattern.erase(at, 1);
  return pattern;
}

std::vector<std::string> Matches(std::string const& pattern, std::string const& text)
{
  std::vector<std::string> found;
  cow_String const subject{std::string_view(text)};
  for (auto match = rgx_match(cow_String(std::string_view(pattern)), subject); !match.IsDone();
       match.Next())
    found.emplace_back(match.String().View());
  return found;
}

std::vector<std::string> StandardMatches(std::regex const& regex, std::string const& text)
{
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
    found.push_back(match->str());
  return found;
}

// A random pattern in which nothing that can be empty is repeated: on those engines may differ.
std::string RandomPattern(std::mt19937& random, int depth)
{
  static char const* const atoms[] = {"a", "b", "c", ".", "[ab]", "[^a]", "\\.", "[[:alpha:]]"};
  static char const* const repeats[] = {"",   "",   "*",   "+",     "?",    "*?",
                                        "+?", "??", "{2}", "{1,2}", "{0,}?"};
  std::string pattern;
  auto const pieces = 1 + random() % 3;
  for (auto i = 0u; i < pieces; ++i)
    if (depth > 0 && random() % 3 == 0)
      pattern += "(" + RandomPattern(random, depth - 1) + "|" + atoms[random() % 8] + ")";
    else
      pattern += std::string(atoms[random() % 8]) + repeats[random() % 11];
  return pattern;
}

} // namespace

TEST(rgx_match, AgreesWithTheStandardEngineOnDeckPatterns)
{
  std::string const bytes = "aZ_059.-+eEdD\" \t,=\n<>/$%uVzx";
  std::mt19937 random(11);
  std::vector<std::string> texts = {"",           "-",      "1e5",      "2abc", "a b", "\"a.b\".c",
                                    "<file.inp>", "A.B.12", " VvU12\t", "u1 ",  "Z7"};
  for (int i = 0; i < 3000; ++i)
  {
    std::string text;
    for (auto length = random() % 11; length > 0; --length)
      text += bytes[random() % bytes.size()];
    texts.push_back(text);
  }
  for (char const* pattern : deckPatterns)
  {
    std::regex const standard(ForStandard(pattern));
    int matched = 0;
    for (std::string const& text : texts)
    {
      std::vector<std::string> const found = Matches(pattern, text);
      ASSERT_EQ(found, StandardMatches(standard, text)) << pattern << "\non " << text;
      matched += found.empty() ? 0 : 1;
    }
    EXPECT_GT(matched, 1) << pattern;
  }
}

TEST(rgx_match, AgreesWithTheStandardEngineOnRandomPatterns)
{
  std::mt19937 random(12);
  for (int i = 0; i < 600; ++i)
  {
    std::string const pattern = RandomPattern(random, 2);
    std::regex const standard(pattern);
    for (int j = 0; j < 8; ++j)
    {
      std::string text;
      for (auto length = random() % 13; length > 0; --length)
        text += "aabbc.\nx"[random() % 8];
      // Only the first: behind an empty match the standard engine tries the same place again.
      std::vector<std::string> const found = Matches(pattern, text);
      std::smatch expected;
      ASSERT_EQ(!found.empty(), std::regex_search(text, expected, standard)) << pattern;
      ASSERT_EQ(found.empty() ? "" : found[0], expected.str()) << pattern << "\non " << text;
    }
  }
}

TEST(rgx_match, KnowsItsOwnForms)
{
  struct
  {
    char const* pattern;
    std::string text;
    std::vector<std::string> matches;
  } const cases[] = {
    {"[[:digit:][:blank:]-]+", "a1 2-\tb", {"1 2-\t"}},
    {"[]a]+", "b]a]", {"]a]"}},
    {"[a\\]\\\\]+", "x\\]a", {"\\]a"}},
    {"\\<\\>\\\"\\t\\$", "<>\"\t$", {"<>\"\t$"}},
    {"a$", "a\na", {"a"}},
    {"(^|,)b", "b,b,cb", {"b", ",b"}},
    {"x*", "axx", {"", "xx", ""}},
    {"(a*)*b", "aab", {"aab"}},
    {"a{0}b", "ab", {"b"}},
    {"[\\0-\\t]", std::string("a\0b", 3), {std::string("\0", 1)}},
    {"[\x80-\xFF]+", "a\xC3\xA4z", {"\xC3\xA4"}},
    {"a|ab|abc", "abc", {"a"}},
    {"(a|ab)(c|bcd)$", "abcd", {"abcd"}},
  };
  for (auto const& c : cases)
    EXPECT_EQ(Matches(c.pattern, c.text), c.matches) << c.pattern;
}

TEST(rgx_match, RaisesForMalformedPatterns)
{
  std::istringstream patterns(
    R"(( a) [a [ [^] *a a** a|* + a{ a{x} a{2,1} a{1,2 a{9999} a{99999999999}
    \ [\ \q [z-a] [[:nosuch:]] (a{1000}){1000} ((((a{99}){99}){99}){99}))");
  for (std::string pattern; patterns >> pattern;)
    EXPECT_THROW(rgx_match(pattern.c_str(), cow_String("a")), nex_PrimException<atr_String>)
      << pattern;
  std::string const deep(100000, '(');
  EXPECT_THROW(rgx_match(deep.c_str(), cow_String("a")), nex_PrimException<atr_String>);
}

TEST(rgx_match, IteratesAgainFromTheFirst)
{
  rgx_ReIterator match = rgx_match(omn_FixedString("[0-9]+"), cow_String("a12b3"));
  EXPECT_EQ(match.Count(), 2);
  EXPECT_EQ(match.String(), "12");
  match.Next();
  EXPECT_EQ(match.Start(), 4);
  match.Next();
  EXPECT_TRUE(match.IsDone());
  EXPECT_TRUE(match.Matched());
  EXPECT_EQ(match.String(), "");
  match.First();
  EXPECT_EQ(match.String(), "12");
  EXPECT_EQ(rgx_match("x", cow_String("a")).Count(), 0);
}

TEST(rgx_match, TakesLongTextsInItsStride)
{
  std::string const text = "A" + std::string(10 * 1024 * 1024, 'x') + "\"";
  cow_String const subject{std::string_view(text)};
  EXPECT_EQ(rgx_match(deckPatterns[3], subject).String().Length(), subject.Length());
  // Lost at the first byte, and nothing behind it is looked at.
  EXPECT_FALSE(rgx_match(deckPatterns[0], subject).Matched());
  // Backtracking would not come back from this one.
  EXPECT_FALSE(rgx_match("(x+x+)+y", subject.Substr(0, 50000)).Matched());
}

TEST(rgx_split, CutsAtSeparatorsAndJoinsAgain)
{
  struct
  {
    char const* separator;
    char const* text;
    std::vector<std::string> pieces;
  } const cases[] = {
    {",", "", {""}},
    {",", ",a,,b,", {"", "a", "", "b", ""}},
    {"[ \t]*,[ \t]*", "a , b,c", {"a", "b", "c"}},
    {"x*", "axxb", {"a", "b"}},
  };
  for (auto const& c : cases)
  {
    cow_List<cow_String> const pieces = rgx_split(c.separator, c.text);
    std::vector<std::string> found;
    for (int i = 0; i < pieces.Length(); ++i)
      found.emplace_back(pieces.ConstGet(i).View());
    EXPECT_EQ(found, c.pieces) << c.text;
  }
  EXPECT_EQ(rgx_join(rgx_split(",", ",a,,b,"), ", "), ", a, , b, ");
  EXPECT_EQ(rgx_join(cow_List<cow_String>(), ","), "");
}

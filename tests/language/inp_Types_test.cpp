#include "inp_Types.h"

#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "rgx_Regex.h"

namespace
{

struct Pattern
{
  char const* name;
  omn_FixedString (*expression)();
  bool (*matcher)(std::string_view text);
};

Pattern const patterns[] = {
  {"integer", inp_Types::integerPat, inp_Types::IsInteger},
  {"double", inp_Types::doublePat, inp_Types::IsDouble},
  {"doubleD", inp_Types::doublePatD, inp_Types::IsDoubleD},
  {"string", inp_Types::stringPat, inp_Types::IsString},
  {"param", inp_Types::paramPat, inp_Types::IsParameter},
  {"setName", inp_Types::setNamePat, inp_Types::IsSetName},
  {"scopedID", inp_Types::scopedIDPat, inp_Types::IsScopedID},
  {"fileName", inp_Types::fileNamePat, inp_Types::IsFileName},
  {"superelementID", inp_Types::superelementIDPat, inp_Types::IsSuperelementID},
  {"userElementID", inp_Types::userElementIDPat, inp_Types::IsUserElementID},
};

/// Short texts made of what the patterns tell apart.
class TextSource
{
public:
  std::string Next()
  {
    static constexpr std::string_view pieces[] = {
      "1",  "20", ".", ".",  "-", "+",  "e",  "E", "d",   "D",      "A",      "x_", "_", "Z",
      "VU", "u",  " ", "\t", ",", "=",  "\n", "<", ">",   "$",      "%/",     "-",  "é", "\r",
      "\"", "\"", "*", ";",  "(", "z4", "0",  "v", "b c", "\"q.\"", "\"a\".", "A.", "U5"};
    std::string text;
    for (auto left = m_random() % 7; left > 0; --left)
      text += pieces[m_random() % std::size(pieces)];
    return text;
  }

private:
  std::mt19937 m_random{20240607};
};

} // namespace

TEST(inp_Types, MatchersAgreeWithTheirPatterns)
{
  for (Pattern const& pattern : patterns)
  {
    TextSource source;
    int matches = 0;
    for (int i = 0; i < 30000; ++i)
    {
      std::string const text = source.Next();
      bool const matched = rgx_match(pattern.expression(), cow_String(text)).Matched();
      ASSERT_EQ(pattern.matcher(text), matched) << pattern.name << " of <" << text << ">";
      matches += matched;
    }
    EXPECT_GT(matches, 30) << pattern.name << ": too few texts match to tell";
  }
}

TEST(inp_Types, TellsTextsApart)
{
  struct
  {
    char const *text, *matching;
  } const cases[] = {
    {"", ""},
    {" -12\t", "integer "},
    {"- 1", ""},
    {".", "double doubleD fileName "},
    {"-.5", "double doubleD "},
    {"+1.5E-3", "double "},
    {"1e", "fileName "},
    {"1.5d3", "doubleD fileName "},
    {"E1", "double string param setName fileName "},
    {"a-b 1", "string param setName fileName "},
    {"_a", "string setName fileName "},
    {"a=b", ""},
    {"\"a=,b\"", "string setName fileName "},
    {"\"\"", "string "},
    {"\"a\".\"b.c\"", "setName "},
    {"a..b", "string setName fileName "},
    {"\"a\"..b", ""},
    {"part-1.12", "string setName scopedID fileName "},
    {"\"left leg\".12 ", "scopedID "},
    {"< <a.inp > >", "fileName "},
    {"<\"a b\">", "fileName "},
    {"$HOME/a", "fileName "},
    {"z12", "string param setName fileName superelementID "},
    {"vvU3", "string param setName fileName userElementID "},
  };
  for (auto const& c : cases)
  {
    std::string matching;
    for (Pattern const& pattern : patterns)
      matching += pattern.matcher(c.text) ? std::string(pattern.name) + " " : "";
    EXPECT_EQ(matching, c.matching) << "<" << c.text << ">";
  }
}

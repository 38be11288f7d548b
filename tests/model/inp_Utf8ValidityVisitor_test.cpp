#include "inp_Utf8ValidityVisitor.h"

#include "CapturingSink.h"
#include "DeckKeywords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

constexpr char c_error[] = "error: in keyword *";

// One keyword, as the visitor leaves it, and what it says; titles of messages without the file.
struct Outcome
{
  inp_Keyword keyword;
  std::vector<std::string> lines;
};

Outcome Check(std::string const& deck)
{
  cow_List<inp_Keyword> keywords = DeckKeywords(deck);
  for (int i = 0; i < keywords.Length(); ++i)
  {
    keywords.Get(i).fileName = "";
    keywords.Get(i).lineNumber = 0;
  }
  CapturingSink sink;
  inp_Utf8ValidityVisitor().VisitListAndReport(keywords);
  return {keywords.ConstGet(0), sink.Lines()};
}

std::vector<std::string> BadParameters(std::string const& keyword,
                                       std::vector<std::string> const& parameters)
{
  std::vector<std::string> lines;
  for (std::string const& parameter : parameters)
  {
    lines.push_back(c_error + keyword + " Parameter \"" + parameter +
                    "\" value is not UTF-8 compliant.");
  }
  return lines;
}

} // namespace

TEST(inp_Utf8ValidityVisitor, ReportsNamesOfEachKeyword)
{
  struct
  {
    char const* deck;
    char const* keyword;
    std::vector<std::string> bad;
  } const cases[] = {
    {"*MATERIAL, NAME=M\xE9tal\n", "MATERIAL", {"name"}},
    {"*MATERIAL, NAME=M\xC3\xA9tal\n", "MATERIAL", {}},
    {"*MATERIAL, NAME=Metal\n", "MATERIAL", {}},
    {"*PART, NAME=\"\xFF\"\n", "PART", {"name"}},
    {"*SURFACE, NAME=S\x80\n", "SURFACE", {"name"}},
    {"*AMPLITUDE, NAME=7\n", "AMPLITUDE", {}},
    {"*NODE, NSET=N\xE9\n", "NODE", {}},
    {"*ELSET, ELSET=E\xE9\n", "ELSET", {"elset"}},
    {"*ELSET, ELSET=E\xE9, NAME=N\xE9\n", "ELSET", {"name", "elset"}},
    {"*ELSET, ELSET=E, NSET=N\xE9\n", "ELSET", {}},
    {"*NSET, NSET=N\xE9, NAME=A\n", "NSET", {"nset"}},
    {"*NSET, NSET=N, ELSET=E\xE9, NAME=A\xE9\n", "NSET", {"name"}},
    {"*COUPLING, REF NODE=R\xE9, CONSTRAINT NAME=C\xE9, NAME=X\xE9, SURFACE=S\xE9\n",
     "COUPLING",
     {"constraintname", "refnode"}},
    {"*COUPLING, REF NODE=7, CONSTRAINT NAME=C\n", "COUPLING", {}},
    {"*STEP, NAME=S\xE9\n", "STEP", {"name"}},
  };
  for (auto const& c : cases)
  {
    Outcome const outcome = Check(c.deck);
    EXPECT_EQ(BadParameters(c.keyword, c.bad), outcome.lines) << c.deck;
    EXPECT_FALSE(outcome.keyword.Is(inp_kwUndefined)) << c.deck; // a bad name stays
  }
}

TEST(inp_Utf8ValidityVisitor, RemovesBadTitles)
{
  std::string const heading = "warning: The heading is not UTF-8 compliant and has been removed.";
  std::string const step = "warning: Step subheading is not UTF-8 compliant and has been removed.";
  struct
  {
    char const* deck;
    char const* first;
    std::vector<std::string> lines;
  } const cases[] = {
    {"*HEADING\nM\xFChle, zwei\nsecond line\n", "", {heading}},
    {"*HEADING\nM\xC3\xBChle, zwei\n", "M\xC3\xBChle, zwei", {}},
    {"*HEADING\nfirst line\nM\xFChle\n", "first line", {}},
    {"*STEP, NAME=A\nEigengewicht \xC3\n", "", {step}},
    {"*STEP, NAME=A\nEigengewicht\n", "Eigengewicht", {}},
  };
  for (auto const& c : cases)
  {
    Outcome const outcome = Check(c.deck);
    EXPECT_EQ(c.lines, outcome.lines) << c.deck;
    EXPECT_EQ(c.first, outcome.keyword.data.AsStringVerbatim(0, 0).View()) << c.deck;
  }
  EXPECT_EQ(2, Check("*HEADING\nM\xFChle\nsecond line\n").keyword.data.Rows());
  EXPECT_TRUE(Check("*HEADING\n").lines.empty());
  EXPECT_TRUE(Check("*STEP, NAME=A\n").lines.empty());
}

TEST(inp_Utf8ValidityVisitor, MessagesKeepTheirPlace)
{
  cow_List<inp_Keyword> keywords =
    DeckKeywords("*HEADING\nM\xFChle\n*NSET, NSET=N\xE9\n1\n*STEP, NAME=S\xE9\nt\xE9\n");
  CapturingSink sink;
  inp_Utf8ValidityVisitor visitor;
  visitor.VisitListAndReport(keywords);
  struct
  {
    char const* code;
    int line;
    char const* keyword;
  } const expected[] = {
    {"HeadingNotUtf8", 1, "heading"},
    {"StepSubheadingNotUtf8", 5, "step"},
    {"ParameterNotUtf8", 3, "nset"},
    {"ParameterNotUtf8", 5, "step"},
  };
  ASSERT_EQ(std::size(expected), sink.Messages().size());
  for (std::size_t i = 0; i < std::size(expected); ++i)
  {
    atr_Origin const* const origin = sink.Messages()[i].text.Origin();
    ASSERT_NE(nullptr, origin);
    EXPECT_STREQ(expected[i].code, origin->code);
    EXPECT_EQ(expected[i].line, origin->line);
    EXPECT_EQ(expected[i].keyword, origin->keyword.View());
    EXPECT_GT(origin->file.Length(), 0);
  }
  EXPECT_TRUE(visitor.IsError());
  EXPECT_TRUE(visitor.IsWarning());
}

TEST(inp_Utf8ValidityVisitor, TellsWhetherANameIsBad)
{
  inp_Utf8ValidityVisitor visitor;
  cow_List<inp_Keyword> const keywords =
    DeckKeywords("*PART, NAME=P\xE9\n*PART, NAME=P\n*NODE\n1\n");
  EXPECT_TRUE(visitor.CheckNameParameterValue(keywords.ConstGet(0)));
  EXPECT_FALSE(visitor.CheckNameParameterValue(keywords.ConstGet(1)));
  EXPECT_FALSE(visitor.CheckNameParameterValue(keywords.ConstGet(2)));
  EXPECT_TRUE(visitor.IsParameterValueBad(keywords.ConstGet(1), "part", "\xFF"));
  EXPECT_EQ(2, visitor.GetErrorList().Length());
  EXPECT_FALSE(inp_Utf8ValidityVisitor::IsBad(""));
}

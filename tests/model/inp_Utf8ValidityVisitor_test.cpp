#include "inp_Utf8ValidityVisitor.h"

#include "CapturingSink.h"
#include "DeckKeywords.h"
#include "MessageText.h"
#include "inp_KeywordEnm.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

/// The visitor's way with a deck.
struct Checked
{
  explicit Checked(std::string const& deck) : keywords(DeckKeywords(deck))
  {
    cow_String const file = keywords.ConstGet(0).fileName;
    CapturingSink sink;
    visitor.VisitListAndReport(keywords);
    for (wip_Message const& message : sink.Messages())
      messages += MessageText(message.isWarning ? "warning" : "error", message.text, file) + "\n";
  }

  cow_List<inp_Keyword> keywords;
  inp_Utf8ValidityVisitor visitor;
  std::string messages; ///< a line each, see MessageText
};

std::string Bad(std::string const& parameter, char const* line = "1")
{
  return line + (" error: Parameter \"" + parameter) + "\" value is not UTF-8 compliant.\n";
}

} // namespace

TEST(inp_Utf8ValidityVisitor, ReportsNamesOfEachKeyword)
{
  struct
  {
    std::string deck, messages;
  } const cases[] = {
    {"*MATERIAL, NAME=M\xE9tal\n", Bad("name")},
    {"*MATERIAL, NAME=M\xC3\xA9tal\n", ""},
    {"*PART, NAME=\"\xFF\"\n", Bad("name")},
    {"*AMPLITUDE, NAME=7\n", ""},
    {"*NODE, NSET=N\xE9\n", ""},
    {"*ELSET, ELSET=E\xE9, NAME=N\xE9\n", Bad("name") + Bad("elset")},
    {"*ELSET, ELSET=E, NSET=N\xE9\n", ""},
    {"*NSET, NSET=N\xE9, NAME=A\n", Bad("nset")},
    {"*NSET, NSET=N, ELSET=E\xE9, NAME=A\xE9\n", Bad("name")},
    {"*COUPLING, REF NODE=R\xE9, CONSTRAINT NAME=C\xE9, NAME=X\xE9, SURFACE=S\xE9\n",
     Bad("constraintname") + Bad("refnode")},
    {"*COUPLING, REF NODE=7, CONSTRAINT NAME=C\n", ""},
  };
  for (auto const& c : cases)
  {
    Checked const checked(c.deck);
    EXPECT_EQ(c.messages, checked.messages) << c.deck;
    EXPECT_FALSE(checked.keywords.ConstGet(0).Is(inp_kwUndefined)) << c.deck; // a bad name stays
  }
}

TEST(inp_Utf8ValidityVisitor, RemovesBadTitles)
{
  std::string const heading =
    "1 warning: untitled: The heading is not UTF-8 compliant and has been removed.\n";
  auto const step = [](char const* line)
  {
    return line + std::string(" warning: untitled: Step subheading is not UTF-8 compliant and has "
                              "been removed.\n");
  };
  struct
  {
    char const* deck;
    int rows;
    char const* first;
    std::string messages;
  } const cases[] = {
    {"*HEADING\nM\xFChle, zwei\nsecond line\n", 2, "", heading},
    {"*HEADING\nM\xC3\xBChle, zwei\n", 1, "M\xC3\xBChle, zwei", ""},
    {"*HEADING\nfirst line\nM\xFChle\n", 2, "first line", ""},
    {"*STEP, NAME=A\nEigengewicht \xC3\n", 1, "", step("1")},
    {"*STEP, NAME=A\nEigengewicht\n", 1, "Eigengewicht", ""},
    {"*HEADING\n*STEP, NAME=A\n", 0, "", ""},
    {"*HEADING\nM\xFChle\n*NSET, NSET=N\xE9\n1\n*STEP, NAME=S\xE9\nt\xE9\n", 1, "",
     heading + step("5") + Bad("nset", "3") + Bad("name", "5")},
  };
  for (auto const& c : cases)
  {
    Checked const checked(c.deck);
    EXPECT_EQ(c.messages, checked.messages) << c.deck;
    inp_DataArray const& data = checked.keywords.ConstGet(0).data;
    EXPECT_EQ(c.rows, data.Rows()) << c.deck;
    EXPECT_EQ(c.first, c.rows == 0 ? "" : data.AsStringVerbatim(0, 0)) << c.deck;
  }
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

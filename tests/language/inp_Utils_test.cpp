#include "inp_Utils.h"

#include <string>

#include <gtest/gtest.h>

#include "VRXBasException.h"
#include "inp_Keyword.h"
#include "inp_KeywordEnm.h"

namespace
{

template <class T>
std::string Joined(cow_List<T> const& items)
{
  std::string text;
  for (T const& item : items)
    if constexpr (std::is_same_v<T, int>)
      text += (text.empty() ? "" : " ") + std::to_string(item);
    else
      text += (text.empty() ? "" : " ") + std::string(item.View());
  return text;
}

cow_List<int> Numbers(std::initializer_list<int> numbers)
{
  cow_List<int> list;
  for (int const number : numbers)
    list.Append(number);
  return list;
}

using Rename = cow_String (*)(cow_String const&);

} // namespace

TEST(inp_Utils, FlattensScopedNames)
{
  struct
  {
    char const *a, *b, *flattened;
  } const cases[] = {
    {"a", "b", "a_b"},
    {"\"a 1\"", "b", "\"a 1_b\""},
    {"a", "\"b.1\"", "\"a_b.1\""},
    {"\"a\"", "\"b\"", "\"a_b\""},
    {"\"a", "b", "\"a_b"},
    {"\"", "b", "\"_b\""},
  };
  for (auto const& c : cases)
    EXPECT_EQ(inp_Utils::CreateFlattenedName(c.a, c.b), c.flattened);
  EXPECT_EQ(inp_Utils::CreateFlattenedName("a", "\"b\"", "c"), "\"a_b_c\"");
}

TEST(inp_Utils, SplitsAtPeriodsOutsideQuotes)
{
  struct
  {
    char const* name;
    int pieces;
    char const* joined;
    bool hasPeriod, isSetName, isSetId;
  } const cases[] = {
    {"", 1, "", false, false, false},
    {"a", 1, "a", false, false, false},
    {"a.b", 2, "a b", true, true, false},
    {"a.12", 2, "a 12", true, false, true},
    {"a.", 2, "a ", true, false, false},
    {"a.b.c", 3, "a b c", true, true, false},
    {"\"a.b\".c", 2, "\"a.b\" c", true, true, false},
    {"\"a.b\"", 1, "\"a.b\"", false, false, false},
  };
  for (auto const& c : cases)
  {
    SCOPED_TRACE(c.name);
    cow_List<cow_String> const pieces = inp_Utils::SplitScopedSet(c.name);
    EXPECT_EQ(pieces.Length(), c.pieces);
    EXPECT_EQ(Joined(pieces), c.joined);
    EXPECT_EQ(inp_Utils::HasNameUnquotedPeriod(c.name), c.hasPeriod);
    EXPECT_EQ(inp_Utils::IsScopedSetName(pieces), c.isSetName);
    EXPECT_EQ(inp_Utils::IsScopedSetId(pieces), c.isSetId);
  }
  EXPECT_TRUE(inp_Utils::IsId("1a"));
  EXPECT_FALSE(inp_Utils::IsId("-1"));
  EXPECT_FALSE(inp_Utils::IsId(""));
}

TEST(inp_Utils, RewritesNames)
{
  struct
  {
    Rename rename;
    char const *name, *result;
  } const cases[] = {
    {inp_Utils::RemovePeriod, "1.2", "1.2"},
    {inp_Utils::RemovePeriod, "a.b", "a_b"},
    {inp_Utils::RemovePeriod, "\"a.b\".c", "\"a_b\"_c"},
    {inp_Utils::RemovePeriod, ".1", "_1"},
    {inp_Utils::RemoveUnquotedPeriod, "a.\"b.c\".d", "a\"b.c\"d"},
    {inp_Utils::ReplaceUnquotedPeriodWithUnderscore, "a.\"b.c\".d", "a_\"b.c\"_d"},
    {inp_Utils::ReplaceUnquotedPeriodWithUnderscore, "1.2", "1_2"},
    {inp_Utils::TakeOutSpacesOutsideQuoted, " a\tb\r\" c \"d e", "ab\" c \"de"},
    {inp_Utils::TakeOutSpacesOutsideQuoted, "a b\nc", "ab\n"},
    {inp_Utils::TakeOutSpacesOutsideQuoted, "\"a\nb\"", "\"a\n"},
    {inp_Utils::TakeOutSpacesAndUpperOutsideQuoted, "a b\"c d\"e-1\v", "AB\"c d\"E-1\v"},
    {inp_Utils::TakeOutSpacesAndUpperOutsideQuoted, "", ""},
    {inp_Utils::TakeOutSpacesAndUpperOutsideQuoted, "\xe4", "\xe4"},
  };
  for (auto const& c : cases)
    EXPECT_EQ(c.rename(c.name), c.result) << "<" << c.name << ">";
}

TEST(inp_Utils, NamesAreRewrittenUpToTheirLimit)
{
  std::string const name = "a." + std::string(300, 'b');
  std::string const plain(300, 'c');
  Rename const replace = inp_Utils::ReplaceUnquotedPeriodWithUnderscore;
  EXPECT_EQ(replace(cow_String(name)), ("a_" + std::string(253, 'b')).c_str());
  EXPECT_EQ(inp_Utils::RemoveUnquotedPeriod(cow_String(name)),
            ("a" + std::string(254, 'b')).c_str());
  EXPECT_EQ(replace(cow_String(plain)), plain.c_str()) << "nothing to rewrite, nothing cut";

  std::string const longest = std::string(255, 'x') + std::string(100, ' ');
  EXPECT_EQ(inp_Utils::LengthWithoutSpaces(longest.c_str()), 255);
  EXPECT_EQ(inp_Utils::TakeOutSpacesOutsideQuoted(cow_String(longest)).Length(), 255);
  EXPECT_THROW(inp_Utils::TakeOutSpacesOutsideQuoted(cow_String(longest + "x")),
               VRXBasAssertException);
}

TEST(inp_Utils, MessagesBeginWithTheirPlace)
{
  struct
  {
    inp_Keyword keyword;
    int line;
    char const* title;
  } cases[] = {
    {inp_Keyword(inp_kwShellSection), 0, "in keyword *SHELLSECTION "},
    {inp_Keyword(inp_kwNode, "/home/me/a.inp"), 0, "in keyword *NODE, file \"/home/me/a.inp\" "},
    {inp_Keyword(inp_kwNode, "C:\\me\\a.inp"), 12, "in keyword *NODE, file \"a.inp\", line 12: "},
  };
  for (auto& c : cases)
  {
    c.keyword.lineNumber = c.line;
    EXPECT_EQ(inp_Utils::FormTitleForMessage(c.keyword), c.title);
    atr_String message("Text.");
    atr_Origin origin;
    origin.code = "Code";
    message.SetOrigin(origin);
    atr_String const whole = inp_Utils::MessageInKeyword(c.keyword, message);
    EXPECT_EQ(std::string(whole.View()), c.title + std::string("Text."));
    ASSERT_NE(whole.Origin(), nullptr);
    EXPECT_STREQ(whole.Origin()->code, "Code");
    EXPECT_EQ(whole.Origin()->file, c.keyword.fileName);
    EXPECT_EQ(whole.Origin()->line, c.line);
    EXPECT_EQ(whole.Origin()->keyword, c.keyword.Name());
  }
}

TEST(inp_Utils, MessagesEndWithTheirItems)
{
  inp_Keyword const node(inp_kwNode);
  cow_List<int> const numbers = Numbers({5, 6});
  cow_List<cow_String> const names("a", "b");
  using Utils = inp_Utils;
  EXPECT_EQ(Utils::MessageInKeyword(node, "No", numbers), "in keyword *NODE No:\n5, 6");
  EXPECT_EQ(Utils::MessageInKeyword(node, "No", names), "in keyword *NODE No:\na, b");
  EXPECT_EQ(Utils::MessageWithItems("No", numbers), "No\n    5, 5, 6");
  EXPECT_EQ(Utils::MessageWithItems("No", names), "No\n    a, b");
  EXPECT_EQ(Utils::MessageWithItems("No", cow_List<int>()), "");
}

TEST(inp_Utils, GeneratesNumbersOfARow)
{
  std::string const items = "There are fewer than 2 items on a data line for which a generation "
                            "sequence (start id, end id, optional increment number) is expected.  "
                            "The keyword in question is related to NSET.  Please check input data.";
  auto const cannotStep =
    [](std::string const& step, std::string const& from, std::string const& to)
  {
    return "Increment of " + step + " cannot be used to step from " + from + " to " + to +
           " on NSET keyword.";
  };
  struct
  {
    std::initializer_list<int> row;
    char const *set, *inOrder;
    std::string error;
  } const cases[] = {
    {{1, 4}, "1 2 3 4", "1 2 3 4", ""},
    {{1, 10, 3}, "1 4 7 10", "1 4 7 10", ""},
    {{10, 1, -3}, "1 4 7 10", "10 7 4 1", ""},
    {{5, 5, -7}, "5", "5", ""},
    {{10, 1}, "", "", cannotStep("1", "10", "1")},
    {{1, 10, -1}, "", "", cannotStep("-1", "1", "10")},
    {{2147483647, -2147483647, -2147483647},
     "-2147483647 0 2147483647",
     "2147483647 0 -2147483647",
     ""},
    {{-2147483647 - 1, 2147483647, 2}, "", "", cannotStep("2", "-2147483648", "2147483647")},
    {{1}, "", "", items},
  };
  for (auto const& c : cases)
  {
    cow_List<atr_String> errors, unsortedErrors;
    cow_List<int> const row = Numbers(c.row);
    EXPECT_EQ(Joined(inp_Utils::GenerateSetRow(row, "NSET", errors).ConstGetArrayCounterpart()),
              c.set);
    EXPECT_EQ(Joined(inp_Utils::GenerateUnsortedSetRow(row, "NSET", unsortedErrors)), c.inOrder);
    EXPECT_EQ(Joined(errors), c.error);
    EXPECT_EQ(Joined(unsortedErrors), c.error);
  }
}

TEST(inp_Utils, GeneratesNumbersOfAllRows)
{
  inp_DataArray rows;
  for (char const* row : {"7, 3, -2", "1, 3,, ", "9", "2,,2"})
    rows.Append(row);
  cow_List<atr_String> errors, unsortedErrors;
  EXPECT_EQ(Joined(inp_Utils::GenerateSetIds(rows, "NSET", errors).ConstGetArrayCounterpart()),
            "1 2 3 5 7");
  EXPECT_EQ(Joined(inp_Utils::GenerateUnsortedSetIds(rows, "NSET", unsortedErrors)),
            "7 5 3 1 2 3 2");
  EXPECT_EQ(errors.Length(), 1);
  EXPECT_EQ(unsortedErrors.Length(), 1);
}

TEST(inp_Utils, GeneratesScopedNumbers)
{
  struct
  {
    char const *row, *sorted, *inOrder, *errors;
  } const cases[] = {
    {"part-1.3, part-1.1, -1", "PART-1.1 PART-1.2 PART-1.3", "PART-1.3 PART-1.2 PART-1.1", ""},
    {"asm.in.1, asm.in.2", "ASM.1 ASM.2", "ASM.1 ASM.2", ""},
    {"a.1, 2", "A.1 A.2", "A.1 A.2", ""},
    {"1, a.2", "1 2", "1 2", ""},
    {"a.1", "", "", ""},
    {"a.1, b.2", "", "",
     "The start and end id instance names must match when generating assembly NSET ids: A.1, B.2"},
    {"a.1, a.4, 2", "", "", "Increment of 2 cannot be used to step from 1 to 4 on NSET keyword."},
  };
  for (auto const& c : cases)
  {
    inp_DataArray rows;
    rows.Append(c.row);
    cow_List<atr_String> errors, unsortedErrors;
    EXPECT_EQ(Joined(inp_Utils::GenerateScopedIds(rows, "NSET", errors)), c.sorted);
    EXPECT_EQ(Joined(inp_Utils::GenerateUnsortedScopedIds(rows, "NSET", unsortedErrors)),
              c.inOrder);
    EXPECT_EQ(Joined(errors), c.errors);
    EXPECT_EQ(Joined(unsortedErrors), c.errors);
  }
}

TEST(inp_Utils, ListsNoMoreNumbersThanMemoryHolds)
{
  inp_DataArray rows;
  for (char const* row : {"3, 1, -2", "1, 999999999", "a.1, a.900000000"})
    rows.Append(row);
  cow_List<atr_String> errors;
  EXPECT_EQ(Joined(inp_Utils::GenerateScopedIds(rows, "NSET", errors)), "1 3");
  EXPECT_EQ(Joined(inp_Utils::GenerateUnsortedScopedIds(rows, "NSET", errors)), "3 1");
  EXPECT_EQ(Joined(inp_Utils::GenerateUnsortedSetRow(Numbers({1, 999999999}), "NSET", errors)), "");
  EXPECT_EQ(Joined(inp_Utils::GenerateUnsortedSetIds(rows, "NSET", errors)), "3 1 0");
  ASSERT_EQ(errors.Length(), 6);
  for (int const last : {0, 2, 4, 5})
    EXPECT_EQ(errors[last].View(),
              "The range from 1 to 999999999 with a step of 1 on NSET holds more "
              "ids than a set can. It is left out.");
  EXPECT_EQ(errors[1].View(),
            "The range from A.1 to A.900000000 with a step of 1 on NSET holds more "
            "ids than a set can. It is left out.");
}

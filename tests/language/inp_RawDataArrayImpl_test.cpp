#include "inp_RawDataArrayImpl.h"

#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "VRXBasException.h"
#include "inp_DataArray.h"

namespace
{

/// The cells of all rows as written: "1|a b||" and a line feed a row.
template <class Rows>
std::string Listing(Rows const& rows)
{
  std::string text;
  for (int i = 0; i < rows.Rows(); ++i)
  {
    for (int j = 0; j < rows.Cols(i); ++j)
      text += (j > 0 ? "|" : "") + std::string(rows.AsStringVerbatim(i, j).View());
    text += "\n";
  }
  return text;
}

std::string LineOf(std::mt19937& random, unsigned longest)
{
  static constexpr char characters[] = ",,,,ab1. \"";
  std::string line;
  for (auto left = random() % longest; left > 0; --left)
    line += characters[random() % (std::size(characters) - (random() % 8 == 0 ? 1 : 2))];
  return line;
}

std::vector<std::string> Divided(std::string const& line)
{
  std::vector<std::string> cells(1);
  bool inQuotes = false;
  for (char const c : line)
  {
    inQuotes = inQuotes != (c == '"');
    if (c == ',' && !inQuotes)
      cells.emplace_back();
    else
      cells.back() += c;
  }
  return cells;
}

std::string FailedCondition(void (*act)(inp_RawDataArrayImpl&))
{
  inp_RawDataArrayImpl rows;
  rows.Append("1,2");
  try
  {
    act(rows);
  }
  catch (VRXBasAssertException const& fault)
  {
    return fault.Condition();
  }
  return "";
}

} // namespace

TEST(inp_RawDataArrayImpl, DividesLinesAtCommasOutsideQuotes)
{
  inp_RawDataArrayImpl rows;
  for (char const* line : {"1,2,", "", ",", "\"a,b\",c", "\"a,b", " a b ,\t1\t", "a\"b,c\"d,e"})
    rows.Append(line);
  rows.AppendRaw("a, \"b");
  EXPECT_EQ(Listing(rows), "1|2|\n"
                           "\n"
                           "|\n"
                           "\"a,b\"|c\n"
                           "\"a,b\n"
                           "a b|1\n"
                           "a\"b,c\"d|e\n"
                           "a, \"b\n");
  std::string continued;
  for (int i = 0; i < rows.Rows(); ++i)
    continued += rows.HasRowContinuation(i) ? '+' : '.';
  EXPECT_EQ(continued, "+++.....");
}

TEST(inp_RawDataArrayImpl, DividesAnyLineAsAPlainSplitDoes)
{
  std::mt19937 random(1);
  inp_RawDataArrayImpl rows;
  std::vector<std::vector<std::string>> expected;
  for (int i = 0; i < 4000; ++i)
  {
    std::string const line = LineOf(random, i % 3 == 0 ? 300 : 40);
    expected.push_back(Divided(line));
    if (i % 2 == 0)
      rows.Append(line.c_str());
    else // what stands behind the line is read, and must not count
      rows.AppendLine((line + ",\",,,,\"x,,,,,,,\"").c_str(), line.size());
  }
  std::unique_ptr<inp_RawDataArrayImpl> const copy(rows.Copy());
  ASSERT_EQ(rows.Rows(), 4000);
  for (int i = 0; i < rows.Rows(); ++i)
  {
    std::vector<std::string> const& cells = expected[static_cast<std::size_t>(i)];
    ASSERT_EQ(rows.Cols(i), static_cast<int>(cells.size())) << i;
    char const* at = rows.RowText(i);
    for (std::string const& cell : cells)
    {
      ASSERT_EQ(at, cell) << i;
      at += cell.size() + 1;
    }
  }
  EXPECT_EQ(Listing(*copy), Listing(rows));
}

TEST(inp_RawDataArrayImpl, TakesRowsAgainWhenItHasBeenCleared)
{
  char const line[32] = "2, b";
  inp_RawDataArrayImpl rows;
  for (int times = 0; times < 3; ++times)
  {
    std::string listing;
    for (int i = 0; i < 25; ++i) // more than there is room for at first
    {
      rows.Append("1,a");
      rows.AppendLine(line, 4);
      listing += "1|a\n2|b\n";
    }
    EXPECT_EQ(Listing(rows), listing);
    rows.Clear();
    EXPECT_EQ(rows.Rows(), 0);
  }
}

TEST(inp_RawDataArrayImpl, TellsTheTypeOfACellByItsCharacters)
{
  struct
  {
    inp_Types::typeEnm type;
    std::vector<char const*> cells;
  } const cases[] = {
    {inp_Types::inp_NONE, {"", " \t\r"}},
    {inp_Types::inp_INTEGER, {"1", " +12 ", "-", "+", "123456789", "1\r"}},
    {inp_Types::inp_REAL,
     {"1234567890", "-1234567890", ".", "1E+5", "1.5d-3", "-1-2", "1d", "+e", "1.-", "--"}},
    {inp_Types::inp_STRING,
     {"e5", "D", "1e5e", "1ed", "1--2", "1..2", "..", "1 2", "1 .", "abc", "1x", "\"1\"", "1,5"}},
  };
  for (auto const& c : cases)
    for (char const* cell : c.cells)
    {
      inp_RawDataArrayImpl rows;
      rows.AppendRaw(cell);
      EXPECT_EQ(rows.Type(0, 0), c.type) << "<" << cell << ">";
    }
}

TEST(inp_RawDataArrayImpl, ReadsCells)
{
  inp_RawDataArrayImpl rows;
  rows.Append(" 12abc , +7, 1.5 ,\t\"a b\"c d, x y\r,2.5d1, 1D2d3,,99999999999");
  EXPECT_EQ(rows.AsInt(0, 0), 12);
  EXPECT_EQ(rows.AsInt(0, 1), 7);
  EXPECT_EQ(rows.AsInt(0, 3), 0);
  EXPECT_EQ(rows.AsInt(0, 8), 2147483647);
  EXPECT_EQ(rows.AsDouble(0, 2), 1.5);
  EXPECT_EQ(rows.AsString(0, 3), "\"a b\"CD");
  EXPECT_EQ(rows.AsStringVerbatim(0, 3), "\"a b\"c d");
  EXPECT_EQ(rows.AsString(0, 4), "XY");
  EXPECT_EQ(rows.AsStringVerbatim(0, 4), "x y\r");

  EXPECT_EQ(rows.AsDouble(0, 5), 25.0);
  EXPECT_EQ(rows.AsStringVerbatim(0, 5), "2.5e1") << "the letter changes where it is stored";
  EXPECT_EQ(rows.AsDouble(0, 6), 100.0);
  EXPECT_EQ(rows.AsStringVerbatim(0, 6), "1e2d3") << "one letter a reading, the capital first";

  EXPECT_TRUE(rows.IsNone(0, 7));
  EXPECT_TRUE(rows.HasValue(0, 0));
  for (int const outside : {-1, 9})
  {
    EXPECT_FALSE(rows.HasValue(0, outside));
    EXPECT_FALSE(rows.HasValue(outside, 0));
  }
}

TEST(inp_RawDataArrayImpl, SetBuildsTheRowAnew)
{
  struct
  {
    char const* row;
    int column;
    char const *text, *result;
  } const cases[] = {
    {"1, 2", 0, "a", "a|2\n"},
    {"1, 2", 5, "x", "1|2||||x\n"},
    {"1,2", 1, "a,b", "1|a|b\n"},
    {"1,2", 1, "\"a,b\"", "1|\"a,b\"\n"},
    {"\"a, b\",2,", 1, "", "\"a, b\"||\n"},
    {"1,2", 1, "a text that takes more than the block of the row", //
     "1|a text that takes more than the block of the row\n"},
  };
  for (auto const& c : cases)
  {
    inp_RawDataArrayImpl rows;
    rows.Append(c.row);
    rows.Set(0, c.column, cow_String(c.text));
    EXPECT_EQ(Listing(rows), c.result) << c.row;
  }
  inp_RawDataArrayImpl numbers;
  numbers.Append("a");
  numbers.Set(0, 1, -7);
  numbers.Set(0, 2, 0.25);
  EXPECT_EQ(Listing(numbers), "a|-7|0.25\n");
}

TEST(inp_RawDataArrayImpl, IndicesOutOfRangeBreakAnInvariant)
{
  char const* const row = "i >= 0 && i < nrows";
  char const* const column = "j >= 0 && j < ncols[i]";
  using Rows = inp_RawDataArrayImpl;
  EXPECT_EQ(FailedCondition([](Rows& rows) { rows.Cols(1); }), row);
  EXPECT_EQ(FailedCondition([](Rows& rows) { rows.Type(0, 2); }), column);
  EXPECT_EQ(FailedCondition([](Rows& rows) { rows.IsNone(0, -1); }), column);
  EXPECT_EQ(FailedCondition([](Rows& rows) { rows.HasRowContinuation(1); }), row);
  EXPECT_EQ(FailedCondition([](Rows& rows) { rows.Set(1, 0, 1); }), row);
  EXPECT_EQ(FailedCondition([](Rows& rows) { rows.Set(0, -1, 1); }), "j >= 0");
  static Rows::NewCell const cell{2, "x"};
  EXPECT_EQ(FailedCondition([](Rows& rows) { rows.SetCells(0, &cell, 1); }), column);
}

TEST(inp_DataArray, CopiesShareTheirRowsUntilOneTakesOthers)
{
  inp_DataArray a;
  a.Append("1,2");
  inp_DataArray b = a;
  inp_DataArray const apart = a.Copy();
  b.Set(0, 0, 9);
  b.Append(cow_List<cow_String>("x", "y z", ""));
  EXPECT_EQ(Listing(a), "9|2\nx|y z|\n");
  EXPECT_EQ(Listing(apart), "1|2\n");

  b.Set(new inp_RawDataArrayImpl);
  b.AppendRaw("3,4");
  EXPECT_EQ(Listing(a), "9|2\nx|y z|\n");
  EXPECT_EQ(Listing(b), "3,4\n");
}

TEST(inp_DataArray, ADefaultStandsInForAMissingCell)
{
  inp_DataArray rows;
  rows.Append(" a b ,");
  EXPECT_EQ(rows.AsString(0, 0, "x"), "AB");
  EXPECT_EQ(rows.AsString(0, 1, "x"), "") << "an empty cell is a cell";
  EXPECT_EQ(rows.AsString(0, 2, "x y \"z z\""), "XY\"z z\"");
  EXPECT_EQ(rows.AsString(1, 0, "x"), "X");
}

// Set, a cell at a time from the right, is the slow way to the same row.
TEST(inp_RawDataArrayImpl, SetCellsDoesWhatSetDoesCellByCell)
{
  std::mt19937 random(5);
  static constexpr char const* texts[] = {"", "x", "\"a, b\"", "1,2", "PART-1-1.123456", "a.b"};
  inp_RawDataArrayImpl rows;
  inp_RawDataArrayImpl slow;
  for (int i = 0; i < 2000; ++i)
  {
    std::string line = LineOf(random, 40);
    std::erase(line, '"'); // a quote left open would take in what comes behind
    rows.Append(line.c_str());
    slow.Append(line.c_str());
    std::vector<inp_RawDataArrayImpl::NewCell> cells;
    for (int column = 0; column < rows.Cols(i); ++column)
      if (random() % 2 == 0)
        cells.push_back({column, texts[random() % std::size(texts)]});
    rows.SetCells(i, cells.data(), static_cast<int>(cells.size()));
    for (auto cell = cells.rbegin(); cell != cells.rend(); ++cell)
      slow.Set(i, cell->column, cell->text);
  }
  EXPECT_EQ(Listing(rows), Listing(slow));
}

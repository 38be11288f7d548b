#include "inp_NodeDataArrayImpl.h"

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Lists.h"
#include "VRXBasException.h"
#include "inp_DataArray.h"
#include "inp_ParserExceptions.h"

namespace
{

inp_DataArray Raw(std::vector<std::string> const& lines)
{
  inp_DataArray raw;
  for (std::string const& line : lines)
    raw.Append(line.c_str());
  return raw;
}

std::string RowText(inp_DataArrayImpl const& rows, int i)
{
  std::string text(rows.AsString(i, 0).View());
  for (int j = 1; j < rows.Cols(i); ++j)
    text += " " + std::string(rows.AsString(i, j).View());
  return text;
}

/// The row that a line becomes, or what is raised for it.
std::string Converted(std::string const& line)
{
  std::string row;
  std::string const fault = Raised(
    [&]
    {
      inp_NodeDataArrayImpl rows;
      rows.SetRaw(Raw({line}));
      row = RowText(rows, 0);
    });
  return row.empty() ? fault : row;
}

} // namespace

TEST(inp_NodeDataArrayImpl, ReadsLabels)
{
  std::pair<char const*, char const*> const cases[] = {
    {" \t7 \t", "7 0. 0. 0. 0. 0. 0."},
    {"999999999", "999999999 0. 0. 0. 0. 0. 0."},
    {"000000012", "12 0. 0. 0. 0. 0. 0."},
    {"+12345678", "12345678 0. 0. 0. 0. 0. 0."},
    {"1234567890", "Node label exceeds 9 digits: 1234567890"},
    {"0000000001", "Node label exceeds 9 digits: 0000000001"},
    {"-3", "Node label is not a positive integer: -3"},
    {"1.", "Node label is not an integer: 1."},
    {" a b ", "Node label is not an integer: AB"},
    {"5\v", "Node label is not an integer: 5\v"},
    {"", "0 0. 0. 0. 0. 0. 0."},
    {",1.", "Node label is not an integer: "},
  };
  for (auto const& [label, result] : cases)
    EXPECT_EQ(Converted(label), result) << label;
}

TEST(inp_NodeDataArrayImpl, ReadsCoordinates)
{
  struct
  {
    char const* cell;
    double value;
    bool isGood;
  } const cases[] = {
    {"  ", 0., true},     {" -1.5 ", -1.5, true}, {"+.5", .5, true},    {"1E-3", 1e-3, true},
    {"1d+2", 100., true}, {"1.D-2\r", .01, true}, {"0x10", 16., true},  {"2\t", 2., true},
    {"1e-400", 0., true}, {"1e308", 1e308, true}, {"1.0x", 0., false},  {"1 2", 0., false},
    {"1d2D3", 0., false}, {"1.5D", 0., false},    {"--1", 0., false},   {"nan", 0., false},
    {"INF", 0., false},   {"-1D999", 0., false},  {"\"1\"", 0., false},
  };
  for (auto const& c : cases)
  {
    std::string const result = Converted(std::string("5,") + c.cell);
    if (!c.isGood)
    {
      EXPECT_EQ(result, "Invalid nodal coordinate values were specified for the following nodes: 5")
        << c.cell;
      continue;
    }
    inp_NodeDataArrayImpl rows;
    rows.SetRaw(Raw({std::string("5, 0, 0, 0, 0, 0,") + c.cell}));
    EXPECT_EQ(rows.AsDouble(0, 6), c.value) << c.cell;
  }
}

TEST(inp_NodeDataArrayImpl, EveryRowHasSevenColumns)
{
  inp_NodeDataArrayImpl rows;
  rows.SetRaw(Raw({"1", "2, 1, 2, 3", "4, 1, 2, 3, 4, 5, 6, 7, x", "5, 1,"}));
  std::string text;
  for (int i = 0; i < rows.Rows(); ++i)
  {
    EXPECT_EQ(rows.Cols(i), 7);
    text += RowText(rows, i) + "\n";
  }
  EXPECT_EQ(text, "1 0. 0. 0. 0. 0. 0.\n"
                  "2 1. 2. 3. 0. 0. 0.\n"
                  "4 1. 2. 3. 4. 5. 6.\n"
                  "5 1. 0. 0. 0. 0. 0.\n");
}

TEST(inp_NodeDataArrayImpl, NamesBadNodesInAscendingOrder)
{
  auto const report = [](std::vector<std::string> const& lines)
  { return Raised([&] { inp_NodeDataArrayImpl().SetRaw(Raw(lines)); }); };
  std::string const head =
    "Invalid nodal coordinate values were specified for the following nodes:";
  EXPECT_EQ(report({"30, x", "4, 1", "2, 1, 1, y", "30, z"}), head + " 2 30") << "each once";
  EXPECT_EQ(report({"30, x", "-4, 1"}), "Node label is not a positive integer: -4")
    << "a bad label comes first";

  std::vector<std::string> lines;
  std::string firstBad = head;
  for (int id = 1; id <= 103; ++id)
  {
    lines.insert(lines.begin(), std::to_string(id) + ", x");
    if (id <= 102)
      firstBad += " " + std::to_string(id);
  }
  EXPECT_EQ(report(lines), firstBad) << "102 at most";
}

TEST(inp_NodeDataArrayImpl, PutsThePlainExponentIntoTheRawRow)
{
  inp_DataArray const raw = Raw({"1, 1.5D3, 2.5d-1, 7"});
  inp_NodeDataArrayImpl().SetRaw(raw);
  EXPECT_EQ(raw.AsStringVerbatim(0, 1), "1.5e3");
  EXPECT_EQ(raw.AsStringVerbatim(0, 2), "2.5e-1");
}

TEST(inp_NodeDataArrayImpl, ReplacesItsRowsAndTakesAnyForm)
{
  inp_NodeDataArrayImpl rows;
  rows.SetRaw(Raw({"1, 1", "2, 2"}));
  rows.SetRaw(Raw({"3"}));
  ASSERT_EQ(rows.Rows(), 1);
  EXPECT_EQ(RowText(rows, 0), "3 0. 0. 0. 0. 0. 0.");
  inp_DataArray const numeric(rows.Copy());
  inp_NodeDataArrayImpl again;
  again.SetRaw(numeric);
  EXPECT_EQ(RowText(again, 0), "3 0. 0. 0. 0. 0. 0.");
  again.SetRaw(inp_DataArray());
  EXPECT_EQ(again.Rows(), 0);
}

TEST(inp_NodeDataArrayImpl, KeepsOneRowFreeWhenRowsAreAppended)
{
  inp_NodeDataArrayImpl rows(3);
  EXPECT_EQ(rows.Rows(), 0);
  rows.Append(7, 1., 2., 3.);
  rows.Append(8, 4., 5., 6.);
  EXPECT_EQ(RowText(rows, 0), "7 1. 2. 3. 0. 0. 0.");
  EXPECT_EQ(RowText(rows, 1), "8 4. 5. 6. 0. 0. 0.");
  EXPECT_EQ(Raised<VRXBasAssertException>([&] { rows.Append(9, 0., 0., 0.); }),
            "nrows+1 < allocatedSize");
  EXPECT_EQ(rows.Rows(), 2);
  EXPECT_THROW(inp_NodeDataArrayImpl().Append(1, 0., 0., 0.), VRXBasAssertException);
}

TEST(inp_NodeDataArrayImpl, EachColumnHasItsType)
{
  inp_NodeDataArrayImpl rows;
  rows.SetRaw(Raw({"1, 1.5", ""}));
  EXPECT_EQ(rows.Type(0, 0), inp_Types::inp_INTEGER);
  EXPECT_EQ(rows.Type(1, 6), inp_Types::inp_REAL);
  rows.Set(1, 0, 12);
  rows.Set(1, 6, 0.25);
  EXPECT_EQ(rows.AsInt(1, 0), 12);
  EXPECT_EQ(rows.AsStringVerbatim(1, 6), "0.25");

  struct
  {
    std::function<void()> action;
    std::string message;
  } const cases[] = {
    {[&] { rows.AsInt(0, 1); }, "Keyword data cannot be converted to an integer"},
    {[&] { rows.AsDouble(0, 0); }, "Node number cannot be converted to a double"},
    {[&] { rows.Set(0, 1, 5); }, "Nodal coordinates or normals cannot be an integer"},
    {[&] { rows.Set(0, 0, 5.); }, "Node number cannot be a double"},
    {[&] { rows.Set(0, 0, cow_String("5")); },
     "Nodal id, coordinates or normals cannot set as a string"},
    {[&] { rows.Append("5, 1"); },
     "There has been an attempt to append a generic data line to a *NODE keyword.  This can happen "
     "when the nodal coordinate listing is separated from the *NODE keyword.  Please make sure "
     "your include files contain complete keywords (keyword + parameters + data lines).  Note that "
     "you can still use multiple files to list the nodes, provided you have *NODE at the top of "
     "each file."},
  };
  for (auto const& c : cases)
    EXPECT_EQ(Raised(c.action), c.message);
  EXPECT_THROW(rows.AppendRaw("5, 1"), nex_AtrException);
  EXPECT_EQ(RowText(rows, 0), "1 1.5 0. 0. 0. 0. 0.") << "nothing came of these";

  for (auto const& [i, j] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 7}})
  {
    EXPECT_FALSE(rows.HasValue(i, j));
    EXPECT_THROW(rows.AsString(i, j), VRXBasAssertException);
  }
  EXPECT_THROW(rows.Cols(2), VRXBasAssertException);
}

TEST(inp_NodeDataArrayImpl, ACopySharesNothing)
{
  inp_NodeDataArrayImpl rows(3);
  rows.Append(1, 1., 2., 3.);
  std::unique_ptr<inp_NodeDataArrayImpl> const copy(rows.Copy());
  copy->Set(0, 0, 5);
  copy->Set(0, 1, 9.);
  copy->Append(6, 0., 0., 0.);
  EXPECT_EQ(rows.Rows(), 1);
  EXPECT_EQ(RowText(rows, 0), "1 1. 2. 3. 0. 0. 0.");
  EXPECT_EQ(RowText(*copy, 0), "5 9. 2. 3. 0. 0. 0.");
  EXPECT_EQ(std::unique_ptr<inp_NodeDataArrayImpl>(inp_NodeDataArrayImpl().Copy())->Rows(), 0);
}

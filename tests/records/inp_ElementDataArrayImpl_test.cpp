#include "inp_ElementDataArrayImpl.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Lists.h"
#include "VRXBasException.h"
#include "inp_DataArray.h"
#include "inp_MapInt2Element.h"
#include "inp_ParserExceptions.h"

namespace
{

/// "cell cell / cell".
std::string Text(inp_DataArrayImpl const& rows)
{
  std::string text;
  for (int i = 0; i < rows.Rows(); ++i)
    for (int j = 0; j < rows.Cols(i); ++j)
      text += (j > 0 ? " " : i > 0 ? " / " : "") + std::string(rows.AsString(i, j).View());
  return text;
}

std::string FromRaw(std::vector<char const*> const& lines)
{
  inp_DataArray raw;
  for (char const* line : lines)
    raw.Append(line);
  return Text(inp_ElementDataArrayImpl(raw));
}

cow_List<int> Nodes(int count)
{
  cow_List<int> nodes;
  for (int i = 1; i <= count; ++i)
    nodes.Append(100 + i);
  return nodes;
}

} // namespace

TEST(inp_ElementDataArrayImpl, ReadsRawRows)
{
  EXPECT_EQ(FromRaw({}), "");
  EXPECT_EQ(FromRaw({"1, 2,3", " 4 ", "007,08"}), "1 2 3 / 4 / 7 8");
  EXPECT_EQ(FromRaw({"1, 2,", ",", ""}), "1 2 0 / 0 0 / 0") << "blank cells are 0";
  EXPECT_EQ(FromRaw({"-5, +6, 12x, x, 3.9, 1e3, 4 5,\t7\t"}), "-5 6 12 0 3 1 4 7")
    << "as far as a cell is an integer";
  EXPECT_EQ(FromRaw({"999999999, 1234567890"}), "999999999 1234567890");
}

TEST(inp_ElementDataArrayImpl, ReadsRowsThatAreNoText)
{
  cow_Map<int, cow_List<int>> elements;
  elements.Insert(5, Nodes(16));
  inp_DataArray const packed(new inp_ElementDataArrayImpl(elements));
  EXPECT_EQ(Text(inp_ElementDataArrayImpl(packed)), Text(packed.Impl()));
}

TEST(inp_ElementDataArrayImpl, LaysAnElementOutInRowsOfSixteen)
{
  // Nodes, and the columns of the rows that they fill.
  std::pair<int, std::vector<int>> const cases[] = {
    {0, {1}}, {15, {16}}, {16, {17, 1}}, {31, {17, 16}}, {32, {17, 17, 1}},
  };
  for (auto const& [nodes, expectedColumns] : cases)
  {
    cow_Map<int, cow_List<int>> elements;
    elements.Insert(7, Nodes(nodes));
    inp_ElementDataArrayImpl const rows(elements);
    std::vector<int> columns, cells, expected{7};
    for (int i = 0; i < rows.Rows(); ++i)
    {
      columns.push_back(rows.Cols(i));
      bool const isLast = i + 1 == rows.Rows();
      EXPECT_EQ(rows.HasRowContinuation(i), !isLast) << nodes;
      for (int j = 0; j < rows.Cols(i) - !isLast; ++j)
        cells.push_back(rows.AsInt(i, j));
    }
    EXPECT_EQ(columns, expectedColumns) << nodes;
    for (int const node : Nodes(nodes))
      expected.push_back(node);
    EXPECT_EQ(cells, expected);
  }
}

TEST(inp_ElementDataArrayImpl, TakesTheElementsThatAListNames)
{
  inp_MapInt2Element elements;
  for (int id : {3, 5, 9})
    elements.Insert(id, inp_Element("C3D", Nodes(id == 5 ? 17 : 1), 1, 0, 0));
  EXPECT_EQ(Text(inp_ElementDataArrayImpl(ListOf({9, 4, 5, 3, 9}), elements)),
            "9 101 / 5 101 102 103 104 105 106 107 108 109 110 111 112 113 114 115 0 / 116 117 / 3 "
            "101 / 9 101");
  EXPECT_EQ(inp_ElementDataArrayImpl(cow_List<int>(), elements).Rows(), 0);
}

TEST(inp_ElementDataArrayImpl, CellsAreIntegersOrBlank)
{
  inp_DataArray raw;
  raw.Append("1, 2,");
  inp_ElementDataArrayImpl rows(raw);
  EXPECT_EQ(rows.Type(0, 2), inp_Types::inp_NONE);
  EXPECT_TRUE(!rows.IsNone(0, 1) && rows.IsNone(0, 2));
  EXPECT_TRUE(rows.HasRowContinuation(0));
  rows.Set(0, 2, 33);
  EXPECT_FALSE(rows.HasRowContinuation(0));
  EXPECT_EQ(rows.AsInt(0, 2), 33);
  EXPECT_EQ(rows.AsStringVerbatim(0, 2), "33");

  struct
  {
    std::function<void()> action;
    std::string message;
  } const cases[] = {
    {[&] { rows.AsDouble(0, 0); }, "Element keyword data cannot be converted to a double"},
    {[&] { rows.Set(0, 0, 5.); }, "Illegal operation on element data"},
    {[&] { rows.Set(0, 0, cow_String("5")); }, "Illegal operation on element data"},
    {[&] { rows.Append("5, 1"); },
     "There has been an attempt to append a generic data line to a *ELEMENT keyword.  This can "
     "happen when the element connectivity listing is separated from the *ELEMENT keyword.  Please "
     "make sure your include files contain complete keywords (keyword + parameters + data lines).  "
     "Note that you can still use multiple files to list the elements, provided you have *ELEMENT "
     "at the top of each file."},
  };
  for (auto const& c : cases)
    EXPECT_EQ(Raised(c.action), c.message);
  EXPECT_THROW(rows.AppendRaw("5"), nex_AtrException);
  EXPECT_EQ(Text(rows), "1 2 33") << "nothing came of these";

  for (auto const& [i, j] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 3}})
  {
    EXPECT_FALSE(rows.HasValue(i, j));
    EXPECT_THROW(rows.AsInt(i, j), VRXBasAssertException);
    EXPECT_THROW(rows.IsNone(i, j), VRXBasAssertException);
  }
  EXPECT_THROW(rows.Cols(1), VRXBasAssertException);
}

TEST(inp_ElementDataArrayImpl, ACopySharesNothing)
{
  inp_DataArray raw;
  raw.Append("1, 2,");
  raw.Append("3");
  inp_ElementDataArrayImpl rows(raw);
  std::unique_ptr<inp_ElementDataArrayImpl> const copy(rows.Copy());
  copy->Set(1, 0, 9);
  EXPECT_EQ(Text(rows) + " | " + Text(*copy), "1 2 0 / 3 | 1 2 0 / 9");
  EXPECT_EQ(raw.AsStringVerbatim(1, 0), "3");
}

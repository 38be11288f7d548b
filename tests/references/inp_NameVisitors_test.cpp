// The two families that rewrite all names of a deck.

#include "ReferenceMarks.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordTable.h"
#include "inp_NodeDataArrayImpl.h"
#include "inp_ReferencePlaces.h"
#include "inp_RemovePeriodVisitors.h"
#include "inp_ScopedNameVisitors.h"

#include <gtest/gtest.h>
#include <iterator>
#include <random>

namespace
{

/// The texts of a row's cells.
std::string Texts(inp_Keyword const& keyword)
{
  std::string texts;
  for (int column = 0; column < keyword.data.Cols(0); ++column)
    texts += std::string(keyword.data.AsString(0, column).View()) + "|";
  return texts;
}

std::string Walked(inp_SetFixupVisitor& visitor, std::string const& row)
{
  inp_Keyword keyword(inp_kwBoundary);
  keyword.data.Append(row.c_str());
  visitor.Visit(keyword);
  return Texts(keyword);
}

/// The same by way of the operation on texts.
std::string Fixed(inp_SetFixupVisitor& visitor, std::string const& row)
{
  inp_Keyword keyword(inp_kwBoundary);
  keyword.data.Append(row.c_str());
  cow_String const text = keyword.data.AsString(0, 0);
  cow_String const fixed = visitor.FixupIdOrSet(keyword, text, {}, {}, "", "", "", inp_nodeSet, "");
  if (!(fixed == text))
    keyword.data.Set(0, 0, fixed);
  return Texts(keyword);
}

std::string AllText(cow_List<inp_Keyword> const& keywords)
{
  std::string text;
  for (inp_Keyword const& keyword : keywords)
    text += KeywordText(keyword) + "\n";
  return text;
}

} // namespace

TEST(inp_NameVisitors, AFieldBecomesInItsRowWhatItsTextBecomes)
{
  inp_ModelParameters const model;
  inp_RemovePeriodSetVisitor periods(model);
  inp_ScopedNameSetVisitor scopes({}, {}, {}, {}, "A", model);
  char const* const pieces[] = {"a",  "A",  ".",    ".",         "a.",       "Z",       "_",
                                "-x", "5",  "12.5", "+",         "e",        "#",       " ",
                                "\t", "\r", "\"",   "\"b c.d\"", "\xc3\xa9", "longname"};
  std::mt19937 random(5);
  for (int i = 0; i < 20000; ++i)
  {
    std::string row;
    for (auto left = random() % 9; left > 0; --left)
      row += pieces[random() % std::size(pieces)];
    row += ", 1.5";
    ASSERT_EQ(Walked(periods, row), Fixed(periods, row)) << row;
    ASSERT_EQ(Walked(scopes, row), Fixed(scopes, row)) << row;
  }
  // A name may be no longer than 255 characters; a longer field is cut, wherever it is rewritten.
  for (std::size_t const length : {252u, 253u})
  {
    std::string const row = "A." + std::string(length, 'b');
    EXPECT_EQ(Walked(periods, row), Fixed(periods, row));
    EXPECT_EQ(Walked(scopes, row), Fixed(scopes, row));
  }
}

// Whatever stands in the rows of a keyword, every walk goes through; rows without names stay.
TEST(inp_NameVisitors, RowsThatHoldNoNames)
{
  inp_ModelParameters const model;
  inp_RemovePeriodSetVisitor periods(model);
  inp_RemovePeriodSurfaceVisitor surfaces;
  inp_ScopedNameSetVisitor scopes({}, {}, {}, {}, "A", model);
  char const* const rows[] = {"", ",", ",,,,", "1.5", "2.5D0, 3, , 4", "\"a.b", "\"A.b\", \"c.d\""};
  for (int const value : thr_ThreadSingleton<inp_KeywordTable>::Instance().AllKeywords())
  {
    inp_KeywordEnm const which = static_cast<inp_KeywordEnm>(value);
    for (inp_ReferencePlace const& place : inp_ReferencePlaces(which))
    {
      cow_List<inp_Keyword> list;
      list.Append(WithParametersFor(which, place)); // no rows
      if (which == inp_kwSlideLine && list.ConstGet(0).HasParameter("generate"))
        continue; // becomes the numbers that it generates
      list.Append(WithParametersFor(which, place));
      auto* const numbers = new inp_NodeDataArrayImpl(2);
      numbers->Append(1, 2., 3., 4.);
      list.Get(1).data.Set(numbers);
      for (char const* row : rows)
      {
        list.Append(WithParametersFor(which, place));
        for (int i = 0; i < 4; ++i)
          list.Get(list.Length() - 1).data.Append(row);
      }
      std::string const before = AllText(list);
      for (inp_Visitor* visitor :
           {static_cast<inp_Visitor*>(&periods), static_cast<inp_Visitor*>(&surfaces),
            static_cast<inp_Visitor*>(&scopes)})
      {
        visitor->VisitList(list);
        EXPECT_FALSE(visitor->IsError());
      }
      EXPECT_EQ(AllText(list), before);
      MarkAll(list, model);
    }
  }
}

// The tables as a whole: every place of every row is reached by the walks that rewrite and by the one that
// reads, and nothing else.

#include "ReferenceMarks.h"
#include "inp_ForEachReference.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordTable.h"
#include "inp_PlaceRules.h"
#include "inp_ReferencePlaces.h"

#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace
{

constexpr int c_rows = 6;
constexpr int c_columns = 16;

char const* MarkOf(inp_referenceEnm what)
{
  static char const* const marks[] = {"", "#N", "#E", "#S", "#O", "#O", "#D", "#D", "#M", "#M"};
  return marks[what];
}

/// A keyword for the place, with rows of texts or numbers.
inp_Keyword KeywordFor(inp_KeywordEnm which, inp_ReferencePlace const& place)
{
  inp_Keyword keyword = WithParametersFor(which, place);
  for (int row = 0; row < c_rows; ++row)
  {
    cow_List<cow_String> cells;
    for (int column = 0; column < c_columns; ++column)
    {
      cells.Append((place.isId ? "" : "S") + cow_String(100 * row + column + 1));
    }
    keyword.data.Append(cells);
  }
  return keyword;
}

using Places = std::set<std::string>;

/// All that the walk which only reads comes to.
Places ReadPlaces(inp_Keyword const& keyword, inp_ModelParameters const& model)
{
  Places found;
  inp_ForEachReference(
    keyword, inp_Scope(), model,
    [&](inp_Reference const& reference)
    {
      EXPECT_EQ(reference.Name(), reference.IsField()
                                    ? keyword.data.AsString(reference.row, reference.column)
                                    : cow_String("A"));
      found.insert((reference.IsField()
                      ? std::to_string(reference.row) + "," + std::to_string(reference.column)
                      : std::string(reference.parameter.View())) +
                   MarkOf(reference.what));
    });
  return found;
}

/// "nset#N", "1,2#E" (row and column from 0) of all that is marked.
Places MarkedPlaces(inp_Keyword const& keyword)
{
  Places found;
  auto const note = [&found](std::string const& where, cow_String const& text)
  {
    for (int at = text.Find('#'); at < text.Length(); at = text.Find('#', at + 1))
      found.insert(where + std::string(text.Substr(at, 2).View()));
  };
  cow_ConstMapSortedIt<cow_String, inp_Item> it(keyword.parameters);
  for (it.First(); !it.IsDone(); it.Next())
    note(std::string(it.CurrentKey().View()), it.CurrentValue().AsString());
  for (int row = 0; row < keyword.data.Rows(); ++row)
    for (int column = 0; column < keyword.data.Cols(row); ++column)
      note(std::to_string(row) + "," + std::to_string(column),
           keyword.data.AsStringVerbatim(row, column));
  return found;
}

/// The same as the place says.
Places PlacesOf(inp_ReferencePlace const& place)
{
  Places wanted;
  if (!place.IsData())
    wanted.insert(std::string(place.parameter) + MarkOf(place.what));
  for (int row = place.firstLine - 1; row < (place.lastLine > 0 ? place.lastLine : c_rows);
       row += place.stepLines)
    for (int column = 0; column < c_columns; ++column)
      if (place.IsData() && place.columns.Has(column))
        wanted.insert(std::to_string(row) + "," + std::to_string(column) + MarkOf(place.what));
  return wanted;
}

} // namespace

// A keyword that is made for a place comes back with exactly the marks of all places that count for
// it.
TEST(inp_ReferencePlaces, AWalkReachesEveryPlaceAndNothingElse)
{
  inp_ModelParameters const model;
  for (int const value : thr_ThreadSingleton<inp_KeywordTable>::Instance().AllKeywords())
  {
    inp_KeywordEnm const which = static_cast<inp_KeywordEnm>(value);
    std::vector<inp_ReferencePlace> const places = inp_ReferencePlaces(which);
    for (inp_ReferencePlace const& place : places)
    {
      cow_List<inp_Keyword> list;
      list.Append(KeywordFor(which, place));
      Places wanted;
      for (inp_ReferencePlace const& other : places)
        if (inp_PlaceCounts(other, list.ConstGet(0)) && (place.isId || !other.isId))
          wanted.merge(PlacesOf(other));
      Places const own = PlacesOf(place);
      EXPECT_TRUE(std::includes(wanted.begin(), wanted.end(), own.begin(), own.end()))
        << list.ConstGet(0).Name() << ": the place does not count for its own keyword";
      EXPECT_EQ(ReadPlaces(list.ConstGet(0), model), wanted) << list.ConstGet(0).Name();
      MarkAll(list, model);
      EXPECT_EQ(MarkedPlaces(list.ConstGet(0)), wanted) << list.ConstGet(0).Name();
    }
  }
}

// What no keyword reaches is there for direct calls.
TEST(inp_ReferencePlaces, HandlersWithoutKeyword)
{
  inp_ModelParameters const model;
  MarkSets visitor(model);
  struct
  {
    void (inp_SetFixupVisitor::*visit)(inp_Keyword&);
    char const* marked;
  } const cases[] = {
    {&inp_SetFixupVisitor::VisitElHistory, "elset=E#E, nset=N: 1|2"},
    {&inp_SetFixupVisitor::VisitEnergyHistory, "elset=E#E, nset=N#N: 1|2"},
    {&inp_SetFixupVisitor::VisitFailureCriteria, "elset=E, nset=N#N: 1|2"},
    {&inp_SetFixupVisitor::VisitNodeHistory, "elset=E, nset=N#N: 1|2"},
    {&inp_SetFixupVisitor::VisitSlidePlane, "elset=E#E, nset=N: 1#E|2"},
    {&inp_SetFixupVisitor::VisitSorProperties, "elset=E#E, nset=N: 1|2"},
    {&inp_SetFixupVisitor::VisitSuperProperty, "elset=E#E, nset=N: 1|2"},
    {&inp_SetFixupVisitor::VisitSurfaceDefinition, "elset=E, nset=N: 1#E|2"},
  };
  for (auto const& c : cases)
  {
    inp_Keyword keyword = DeckKeywords("*OUTPUT, ELSET=E, NSET=N\n1, 2\n").ConstGet(0);
    (visitor.*c.visit)(keyword);
    EXPECT_EQ(KeywordText(keyword), std::string("output ") + c.marked);
  }
}

TEST(inp_ReferencePlaces, ReadsAsASentence)
{
  auto const words = [](inp_KeywordEnm keyword)
  {
    std::string text;
    for (inp_ReferencePlace const& place : inp_ReferencePlaces(keyword))
    {
      cow_String const when = inp_ConditionWords(place);
      text += std::string(inp_NamedThings(place.what)) + " in " +
              std::string(inp_PlaceWords(place).View()) +
              (when.Empty() ? "" : " if " + std::string(when.View())) + "\n";
    }
    return text;
  };
  EXPECT_EQ(words(inp_kwNodeOutput), "nodes or node sets in NSET\n");
  EXPECT_EQ(words(inp_kwModalPrint), "nodes or node sets in FORCECONTRIBUTION\n");
  EXPECT_EQ(words(inp_kwNode), "");
  EXPECT_EQ(words(inp_kwFrequency),
            "nodes or node sets in NSET\n"
            "nodes or node sets in field 1 of every line from line 2 on if RESIDUALMODES is given "
            "and EIGENSOLVER is AMS\n");
  EXPECT_EQ(words(inp_kwMpc), "nodes or node sets in fields 2 to 15 of every line\n");
  EXPECT_EQ(words(inp_kwEquation), "nodes or node sets in fields 1, 4, 7 and 10 of every line from "
                                   "line 2 on, of 3 fields at least\n");
  EXPECT_EQ(words(inp_kwContactInterference),
            "elements or element sets in field 1 of every line if TYPE is ELEMENT\n"
            "surfaces in fields 1 and 2 of every line if TYPE is CONTACTPAIR or absent\n");
}

// The handlers of the keywords: a row of the table each, and what is more than a row.

#include "inp_KeywordEnm.h"
#include "inp_SetFixupVisitor.h"

#include <string>
#include <vector>

#define INP_PLACES_VISITOR inp_SetFixupVisitor
#define INP_PLACES_TABLE "inp_SetReferences.def"
#include "inp_PlaceHandlers.def"

namespace
{

/// Rows of all numbers, eight in each.
inp_DataArray NumbersOf(std::vector<inp_ScopedRange> const& ranges)
{
  constexpr int numbersOfRow = 8;
  inp_DataArray rows;
  std::string row;
  int numbers = 0;
  for (inp_ScopedRange const& range : ranges)
  {
    for (std::int64_t place = 0; place < range.Count(); ++place)
    {
      row.append(numbers > 0 ? "," : "").append(range.prefix.View());
      row.append(std::to_string(range.Number(place)));
      if (++numbers == numbersOfRow)
      {
        rows.Append(row.c_str());
        row.clear();
        numbers = 0;
      }
    }
  }
  if (numbers > 0)
  {
    rows.Append(row.c_str());
  }
  return rows;
}

} // namespace

// *SLIDE LINE rows: nodes and node sets; with GENERATE start, end[, step]
void inp_SetFixupVisitor::VisitSlideLine(inp_Keyword& keyword)
{
  if (keyword.HasParameter("generate"))
  {
    ExpandGenerated(keyword);
  }
  ReplacePlaces(keyword, placesOfSlideLine);
}

/// Puts the numbers that the keyword's rows generate in place of the rows. When a row generates none, which is
/// an error, all rows and GENERATE stay, lest a part of the line is lost.
void inp_SetFixupVisitor::ExpandGenerated(inp_Keyword& keyword)
{
  cow_List<atr_String> faults;
  std::vector<inp_ScopedRange> const ranges =
    inp_Utils::ReadScopedRanges(keyword.data, keyword.Name(), faults);
  std::int64_t listed = m_listed;
  for (inp_ScopedRange const& range : ranges)
  {
    listed += range.Count();
    if (listed > mostListed)
    {
      faults.Append(inp_Utils::RangeTooLarge(range, keyword.Name()));
      break;
    }
  }
  for (atr_String const& fault : faults)
  {
    m_errorList.Append(inp_Utils::PlacedAt(keyword, fault));
  }
  if (faults.Length() > 0)
  {
    return;
  }
  m_listed = listed;
  keyword.data = NumbersOf(ranges);
  keyword.parameters.Remove("generate");
}

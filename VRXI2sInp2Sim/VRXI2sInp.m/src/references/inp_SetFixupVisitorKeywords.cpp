// The handlers of the keywords: a row of the table each, and what is more than a row.

#include "inp_CellRewriter.h"
#include "inp_KeywordEnm.h"
#include "inp_SetFixupVisitor.h"

#define INP_PLACES_VISITOR inp_SetFixupVisitor
#define INP_PLACES_TABLE "inp_SetReferences.def"
#include "inp_PlaceHandlers.def"

namespace
{

/// The line goes on in the next: loads that follow the rotation of a structure have its data there.
bool GoesOn(inp_CellRewriter const& cells, int row)
{
  char const* type = cells.Cols(row) >= 2 ? cells.Cell(row, 1) : "";
  while (*type == ' ' || *type == '\t' || *type == '\r')
  {
    ++type;
  }
  // Most loads have a number here, which is told without a text.
  if ((*type | 0x20) != 't')
  {
    return false;
  }
  cow_String const text = inp_RawDataArrayImpl::TextOfCell(type);
  return text == "TFD" || text == "TWD" || text == "TSI";
}

} // namespace

// *CLOAD row: node or node set, degree of freedom or type, magnitude, ...
void inp_SetFixupVisitor::VisitCload(inp_Keyword& keyword)
{
  RewriteFields(keyword, {.columns = placesOfCload->columns, .goesOn = GoesOn},
                [&](cow_String const& text) { return ReplaceNodeOrNset(keyword, text); });
}

void inp_SetFixupVisitor::VisitSlideLine(inp_Keyword& keyword)
{
  if (keyword.HasParameter("generate"))
  {
    ExpandGenerated(keyword, m_errorList);
  }
  ReplacePlaces(keyword, placesOfSlideLine);
}

/// Puts the numbers that the keyword's rows generate in place of the rows, eight a line.
void inp_SetFixupVisitor::ExpandGenerated(inp_Keyword& keyword, cow_List<atr_String>& errors)
{
  constexpr int idsOfLine = 8;
  cow_List<atr_String> faults;
  cow_List<cow_String> const ids =
    inp_Utils::GenerateScopedIds(keyword.data, keyword.Name(), faults);
  for (atr_String const& fault : faults)
  {
    errors.Append(inp_Utils::PlacedAt(keyword, fault));
  }
  inp_DataArray rows;
  cow_String line;
  for (int i = 0; i < ids.Length(); ++i)
  {
    line.Append(i % idsOfLine == 0 ? "" : ",").Append(ids.ConstGet(i));
    if (i % idsOfLine == idsOfLine - 1 || i + 1 == ids.Length())
    {
      rows.Append(line.CStr());
      line.Erase();
    }
  }
  keyword.data = rows;
  keyword.parameters.Remove("generate");
}

// The handlers of the keywords: a row of the table each, and what is more than a row.

#include "inp_CellRewriter.h"
#include "inp_PlaceRows.h"
#include "inp_SetFixupVisitor.h"

namespace
{

#define INP_PLACES INP_PLACES_ARRAY
#include "inp_SetReferences.def"

/// The line goes on in the next: loads that follow the rotation of a structure have its data there.
bool GoesOn(inp_DataArray const& data, int row)
{
  if (data.Cols(row) < 2)
  {
    return false;
  }
  cow_String const type = data.AsString(row, 1);
  return type == "TFD" || type == "TWD" || type == "TSI";
}

} // namespace

#define INP_PLACES(stem, ...)                                                                      \
  void inp_SetFixupVisitor::Visit##stem(inp_Keyword& keyword)                                      \
  {                                                                                                \
    ReplacePlaces(keyword, placesOf##stem);                                                        \
  }
#define INP_PLACES_BY_HAND(stem, ...)
#include "inp_SetReferences.def"

inp_ReferencePlace const* inp_SetFixupVisitor::Places(inp_KeywordEnm keyword)
{
  switch (static_cast<int>(keyword))
  {
  case inp_kwModalPrint:
    return placesOfPrint;
#define INP_PLACES_UNREACHED(stem, ...)
#define INP_PLACES(stem, ...)                                                                      \
  case inp_kw##stem:                                                                               \
    return placesOf##stem;
#include "inp_SetReferences.def"
  default:
    return nullptr;
  }
}

// *CLOAD row: node or node set, degree of freedom or type, magnitude, ...
void inp_SetFixupVisitor::VisitCload(inp_Keyword& keyword)
{
  inp_CellRewriter cells(keyword);
  for (int row = 0; row < cells.Rows(); ++row)
  {
    cells.Row(
      row, placesOfCload->columns, [this](char const* cell) { return MayChange(cell); },
      [&](cow_String const& text) { return ReplaceNodeOrNset(keyword, text); });
    row += GoesOn(keyword.data, row) ? 1 : 0;
  }
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

#include "inp_NameFixupVisitor.h"

#include "inp_CellRewriter.h"
#include "inp_ReferenceMessages.h"

cow_String inp_NameFixupVisitor::ReplaceData(inp_Keyword& keyword, cow_String const& value)
{
  return FixedOrReported(keyword, value, [&] { return FixupName(value); });
}

atr_String inp_NameFixupVisitor::FaultMessage(inp_Keyword const& keyword,
                                              atr_String const& fault) const
{
  atr_String message = atr_Say(inp_msgReferenceDataLines, keyword.Name());
  message.Append(fault);
  return inp_Utils::PlacedAt(keyword, message);
}

void inp_NameFixupVisitor::ReplaceParameter(inp_Keyword& keyword, cow_String const& name)
{
  inp_RewriteParameter(keyword, name,
                       [&](cow_String const& text) { return ReplaceData(keyword, text); });
}

void inp_NameFixupVisitor::ReplaceFields(inp_Keyword& keyword, inp_Columns const& columns,
                                         int firstLine, int lastLine)
{
  auto const wants = [this](char* cell)
  {
    return inp_RawDataArrayImpl::TypeOfCell(cell) == inp_Types::inp_STRING && !RewriteInPlace(cell);
  };
  inp_CellRewriter cells(keyword, NameMark());
  cells.EveryRow(firstLine - 1, lastLine > 0 ? lastLine : cells.Rows(), 1, columns, wants,
                 [&](cow_String const& text) { return ReplaceData(keyword, text); });
}

void inp_NameFixupVisitor::ReplacePlace(inp_Keyword& keyword, inp_ReferencePlace const& place)
{
  if (place.parameter != nullptr)
  {
    ReplaceParameter(keyword, place.parameter);
  }
  else
  {
    ReplaceFields(keyword, place.columns, place.firstLine, place.lastLine);
  }
}

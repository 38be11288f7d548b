#include "inp_NameFixupVisitor.h"

#include "inp_ReferenceMessages.h"

cow_String inp_NameFixupVisitor::ReplaceData(inp_Keyword& keyword, cow_String const& value)
{
  return FixedOrReported(keyword, value, [&] { return FixupName(value); });
}

atr_String inp_NameFixupVisitor::FaultMessage(inp_Keyword const& keyword, cow_String const& name,
                                              atr_String const& fault) const
{
  atr_String message = atr_Say(inp_msgReferenceDataLines, keyword.Name());
  message.Append(fault);
  cow_String const place = PlaceAtWork();
  if (place.Length() > 0)
  {
    message.Append(cow_String(" (\"") + name + "\" in " + place + ")");
  }
  return inp_Utils::PlacedAt(keyword, message);
}

void inp_NameFixupVisitor::ReplaceParameter(inp_Keyword& keyword, cow_String const& name)
{
  RewriteParameter(keyword, name,
                   [&](cow_String const& text) { return ReplaceData(keyword, text); });
}

void inp_NameFixupVisitor::ReplaceFields(inp_Keyword& keyword, inp_Columns const& columns,
                                         int firstLine, int lastLine)
{
  RewriteFields(
    keyword,
    {.columns = columns, .firstRow = firstLine - 1, .endRow = lastLine > 0 ? lastLine : INT_MAX},
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

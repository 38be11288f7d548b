#include "inp_NameFixupVisitor.h"

#include "inp_ReferenceMessages.h"

cow_String inp_NameFixupVisitor::ReplaceData(inp_Keyword& keyword, cow_String const& value)
{
  return Fixed(AtWork(keyword), value);
}

atr_String inp_NameFixupVisitor::FaultMessage(inp_Reference const& reference,
                                              cow_String const& name, atr_String const& fault) const
{
  atr_String message = atr_Say(inp_msgReferenceDataLines, reference.keyword->Name());
  message.Append(fault);
  cow_String const place = reference.PlaceWords();
  if (place.Length() > 0)
  {
    message.Append(cow_String(" (\"") + name + "\" in " + place + ")");
  }
  return inp_Utils::PlacedAt(*reference.keyword, message);
}

void inp_NameFixupVisitor::ReplaceParameter(inp_Keyword& keyword, cow_String const& name)
{
  RewriteParameter(keyword, name,
                   [&](cow_String const& text) { return ReplaceData(keyword, text); });
}

void inp_NameFixupVisitor::ReplaceFields(inp_Keyword& keyword, inp_Fields const& fields)
{
  RewriteFields(keyword, fields,
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
    ReplaceFields(keyword, inp_FieldsOf(place, keyword, nullptr));
  }
}

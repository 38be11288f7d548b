#include "inp_Utf8ValidityVisitor.h"

#include "VRXString.h"
#include "inp_ModelMessages.h"

void inp_Utf8ValidityVisitor::DefaultAction(inp_Keyword& keyword)
{
  CheckNameParameterValue(keyword);
}

void inp_Utf8ValidityVisitor::VisitMaterial(inp_Keyword& keyword)
{
  CheckNameParameterValue(keyword);
}

void inp_Utf8ValidityVisitor::VisitElset(inp_Keyword& keyword)
{
  CheckNameParameterValue(keyword);
  CheckParameterValue(keyword, "elset");
}

void inp_Utf8ValidityVisitor::VisitNset(inp_Keyword& keyword)
{
  CheckNameParameterValue(keyword);
  CheckParameterValue(keyword, "nset");
}

void inp_Utf8ValidityVisitor::VisitCoupling(inp_Keyword& keyword)
{
  CheckParameterValue(keyword, "constraintname");
  CheckParameterValue(keyword, "refnode");
}

void inp_Utf8ValidityVisitor::VisitHeading(inp_Keyword& keyword)
{
  CheckTitle(keyword, inp_msgHeadingNotUtf8);
}

void inp_Utf8ValidityVisitor::VisitStep(inp_Keyword& keyword)
{
  CheckNameParameterValue(keyword);
  CheckTitle(keyword, inp_msgStepSubheadingNotUtf8);
}

bool inp_Utf8ValidityVisitor::IsBad(cow_String const& text)
{
  return text.Length() > 0 && VRXString::BuildFromUTF8(text).IsBAD();
}

bool inp_Utf8ValidityVisitor::IsParameterValueBad(inp_Keyword const& keyword,
                                                  cow_String const& name, cow_String const& value)
{
  bool const isBad = IsBad(value);
  if (isBad)
  {
    Say(inp_msgParameterNotUtf8, keyword, name);
  }
  return isBad;
}

bool inp_Utf8ValidityVisitor::CheckNameParameterValue(inp_Keyword const& keyword)
{
  return CheckParameterValue(keyword, "name");
}

bool inp_Utf8ValidityVisitor::CheckParameterValue(inp_Keyword const& keyword,
                                                  cow_String const& name)
{
  inp_Item const* const item = keyword.parameters.ConstFind(name);
  return item != nullptr && IsParameterValueBad(keyword, name, item->AsString());
}

// The warning stands alone, but keeps its place.
void inp_Utf8ValidityVisitor::CheckTitle(inp_Keyword& keyword, atr_MessageRow<0> const& row)
{
  if (!keyword.data.HasValue(0, 0) || !IsBad(keyword.data.AsStringVerbatim(0, 0)))
  {
    return;
  }
  keyword.data.Set(0, 0, cow_String());
  ListOf(row.severity).Append(inp_Utils::PlacedAt(keyword, atr_Say(row)));
}

// Tests of the types of values, for handlers to come.

#include "inp_ExpansionMessages.h"
#include "inp_KeywordExpansionVisitor.h"

namespace
{

bool IsNumber(inp_Types::typeEnm type)
{
  return type == inp_Types::inp_INTEGER || type == inp_Types::inp_REAL;
}

bool HasNoValue(inp_Types::typeEnm type)
{
  return type == inp_Types::inp_BOOLEAN || type == inp_Types::inp_NONE;
}

} // namespace

/// Reports the value of a parameter unless accepts(its type) is true.
template <class Accepts, int Placeholders>
void inp_KeywordExpansionVisitor::CheckType(inp_Keyword const& keyword, cow_String const& parameter,
                                            Accepts accepts,
                                            atr_MessageRow<Placeholders> const& row)
{
  inp_Item const* const item = keyword.parameters.ConstFind(parameter);
  if (item != nullptr && !accepts(item->Type()))
  {
    SayOf(parameter, row, keyword, cow_String(parameter).ToUpper(), item->AsString());
  }
}

void inp_KeywordExpansionVisitor::CheckRequiredParameters(inp_Keyword& keyword,
                                                          char const* const* names,
                                                          bool const* required)
{
  for (; *names != nullptr; ++names, ++required)
  {
    if (*required)
    {
      checkRequiredParameter(keyword, *names);
    }
  }
}

void inp_KeywordExpansionVisitor::CheckBoolean(inp_Keyword& keyword, cow_String const& parameter)
{
  CheckType(keyword, parameter, HasNoValue, inp_msgParameterNotBoolean);
}

void inp_KeywordExpansionVisitor::CheckInteger(inp_Keyword& keyword, cow_String const& parameter)
{
  CheckType(
    keyword, parameter, [](inp_Types::typeEnm type) { return type == inp_Types::inp_INTEGER; },
    inp_msgParameterNotInteger);
}

void inp_KeywordExpansionVisitor::CheckDouble(inp_Keyword& keyword, cow_String const& parameter)
{
  CheckType(keyword, parameter, IsNumber, inp_msgParameterNotFloat);
}

void inp_KeywordExpansionVisitor::CheckLabel(inp_Keyword& keyword, cow_String const& parameter)
{
  CheckType(
    keyword, parameter, [](inp_Types::typeEnm type) { return type == inp_Types::inp_STRING; },
    inp_msgParameterNotLabel);
}

void inp_KeywordExpansionVisitor::CheckFileName(inp_Keyword& keyword, cow_String const& parameter)
{
  CheckLabel(keyword, parameter);
}

void inp_KeywordExpansionVisitor::CheckDoubleOrLabel(inp_Keyword& keyword,
                                                     cow_String const& parameter)
{
  CheckType(
    keyword, parameter,
    [](inp_Types::typeEnm type)
    { return type == inp_Types::inp_REAL || type == inp_Types::inp_STRING; },
    inp_msgParameterNotFloatOrLabel);
}

void inp_KeywordExpansionVisitor::CheckIntegerOrLabel(inp_Keyword& keyword,
                                                      cow_String const& parameter)
{
  CheckType(
    keyword, parameter,
    [](inp_Types::typeEnm type)
    { return type == inp_Types::inp_INTEGER || type == inp_Types::inp_STRING; },
    inp_msgParameterNotIntegerOrLabel);
}

void inp_KeywordExpansionVisitor::CheckIntegerOrEnumerated(inp_Keyword& keyword,
                                                           char const* const* table,
                                                           cow_String const& parameter)
{
  inp_Item const* const item = keyword.parameters.ConstFind(parameter);
  if (item == nullptr || item->Type() == inp_Types::inp_INTEGER)
  {
    return;
  }
  cow_String word;
  cow_String const value = item->AsString();
  if (!IsReference(value) && inp_ExpandEnum(word, table, value) == 0)
  {
    SayOf(parameter, inp_msgParameterNotIntegerOrWord, keyword, cow_String(parameter).ToUpper(),
          value);
    return;
  }
  ExpandEnum(keyword, table, parameter);
}

void inp_KeywordExpansionVisitor::CheckEnumerated(inp_Keyword& keyword, char const* const* table,
                                                  cow_String const& parameter)
{
  if (keyword.HasParameter(parameter))
  {
    ExpandEnum(keyword, table, parameter);
  }
}

/// A parameter that is there must be the word None. One without "=" counts as TRUE, and is refused.
void inp_KeywordExpansionVisitor::CheckNone(inp_Keyword& keyword, cow_String const& parameter)
{
  inp_Item const* const item = keyword.parameters.ConstFind(parameter);
  if (item != nullptr && !(item->AsString() == "None"))
  {
    SayOf(parameter, inp_msgParameterNotBoolean, keyword, cow_String(parameter).ToUpper(),
          item->AsString());
  }
}

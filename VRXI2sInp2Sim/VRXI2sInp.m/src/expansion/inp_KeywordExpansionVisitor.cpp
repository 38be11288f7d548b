#include "inp_KeywordExpansionVisitor.h"

#include "inp_ExpansionMessages.h"
#include "inp_FileParameters.h"
#include "inp_KeywordEnm.h"
#include "inp_RawDataArrayImpl.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace
{

/// File names and the like, whose case matters.
bool KeepsCase(inp_Keyword const& keyword, cow_String const& parameter)
{
  return inp_IsFileParameter(parameter.View()) ||
         (parameter == "parameter" &&
          (keyword.Is(inp_kwParameterShapeVariation) || keyword.Is(inp_kwDesignShapeVariation))) ||
         (parameter == "name" && keyword.Is(inp_kwStep));
}

char const* const c_noParameters[] = {nullptr};

} // namespace

/// "eof" is in the table of keywords but no deck may hold it: no operation serves it.
void inp_KeywordExpansionVisitor::Visit(inp_Keyword& keyword)
{
  if (keyword.Is(inp_kwEof))
  {
    Say(inp_msgEofKeyword, keyword);
    keyword = inp_Keyword();
    return;
  }
  inp_Visitor::Visit(keyword);
}

void inp_KeywordExpansionVisitor::DefaultAction(inp_Keyword& keyword)
{
  ExpandParameters(keyword, c_noParameters);
}

void inp_KeywordExpansionVisitor::ExpandByRule(inp_Keyword& keyword, inp_ExpansionRule const& rule)
{
  ExpandParameters(keyword, rule.parameters);
  for (char const* const* values = rule.values; *values != nullptr;)
  {
    char const* const* const next = inp_NextValues(values);
    char const* const* const second =
      *next != nullptr && std::strcmp(*next, *values) == 0 ? next : nullptr;
    cow_String const parameter(*values);
    if (keyword.HasParameter(parameter))
    {
      ExpandWords(keyword, parameter, values + 1, second != nullptr ? second + 1 : nullptr);
    }
    values = second != nullptr ? inp_NextValues(second) : next;
  }
}

// ---- parameters ----

void inp_KeywordExpansionVisitor::ExpandParameters(inp_Keyword& keyword, char const* const* table)
{
  if (keyword.parameters.Size() == 0)
  {
    return;
  }
  cow_Map<cow_String, inp_Item> parameters;
  cow_ConstMapIterator<cow_String, inp_Item> parameter(keyword.parameters);
  for (parameter.First(); !parameter.IsDone(); parameter.Next())
  {
    cow_String const spelled = parameter.CurrentKey();
    WarnOfLargeInteger(keyword, spelled, parameter.CurrentValue());
    char const* const match = MatchParameter(keyword, spelled, table);
    if (match == nullptr)
    {
      SayOf(spelled, inp_msgUnknownParameter, keyword, spelled);
      parameters.Insert(spelled, parameter.CurrentValue());
      continue;
    }
    cow_String const full(match);
    InsertExpanded(keyword, parameters, full, spelled,
                   CleanedValue(keyword, full, parameter.CurrentValue()));
  }
  keyword.parameters = parameters;
}

char const* inp_KeywordExpansionVisitor::MatchParameter(inp_Keyword const& keyword,
                                                        cow_String const& spelled,
                                                        char const* const* table)
{
  inp_ParameterMatch const match = inp_MatchParameter(table, spelled.View());
  for (int tie = 0; tie < match.ties; ++tie)
  {
    SayOf(spelled, inp_msgAmbiguousParameter, keyword, spelled);
  }
  return match.name;
}

/// Digits that no integer can hold have been read as text.
void inp_KeywordExpansionVisitor::WarnOfLargeInteger(inp_Keyword const& keyword,
                                                     cow_String const& spelled,
                                                     inp_Item const& item)
{
  if (item.Type() == inp_Types::inp_STRING && item.ReadsAsInteger())
  {
    SayOf(spelled, inp_msgIntegerOutOfRange, keyword, item.AsString(), spelled);
  }
}

inp_Item inp_KeywordExpansionVisitor::CleanedValue(inp_Keyword const& keyword,
                                                   cow_String const& full,
                                                   inp_Item const& item) const
{
  if (item.Type() != inp_Types::inp_STRING)
  {
    return item;
  }
  cow_String const value = item.AsString();
  bool const keepsCase = KeepsCase(keyword, full) || (!bulkDataProcess && IsReference(value));
  return inp_Item::Text(keepsCase ? inp_Utils::TakeOutSpacesOutsideQuoted(value)
                                  : inp_Utils::TakeOutSpacesAndUpperOutsideQuoted(value));
}

void inp_KeywordExpansionVisitor::InsertExpanded(inp_Keyword const& keyword,
                                                 cow_Map<cow_String, inp_Item>& parameters,
                                                 cow_String const& full, cow_String const& spelled,
                                                 inp_Item const& item)
{
  if (parameters.IsMember(full))
  {
    cow_String const value = item.AsString();
    if (value.Length() == 0)
    {
      Say(inp_msgExpandedRepeated, keyword, spelled);
    }
    else
    {
      Say(inp_msgExpandedRepeatedValue, keyword, full, value);
    }
  }
  parameters.Insert(full, item);
}

// ---- words ----

bool inp_KeywordExpansionVisitor::IsReference(cow_String const& value)
{
  int const length = value.Length();
  return length >= 3 && value.CStr()[0] == '<' && value.CStr()[length - 1] == '>';
}

int inp_KeywordExpansionVisitor::inp_ExpandEnum(cow_String& result, char const* const* table,
                                                cow_String value)
{
  value.ToUpper().LeftTrim(" \t").RightTrim(" \t");
  std::string_view const given = value.View();
  if (given.empty())
  {
    return 0;
  }
  int candidates = 0;
  char const* last = nullptr;
  for (; *table != nullptr; ++table)
  {
    std::string_view const entry(*table);
    if (entry.substr(0, given.size()) != given)
    {
      continue;
    }
    if (entry.size() == given.size())
    {
      result = *table;
      return 1;
    }
    last = *table;
    ++candidates;
  }
  if (last != nullptr)
  {
    result = last;
  }
  return candidates;
}

void inp_KeywordExpansionVisitor::ExpandEnum(inp_Keyword& keyword, char const* const* table,
                                             cow_String const& parameter)
{
  ExpandWords(keyword, parameter, table, nullptr);
}

/// Completes the value of a parameter by the words of a table, or of `others` where the table has none that
/// fits.
void inp_KeywordExpansionVisitor::ExpandWords(inp_Keyword& keyword, cow_String const& parameter,
                                              char const* const* table, char const* const* others)
{
  inp_Item const item = keyword.parameters.ConstGet(parameter);
  if (item.IsEmptyValue())
  {
    SayOf(parameter, inp_msgIllegalValue, keyword, "", parameter);
    return;
  }
  cow_String const value = item.AsString();
  if (item.HasNoValue() || IsReference(value))
  {
    return;
  }
  cow_String word;
  int count = inp_ExpandEnum(word, table, value);
  if (count == 0 && others != nullptr)
  {
    count = inp_ExpandEnum(word, others, value);
  }
  inp_ExpansionRule const* const rule = inp_ExpansionRuleOf(keyword.keyword);
  if (count == 1)
  {
    keyword.parameters.Get(parameter) = inp_Item::Text(word);
  }
  else if (rule != nullptr && inp_TakesOthers(*rule, parameter.CStr()))
  {
    return; // a name or a number, for those who read it to judge
  }
  else if (count == 0)
  {
    SayOf(parameter, inp_msgIllegalValue, keyword, value, parameter);
  }
  else
  {
    SayOf(parameter, inp_msgAmbiguousValue, keyword, value, parameter);
  }
}

void inp_KeywordExpansionVisitor::ExpandEnumData(inp_Keyword& keyword, int row, int column,
                                                 char const* const* table)
{
  cow_String const value = keyword.data.AsString(row, column);
  cow_String word;
  int const count = inp_ExpandEnum(word, table, value);
  if (count == 1)
  {
    keyword.data.Set(row, column, word);
  }
  else if (count == 0)
  {
    Say(inp_msgIllegalDataValue, keyword, value, keyword.Name());
  }
  else
  {
    Say(inp_msgAmbiguousDataValue, keyword, value, keyword.Name());
  }
}

// ---- data lines ----

void inp_KeywordExpansionVisitor::TruncateEachDataLineBeyondItemN(inp_Keyword& keyword, int n)
{
  inp_DataArray const& data = keyword.data;
  bool isTooLong = false;
  for (int row = 0; row < data.Rows() && !isTooLong; ++row)
  {
    int const columns = data.Cols(row);
    isTooLong = columns > n && !(columns == n + 1 && data.IsNone(row, n));
  }
  if (!isTooLong)
  {
    return;
  }
  inp_DataArray cut;
  for (int row = 0; row < data.Rows(); ++row)
  {
    cow_List<cow_String> items;
    for (int column = 0; column < std::min(n, data.Cols(row)); ++column)
    {
      items.Append(data.AsString(row, column));
    }
    cut.Append(items);
  }
  keyword.data = cut;
  Say(inp_msgDatalinesTruncated, keyword, n);
}

// ---- the uniform handlers ----

#define INP_RULE(stem, ...)                                                                        \
  void inp_KeywordExpansionVisitor::Visit##stem(inp_Keyword& keyword)                              \
  {                                                                                                \
    Expand(keyword);                                                                               \
    MeetsRequirements(keyword);                                                                    \
  }
#define INP_RULE_INPUT(stem, ...)                                                                  \
  void inp_KeywordExpansionVisitor::Visit##stem(inp_Keyword& keyword)                              \
  {                                                                                                \
    Expand(keyword);                                                                               \
    ProcessInputParameter(keyword);                                                                \
    MeetsRequirements(keyword);                                                                    \
  }
#define INP_RULE_BY_HAND(stem, ...)
#define INP_RULE_UNREACHED(stem, ...)
#include "inp_ExpansionRules.def"

#include "inp_KeywordTable.h"

#include <algorithm>
#include <string_view>

#include "inp_KeywordEnm.h"
#include "inp_ParserExceptions.h"
#include "inp_Spelling.h"

namespace
{
// The lists of suboptions by keyword. A keyword without a list has the null pointer of the base;
// one with a list hides it.
struct NoSuboptions
{
#define INP_KEYWORD(stem, name, value) static constexpr int const* below##stem = nullptr;
#include "inp_Keywords.def"
};

struct SuboptionLists : NoSuboptions
{
  enum Stem : int
  {
#define INP_KEYWORD(stem, name, value) stem = inp_kw##stem,
#include "inp_Keywords.def"
  };
#define INP_SUBOPTIONS(stem, ...) static constexpr int below##stem[] = {__VA_ARGS__, 0};
#include "inp_Suboptions.def"
};

constexpr inp_KeywordRow keywordRows[] = {
#define INP_KEYWORD(stem, name, value) {name, inp_kw##stem, SuboptionLists::below##stem},
#include "inp_Keywords.def"
  {nullptr, 0, nullptr}};

cow_List<int> ListOf(int const* zeroEnded)
{
  cow_List<int> list;
  for (int const* value = zeroEnded; value != nullptr && *value != 0; ++value)
    list.Append(*value);
  return list;
}

// False for rows that no deck can mean: their names cannot be written, or no operation serves them.
bool IsWritable(int value)
{
  return value != inp_kwUndefined && value != inp_kwEof && value != inp_kwModel;
}
} // namespace

inp_KeywordTable::inp_KeywordTable()
{
  SetDestructLevel(9);
  for (inp_KeywordRow const* row = Rows(); row->name != nullptr; ++row)
  {
    cow_String const name(row->name);
    m_suboptions.Insert(row->value, ListOf(row->suboptions));
    m_nameToEnum.Insert(name, static_cast<inp_KeywordEnm>(row->value));
    m_enumToName.Insert(row->value, name);
    m_sortedNames.push_back(name);
  }
  std::sort(m_sortedNames.begin(), m_sortedNames.end());
}

inp_KeywordRow const* inp_KeywordTable::Rows() { return keywordRows; }

// The names that begin with `name` stand together in sorted order, and an exact one stands first.
inp_KeywordTable::Match inp_KeywordTable::Resolve(cow_String const& name) const
{
  std::string_view const start = name.View();
  auto const first =
    std::lower_bound(m_sortedNames.begin(), m_sortedNames.end(), start,
                     [](cow_String const& a, std::string_view b) { return a.View() < b; });
  auto const matches = [&](auto at)
  { return at != m_sortedNames.end() && at->View().starts_with(start); };

  if (!matches(first))
    return {nullptr, false};
  if (first->Length() != name.Length() && matches(first + 1))
    return {nullptr, true};
  return {&*first, false};
}

cow_String const& inp_KeywordTable::FullName(cow_String const& name) const
{
  Match const match = Resolve(name);
  if (match.ambiguous)
    throw inp_AmbiguousKeywordException(0, cow_String(), name);
  if (match.name == nullptr)
    throw inp_UnknownKeywordException(0, cow_String(), name);
  return *match.name;
}

inp_KeywordEnm inp_KeywordTable::Enum(cow_String const& name) const
{
  Match const match = Resolve(name);
  return match.name != nullptr ? m_nameToEnum.ConstGet(*match.name) : inp_kwUndefined;
}

cow_String const& inp_KeywordTable::Name(inp_KeywordEnm value) const
{
  return m_enumToName.ConstGet(value);
}

cow_List<int> const& inp_KeywordTable::Suboptions(int const& value) const
{
  return m_suboptions.ConstGet(value);
}

cow_List<int> inp_KeywordTable::ParentKeywords(inp_KeywordEnm value) const
{
  cow_List<int> parents;
  cow_ConstMapIterator<int, cow_List<int>> row(m_suboptions);
  for (row.First(); !row.IsDone(); row.Next())
    if (row.CurrentValue().IsMember(value))
      parents.AppendUnlessMember(row.CurrentKey());
  return parents;
}

cow_List<int> inp_KeywordTable::AllKeywords() const
{
  cow_List<int> values;
  for (inp_KeywordRow const* row = Rows(); row->name != nullptr; ++row)
    values.Append(row->value);
  values.Sort();
  return values;
}

cow_List<int> inp_KeywordTable::AllKeywordsBelow(int value) const
{
  return AllKeywordsBelow(Suboptions(value));
}

cow_List<int> inp_KeywordTable::AllKeywordsBelow(cow_List<int> const& values) const
{
  cow_List<int> below;
  for (int const value : values)
  {
    below.Append(value);
    below.Concatenate(AllKeywordsBelow(value));
  }
  return below;
}

cow_List<int> inp_KeywordTable::AssemblySuboptions() const
{
  cow_List<int> allowed = Suboptions(inp_kwAssembly);
  allowed.RemoveMember(inp_kwInstance);
  return AllKeywordsBelow(allowed);
}

cow_List<int> inp_KeywordTable::InstanceSuboptions() const
{
  return AllKeywordsBelow(Suboptions(inp_kwInstance));
}

cow_List<int> inp_KeywordTable::PartSuboptions() const
{
  return AllKeywordsBelow(Suboptions(inp_kwPart));
}

cow_List<int> inp_KeywordTable::ModelSuboptions() const
{
  cow_List<int> allowed = Suboptions(inp_kwModel);
  allowed.RemoveMember(inp_kwAssembly);
  allowed.RemoveMember(inp_kwPart);
  return AllKeywordsBelow(allowed);
}

cow_String inp_KeywordTable::KeywordEnum2String(cow_List<int> const& values) const
{
  cow_String joined;
  for (int const value : values)
  {
    if (!joined.Empty())
      joined.Append(", ");
    joined.Append(Name(static_cast<inp_KeywordEnm>(value)));
  }
  return joined;
}

cow_List<cow_String> inp_KeywordTable::NearestNames(cow_String const& name, int limit) const
{
  std::vector<std::string_view> writable;
  for (inp_KeywordRow const* row = Rows(); row->name != nullptr; ++row)
    if (IsWritable(row->value))
      writable.push_back(row->name);
  cow_List<cow_String> nearest;
  for (std::string_view const near : inp_NearestWords(name.View(), writable, limit))
    nearest.Append(cow_String(near));
  return nearest;
}

#include "inp_KeywordTable.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>

#include "inp_ParserExceptions.h"

namespace
{
// The lists of suboptions by keyword. A keyword without a list has the null pointer of the base; one
// with a list hides it.
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

// The rows that nobody can mean: their names cannot be written, or no operation serves them.
bool IsWritable(int value)
{
  return value != inp_kwUndefined && value != inp_kwEof && value != inp_kwModel;
}

int constexpr longestName = 64;

// Number of single insertions, deletions, replacements and swaps of neighbours between two texts of
// at most longestName bytes; no place is edited twice.
int EditDistance(std::string_view a, std::string_view b)
{
  using Row = std::array<int, longestName + 1>;
  Row twoAbove{}, above{}, row{};
  for (std::size_t j = 0; j <= b.size(); ++j)
    above[j] = static_cast<int>(j);
  for (std::size_t i = 1; i <= a.size(); ++i)
  {
    row[0] = static_cast<int>(i);
    for (std::size_t j = 1; j <= b.size(); ++j)
    {
      int const replaced = above[j - 1] + (a[i - 1] != b[j - 1]);
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        row[j] = std::min(row[j], twoAbove[j - 2] + 1);
    }
    twoAbove = above;
    above = row;
  }
  return above[b.size()];
}

int CommonPrefix(std::string_view a, std::string_view b)
{
  auto const [endA, endB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  return static_cast<int>(endA - a.begin());
}

// How far a name may be off and still be a likely slip of the pen.
int MostEdits(std::size_t length)
{
  return length <= 2 ? 0 : length <= 5 ? 1 : length <= 10 ? 2 : 3;
}

struct Candidate
{
  int distance;
  int commonPrefix;
  std::string_view name;

  auto Rank() const { return std::tuple(distance, -commonPrefix, name.size(), name); }
};
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
  std::string_view const wanted = name.View();
  cow_List<cow_String> nearest;
  if (wanted.empty() || wanted.size() > longestName)
    return nearest;

  int const mostEdits = MostEdits(wanted.size());
  std::vector<Candidate> candidates;
  for (inp_KeywordRow const* row = Rows(); row->name != nullptr; ++row)
  {
    std::string_view const candidate = row->name;
    if (!IsWritable(row->value))
      continue;
    int const distance = candidate.starts_with(wanted) ? 0 : EditDistance(wanted, candidate);
    if (distance <= mostEdits)
      candidates.push_back({distance, CommonPrefix(wanted, candidate), candidate});
  }
  std::sort(candidates.begin(), candidates.end(),
            [](Candidate const& a, Candidate const& b) { return a.Rank() < b.Rank(); });
  for (Candidate const& candidate : candidates)
    if (nearest.Length() < limit)
      nearest.Append(cow_String(candidate.name));
  return nearest;
}

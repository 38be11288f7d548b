#include "inp_NamePeriods.h"

#include "inp_KeywordEnm.h"
#include "inp_Utils.h"

#include <algorithm>
#include <iterator>

namespace
{

/// A keyword and its parameters that carry a name.
struct NamingKeyword
{
  inp_KeywordEnm keyword;
  char const* parameter;
  char const* secondParameter = nullptr;
};

NamingKeyword const* FindNaming(inp_KeywordEnm keyword)
{
  static constexpr NamingKeyword table[] = {
    {inp_kwAssembly, "name"},
    {inp_kwInstance, "name"},
    {inp_kwPart, "name"},
    {inp_kwRigidSurface, "name"},
    {inp_kwSurface, "name"},
    {inp_kwOrientation, "name"},
    {inp_kwRebar, "name"},
    {inp_kwElement, "elset"},
    {inp_kwElgen, "elset"},
    {inp_kwElset, "elset"},
    {inp_kwNfill, "nset"},
    {inp_kwNgen, "nset"},
    {inp_kwNode, "nset"},
    {inp_kwNmap, "nset"},
    {inp_kwNset, "nset"},
    {inp_kwElcopy, "newset", "oldset"},
    {inp_kwNcopy, "newset", "oldset"},
  };
  auto const found =
    std::find_if(std::begin(table), std::end(table),
                 [keyword](NamingKeyword const& row) { return row.keyword == keyword; });
  return found != std::end(table) ? &*found : nullptr;
}

bool HasPeriod(inp_Keyword const& keyword, char const* parameter)
{
  return parameter != nullptr && inp_Utils::HasNameUnquotedPeriod(keyword.NameIn(parameter));
}

} // namespace

// Recursion is safe: the lists of suboptions that a keyword may have form no cycle.
inp_Keyword const* inp_FindPeriodInNames(cow_List<inp_Keyword> const& list)
{
  for (inp_Keyword const& keyword : list)
  {
    NamingKeyword const* const naming = FindNaming(keyword.keyword);
    if (naming != nullptr &&
        (HasPeriod(keyword, naming->parameter) || HasPeriod(keyword, naming->secondParameter)))
    {
      return &keyword;
    }
    if (inp_Keyword const* const below = inp_FindPeriodInNames(keyword.suboptions))
    {
      return below;
    }
  }
  return nullptr;
}

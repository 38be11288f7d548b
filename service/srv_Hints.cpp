#include "srv_Hints.h"

#include "atr_String.h"
#include "inp_ExpansionRules.h"
#include "inp_KeywordTable.h"
#include "inp_Spelling.h"
#include "srv_Words.h"

#include <cstring>
#include <vector>

namespace
{

constexpr int c_mostNames = 3;
constexpr std::size_t c_mostListed = 12;

std::string DidYouMean(srv_Words const& words)
{
  return words.empty() ? "" : "did you mean " + srv_Alternatives(words) + "?";
}

std::string NearKeywords(atr_Origin const& origin, std::string const&)
{
  return srv_DidYouMeanKeyword(std::string(origin.keyword.View()));
}

inp_KeywordEnm KeywordOf(atr_Origin const& origin)
{
  cow_String name(origin.keyword);
  return thr_ThreadSingleton<inp_KeywordTable>::Instance().Enum(name.ToLower());
}

std::string NearParameters(atr_Origin const& origin, std::string const&)
{
  inp_ExpansionRule const* const rule = inp_ExpansionRuleOf(KeywordOf(origin));
  std::string const keyword = "*" + srv_Upper(origin.keyword.View());
  if (rule == nullptr || rule->parameters[0] == nullptr)
  {
    return keyword + " takes no parameters";
  }
  std::vector<std::string_view> candidates;
  srv_Words all;
  for (char const* const* parameter = rule->parameters; *parameter != nullptr; ++parameter)
  {
    candidates.push_back(*parameter);
    all.push_back(srv_Upper(*parameter));
  }
  srv_Words near;
  for (std::string_view const word :
       inp_NearestWords(origin.subject.View(), candidates, c_mostNames))
  {
    near.push_back(srv_Upper(word));
  }
  return near.empty() ? keyword + " takes " + srv_FirstOf(all, c_mostListed) : DidYouMean(near);
}

/// The words of the parameter at fault.
std::string AllowedValues(atr_Origin const& origin, std::string const&)
{
  inp_ExpansionRule const* const rule = inp_ExpansionRuleOf(KeywordOf(origin));
  srv_Words words;
  char const* const* run = rule != nullptr ? rule->values : nullptr;
  for (; run != nullptr && *run != nullptr; run = inp_NextValues(run))
  {
    for (char const* const* word = run + 1; origin.subject == *run && *word != nullptr; ++word)
    {
      words.emplace_back(*word);
    }
  }
  if (!words.empty() && inp_TakesOthers(*rule, origin.subject.CStr()))
  {
    words.emplace_back("or a name or a number");
  }
  return words.empty()
           ? ""
           : srv_Upper(origin.subject.View()) + " takes " + srv_FirstOf(words, c_mostListed);
}

std::string SearchedFolders(atr_Origin const&, std::string const& includePath)
{
  if (includePath.empty() || includePath == ".")
  {
    return "looked for in the working directory; -I DIR adds another place";
  }
  return "looked for in the working directory and in '" + includePath + "' (see -I)";
}

struct Row
{
  char const* code;
  std::string (*hint)(atr_Origin const& origin, std::string const& includePath);
};

constexpr Row c_rows[] = {
  {"UnknownKeyword", NearKeywords},        {"AmbiguousKeyword", NearKeywords},
  {"MissingIncludeFile", SearchedFolders}, {"InputFileDoesNotExist", SearchedFolders},
  {"UnknownParameter", NearParameters},    {"AmbiguousParameter", NearParameters},
  {"IllegalValue", AllowedValues},         {"AmbiguousValue", AllowedValues},
};

} // namespace

std::string srv_DidYouMeanKeyword(std::string const& name)
{
  inp_KeywordTable const& table = thr_ThreadSingleton<inp_KeywordTable>::Instance();
  srv_Words words;
  for (cow_String const& near : table.NearestNames(cow_String(std::string_view(name)), c_mostNames))
  {
    words.push_back("*" + srv_Upper(near.View()));
  }
  return DidYouMean(words);
}

std::string srv_HintFor(atr_Origin const& origin, std::string const& includePath)
{
  for (Row const& row : c_rows)
  {
    if (std::strcmp(row.code, origin.code) == 0)
    {
      return row.hint(origin, includePath);
    }
  }
  return "";
}

#include "drv_Language.h"

#include "drv_Exit.h"
#include "drv_Options.h"
#include "drv_Output.h"
#include "inp_ExpansionRules.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordTable.h"
#include "inp_ReferencePlaces.h"
#include "srv_Hints.h"
#include "srv_JsonWriter.h"
#include "srv_Utf8.h"
#include "srv_Words.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

namespace
{

constexpr int c_columns = 80;

inp_KeywordTable const& Table() { return thr_ThreadSingleton<inp_KeywordTable>::Instance(); }

struct ElementType
{
  char const* name;
  int fewest;
  int most;
};

constexpr ElementType c_elementTypes[] = {
#define INP_ELEMENT_TYPE(name, fewest, most) {name, fewest, most},
#include "inp_ElementTypes.def"
};

// ---- what the tables say

/// A table of words that one or more parameters take.
struct Enumeration
{
  srv_Words parameters;
  srv_Words values;
};

srv_Words TakeWords(char const* const* from)
{
  srv_Words words;
  for (; *from != nullptr; ++from)
  {
    words.emplace_back(*from);
  }
  return words;
}

/// Parameters next to each other that take the same words share a table.
std::vector<Enumeration> EnumerationsOf(inp_ExpansionRule const& rule)
{
  std::vector<Enumeration> enumerations;
  for (char const* const* run = rule.values; *run != nullptr; run = inp_NextValues(run))
  {
    srv_Words const values = TakeWords(run + 1);
    bool const isShared = !enumerations.empty() && enumerations.back().values == values;
    if (!isShared)
    {
      enumerations.push_back({{}, values});
    }
    enumerations.back().parameters.emplace_back(*run);
  }
  return enumerations;
}

/// The words of every table that the parameter has.
srv_Words ValuesOf(inp_ExpansionRule const& rule, std::string const& parameter)
{
  srv_Words values;
  for (char const* const* run = rule.values; *run != nullptr; run = inp_NextValues(run))
  {
    if (parameter == *run)
    {
      srv_Words const more = TakeWords(run + 1);
      values.insert(values.end(), more.begin(), more.end());
    }
  }
  return values;
}

srv_Words ParametersOf(inp_KeywordEnm keyword)
{
  inp_ExpansionRule const* const rule = inp_ExpansionRuleOf(keyword);
  return rule != nullptr ? TakeWords(rule->parameters) : srv_Words();
}

/// "*NODE"; the root of the hierarchy, which no deck names, is "the model".
std::string ShownName(inp_KeywordEnm keyword)
{
  return keyword == inp_kwModel ? "the model" : "*" + srv_Upper(Table().Name(keyword).View());
}

srv_Words ShownNames(cow_List<int> const& keywords)
{
  srv_Words names;
  for (int const keyword : keywords)
  {
    names.push_back(ShownName(static_cast<inp_KeywordEnm>(keyword)));
  }
  return names;
}

/// The parameters of all requirements of a kind, as the tables write them.
srv_Words RequirementsOf(inp_ExpansionRule const& rule, inp_Requirement::kindEnm kind)
{
  srv_Words words;
  for (inp_Requirement const* row = rule.requirements; row->kind != inp_Requirement::none; ++row)
  {
    for (char const* word : row->words)
    {
      if (word != nullptr && row->kind == kind)
      {
        words.emplace_back(word);
      }
    }
  }
  return words;
}

/// What must be given, whatever the words in which the keyword is refused without it.
srv_Words RequiredOf(inp_ExpansionRule const& rule)
{
  srv_Words words;
  for (auto const kind :
       {inp_Requirement::demanded, inp_Requirement::demandedByHand, inp_Requirement::required})
  {
    srv_Words const more = RequirementsOf(rule, kind);
    words.insert(words.end(), more.begin(), more.end());
  }
  return words;
}

/// Of keywords that an assembly of parts does not take: the parameter with which it does not, empty
/// for the keyword as a whole.
srv_Words RefusedOf(inp_ExpansionRule const& rule)
{
  srv_Words parameters;
  for (inp_Requirement const* row = rule.requirements; row->kind != inp_Requirement::none; ++row)
  {
    if (row->kind == inp_Requirement::refused || row->kind == inp_Requirement::refusedThis)
    {
      parameters.emplace_back(row->words[1] != nullptr ? row->words[1] : "");
    }
  }
  return parameters;
}

// ---- for people

/// srv_Words behind a label, over as many lines as they need.
std::string Paragraph(std::string const& label, std::size_t indent, srv_Words const& words)
{
  std::string text;
  std::string line = "  " + label;
  line.append(indent - std::min(indent, line.size()), ' ');
  for (std::size_t i = 0; i < words.size(); ++i)
  {
    std::string const word = words[i] + (i + 1 < words.size() ? "," : "");
    bool const isFirst = line.size() == indent;
    if (!isFirst && line.size() + 1 + word.size() > c_columns)
    {
      text += line + "\n";
      line.assign(indent, ' ');
    }
    line += (line.size() == indent ? "" : " ") + word;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return text + line + "\n";
}

/// "a, b and 3 more".
std::string FewOf(srv_Words const& words)
{
  constexpr std::size_t most = 2;
  if (words.size() <= most)
  {
    return srv_Joined(words);
  }
  return srv_Joined({words.begin(), words.begin() + most}) + " and " +
         std::to_string(words.size() - most) + " more";
}

std::string Listing()
{
  char line[128];
  std::snprintf(line, sizeof line, "%-37s %5s %10s %5s  %s\n", "KEYWORD", "VALUE", "PARAMETERS",
                "HOLDS", "STANDS BELOW");
  std::string text = line;
  for (inp_KeywordRow const* row = inp_KeywordTable::Rows(); row->name != nullptr; ++row)
  {
    inp_KeywordEnm const keyword = static_cast<inp_KeywordEnm>(row->value);
    if (keyword == inp_kwUndefined || keyword == inp_kwModel)
    {
      continue;
    }
    std::snprintf(line, sizeof line, "%-37s %5d %10d %5d  ", ShownName(keyword).c_str(), row->value,
                  static_cast<int>(ParametersOf(keyword).size()),
                  Table().Suboptions(row->value).Length());
    text += line + FewOf(ShownNames(Table().ParentKeywords(keyword)));
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
  }
  return text;
}

std::string ParameterLines(inp_KeywordEnm keyword)
{
  srv_Words const parameters = ParametersOf(keyword);
  std::size_t widest = 0;
  for (std::string const& parameter : parameters)
  {
    widest = std::max(widest, parameter.size());
  }
  std::string text;
  for (std::string const& parameter : parameters)
  {
    inp_ExpansionRule const& rule = *inp_ExpansionRuleOf(keyword);
    srv_Words values = ValuesOf(rule, parameter);
    if (inp_TakesOthers(rule, parameter.c_str()))
    {
      values.emplace_back("or a name or a number");
    }
    text += Paragraph("  " + srv_Upper(parameter), widest + 6, values);
  }
  return text;
}

/// Words over as many lines as they need, those behind the first indented.
std::string Wrapped(std::string const& text, std::size_t indent)
{
  std::string lines;
  std::string line = text;
  while (line.size() > c_columns)
  {
    std::size_t const blank = line.rfind(' ', c_columns);
    std::size_t const at = blank == std::string::npos || blank <= indent ? c_columns : blank;
    lines += line.substr(0, at) + "\n";
    line = std::string(indent, ' ') + line.substr(std::min(at + 1, line.size()));
  }
  return lines + line + "\n";
}

/// Where the keyword names something, a place a line.
std::string ReferenceLines(inp_KeywordEnm keyword)
{
  std::string text;
  for (inp_ReferencePlace const& place : inp_ReferencePlaces(keyword))
  {
    std::string line = "    " + std::string(inp_NamedThings(place.what)) + " in ";
    line += inp_PlaceWords(place).View();
    cow_String const when = inp_ConditionWords(place);
    text += Wrapped(when.Empty() ? line : line + " if " + std::string(when.View()), 6);
  }
  return text.empty() ? text : "  names\n" + text;
}

srv_Words UpperWords(srv_Words words)
{
  for (std::string& word : words)
  {
    word = srv_Upper(word);
  }
  return words;
}

/// What the keyword must have, and where it may not stand.
std::string RequirementLines(inp_KeywordEnm keyword, std::size_t indent)
{
  inp_ExpansionRule const* const rule = inp_ExpansionRuleOf(keyword);
  if (rule == nullptr)
  {
    return "";
  }
  struct
  {
    char const* label;
    srv_Words words;
  } lines[] = {
    {"requires", UpperWords(RequiredOf(*rule))},
    {"and one of", UpperWords(RequirementsOf(*rule, inp_Requirement::demandedOne))},
    {"with a value", UpperWords(RequirementsOf(*rule, inp_Requirement::valued))},
    {"refused", {}},
  };
  for (std::string const& parameter : RefusedOf(*rule))
  {
    lines[3].words.push_back("in an assembly of part instances" +
                             (parameter.empty() ? "" : " with " + srv_Upper(parameter)));
  }
  std::string text;
  for (auto const& line : lines)
  {
    text += line.words.empty() ? "" : Paragraph(line.label, indent, line.words);
  }
  return text;
}

std::string Description(inp_KeywordEnm keyword)
{
  constexpr std::size_t indent = 16;
  cow_List<int> const parents = Table().ParentKeywords(keyword);
  cow_List<int> const& below = Table().Suboptions(keyword);
  std::string text = ShownName(keyword) + " (value " + std::to_string(keyword) + ")\n\n";
  text +=
    Paragraph("stands below", indent, parents.Empty() ? srv_Words{"nothing"} : ShownNames(parents));
  text += Paragraph("holds", indent, below.Empty() ? srv_Words{"nothing"} : ShownNames(below));
  text += RequirementLines(keyword, indent);
  std::string const parameters = ParameterLines(keyword);
  text += parameters.empty() ? "  parameters    none\n" : "  parameters\n" + parameters;
  return text + ReferenceLines(keyword);
}

// ---- for programs

void WriteWords(srv_JsonWriter& json, srv_Words const& words)
{
  json.BeginArray();
  for (std::string const& word : words)
  {
    json.String(word);
  }
  json.EndArray();
}

void WriteNames(srv_JsonWriter& json, cow_List<int> const& keywords)
{
  json.BeginArray();
  for (int const keyword : keywords)
  {
    json.String(Table().Name(static_cast<inp_KeywordEnm>(keyword)).View());
  }
  json.EndArray();
}

void WriteKeyword(srv_JsonWriter& json, inp_KeywordRow const& row)
{
  json.Break(2).BeginObject().Key("name").String(row.name).Key("value").Number(row.value);
  json.Key("suboptions");
  WriteNames(json, Table().Suboptions(row.value));
  json.Key("parents");
  WriteNames(json, Table().ParentKeywords(static_cast<inp_KeywordEnm>(row.value)));
  json.EndObject();
}

void WriteRule(srv_JsonWriter& json, inp_ExpansionRule const& rule)
{
  json.Break(2).BeginObject().Key("handler").String(rule.handler).Key("parameters");
  WriteWords(json, TakeWords(rule.parameters));
  json.Key("enumerated").BeginArray();
  for (Enumeration const& enumeration : EnumerationsOf(rule))
  {
    json.BeginObject().Key("parameters");
    WriteWords(json, enumeration.parameters);
    json.Key("values");
    WriteWords(json, enumeration.values);
    json.EndObject();
  }
  json.EndArray().Key("required");
  WriteWords(json, RequiredOf(rule));
  json.Key("oneRequired");
  WriteWords(json, RequirementsOf(rule, inp_Requirement::demandedOne));
  json.Key("valueRequired");
  WriteWords(json, RequirementsOf(rule, inp_Requirement::valued));
  json.Key("namesAndNumbersToo");
  WriteWords(json, RequirementsOf(rule, inp_Requirement::orOthers));
  srv_Words const refused = RefusedOf(rule);
  bool const always = !refused.empty() && refused.front().empty();
  json.Key("refusedInAssembly").Bool(always).Key("refusedInAssemblyWith");
  WriteWords(json, always ? srv_Words() : refused);
  json.EndObject();
}

void WriteElementType(srv_JsonWriter& json, ElementType const& type)
{
  json.Break(2).BeginObject().Key("name").String(type.name);
  json.Key("minNodes").Number(type.fewest).Key("maxNodes").Number(type.most).EndObject();
}

/// All tables, or what concerns one keyword.
std::string Json(inp_KeywordEnm const* only)
{
  std::string text;
  srv_JsonWriter json(text, srv_JsonWriter::spaced);
  json.BeginObject().Key("keywords").BeginArray();
  for (inp_KeywordRow const* row = inp_KeywordTable::Rows(); row->name != nullptr; ++row)
  {
    if (only == nullptr || row->value == *only)
    {
      WriteKeyword(json, *row);
    }
  }
  json.EndArray().Break(1).Key("rules").BeginArray();
  inp_ExpansionRule const* const ruleOfOne = only != nullptr ? inp_ExpansionRuleOf(*only) : nullptr;
  for (inp_ExpansionRule const* rule = inp_ExpansionRules(); rule->handler != nullptr; ++rule)
  {
    if (only == nullptr || rule == ruleOfOne)
    {
      WriteRule(json, *rule);
    }
  }
  json.EndArray().Break(1).Key("elementTypes").BeginArray();
  for (ElementType const& type : c_elementTypes)
  {
    if (only == nullptr || *only == inp_kwElement)
    {
      WriteElementType(json, type);
    }
  }
  json.EndArray().EndObject();
  return text + "\n";
}

/// By name or abbreviation; an asterisk in front and blanks do not matter, nor does the case.
inp_KeywordEnm Find(std::string const& written)
{
  cow_String name(std::string_view(written.c_str()));
  name.Trim(" \t").LeftTrim("*").ToLower();
  inp_KeywordTable::Match const match = Table().Resolve(name);
  if (match.name != nullptr)
  {
    return Table().Enum(*match.name);
  }
  std::string const question = srv_DidYouMeanKeyword(std::string(name.View()));
  throw drv_Failure("'" + srv_Printable(written, 60) +
                    (match.ambiguous ? "' stands for several keywords" : "' is no keyword") +
                    (question.empty() ? "" : "; " + question));
}

} // namespace

void drv_ShowLanguage(drv_Options const& options, drv_Output& output)
{
  if (options.name.empty())
  {
    output.Write(options.asJson ? Json(nullptr) : Listing());
    return;
  }
  inp_KeywordEnm const keyword = Find(options.name);
  output.Write(options.asJson ? Json(&keyword) : Description(keyword));
}

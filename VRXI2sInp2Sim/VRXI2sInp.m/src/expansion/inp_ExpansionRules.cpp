#include "inp_ExpansionRules.h"

#include "inp_KeywordEnm.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace
{

#define PARAMETERS(...) __VA_ARGS__ __VA_OPT__(, ) nullptr
#define VALUES(...) __VA_ARGS__, nullptr,
#define INP_RULE(stem, parameters, ...)                                                            \
  constexpr char const* const parametersOf##stem[] = {parameters};                                 \
  constexpr char const* const valuesOf##stem[] = {__VA_ARGS__ nullptr};
#include "inp_ExpansionRules.def"

#define DEMANDS(...) {inp_Requirement::demanded, {__VA_ARGS__}},
#define DEMANDS_ONE(...) {inp_Requirement::demandedOne, {__VA_ARGS__}},
#define DEMANDS_BY_HAND(...) {inp_Requirement::demandedByHand, {__VA_ARGS__}},
#define REQUIRES(...) {inp_Requirement::required, {__VA_ARGS__}},
#define REQUIRES_VALUE(...) {inp_Requirement::valued, {__VA_ARGS__}},
#define OR_OTHERS(...) {inp_Requirement::orOthers, {__VA_ARGS__}},
#define REFUSED(...) {inp_Requirement::refused, {__VA_ARGS__}},
#define REFUSED_THIS(...) {inp_Requirement::refusedThis, {__VA_ARGS__}},
#define INP_RULE(stem, parameters, ...)                                                            \
  constexpr inp_Requirement requirementsOf##stem[] = {__VA_ARGS__{}};
#include "inp_ExpansionRules.def"

constexpr inp_ExpansionRule c_rules[] = {
#define INP_RULE(stem, parameters, ...)                                                            \
  {"Visit" #stem, parametersOf##stem, valuesOf##stem, requirementsOf##stem},
#include "inp_ExpansionRules.def"
  {nullptr, nullptr, nullptr, nullptr}};

/// Index of each rule in the table.
enum ruleEnm : int
{
#define INP_RULE(stem, parameters, ...) rule##stem,
#include "inp_ExpansionRules.def"
  ruleCount
};
static_assert(sizeof c_rules / sizeof *c_rules == ruleCount + 1);

/// The length of the shorter text when the longer one begins with it; else -1.
int Agreement(std::string_view spelled, std::string_view entry)
{
  std::size_t const shorter = std::min(spelled.size(), entry.size());
  return spelled.substr(0, shorter) == entry.substr(0, shorter) ? static_cast<int>(shorter) : -1;
}

} // namespace

inp_ExpansionRule const* inp_ExpansionRules() { return c_rules; }

inp_ExpansionRule const* inp_ExpansionRuleOf(inp_KeywordEnm keyword)
{
  switch (static_cast<int>(keyword))
  {
  case inp_kwModalPrint:
    return &c_rules[rulePrint];
#define INP_RULE_UNREACHED(stem, parameters, ...)
#define INP_RULE(stem, parameters, ...)                                                            \
  case inp_kw##stem:                                                                               \
    return &c_rules[rule##stem];
#include "inp_ExpansionRules.def"
  default:
    return nullptr;
  }
}

inp_ExpansionRule const* inp_ExpansionRuleNamed(char const* handler)
{
  for (inp_ExpansionRule const* rule = c_rules; rule->handler != nullptr; ++rule)
  {
    if (std::strcmp(rule->handler, handler) == 0)
    {
      return rule;
    }
  }
  return nullptr;
}

inp_ParameterMatch inp_MatchParameter(char const* const* table, std::string_view spelled)
{
  inp_ParameterMatch best;
  int bestLength = -1;
  for (; *table != nullptr && bestLength < static_cast<int>(spelled.size()); ++table)
  {
    int const length = Agreement(spelled, *table);
    if (length > bestLength)
    {
      best.name = *table;
      bestLength = length;
    }
    else if (length >= 0 && length == bestLength)
    {
      ++best.ties;
    }
  }
  return best;
}

bool inp_TakesOthers(inp_ExpansionRule const& rule, char const* parameter)
{
  for (inp_Requirement const* row = rule.requirements; row->kind != inp_Requirement::none; ++row)
  {
    auto const isMeant = [parameter](char const* word)
    { return word != nullptr && std::strcmp(word, parameter) == 0; };
    if (row->kind == inp_Requirement::orOthers &&
        std::any_of(std::begin(row->words), std::end(row->words), isMeant))
    {
      return true;
    }
  }
  return false;
}

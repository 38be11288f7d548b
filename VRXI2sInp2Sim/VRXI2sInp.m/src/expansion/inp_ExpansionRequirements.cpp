// What a keyword must have, and what an assembly of parts does not take.

#include "inp_ExpansionMessages.h"
#include "inp_KeywordExpansionVisitor.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string_view>

namespace
{

/// A parameter, and what is said where it is missing.
struct Demanded
{
  std::string_view parameter;
  atr_MessageRow<0> const& row;
};

constexpr Demanded c_demanded[] = {
  {"elset", inp_msgElsetRequired},       {"evolution", inp_msgEvolutionRequired},
  {"input", inp_msgInputRequired},       {"interactionname", inp_msgInteractionNameRequired},
  {"name", inp_msgNameRequired},         {"nset", inp_msgNsetRequired},
  {"property", inp_msgPropertyRequired}, {"referencenodeset", inp_msgReferenceNodeSetRequired},
  {"type", inp_msgTypeRequired},
};

constexpr Demanded const* FindDemanded(std::string_view parameter)
{
  return std::find_if(std::begin(c_demanded), std::end(c_demanded),
                      [parameter](Demanded const& row) { return row.parameter == parameter; });
}

constexpr bool HaveWords(std::initializer_list<std::string_view> parameters)
{
  return std::all_of(parameters.begin(), parameters.end(),
                     [](std::string_view parameter)
                     { return FindDemanded(parameter) != std::end(c_demanded); });
}

// Does not compile unless every parameter that a rule demands is in the table above.
// clang-format off
#define DEMANDS(...) && HaveWords({__VA_ARGS__})
#define INP_RULE(stem, parameters, ...) __VA_ARGS__
static_assert(true
#include "inp_ExpansionRules.def"
);
// clang-format on

bool HasOneOf(inp_Keyword const& keyword, inp_Requirement const& requirement)
{
  auto const isGiven = [&keyword](char const* name)
  { return name != nullptr && keyword.HasParameter(name); };
  return std::any_of(std::begin(requirement.words), std::end(requirement.words), isGiven);
}

} // namespace

bool inp_KeywordExpansionVisitor::MeetsRequirements(inp_Keyword& keyword)
{
  bool meets = true;
  for (inp_Requirement const* requirement = inp_ExpansionRuleOf(keyword.keyword)->requirements;
       requirement->kind != inp_Requirement::none; ++requirement)
  {
    meets = Meets(keyword, *requirement) && meets;
  }
  return meets;
}

bool inp_KeywordExpansionVisitor::Meets(inp_Keyword& keyword, inp_Requirement const& requirement)
{
  switch (requirement.kind)
  {
  case inp_Requirement::none:
  case inp_Requirement::demandedByHand:
  case inp_Requirement::orOthers:
    return true;
  case inp_Requirement::refused:
    RefuseOption(keyword, requirement, inp_msgRefusedOption);
    return true;
  case inp_Requirement::refusedThis:
    RefuseOption(keyword, requirement, inp_msgRefusedThisOption);
    return true;
  case inp_Requirement::demandedOne:
    return DemandOne(keyword, requirement);
  case inp_Requirement::demanded:
  case inp_Requirement::required:
  case inp_Requirement::valued:
    break;
  }
  bool meets = true;
  for (char const* name : requirement.words)
  {
    meets = (name == nullptr || MeetsFor(keyword, requirement.kind, name)) && meets;
  }
  return meets;
}

/// Checks one parameter of a requirement.
bool inp_KeywordExpansionVisitor::MeetsFor(inp_Keyword& keyword, inp_Requirement::kindEnm kind,
                                           char const* name)
{
  bool const isGiven = keyword.ReadName(name).IsGiven();
  if (kind == inp_Requirement::required)
  {
    checkRequiredParameter(keyword, name);
    return keyword.HasParameter(name);
  }
  if (kind == inp_Requirement::demanded && !keyword.HasParameter(name))
  {
    Say(FindDemanded(name)->row, keyword);
    return false;
  }
  checkRequiredParameterValue(keyword, name);
  return kind == inp_Requirement::valued || isGiven;
}

bool inp_KeywordExpansionVisitor::DemandOne(inp_Keyword const& keyword,
                                            inp_Requirement const& requirement)
{
  bool const has = HasOneOf(keyword, requirement);
  if (!has)
  {
    Say(inp_msgRigidBodyEmpty, keyword); // the one keyword that demands one of several
  }
  return has;
}

void inp_KeywordExpansionVisitor::RefuseOption(inp_Keyword const& keyword,
                                               inp_Requirement const& requirement,
                                               atr_MessageRow<1> const& row)
{
  char const* const parameter = requirement.words[1];
  if (parameter == nullptr || keyword.HasParameter(parameter))
  {
    Refuse(row, keyword, requirement.words[0]);
  }
}

void inp_KeywordExpansionVisitor::checkRequiredParameter(inp_Keyword& keyword, cow_String parameter)
{
  if (!keyword.HasParameter(parameter))
  {
    Say(inp_msgRequiredParameter, keyword, parameter.ToUpper());
  }
}

void inp_KeywordExpansionVisitor::checkRequiredParameterValue(inp_Keyword const& keyword,
                                                              cow_String parameter)
{
  inp_NameParameter const given = keyword.ReadName(parameter);
  if (!given.IsGiven() && given.state != inp_NameParameter::c_absent)
  {
    Say(inp_msgRequiredParameterValue, keyword, parameter.ToUpper());
  }
}

void inp_KeywordExpansionVisitor::checkRequiredDataline(inp_Keyword& keyword)
{
  if (keyword.data.Rows() == 0)
  {
    Say(inp_msgDatalineRequired, keyword);
  }
}

#pragma once

#include "inp_KeywordEnmFwd.h"

#include <string_view>

/// Something that a keyword must have or may have, or that an assembly of part instances does not take.
struct inp_Requirement
{
  enum kindEnm
  {
    none,           ///< closes a rule's requirements
    demanded,       ///< each of the parameters must be given
    demandedOne,    ///< one of them must
    demandedByHand, ///< each must, and the handler says so
    required,       ///< each must, in other words than those of `demanded`
    valued,         ///< each that is given must have a value
    orOthers,       ///< each takes names and numbers beside its words
    refused,        ///< words[0] says what; with words[1], only where that parameter is given
    refusedThis     ///< the same in other words
  };
  static constexpr int c_words = 4;

  kindEnm kind = none;
  char const* words[c_words] = {};
};

/// What a keyword may carry, and what it must. The tables are static, and arrays end with a null pointer.
struct inp_ExpansionRule
{
  char const* handler;           ///< "VisitNode"
  char const* const* parameters; ///< full names in the order that abbreviations are tried
  /// Runs of a parameter's name, its words and a null, ended by a null instead of a name. A
  /// parameter with two runs takes the words of both.
  char const* const* values;
  inp_Requirement const* requirements; ///< in the order in which they are looked at
};

/// All rules in table order, ended by one without a handler.
inp_ExpansionRule const* inp_ExpansionRules();

/// The rule of a keyword's handler; null for keywords without a rule.
inp_ExpansionRule const* inp_ExpansionRuleOf(inp_KeywordEnm keyword);

/// The rule of a handler, by its name; null when there is no such handler.
inp_ExpansionRule const* inp_ExpansionRuleNamed(char const* handler);

/// What a written parameter name stands for.
struct inp_ParameterMatch
{
  char const* name = nullptr; ///< null: nothing
  int ties = 0;               ///< entries that fitted as well as the best one until then
};

/// The entry that the spelled name means: the first one that begins with it, or else the longest one that it
/// begins with. An entry of which the table has two is a tie, even when a later one fits better.
inp_ParameterMatch inp_MatchParameter(char const* const* table, std::string_view spelled);

/// The keyword's parameter takes names and numbers beside its words.
bool inp_TakesOthers(inp_ExpansionRule const& rule, char const* parameter);

/// The run behind the one that begins at `values`.
inline char const* const* inp_NextValues(char const* const* values)
{
  while (*values != nullptr)
  {
    ++values;
  }
  return values + 1;
}

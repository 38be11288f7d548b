#pragma once

#include "inp_KeywordEnmFwd.h"

/// What a keyword may carry. The tables are static, and arrays end with a null pointer.
struct inp_ExpansionRule
{
  char const* handler;           ///< "VisitNode"
  char const* const* parameters; ///< full names in the order that abbreviations are tried
  /// Runs of a parameter's name, its words and a null, ended by a null in the place of a name. A
  /// parameter with two runs takes the words of both.
  char const* const* values;
};

/// All rules in table order, ended by one without a handler.
inp_ExpansionRule const* inp_ExpansionRules();

/// Of a keyword's handler; null for keywords without a rule.
inp_ExpansionRule const* inp_ExpansionRuleOf(inp_KeywordEnm keyword);

/// By the handler's name; null when there is none of that name.
inp_ExpansionRule const* inp_ExpansionRuleNamed(char const* handler);

/// The run behind the one that begins at `values`.
inline char const* const* inp_NextValues(char const* const* values)
{
  while (*values != nullptr)
  {
    ++values;
  }
  return values + 1;
}

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace
{
struct Table
{
  std::string parameter;
  std::vector<std::string> words;
};

struct Rule
{
  bool isReached;
  std::string stem;
  std::vector<std::string> parameters;
  std::vector<Table> tables;
};

#define PARAMETERS(...) __VA_ARGS__ __VA_OPT__(, ) nullptr
#define VALUES(...) __VA_ARGS__, nullptr,
#define INP_RULE(stem, parameters, ...)                                                            \
  constexpr char const* const parametersOf##stem[] = {parameters};                                 \
  constexpr char const* const valuesOf##stem[] = {__VA_ARGS__ nullptr};
#include "inp_ExpansionRules.def"

struct StaticRule
{
  bool isReached;
  char const* stem;
  char const* const* parameters;
  char const* const* values;
};

constexpr StaticRule staticRules[] = {
#define INP_RULE(stem, ...) {true, #stem, parametersOf##stem, valuesOf##stem},
#define INP_RULE_UNREACHED(stem, ...) {false, #stem, parametersOf##stem, valuesOf##stem},
#include "inp_ExpansionRules.def"
};

std::vector<std::string> TakeRun(char const* const*& entry)
{
  std::vector<std::string> run;
  while (*entry != nullptr)
    run.emplace_back(*entry++);
  ++entry;
  return run;
}

std::vector<Rule> AllRules()
{
  std::vector<Rule> rules;
  for (StaticRule const& row : staticRules)
  {
    char const* const* entry = row.parameters;
    Rule rule{row.isReached, row.stem, TakeRun(entry), {}};
    entry = row.values;
    while (*entry != nullptr)
    {
      std::string const parameter = *entry++;
      rule.tables.push_back({parameter, TakeRun(entry)});
    }
    rules.push_back(rule);
  }
  return rules;
}

std::vector<Rule> const rules = AllRules();

using Places = std::set<std::string>; // "Stem name"

Places Repeated(std::string const& stem, std::vector<std::string> const& entries)
{
  Places places;
  std::set<std::string> met;
  for (std::string const& entry : entries)
    if (!met.insert(entry).second)
      places.insert(stem + ' ' + entry);
  return places;
}
} // namespace

TEST(inp_ExpansionRules, ARuleBelongsToOneKeywordUnlessItSaysThatNoneReachesIt)
{
  std::set<std::string> keywords, stems;
#define INP_KEYWORD(stem, name, value) keywords.insert(#stem);
#define INP_KEYWORD_UNVISITED(stem, name, value)
#define INP_KEYWORD_SHARED(stem, name, value, visitor)
#include "inp_Keywords.def"
  for (Rule const& rule : rules)
  {
    EXPECT_TRUE(stems.insert(rule.stem).second) << rule.stem;
    EXPECT_EQ(keywords.contains(rule.stem), rule.isReached) << rule.stem;
  }
}

TEST(inp_ExpansionRules, NothingStandsTwice)
{
  Places parameters, tables, words;
  for (Rule const& rule : rules)
  {
    parameters.merge(Repeated(rule.stem, rule.parameters));
    std::vector<std::string> enumerated;
    for (Table const& table : rule.tables)
    {
      enumerated.push_back(table.parameter);
      words.merge(Repeated(rule.stem + ' ' + table.parameter, table.words));
    }
    tables.merge(Repeated(rule.stem, enumerated));
  }
  // Harmless: the search for a parameter stops at the first full agreement.
  EXPECT_EQ(parameters, (Places{"DampingControls diagonal", "DampingControls lowfrequencycutoff",
                                "DampingControls structural", "DampingControls viscous",
                                "MatrixExport format", "MatrixExport modeshapes",
                                "MatrixExport workflow", "SubstructureDampingControls diagonal",
                                "SubstructureDampingControls structural",
                                "SubstructureDampingControls viscous"}));
  // Two tables for one parameter, next to each other.
  EXPECT_EQ(tables, (Places{"ClayHardening type", "ContactPair adjust", "ResponseSpectrum comp",
                            "SoftRockHardening type"}));
  EXPECT_EQ(words, Places{});
}

#include "inp_KeywordTable.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "inp_KeywordEnm.h"
#include "inp_ParserExceptions.h"

namespace
{
inp_KeywordTable const& Table() { return thr_ThreadSingleton<inp_KeywordTable>::Instance(); }

struct KeywordRow
{
  std::string_view stem, name;
  int value;
};

constexpr KeywordRow keywords[] = {
#define INP_KEYWORD(stem, name, value) {#stem, name, value},
#define INP_KEYWORD_UNVISITED(stem, name, value) {#stem, name, value},
#define INP_KEYWORD_SHARED(stem, name, value, visitor) {#stem, name, value},
#include "inp_Keywords.def"
};

std::vector<std::string> Names(cow_List<int> const& values)
{
  std::vector<std::string> names;
  for (int i = 0; i < values.Length(); ++i)
    names.push_back(Table().Name(static_cast<inp_KeywordEnm>(values[i])).CStr());
  return names;
}

// What FullName does, as a word: the name, or why there is none.
std::string Resolved(std::string const& name)
{
  try
  {
    return Table().FullName(name.c_str()).CStr();
  }
  catch (inp_AmbiguousKeywordException const& fault)
  {
    EXPECT_TRUE(fault.Line() == 0 && fault.File().Empty());
    return "<ambiguous>";
  }
  catch (inp_UnknownKeywordException const& fault)
  {
    EXPECT_TRUE(fault.Line() == 0 && fault.File().Empty());
    return "<unknown>";
  }
}

std::string ByComparingAll(std::string const& name)
{
  std::string_view last = "<unknown>";
  for (KeywordRow const& row : keywords)
  {
    if (row.name == name)
      return name;
    if (row.name.starts_with(name))
      last = last == "<unknown>" ? row.name : "<ambiguous>";
  }
  return std::string(last);
}
} // namespace

// Other programs hold the values: a sum that is another one is a value that changed.
TEST(inp_Keywords, NamesAndValuesAreWellFormedAndUnique)
{
  std::set<std::string_view> names, stems;
  std::set<int> values;
  long sum = 0;
  for (KeywordRow const& row : keywords)
  {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_TRUE(stems.insert(row.stem).second) << row.stem;
    EXPECT_TRUE(values.insert(row.value).second) << row.name << ' ' << row.value;
    EXPECT_LE(row.name.size(), 40u) << row.name;
    sum += row.value;
    if (row.stem == "Undefined" || row.stem == "Model")
      continue; // names that nobody can write
    std::string written(row.name);
    EXPECT_EQ(written.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"), std::string::npos)
      << written;
    std::erase(written, '-');
    std::string stem(row.stem);
    std::transform(stem.begin(), stem.end(), stem.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    EXPECT_EQ(stem, written);
  }
  EXPECT_EQ(std::size(keywords), 608u);
  EXPECT_EQ(sum, 585316);
}

TEST(inp_Suboptions, ListsHoldEachKeywordOnceAndNeverLeadInACircle)
{
  std::map<int, std::vector<int>> below;
  int lists = 0;
  for (inp_KeywordRow const* row = inp_KeywordTable::Rows(); row->name != nullptr; ++row)
  {
    auto& list = below[row->value];
    for (int const* value = row->suboptions; value != nullptr && *value != 0; ++value)
      list.push_back(*value);
    lists += !list.empty();
    std::set<int> const once(list.begin(), list.end());
    EXPECT_EQ(once.size(), list.size()) << row->name;
    EXPECT_FALSE(once.contains(inp_kwModel) || once.contains(inp_kwEof)) << row->name;
  }
  EXPECT_EQ(lists, 118);

  // Levels can be taken away from the bottom until none is left, unless some lists form a circle;
  // how many there are bounds the depth of the walks that recurse into a deck.
  int depth = 0;
  std::size_t left;
  do
  {
    ++depth;
    left = below.size();
    std::erase_if(below,
                  [&](auto const& level)
                  {
                    return std::none_of(level.second.begin(), level.second.end(),
                                        [&](int value) { return below.contains(value); });
                  });
  } while (below.size() < left);
  EXPECT_TRUE(below.empty());
  EXPECT_EQ(depth, 6);
}

TEST(inp_KeywordTable, NamesMayBeAbbreviatedWhileTheyStayUnique)
{
  struct
  {
    char const *written, *found;
  } const cases[] = {
    {"element", "element"}, // although elementoutput begins with it
    {"elem", "<ambiguous>"},        {"elementou", "elementoutput"}, {"", "<ambiguous>"},
    {"NODE", "<unknown>"},                                // callers pass lower case
    {"undef", "undefined keyword"}, {"zzz", "<unknown>"}, // behind the last name
  };
  for (auto const& c : cases)
  {
    EXPECT_EQ(Resolved(c.written), c.found) << '"' << c.written << '"';
    bool const isName = std::string_view(c.found).starts_with("element");
    EXPECT_EQ(Table().Enum(c.written) != inp_kwUndefined, isName) << '"' << c.written << '"';
  }
}

TEST(inp_KeywordTable, ResolvesEveryBeginningAsAComparisonWithAllNamesDoes)
{
  for (KeywordRow const& row : keywords)
  {
    for (std::size_t length = 1; length <= row.name.size(); ++length)
    {
      std::string const start(row.name.substr(0, length));
      ASSERT_EQ(Resolved(start), ByComparingAll(start)) << start;
    }
    ASSERT_EQ(Resolved(std::string(row.name) + "x"), "<unknown>");
    auto const value = static_cast<inp_KeywordEnm>(row.value);
    ASSERT_EQ(Table().Enum(cow_String(row.name)), value);
    ASSERT_EQ(Table().Name(value).View(), row.name);
  }
  EXPECT_EQ(Table().AllKeywords().Length(), 608);
  EXPECT_EQ(Table().AllKeywords()[0], 0);
  EXPECT_EQ(Table().AllKeywords().Last(), 11101);
}

TEST(inp_KeywordTable, LevelsListAllBelowThemDepthFirst)
{
  std::vector<std::string> const part = Names(Table().PartSuboptions());
  std::vector<std::string> const start(part.begin(), part.begin() + 5);
  EXPECT_EQ(start, (std::vector<std::string>{"adjust", "beamgeneralsection", "axial",
                                             "beamaddedinertia", "beamfluidinertia"}));
  struct
  {
    cow_List<int> list;
    std::vector<inp_KeywordEnm> in, notIn;
  } const cases[] = {
    {Table().ModelSuboptions(),
     {inp_kwStep, inp_kwEndStep, inp_kwEndPart, inp_kwElastic, inp_kwTrs, inp_kwCload},
     {inp_kwPart, inp_kwAssembly, inp_kwInstance, inp_kwModel}},
    {Table().AssemblySuboptions(),
     {inp_kwEndInstance, inp_kwNode, inp_kwKinematic},
     {inp_kwInstance, inp_kwImport, inp_kwNgen}},
    {Table().InstanceSuboptions(), {inp_kwImport, inp_kwImportNset, inp_kwNgen}, {inp_kwStep}},
    {Table().PartSuboptions(), {inp_kwNgen, inp_kwRebarLayer, inp_kwMatrix}, {inp_kwImport}},
  };
  for (auto const& c : cases)
  {
    for (inp_KeywordEnm const value : c.in)
      EXPECT_TRUE(c.list.IsMember(value)) << Table().Name(value).CStr();
    for (inp_KeywordEnm const value : c.notIn)
      EXPECT_FALSE(c.list.IsMember(value)) << Table().Name(value).CStr();
  }
}

TEST(inp_KeywordTable, ParentsAreAllKeywordsThatListTheOne)
{
  std::map<int, std::set<int>> parents;
  for (int const above : Table().AllKeywords())
    for (int const below : Table().Suboptions(above))
      parents[below].insert(above);
  for (int const value : Table().AllKeywords())
  {
    cow_List<int> const found = Table().ParentKeywords(static_cast<inp_KeywordEnm>(value));
    EXPECT_EQ(std::set<int>(found.begin(), found.end()), parents[value]) << value;
  }
  EXPECT_EQ(parents[inp_kwEndStep], std::set<int>{inp_kwModel});
}

TEST(inp_KeywordTable, JoinsNamesForMessages)
{
  cow_List<int> values;
  EXPECT_STREQ(Table().KeywordEnum2String(values).CStr(), "");
  values.Append(inp_kwNode).Append(inp_kwCoSimulation);
  EXPECT_STREQ(Table().KeywordEnum2String(values).CStr(), "node, co-simulation");
}

TEST(inp_KeywordTable, NearestNamesAreTheOnesLikelyMeant)
{
  struct
  {
    char const* written;
    std::vector<std::string> nearest;
  } const cases[] = {
    {"nodee", {"node"}},
    {"elmeent", {"element"}},
    {"cosimulation", {"co-simulation"}},
    {"elem", {"element", "elementoutput", "elementresponse"}}, // completions, shortest first
    {"boundry", {"boundary"}},                                 // the longer common beginning
    {"qqqqqqq", {}},
    {"q", {}}, // too short to guess
    {"", {}},
    {"undefined keywor", {}}, // what nobody can write
  };
  for (auto const& c : cases)
  {
    std::vector<std::string> names;
    for (cow_String const& name : Table().NearestNames(c.written, 3))
      names.push_back(name.CStr());
    EXPECT_EQ(names, c.nearest) << c.written;
  }
  EXPECT_EQ(Table().NearestNames("elem", 1).Length(), 1);
  EXPECT_EQ(Table().NearestNames(cow_String(std::string(5000, 'e')), 3).Length(), 0);
}

TEST(inp_KeywordTable, EachThreadHasATableOfItsOwn)
{
  inp_KeywordTable const* const here = &Table();
  inp_KeywordTable const* there = nullptr;
  std::thread([&] { there = &Table(); }).join();
  EXPECT_NE(here, there);
  EXPECT_EQ(here, &Table());
}

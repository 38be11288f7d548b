#include "inp_KeywordTable.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "inp_ParserExceptions.h"

namespace
{
inp_KeywordTable const& Table() { return thr_ThreadSingleton<inp_KeywordTable>::Instance(); }

struct KeywordRow
{
  std::string_view stem;
  std::string_view name;
  int value;
  bool ownOperation;
};

constexpr KeywordRow keywords[] = {
#define INP_KEYWORD(stem, name, value) {#stem, name, value, true},
#define INP_KEYWORD_UNVISITED(stem, name, value) {#stem, name, value, false},
#define INP_KEYWORD_SHARED(stem, name, value, visitor) {#stem, name, value, false},
#include "inp_Keywords.def"
};

std::vector<std::string> Names(cow_List<int> const& values)
{
  std::vector<std::string> names;
  for (int i = 0; i < values.Length(); ++i)
    names.push_back(Table().Name(static_cast<inp_KeywordEnm>(values[i])).CStr());
  return names;
}

bool Holds(cow_List<int> const& values, inp_KeywordEnm value) { return values.IsMember(value); }

// What FullName does, as a word: the name, or why there is none.
std::string Resolved(std::string const& name)
{
  try
  {
    return Table().FullName(name.c_str()).CStr();
  }
  catch (inp_AmbiguousKeywordException const& fault)
  {
    return fault.Line() == 0 && fault.File().Empty() ? "<ambiguous>" : "<ambiguous, placed>";
  }
  catch (inp_UnknownKeywordException const& fault)
  {
    return fault.Line() == 0 && fault.File().Empty() ? "<unknown>" : "<unknown, placed>";
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

TEST(inp_Keywords, NamesAndValuesAreWellFormedAndUnique)
{
  std::set<std::string_view> names, stems;
  std::set<int> values;
  for (KeywordRow const& row : keywords)
  {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_TRUE(stems.insert(row.stem).second) << row.stem;
    EXPECT_TRUE(values.insert(row.value).second) << row.name << ' ' << row.value;
    EXPECT_LE(row.name.size(), 40u) << row.name;
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
}

TEST(inp_Keywords, ValuesThatOtherProgramsHoldNeverChange)
{
  EXPECT_EQ(inp_kwUndefined, 0);
  EXPECT_EQ(inp_kwEof, 1);
  EXPECT_EQ(inp_kwNode, 4);
  EXPECT_EQ(inp_kwStep, 101);
  EXPECT_EQ(inp_kwEndStep, 102);
  EXPECT_EQ(inp_kwModalPrint, 164);
  EXPECT_EQ(inp_kwPrint, 170);
  EXPECT_EQ(inp_kwAssembly, 10000);
  EXPECT_EQ(inp_kwPart, 10005);
  EXPECT_EQ(inp_kwModel, 10006);
}

TEST(inp_VisitorSlots, EveryKeywordWithAnOperationHasOneSlot)
{
  constexpr std::string_view slots[] = {
#define INP_VISITOR_SLOT(stem) #stem,
#include "inp_VisitorSlots.def"
  };
  constexpr std::string_view tracked[] = {
#define INP_VISITOR_SLOT(stem)
#define INP_VISITOR_SLOT_TRACKED(stem) #stem,
#include "inp_VisitorSlots.def"
  };
  EXPECT_EQ(std::size(slots), 605u);
  EXPECT_EQ(std::size(tracked), 9u);

  std::set<std::string_view> const once(std::begin(slots), std::end(slots));
  EXPECT_EQ(once.size(), std::size(slots));
  std::set<std::string_view> served{"UserSubroutines"}; // reached by a direct call only
  for (KeywordRow const& row : keywords)
    if (row.ownOperation)
      served.insert(row.stem);
  EXPECT_EQ(served, once);
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

  // Levels can be taken away from the bottom until none is left, unless some lists form a circle.
  std::size_t left;
  do
  {
    left = below.size();
    std::erase_if(below,
                  [&](auto const& level)
                  {
                    return std::none_of(level.second.begin(), level.second.end(),
                                        [&](int value) { return below.contains(value); });
                  });
  } while (below.size() < left);
  EXPECT_TRUE(below.empty());
}

TEST(inp_KeywordTable, NamesMayBeAbbreviatedWhileTheyStayUnique)
{
  struct
  {
    char const* written;
    char const* found;
  } const cases[] = {
    {"step", "step"},
    {"st", "<ambiguous>"},
    {"element", "element"}, // although elementoutput begins with it
    {"elem", "<ambiguous>"},
    {"elementou", "elementoutput"},
    {"nsetx", "<unknown>"},
    {"hea", "<ambiguous>"},
    {"headin", "heading"},
    {"", "<ambiguous>"},
    {"NODE", "<unknown>"}, // callers pass lower case
    {"psd", "psd-definition"},
    {"modalp", "modalprint"},
    {"undef", "undefined keyword"},
    {"zzz", "<unknown>"},
    {"windy", "<unknown>"}, // behind the last name
  };
  for (auto const& c : cases)
  {
    EXPECT_EQ(Resolved(c.written), c.found) << '"' << c.written << '"';
    bool const isName = c.found[0] != '<' && std::strcmp(c.found, "undefined keyword") != 0;
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
    char const* level;
    cow_List<int> list;
    std::vector<inp_KeywordEnm> in, notIn;
  } const cases[] = {
    {"model",
     Table().ModelSuboptions(),
     {inp_kwStep, inp_kwEndStep, inp_kwEndPart, inp_kwMaterial, inp_kwElastic, inp_kwTrs,
      inp_kwCload},
     {inp_kwPart, inp_kwAssembly, inp_kwInstance, inp_kwModel}},
    {"assembly",
     Table().AssemblySuboptions(),
     {inp_kwEndInstance, inp_kwNode, inp_kwKinematic},
     {inp_kwInstance, inp_kwImport, inp_kwNgen}},
    {"instance",
     Table().InstanceSuboptions(),
     {inp_kwImport, inp_kwImportNset, inp_kwNgen},
     {inp_kwStep}},
    {"part",
     Table().PartSuboptions(),
     {inp_kwNgen, inp_kwRebarLayer, inp_kwMatrix},
     {inp_kwImport}},
  };
  for (auto const& c : cases)
  {
    for (inp_KeywordEnm const value : c.in)
      EXPECT_TRUE(Holds(c.list, value)) << c.level << ' ' << Table().Name(value).CStr();
    for (inp_KeywordEnm const value : c.notIn)
      EXPECT_FALSE(Holds(c.list, value)) << c.level << ' ' << Table().Name(value).CStr();
  }
}

TEST(inp_KeywordTable, ParentsAreAllKeywordsThatListTheOne)
{
  auto const parents = [](inp_KeywordEnm value)
  {
    std::vector<std::string> names = Names(Table().ParentKeywords(value));
    std::sort(names.begin(), names.end());
    return names;
  };
  using List = std::vector<std::string>;
  EXPECT_EQ(parents(inp_kwInclude),
            (List{"__model__", "assembly", "instance", "material", "part", "postoutput", "step"}));
  EXPECT_EQ(parents(inp_kwEndStep), (List{"__model__"}));
  EXPECT_EQ(parents(inp_kwEndInstance), (List{"assembly"}));
  EXPECT_EQ(parents(inp_kwModel), List{});
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
    char const* what;
    char const* written;
    std::vector<std::string> nearest;
  } const cases[] = {
    {"a letter too many", "nodee", {"node"}},
    {"neighbours swapped", "elmeent", {"element"}},
    {"a hyphen left out", "cosimulation", {"co-simulation"}},
    {"words joined wrongly", "solidsections", {"solidsection"}},
    {"ambiguous: completions, shortest first",
     "elem",
     {"element", "elementoutput", "elementresponse"}},
    {"the longer common beginning first", "boundry", {"boundary"}},
    {"nothing near", "qqqqqqq", {}},
    {"too short to guess", "q", {}},
    {"no name at all", "", {}},
    {"what nobody can write is not proposed", "undefined keywor", {}},
  };
  for (auto const& c : cases)
  {
    cow_List<cow_String> const list = Table().NearestNames(c.written, 3);
    std::vector<std::string> names;
    for (int i = 0; i < list.Length(); ++i)
      names.push_back(list[i].CStr());
    EXPECT_EQ(names, c.nearest) << c.what;
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

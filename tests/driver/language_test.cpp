#include "Inpdeck.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <gmock/gmock.h>

namespace
{

using Language = Inpdeck;
using nlohmann::json;

TEST_F(Language, ListsEveryKeyword)
{
  std::string const listing = Run({"language"}).out;
  EXPECT_TRUE(listing.starts_with(
    "KEYWORD                               VALUE PARAMETERS HOLDS  STANDS BELOW\n"
    "*ACOUSTICCONTRIBUTION                  1654          4     0  *STEP\n"))
    << listing.substr(0, 300);
  EXPECT_EQ(std::count(listing.begin(), listing.end(), '\n'), 607); // all but the two unnamed ones
}

TEST_F(Language, ShowsOneKeywordByAnyOfItsNames)
{
  std::string const density = "*DENSITY (value 1004)\n\n"
                              "  stands below  *MATERIAL\n"
                              "  holds         *DESIGNVARIATION\n"
                              "  parameters\n    DEPENDENCIES\n    POREFLUID\n    SLURRY\n"
                              "  names\n    distributions in field 1 of line 1\n";
  using Words = std::vector<std::string>;
  for (Words const& name : {Words{"*DENSITY"}, Words{"dens"}, Words{"*DEN", "SITY"}})
  {
    Words arguments{"language"};
    arguments.insert(arguments.end(), name.begin(), name.end());
    EXPECT_EQ(Run(arguments), (ProgramRun{0, density, ""})) << testing::PrintToString(name);
  }
}

TEST_F(Language, ShowsTheWordsOfParametersAndWhereThingsAreNamed)
{
  struct
  {
    char const *keyword, *shown;
  } const cases[] = {
    {"amplitude",
     "    DEFINITION     ACTUATOR, BUBBLE, DECAY, EQUALLYSPACED, MODULATED, PERIODIC,\n"
     "                   HICKS, SOLUTIONDEPENDENT, TABULAR, SMOOTHSTEP, USER\n"
     "    FIXEDINTERVAL\n"},
    {"rigid body", "  holds         *DESIGNVARIATION\n"
                   "  requires      REFNODE\n"
                   "  and one of    ANALYTICALSURFACE, ELSET, PINNSET, TIENSET\n"
                   "  with a value  REFNODE, ANALYTICALSURFACE, ELSET, PINNSET, TIENSET\n"
                   "  parameters\n"},
    {"instance", "  requires      NAME, PART\n"},
    {"nmap", "  refused       in an assembly of part instances\n"},
    {"user element", "  refused       in an assembly of part instances with FILE\n"},
    {"fastener", "  names\n"
                 "    nodes or node sets in REFERENCENODESET\n"
                 "    elements or element sets in ELSET\n"
                 "    surfaces in fields 1 to 8 of every line, but for a first line that begins\n"
                 "      with a real number\n"
                 "    orientations in ORIENTATION\n"},
  };
  for (auto const& c : cases)
    EXPECT_THAT(Run({"language", c.keyword}).out, testing::HasSubstr(c.shown));
  EXPECT_EQ(Run({"language", "node"}).out.find("  names"), std::string::npos);
}

TEST_F(Language, RefusesNamesThatStandForNoneOrSeveral)
{
  struct
  {
    char const *name, *words;
  } const cases[] = {
    {"nodee", "'nodee' is no keyword; did you mean *NODE?"},
    {"elem", "'elem' stands for several keywords; did you mean *ELEMENT, *ELEMENTOUTPUT or "
             "*ELEMENTRESPONSE?"},
    {"zzzzzz", "'zzzzzz' is no keyword"},
    {"\x1B", "'\\x1B' is no keyword"},
  };
  for (auto const& c : cases)
  {
    EXPECT_EQ(Run({"language", c.name}),
              (ProgramRun{2, "", "inpdeck: error: " + std::string(c.words) + "\n"}));
  }
}

TEST_F(Language, AsJsonHoldsTheTables)
{
  json const all = json::parse(Run({"language", "--json"}).out);
  EXPECT_EQ(all["keywords"].size(), 608u);
  EXPECT_EQ(all["rules"].size(), 521u);
  EXPECT_EQ(all["elementTypes"].size(), 807u);
  EXPECT_EQ(all["keywords"][1], (json{{"name", "acousticcontribution"},
                                      {"value", 1654},
                                      {"suboptions", json::array()},
                                      {"parents", {"step"}}}));

  json const one = json::parse(Run({"language", "--json", "*BUCKLING REDUCTION"}).out);
  EXPECT_EQ(one["keywords"].size(), 1u);
  EXPECT_EQ(one["rules"], json::parse(R"([{"handler": "VisitBucklingReductionFactors",
                             "parameters": ["axis1", "axis2"],
                             "enumerated": [{"parameters": ["axis1", "axis2"],
                                             "values": ["TYPE1", "TYPE2", "TYPE3"]}],
                             "required": [], "oneRequired": [], "valueRequired": [],
                             "namesAndNumbersToo": [],
                             "refusedInAssembly": false, "refusedInAssemblyWith": []}])"));
  json const element = json::parse(Run({"language", "--json", "*USER ELEMENT"}).out)["rules"][0];
  EXPECT_EQ(element["refusedInAssemblyWith"], json{"file"});
  json const body = json::parse(Run({"language", "--json", "*RIGID BODY"}).out)["rules"][0];
  EXPECT_EQ(body["required"], json{"refnode"});
  EXPECT_EQ(body["valueRequired"],
            (json{"refnode", "analyticalsurface", "elset", "pinnset", "tienset"}));
  EXPECT_EQ(one["elementTypes"], json::array());
}

} // namespace

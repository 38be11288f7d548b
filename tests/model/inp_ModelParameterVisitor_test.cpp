#include "inp_ModelParameterVisitor.h"

#include "CapturingSink.h"
#include "DeckKeywords.h"
#include "inp_DistributionTableDB.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace
{

// Fills in parameters from a deck, beginning with a thread that knows no distribution tables.
inp_ModelParameters ParametersOf(std::string const& deck)
{
  thr_ThreadSingleton<inp_DistributionTableDB>::Finalize();
  CapturingSink sink;
  cow_List<inp_Keyword> keywords = DeckKeywords(deck);
  inp_ModelParameters parameters;
  inp_ModelParameterVisitor(parameters).VisitListAndReport(keywords);
  EXPECT_THAT(sink.Lines(), testing::IsEmpty());
  return parameters;
}

// Counts other than 1, and flags that are set: all that an empty deck leaves alone.
std::string Summary(inp_ModelParameters const& parameters)
{
  std::string text;
  auto const count = [&text](char const* name, int value)
  {
    if (value != 1)
      text += std::string(" ") + name + "=" + std::to_string(value);
  };
  auto const flag = [&text](char const* name, bool value) { text += value ? name : ""; };
  count("dep", parameters.getNumDepVars());
  count("elemDep", parameters.getNumElemDepVars());
  count("temp", parameters.getNumTempPts());
  count("gauss", parameters.getNumGaussPts());
  flag(" symModelGen", parameters.isSymModelGen());
  flag(" temperatureElms", parameters.hasTemperatureElms());
  flag(" imported", parameters.isImported());
  flag(" staticStep", parameters.staticStep);
  flag(" importedParts", parameters.hasImportedParts());
  flag(" featureEnhanced", parameters.isFeatureEnhanced());
  return text.empty() ? text : text.substr(1);
}

struct Case
{
  char const *deck, *summary;
};

template <std::size_t Size>
void Check(Case const (&cases)[Size])
{
  for (Case const& c : cases)
  {
    EXPECT_EQ(c.summary, Summary(ParametersOf(c.deck))) << c.deck;
  }
}

} // namespace

TEST(inp_ModelParameterVisitor, FlagsWhatTheDeckUses)
{
  Case const cases[] = {
    {"", ""},
    {"*SYMMETRIC MODEL GENERATION, REVOLVE\n", "symModelGen"},
    {"*PART, NAME=P\n*END PART\n", "featureEnhanced"},
    {"*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n", "featureEnhanced"},
    {"*INSTANCE, INSTANCE=I\n*END INSTANCE\n", "importedParts featureEnhanced"},
    {"*ELEMENT, TYPE=DS4\n1, 1, 2, 3, 4\n", "temperatureElms"},
    {"*ELEMENT, TYPE=DS\n*ELEMENT, TYPE=S8R\n*ELEMENT, TYPE=S4RTX\n*ELEMENT\n1, 1, 2\n", ""},
    {"*ELEMENT, TYPE=S4RT\n*ELEMENT, TYPE=C3D8\n", "temperatureElms"},
    // Static steps count outside perturbations.
    {"*STEP, NAME=A, PERTURBATION\n*STATIC\n*END STEP\n*STEP, NAME=B\n*STATIC\n*END STEP\n",
     "staticStep"},
    {"*STEP, NAME=A\n*END STEP\n*STEP, NAME=B, PERTURBATION\n*STATIC\n*END STEP\n", ""},
  };
  Check(cases);
}

TEST(inp_ModelParameterVisitor, ImportOfAModelStandsAboveParts)
{
  Case const cases[] = {
    {"*IMPORT, UPDATE=NO\n", "imported"},
    {"*IMPORT, UPDATE=NO\n*PART, NAME=P\n*END PART\n", "imported featureEnhanced"},
    {"*PART, NAME=P\n*END PART\n*IMPORT, UPDATE=NO\n", "featureEnhanced"},
    {"*INSTANCE, INSTANCE=I\n*IMPORT, UPDATE=NO\n*END INSTANCE\n", "importedParts featureEnhanced"},
    // What stands from the first step on is visited first.
    {"*PART, NAME=P\n*END PART\n*STEP, NAME=A\n*IMPORT, UPDATE=NO\n", "imported featureEnhanced"},
    {"*IMPORT, UPDATE=NO\n*STEP, NAME=A\n*PART, NAME=P\n", "featureEnhanced"},
  };
  Check(cases);
}

TEST(inp_ModelParameterVisitor, VariablesAreTheLargestOfAll)
{
  Case const cases[] = {
    {"*DEPVAR\n7\n*DEPVAR\n3\n", "dep=7"},
    {"*DEPVAR\n", ""},
    {"*DEPVAR\n -4\n", ""},
    {"*DEPVAR\n, 9\n", ""},
    {"*DEPVAR\n2\n9\n", "dep=2"},
    {"*SHELL GENERAL SECTION, ELSET=E, VARIABLES=12\n9\n*DEPVAR\n5\n", "dep=12"},
    {"*ELEMENT SOLUTION DEPENDENT VARIABLES\n4\n*DEPVAR\n5\n", "dep=5 elemDep=4"},
    {"*USER ELEMENT, TYPE=U1, NODES=2, VARIABLES=6\n1, 2\n", "dep=6"},
  };
  Check(cases);
}

TEST(inp_ModelParameterVisitor, TemperaturesOfUserElementsAndBeams)
{
  Case const cases[] = {
    // Every second row of a user element counts.
    {"*USER ELEMENT, TYPE=U1, NODES=2\n10, 11, 12, 3\n", "temp=2"},
    {"*USER ELEMENT, TYPE=U1, NODES=2\n1, 2\n1\n11, 12, 13\n1\n11, 12\n", "temp=3"},
    {"*USER ELEMENT, TYPE=U1, NODES=2\n11., 12., A13, , 11, 14\n", "temp=2"},
    {"*USER ELEMENT, TYPE=U1, NODES=2\n1, 2, 10\n", ""},
    // A beam of arbitrary section has a temperature an end.
    {"*BEAM SECTION, ELSET=E, SECTION=ARBITRARY, TEMPERATURE=VALUES\n3, 0., 0.\n", "temp=4"},
    {"*BEAM SECTION, ELSET=E, SECTION=ARBITRARY, TEMPERATURE=VALUES\n", ""},
    {"*BEAM SECTION, ELSET=E, SECTION=ARBITRARY\n3\n", ""},
    {"*BEAM SECTION, ELSET=E, TEMPERATURE=VALUES\n3\n", ""},
  };
  Check(cases);
}

TEST(inp_ModelParameterVisitor, ShellSectionPoints)
{
  Case const cases[] = {
    {"*SHELL SECTION, ELSET=E\n0.1\n", ""},
    {"*SHELL SECTION, ELSET=E\n0.1, 5\n0.1, 9\n", "gauss=5"},
    {"*SHELL SECTION, ELSET=E\n0.1,\n*SHELL SECTION, ELSET=F\n0.1, 3\n", "gauss=3"},
    // Simpson: neighbours share a point.
    {"*SHELL SECTION, ELSET=E, COMPOSITE\n.1, 3, M\n.1, 3, M\n.1, 3, M\n", "gauss=7"},
    {"*SHELL SECTION, ELSET=E, COMPOSITE, SECTION INTEGRATION=SIMPSON\n.1\n.1\n.1\n", "gauss=7"},
    {"*SHELL SECTION, ELSET=E, COMPOSITE\n.1, 5, M\n.1, , M\n", "gauss=7"},
    {"*SHELL SECTION, ELSET=E, COMPOSITE\n.1, 0, M\n.1, -2, M\n", "gauss=5"},
    // A layer of one point has none to share with the next one.
    {"*SHELL SECTION, ELSET=E, COMPOSITE\n.1, 1\n.1, 3\n", "gauss=4"},
    {"*SHELL SECTION, ELSET=E, COMPOSITE\n.1, 3\n.1, 1\n.1, 3\n", "gauss=6"},
    // Gauss: 2 points unless told otherwise, none shared.
    {"*SHELL SECTION, ELSET=E, COMPOSITE, SECTION INTEGRATION=GAUSS\n.1, 3\n.1, 3\n.1, 3\n",
     "gauss=9"},
    {"*SHELL SECTION, ELSET=E, COMPOSITE, SECTION INTEGRATION=GAUSS\n.1\n.1, 4\n", "gauss=6"},
    // The largest count that there is.
    {"*SHELL SECTION, ELSET=E, COMPOSITE\n.1, 2147483647\n.1, 2147483647\n", "gauss=2147483647"},
  };
  Check(cases);
}

TEST(inp_ModelParameterVisitor, ShellSectionTemperatures)
{
  Case const cases[] = {
    {"*SHELL SECTION, ELSET=E, TEMPERATURE=5\n0.1\n", "temp=5"},
    {"*SHELL SECTION, ELSET=E, TEMPERATURE=5\n", ""},
    {"*SHELL SECTION, ELSET=E, TEMPERATURE=5.0\n0.1\n", ""},
    // (t - 1) intervals a layer, or a point a layer.
    {"*SHELL SECTION, ELSET=E, COMPOSITE, TEMPERATURE=3\n.1, 1\n.1, 1\n.1, 1\n", "temp=7 gauss=3"},
    {"*SHELL SECTION, ELSET=E, COMPOSITE, TEMPERATURE=1\n.1, 1\n.1, 1\n.1, 1\n", "temp=3 gauss=3"},
    {"*SHELL SECTION, ELSET=E, COMPOSITE, TEMPERATURE=0\n.1, 1\n.1, 1\n", "gauss=2"},
    {"*SHELL SECTION, ELSET=E, COMPOSITE, TEMPERATURE=2147483647\n.1, 1\n.1, 1\n",
     "temp=2147483647 gauss=2"},
  };
  Check(cases);
}

TEST(inp_ModelParameterVisitor, ComputedTemperaturesStandAtSectionPoints)
{
  std::string const sections = "*SHELL SECTION, ELSET=E, COMPOSITE, TEMPERATURE=9\n.1, 3\n.1, 5\n"
                               "*SHELL SECTION, ELSET=F, TEMPERATURE=20\n.1, 11\n";
  struct
  {
    char const *procedure, *summary;
  } const cases[] = {
    {"*DYNAMIC", "temp=20 gauss=11"},
    {"*HEAT TRANSFER", "temp=7 gauss=11"},
    {"*COUPLED TEMPERATURE-DISPLACEMENT", "temp=7 gauss=11"},
  };
  for (auto const& c : cases)
  {
    // Procedures come below the sections, and still are known when these are counted.
    std::string const step = std::string("*STEP, NAME=A\n") + c.procedure + "\n*END STEP\n";
    EXPECT_EQ(c.summary, Summary(ParametersOf(sections + step))) << c.procedure;
    // Within the first walk the order is that of the deck.
    EXPECT_EQ("temp=20 gauss=11", Summary(ParametersOf("*STEP, NAME=A\n" + sections + c.procedure)))
      << c.procedure;
  }
}

TEST(inp_ModelParameterVisitor, NotesOrientationsThatADistributionNames)
{
  struct
  {
    char const *deck, *name;
    bool isKnown, isRectangular;
  } const cases[] = {
    {"*ORIENTATION, NAME=O\n DisT a \n3, 0.\n", "DISTA", true, true},
    {"*ORIENTATION, NAME=O, SYSTEM=ZRECTANGULAR\n\"D 1\"\n", "\"D 1\"", true, true},
    {"*ORIENTATION, NAME=O, SYSTEM=CYLINDRICAL\nD1\n", "D1", true, false},
    {"*ORIENTATION, NAME=O, SYSTEM\nD1\n", "D1", true, false},
    {"*ORIENTATION, NAME=O\nD1\n*ORIENTATION, NAME=P, SYSTEM=SPHERICAL\nD1\n", "D1", true, false},
    {"*ORIENTATION, NAME=O\n1., 0., 0., 0., 1., 0.\n", "1.", false, false},
    {"*ORIENTATION, NAME=O\n, D1\n", "D1", false, false},
    {"*ORIENTATION, NAME=O\n", "O", false, false},
  };
  for (auto const& c : cases)
  {
    inp_ModelParameters const parameters = ParametersOf(c.deck);
    EXPECT_EQ(c.isKnown ? 1 : 0, parameters.rectangularCsys.Size()) << c.deck;
    EXPECT_EQ(c.isKnown, parameters.rectangularCsys.IsMember(c.name)) << c.deck;
    EXPECT_EQ(c.isRectangular, parameters.isCsysRectangular(c.name)) << c.deck;
  }
}

TEST(inp_ModelParameterVisitor, SizesOfDistributionTables)
{
  struct
  {
    char const* rows;
    int size;
  } const cases[] = {
    {"", 1},
    {"A, B, C, D, E, F, G\n", 1},
    {"A, B, C, D, E, F, G, H\n", 2},
    {"A, B, C, D, E, F, G, H\nA, B, C, D, E, F, G, H\n", 3},
    {"A, B, C, D,\nA, B, C,\n", 1},           // a blank last item is none
    {"A, B, C, D,\nA, B, C, , E, F, G\n", 1}, // nor is what stands behind a blank one
  };
  for (auto const& c : cases)
  {
    inp_ModelParameters const parameters =
      ParametersOf(std::string("*DISTRIBUTION TABLE, NAME=T\n") + c.rows);
    EXPECT_EQ(c.size, parameters.getTableSize("T")) << c.rows;
    EXPECT_EQ(0, parameters.getTableSize("U"));
  }
  inp_ModelParameters const twice =
    ParametersOf("*DISTRIBUTION TABLE, NAME=\"A B\"\nA\n*DISTRIBUTION TABLE\nA\n"
                 "*DISTRIBUTION TABLE, NAME=\"A B\"\nA, B, C, D, E, F, G, H\n");
  EXPECT_EQ(1, twice.getTableSize("\"A B\""));
  EXPECT_EQ(0, twice.getTableSize(""));
}

TEST(inp_ModelParameterVisitor, AnotherPassNeverLowers)
{
  cow_List<inp_Keyword> large = DeckKeywords("*PART, NAME=P\n*SHELL SECTION, ELSET=E\n.1, 9\n");
  cow_List<inp_Keyword> small =
    DeckKeywords("*IMPORT, UPDATE=NO\n*SHELL SECTION, ELSET=E\n.1, 5\n");
  inp_ModelParameters parameters;
  inp_ModelParameterVisitor(parameters).VisitList(large);
  inp_ModelParameters const before = parameters;
  inp_ModelParameterVisitor(parameters).VisitList(small);
  EXPECT_EQ("gauss=9 featureEnhanced", Summary(parameters));
  parameters.setNumGaussPts(2);
  parameters.setNumTempPts(3);
  EXPECT_EQ("temp=3 gauss=2 featureEnhanced", Summary(parameters));
  EXPECT_EQ("gauss=9 featureEnhanced", Summary(before));
}

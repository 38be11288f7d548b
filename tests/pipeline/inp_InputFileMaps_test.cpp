#include "inp_InputFile.h"

#include "CapturingSink.h"
#include "DeckFiles.h"
#include "LevelDeck.h"
#include "inp_ElementDataArrayImpl.h"
#include "inp_KeywordEnm.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>
#include <sys/resource.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// A deck on the whole road to its maps, and what is said on it.
struct Road
{
  explicit Road(std::string const& deck, bool lumen = false)
    : Road(deck, [lumen](inp_InputFile& made) { made.Classify(lumen); })
  {
  }
  template <class Stage>
  Road(std::string const& deck, Stage const& lastStage)
  {
    DeckFiles const files;
    files.Write("deck.inp", deck);
    CapturingSink const sink;
    input.Parse(files.Path("deck.inp").c_str());
    input.ExpandKeywords();
    input.setModelParameters();
    lastStage(input);
    messages = sink.Lines();
  }

  inp_InputFile input;
  std::vector<std::string> messages;
};

std::string Printed(cow_List<inp_Keyword> const& keywords)
{
  std::string text;
  for (inp_Keyword const& keyword : keywords)
    text += keyword.Print(true).View();
  return text;
}

using Place = std::array<double, 3>;

std::string Text(Place const& place)
{
  return std::to_string(place[0]) + ", " + std::to_string(place[1]) + ", " +
         std::to_string(place[2]);
}

/// Nodes numbered from 1 on, six a layer, and an element of each eight in a row.
struct Part
{
  char const* name;
  int nodes;

  int Elements() const { return nodes - 7; }
  static Place At(int node)
  {
    int const n = node - 1;
    return {0.5 * (n % 3), 0.25 * (n / 3 % 2), 2.0 * (n / 6)};
  }

  std::string Deck() const
  {
    std::string text = std::string("*PART, NAME=") + name + "\n*NODE, NSET=ALL\n";
    for (int node = 1; node <= nodes; ++node)
      text += std::to_string(node) + ", " + Text(At(node)) + "\n";
    text += "*ELEMENT, TYPE=C3D8, ELSET=SOLID\n";
    for (int label = 1; label <= Elements(); ++label)
    {
      text += std::to_string(label);
      for (int i = 0; i < 8; ++i)
        text += ", " + std::to_string(label + i);
      text += "\n";
    }
    return text + "*NSET, NSET=BOTTOM, GENERATE\n1, 6\n*SURFACE, NAME=SKIN\nSOLID, S1\n*END PART\n";
  }
};

constexpr Part c_parts[] = {{"SMALL", 12}, {"LARGE", 14}};

struct Instance
{
  char const* name;
  Part const& part;
  Place shift;
  Place a, b; ///< of the axis
  double degrees;
};

constexpr Place c_none{0.0, 0.0, 0.0};
constexpr Instance c_instances[] = {
  {"PLAIN", c_parts[0], c_none, c_none, c_none, 0.0},
  {"MOVED", c_parts[1], {10.0, -2.0, 0.125}, c_none, c_none, 0.0},
  {"TURNED", c_parts[0], c_none, {1.0, 2.0, 3.0}, {1.0, 2.0, 9.0}, 90.0},
  {"ASKEW", c_parts[1], c_none, {0.5, -1.0, 2.0}, {4.0, 2.0, -3.0}, 37.5},
  {"BOTH", c_parts[0], {5.0, 6.0, 7.0}, {-2.0, 0.0, 1.0}, {-2.0, 3.0, 1.0}, -120.0},
};

// The turn of a point about the axis a to b: what lies along the axis stays, what lies across it turns.
Place Turned(Place p, Instance const& instance)
{
  Place axis;
  double length = 0.0;
  for (std::size_t i = 0; i < 3; ++i)
  {
    axis[i] = instance.b[i] - instance.a[i];
    p[i] += instance.shift[i];
    length += axis[i] * axis[i];
  }
  if (length == 0.0)
    return p;
  double along = 0.0;
  for (std::size_t i = 0; i < 3; ++i)
  {
    axis[i] /= std::sqrt(length);
    p[i] -= instance.a[i];
    along += axis[i] * p[i];
  }
  double const angle = instance.degrees * std::numbers::pi / 180.0;
  Place turned;
  for (std::size_t i = 0; i < 3; ++i)
  {
    std::size_t const j = (i + 1) % 3;
    std::size_t const k = (i + 2) % 3;
    double const across = axis[j] * p[k] - axis[k] * p[j];
    turned[i] = instance.a[i] + p[i] * std::cos(angle) + across * std::sin(angle) +
                axis[i] * along * (1.0 - std::cos(angle));
  }
  return turned;
}

std::string AssemblyDeck(std::string const& inAssembly)
{
  std::string deck = c_parts[0].Deck() + c_parts[1].Deck() + "*ASSEMBLY, NAME=WHOLE\n";
  for (Instance const& instance : c_instances)
  {
    deck += std::string("*INSTANCE, NAME=") + instance.name + ", PART=" + instance.part.name +
            "\n" + Text(instance.shift) + "\n";
    if (instance.degrees != 0.0)
      deck +=
        Text(instance.a) + ", " + Text(instance.b) + ", " + std::to_string(instance.degrees) + "\n";
    deck += "*END INSTANCE\n";
  }
  return deck + inAssembly + "*END ASSEMBLY\n";
}

} // namespace

TEST(inp_InputFile, InstancesStandWhereTheirPositionsPutThem)
{
  Road const road(AssemblyDeck(""));
  EXPECT_THAT(road.messages, IsEmpty());
  inp_InputFile const& input = road.input;
  int count = 0;
  for (Instance const& instance : c_instances)
  {
    inp_CoordMap const& nodes = input.assemblyCoordMap.ConstGet(instance.name);
    ASSERT_EQ(instance.part.nodes, nodes.Count()) << instance.name;
    inp_MapInt2Coord const all = nodes.ConstGet();
    for (int node = 1; node <= instance.part.nodes; ++node)
    {
      Place const expected = Turned(Part::At(node), instance);
      for (inp_Coord const& found : {nodes.ConstGet(node), all.ConstGet(node)})
      {
        EXPECT_NEAR(expected[0], found.x, 1e-12) << instance.name << " " << node;
        EXPECT_NEAR(expected[1], found.y, 1e-12) << instance.name << " " << node;
        EXPECT_NEAR(expected[2], found.z, 1e-12) << instance.name << " " << node;
      }
      Place const at = Part::At(node);
      gsl_Point point(at[0], at[1], at[2]);
      input.transformationMap.ConstGet(instance.name).Transform(point);
      EXPECT_NEAR(expected[0], point.X(), 1e-12);
    }
    inp_MapInt2Element const& elements = input.assemblyElementMap.ConstGet(instance.name);
    EXPECT_EQ(instance.part.Elements(), elements.Size());
    EXPECT_EQ(input.partElementMap.ConstGet(instance.part.name).GetEltPtr(1),
              elements.GetEltPtr(1));
    EXPECT_EQ(7, elements.ConstGet(1).topology()[6]);
    inpM_BaseSet const& bottom = input.assemblyNsetMap.ConstGetNestedSet(instance.name, "BOTTOM");
    EXPECT_EQ(6, bottom.ConstGetIds().Length());
    EXPECT_TRUE(input.assemblySurfaceMap.IsMemberPartInstanceSurface(instance.name, "SKIN"));
    count += instance.part.nodes;
  }
  EXPECT_EQ(count, input.assemblyCoordMap.Count());
  EXPECT_EQ(2, input.partCoordMap.Instances().Length());
  EXPECT_EQ(5, input.assemblyCoordMap.Instances().Length());
}

TEST(inp_InputFile, TheAssemblyHasSetsAndSurfacesOfItsOwn)
{
  Road const road(AssemblyDeck("*NODE, NSET=HUB\n1, 0., 0., 0.\n"
                               "*NSET, NSET=TIES\nPLAIN.BOTTOM, MOVED.3, HUB\n"
                               "*ELSET, ELSET=FIRST\nPLAIN.1, BOTH.1\n"
                               "*SURFACE, NAME=CONTACT\nFIRST, S2\nASKEW.SOLID, S1\n"
                               "*SURFACE, NAME=REST, COMBINE=DIFFERENCE\nASKEW.SKIN, CONTACT\n") +
                  "*NSET, NSET=OUTSIDE\nWHOLE.PLAIN.1, WHOLE.HUB\n");
  EXPECT_THAT(road.messages, IsEmpty());
  inp_InputFile const& input = road.input;
  EXPECT_EQ("{\"HUB\": [1], \"OUTSIDE\": {\"\": [1], \"PLAIN\": [1]}, "
            "\"TIES\": {\"\": [1], \"MOVED\": [3], \"PLAIN\": [1, 2, 3, 4, 5, 6]}}",
            SetsText(input.assemblyNsetMap.ConstGetMap()));
  EXPECT_EQ("{\"FIRST\": {\"BOTH\": [1], \"PLAIN\": [1]}}",
            SetsText(input.assemblyElsetMap.ConstGetMap()));
  EXPECT_EQ("CONTACT: ASKEW {S1: 1 2 3 4 5 6 7} "
            "BOTH {S2: 1} PLAIN {S2: 1}\nREST: ASKEW {}\n",
            SurfacesText(input.assemblySurfaceMap.ConstGetAssemblyInstanceSurfaceMap()));
}

TEST(inp_InputFile, FaultsOfAllPassesAreReported)
{
  Road const road(
    "*PART, NAME=P\n*NODE, NSET=N\n1\n*ELEMENT, TYPE=MASS, ELSET=E\n1, 1\n*END PART\n"
    "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*NSET, NSET=N\n1\n*ELSET, ELSET=E\n1\n"
    "*END INSTANCE\n*SURFACE, NAME=S\nI.X, S1\n*END ASSEMBLY\n");
  std::vector<std::string> ends;
  for (std::string const& message : road.messages)
    ends.push_back(message.substr(message.find("line ")));
  EXPECT_THAT(
    ends, ElementsAre(testing::StartsWith("line 11: The element set E was defined within part P,"),
                      testing::StartsWith("line 9: The node set N was defined within part P,"),
                      "line 14: The following sets were not found when generating the surface S:\n"
                      "    I.X"));
}

TEST(inp_InputFile, RowsOfPartsAreGivenUpUnlessTheyAreToStay)
{
  for (bool const lumen : {false, true})
  {
    Road const road(AssemblyDeck(""), lumen);
    inp_Keyword const& part = road.input.keywords.ConstGet(0);
    ASSERT_TRUE(part.Is(inp_kwPart));
    for (inp_Keyword const& keyword : part.suboptions)
    {
      bool const isKept = lumen || keyword.Is(inp_kwSurface);
      EXPECT_EQ(isKept, keyword.data.Rows() > 0) << keyword.Name().View();
    }
  }
}

TEST(inp_InputFile, WhoTakesTheMapsFromOrganizedKeywordsKeepsThoseAsTheyAre)
{
  std::string const deck = AssemblyDeck("*NSET, NSET=ENDS, INSTANCE=PLAIN\n1, 6\n");
  Road const road(deck);
  Road whole(deck, [](inp_InputFile& input) { input.ReorganizeKeywords(false); });
  std::string const before = Printed(whole.input.keywords);
  whole.input.ExtractMaps(false);
  EXPECT_EQ(before, Printed(whole.input.keywords));
  EXPECT_NE(before, Printed(road.input.keywords));
  EXPECT_EQ(SetsText(road.input.assemblyNsetMap.ConstGetMap()),
            SetsText(whole.input.assemblyNsetMap.ConstGetMap()));
  EXPECT_EQ(road.input.assemblyCoordMap.Count(), whole.input.assemblyCoordMap.Count());
}

TEST(inp_InputFile, ADeckWithoutPartsIsOnlyChecked)
{
  Road const road("*NODE\n1, 0., 0., 0.\n*NSET, NSET=A.B\n1\n*IMPORT, UPDATE=NO\n");
  EXPECT_TRUE(road.input.FlatRoadMissing());
  EXPECT_THAT(road.messages, ElementsAre(testing::StartsWith("fatal2: An import analysis requires"),
                                         testing::HasSubstr("Period cannot be used within set")));
  EXPECT_EQ(0, road.input.assemblyCoordMap.Count());
  EXPECT_EQ(3, road.input.keywords.Length());
}

namespace
{
/// The most memory that this process has had at a time.
long MostMegabytes()
{
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}
} // namespace

// Were an instance to cost its part's nodes, this would be 2 * 10^8 of them.
TEST(inp_InputFile, ManyInstancesOfALargePartCostNoMoreThanTheirKeywords)
{
  constexpr int instances = 4000;
  std::string deck =
    "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n50001, 1., 0., 0.\n*NGEN, NSET=ALL\n1, 50001\n"
    "*SURFACE, NAME=S, TYPE=NODE\nALL\n*END PART\n*ASSEMBLY, NAME=A\n";
  std::string surface = "*SURFACE, NAME=S, TYPE=NODE\n";
  for (int i = 0; i < instances; ++i)
  {
    std::string const name = "P-" + std::to_string(i);
    deck += "*INSTANCE, NAME=" + name + ", PART=P\n" + std::to_string(i) + "., 0., 0.\n" +
            "0., 0., 0., 0., 0., 1., 10.\n*END INSTANCE\n";
    surface += name + ".ALL\n";
  }
  long const before = MostMegabytes();
  Road const road(deck + surface +
                  "*ELEMENT, TYPE=SPRINGA\n1, P-10.50001, P-3999.1\n*END ASSEMBLY\n");
  EXPECT_LT(MostMegabytes() - before, 1000);
  EXPECT_THAT(road.messages, IsEmpty());
  EXPECT_EQ(50001 * instances, road.input.assemblyCoordMap.Count());
  int const* const spring = road.input.assemblyElementMap.ConstGet().ConstGet(1).topology();
  EXPECT_THAT(std::vector<int>(spring, spring + 2),
              ElementsAre(3 * 50001, 3333 * 50001 + 1)); // third by name, and the one behind P-3998
  inpM_AssemblyInstanceSurface const& made =
    road.input.assemblySurfaceMap.ConstGetAssemblyInstanceSurface("S");
  EXPECT_EQ(instances, made.ConstGetInstance2PartInstanceSurfaceMap().Size());
  EXPECT_TRUE(made.IsCrossInstanceNodeBasedSurface());
}

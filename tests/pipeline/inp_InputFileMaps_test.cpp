#include "inp_InputFile.h"

#include "CapturingSink.h"
#include "DeckFiles.h"
#include "LevelDeck.h"
#include "inp_ElementDataArrayImpl.h"

#include <chrono>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// A deck on the whole road to its maps, and what is said on it.
struct Road
{
  explicit Road(std::string const& deck, bool lumen = false)
  {
    DeckFiles const files;
    files.Write("deck.inp", deck);
    CapturingSink const sink;
    input.Parse(files.Path("deck.inp").c_str());
    input.ExpandKeywords();
    input.setModelParameters();
    input.Classify(lumen);
    messages = sink.Lines();
  }

  inp_InputFile input;
  std::vector<std::string> messages;
};

using Place = std::array<double, 3>;

// A block of nx * ny * nz bricks, nodes numbered from 1 with x running first.
struct Block
{
  char const* name;
  int nx, ny, nz;

  int Nodes() const { return (nx + 1) * (ny + 1) * (nz + 1); }
  int Elements() const { return nx * ny * nz; }
  int Node(int i, int j, int k) const { return 1 + i + (nx + 1) * (j + (ny + 1) * k); }
  Place At(int node) const
  {
    int const n = node - 1;
    return {0.5 * (n % (nx + 1)), 0.25 * (n / (nx + 1) % (ny + 1)),
            2.0 * (n / (nx + 1) / (ny + 1))};
  }

  std::string Part() const
  {
    std::string text = std::string("*PART, NAME=") + name + "\n*NODE, NSET=ALL\n";
    for (int node = 1; node <= Nodes(); ++node)
    {
      Place const at = At(node);
      text += std::to_string(node) + ", " + std::to_string(at[0]) + ", " + std::to_string(at[1]) +
              ", " + std::to_string(at[2]) + "\n";
    }
    text += "*ELEMENT, TYPE=C3D8, ELSET=SOLID\n";
    int label = 0;
    for (int k = 0; k < nz; ++k)
      for (int j = 0; j < ny; ++j)
        for (int i = 0; i < nx; ++i)
        {
          text += std::to_string(++label);
          for (int level : {k, k + 1})
            for (auto [a, b] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 1}})
              text += ", " + std::to_string(Node(i + a, j + b, level));
          text += "\n";
        }
    std::string const layer = std::to_string((nx + 1) * (ny + 1));
    return text + "*NSET, NSET=BOTTOM, GENERATE\n1, " + layer +
           "\n*SURFACE, NAME=SKIN\nSOLID, S1\n" + "*END PART\n";
  }
};

constexpr Block c_blocks[] = {{"SMALL", 2, 1, 1}, {"LARGE", 3, 4, 2}};

struct Instance
{
  char const* name;
  Block const& block;
  Place shift;
  Place a, b; ///< of the axis
  double degrees;
};

constexpr Place c_none{0.0, 0.0, 0.0};
constexpr Instance c_instances[] = {
  {"PLAIN", c_blocks[0], c_none, c_none, c_none, 0.0},
  {"MOVED", c_blocks[1], {10.0, -2.0, 0.125}, c_none, c_none, 0.0},
  {"TURNED", c_blocks[0], c_none, {1.0, 2.0, 3.0}, {1.0, 2.0, 9.0}, 90.0},
  {"ASKEW", c_blocks[1], c_none, {0.5, -1.0, 2.0}, {4.0, 2.0, -3.0}, 37.5},
  {"BOTH", c_blocks[0], {5.0, 6.0, 7.0}, {-2.0, 0.0, 1.0}, {-2.0, 3.0, 1.0}, -120.0},
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

std::string Row(std::initializer_list<double> numbers)
{
  std::string text;
  for (double const number : numbers)
    text += (text.empty() ? "" : ", ") + std::to_string(number);
  return text + "\n";
}

std::string AssemblyDeck(std::string const& inAssembly)
{
  std::string deck = c_blocks[0].Part() + c_blocks[1].Part() + "*ASSEMBLY, NAME=WHOLE\n";
  for (Instance const& instance : c_instances)
  {
    Place const& s = instance.shift;
    Place const& a = instance.a;
    Place const& b = instance.b;
    deck += std::string("*INSTANCE, NAME=") + instance.name + ", PART=" + instance.block.name +
            "\n" + Row({s[0], s[1], s[2]});
    if (instance.degrees != 0.0)
      deck += Row({a[0], a[1], a[2], b[0], b[1], b[2], instance.degrees});
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
    ASSERT_EQ(instance.block.Nodes(), nodes.Count()) << instance.name;
    inp_MapInt2Coord const all = nodes.ConstGet();
    for (int node = 1; node <= instance.block.Nodes(); ++node)
    {
      Place const expected = Turned(instance.block.At(node), instance);
      for (inp_Coord const& found : {nodes.ConstGet(node), all.ConstGet(node)})
      {
        EXPECT_NEAR(expected[0], found.x, 1e-12) << instance.name << " " << node;
        EXPECT_NEAR(expected[1], found.y, 1e-12) << instance.name << " " << node;
        EXPECT_NEAR(expected[2], found.z, 1e-12) << instance.name << " " << node;
      }
      gsl_Point point(instance.block.At(node)[0], instance.block.At(node)[1],
                      instance.block.At(node)[2]);
      input.transformationMap.ConstGet(instance.name).Transform(point);
      EXPECT_NEAR(expected[0], point.X(), 1e-12);
    }
    inp_MapInt2Element const& elements = input.assemblyElementMap.ConstGet(instance.name);
    EXPECT_EQ(instance.block.Elements(), elements.Size());
    EXPECT_EQ(input.partElementMap.ConstGet(instance.block.name).GetEltPtr(1),
              elements.GetEltPtr(1));
    EXPECT_EQ(instance.block.Node(1, 1, 1), elements.ConstGet(1).topology()[6]);
    inpM_BaseSet const& bottom = input.assemblyNsetMap.ConstGetNestedSet(instance.name, "BOTTOM");
    EXPECT_EQ((instance.block.nx + 1) * (instance.block.ny + 1), bottom.ConstGetIds().Length());
    EXPECT_TRUE(input.assemblySurfaceMap.IsMemberPartInstanceSurface(instance.name, "SKIN"));
    count += instance.block.Nodes();
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
  EXPECT_EQ("CONTACT: ASKEW {S1: 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24} "
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

TEST(inp_InputFile, ADeckWithoutPartsIsOnlyChecked)
{
  Road const road("*NODE\n1, 0., 0., 0.\n*NSET, NSET=A.B\n1\n*IMPORT, UPDATE=NO\n");
  EXPECT_TRUE(road.input.FlatRoadMissing());
  EXPECT_THAT(road.messages, ElementsAre(testing::StartsWith("fatal2: An import analysis requires"),
                                         testing::HasSubstr("Period cannot be used within set")));
  EXPECT_EQ(0, road.input.assemblyCoordMap.Count());
  EXPECT_EQ(3, road.input.keywords.Length());
}

TEST(inp_InputFile, ReorganizingStopsBeforeTheMaps)
{
  inp_InputFile input;
  input.keywords = DeckKeywords("*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n*END PART\n");
  input.featureEnhanced = true;
  input.ReorganizeKeywords(true);
  EXPECT_EQ(2, input.keywords.Length());
  EXPECT_EQ(1, input.keywords.ConstGet(0).suboptions.Length());
  EXPECT_EQ(0, input.partCoordMap.Count());
}

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
  auto const start = std::chrono::steady_clock::now();
  Road const road(deck + surface + "*END ASSEMBLY\n");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_THAT(road.messages, IsEmpty());
  EXPECT_EQ(50001 * instances, road.input.assemblyCoordMap.Count());
  inpM_AssemblyInstanceSurface const& made =
    road.input.assemblySurfaceMap.ConstGetAssemblyInstanceSurface("S");
  EXPECT_EQ(instances, made.ConstGetInstance2PartInstanceSurfaceMap().Size());
  EXPECT_TRUE(made.IsCrossInstanceNodeBasedSurface());
}

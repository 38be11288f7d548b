#include "Inpdeck.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>

namespace
{

using Maps = Inpdeck;

constexpr char c_twoWheels[] = "*PART, NAME=WHEEL\n"
                               "*NODE, NSET=RIM\n"
                               "1, 0., 0., 0.\n"
                               "2, 2., 0., 0.\n"
                               "7, 2., 1., 0.\n"
                               "*ELEMENT, TYPE=CPS3, ELSET=DISC\n"
                               "4, 1, 2, 7\n"
                               "*SURFACE, NAME=EDGE\n"
                               "DISC, S1\n"
                               "*END PART\n"
                               "*ASSEMBLY, NAME=CART\n"
                               "*INSTANCE, NAME=LEFT, PART=WHEEL\n"
                               "*END INSTANCE\n"
                               "*INSTANCE, NAME=RIGHT, PART=WHEEL\n"
                               "10., 0., 0.\n"
                               "10., 0., 0., 10., 0., 1., 90.\n"
                               "*END INSTANCE\n"
                               "*NSET, NSET=ENDS\n"
                               "LEFT.1, RIGHT.2\n"
                               "*END ASSEMBLY\n";

TEST_F(Maps, AnAssemblyStandsInItsPlaces)
{
  files.Write("cart.inp", c_twoWheels);
  ProgramRun const run = Run({"dump", "--what", "maps", "cart.inp"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.status, 0);
  nlohmann::json const maps = nlohmann::json::parse(run.out);
  EXPECT_EQ(maps["instanceParts"].dump(), R"({"LEFT":"WHEEL","RIGHT":"WHEEL"})");
  nlohmann::json const& part = maps["parts"]["WHEEL"];
  EXPECT_EQ(part["nodes"].dump(), R"({"1":[0.0,0.0,0.0,0.0,0.0,0.0],"2":[2.0,0.0,0.0,0.0,0.0,0.0],)"
                                  R"("7":[2.0,1.0,0.0,0.0,0.0,0.0]})");
  EXPECT_EQ(part["elements"].dump(), R"({"4":{"nodes":[1,2,7],"type":"CPS3"}})");
  EXPECT_EQ(part["nsets"].dump(), R"({"RIM":[1,2,7]})");
  EXPECT_EQ(part["elsets"].dump(), R"({"DISC":[4]})");
  EXPECT_EQ(part["surfaces"].dump(), R"({"EDGE":{"S1":[4]}})");
  // Moved by 10 along x, then turned by a quarter about the z axis through (10, 0, 0).
  nlohmann::json const& turned = maps["instances"]["RIGHT"]["nodes"];
  EXPECT_NEAR(turned["2"][0].get<double>(), 10.0, 1e-12);
  EXPECT_NEAR(turned["2"][1].get<double>(), 2.0, 1e-12);
  EXPECT_NEAR(turned["7"][0].get<double>(), 9.0, 1e-12);
  EXPECT_EQ(maps["assembly"]["nsets"].dump(), R"({"ENDS":{"LEFT":[1],"RIGHT":[2]}})");
  EXPECT_EQ(maps["transformations"]["LEFT"].dump(),
            "[[1.0,0.0,0.0,0.0],[0.0,1.0,0.0,0.0],[0.0,0.0,1.0,0.0],[0.0,0.0,0.0,1.0]]");
}

TEST_F(Maps, RecordsBesideMapsKeepTheirRows)
{
  files.Write("cart.inp", c_twoWheels);
  nlohmann::json const all = nlohmann::json::parse(Run({"dump", "--what", "all", "cart.inp"}).out);
  nlohmann::json const& part = all["keywords"][0];
  EXPECT_EQ(part["name"], "part");
  EXPECT_EQ(part["suboptions"][0]["data"].size(), 3U);
  EXPECT_TRUE(all.contains("instances"));
  EXPECT_EQ(nlohmann::json::parse(Run({"dump", "cart.inp"}).out)["keywords"], all["keywords"]);
}

TEST_F(Maps, ElementsBetweenInstancesNameTheirNodesByNumber)
{
  std::string deck = c_twoWheels;
  deck.insert(deck.find("*END ASSEMBLY"), "*NODE\n"
                                          "100, 5., 5., 5.\n"
                                          "*ELEMENT, TYPE=SPRINGA, ELSET=SPRINGS\n"
                                          "1, LEFT.1, RIGHT.2\n"
                                          "2, CART.LEFT.7, 100\n"
                                          "3, LEFT.8, 100\n");
  files.Write("cart.inp", deck);
  ProgramRun const run = Run({"dump", "--what", "maps", "cart.inp"});
  EXPECT_EQ(run.err, "cart.inp:22: error: in keyword *ELEMENT, file \"cart.inp\", line 22: Unknown "
                     "local ID 8 in instance LEFT\n"
                     "   22 | *ELEMENT, TYPE=SPRINGA, ELSET=SPRINGS\n");
  nlohmann::json const maps = nlohmann::json::parse(run.out);
  EXPECT_EQ(maps["nodeIds"].dump(), R"({"":{"100":1},"LEFT":{"1":2,"2":3,"7":4},)"
                                    R"("RIGHT":{"1":5,"2":6,"7":7}})");
  EXPECT_EQ(maps["elementIds"].dump(),
            R"({"":{"1":1,"2":2,"3":3},"LEFT":{"4":4},"RIGHT":{"4":5}})");
  nlohmann::json const& elements = maps["assembly"]["elements"];
  EXPECT_EQ(elements["1"].dump(), R"({"nodes":[2,6],"type":"SPRINGA"})");
  EXPECT_EQ(elements["2"].dump(), R"({"nodes":[4,1],"type":"SPRINGA"})");
  EXPECT_EQ(elements["3"].dump(), R"({"nodes":[],"type":"SPRINGA"})");
}

TEST_F(Maps, ASummaryShowsTheAssemblyOnOneScreen)
{
  std::string deck = c_twoWheels;
  deck.insert(deck.find("*NSET, NSET=ENDS"), "*INSTANCE, NAME=UP, PART=WHEEL\n"
                                             "0., -1e-3, 0.\n"
                                             "0., 0., 0., 0., 1., 0., 180.\n"
                                             "*END INSTANCE\n");
  files.Write("cart.inp", deck + "*STEP\n*STATIC\n*END STEP\n");
  ProgramRun const run = Run({"check", "cart.inp"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, "cart.inp: assembly, 475 bytes\n"
                     "\n"
                     "  Keywords                 17   13 kinds\n"
                     "  Parts                     1   WHEEL\n"
                     "  Instances                 3\n"
                     "      LEFT   of WHEEL at 0, 0, 0\n"
                     "      RIGHT  of WHEEL at 10, 0, 0, turned by 90 about 0, 0, 1\n"
                     "      UP     of WHEEL at 0, -0.001, 0, turned by 180 about 0, 1, 0\n"
                     "  Nodes                     9   3 in the parts\n"
                     "  Elements                  3   3 CPS3\n"
                     "  Node sets                 2   1 in parts, 1 in the assembly\n"
                     "  Element sets              1   1 in parts\n"
                     "  Surfaces                  1   1 in parts\n"
                     "  Steps                     1\n"
                     "      Step-1  *STATIC\n"
                     "  Findings                  0\n");
}

/// The most memory that a process has held, in kilobytes.
long PeakMemory(pid_t process)
{
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string word; status >> word;)
    if (long kilobytes = 0; word == "VmHWM:" && status >> kilobytes)
      return kilobytes;
  return -1;
}

// A range is bits in memory; its ids as a list would take 800 MB.
TEST_F(Maps, IdsOfARangeAreWrittenOneByOne)
{
  files.Write("deck.inp", "*PART, NAME=P\n*NSET, NSET=ALL, GENERATE\n1, 200000000\n*END PART\n"
                          "*ASSEMBLY, NAME=A\n*END ASSEMBLY\n");
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  Program const program = InFolder().OutputTo(ends[1]);
  pid_t const child = program.Start({"dump", "--what", "maps", "deck.inp"});
  ::close(ends[1]);
  std::string text(200, '\0');
  EXPECT_EQ(::read(ends[0], text.data(), text.size()), 200);
  EXPECT_NE(text.find("\"ALL\": [1, 2, 3, 4"), std::string::npos) << text;
  EXPECT_LT(PeakMemory(child), 500000);
  ::close(ends[0]);
  EXPECT_EQ(program.Finish(child).status, 2);
}

TEST_F(Maps, LongListsShareTheScreen)
{
  std::string deck = "*PART, NAME=P\n*END PART\n*ASSEMBLY, NAME=A\n";
  std::string steps;
  for (int i = 1; i <= 12; ++i)
  {
    std::string const name = "N" + std::to_string(i);
    deck += "*INSTANCE, NAME=" + name + ", PART=P\n*END INSTANCE\n";
    steps += "*STEP, NAME=" + name + "\n*STATIC\n*END STEP\n";
  }
  auto const linesOf = [this](std::string const& text)
  {
    files.Write("deck.inp", text);
    std::string const out = Run({"check", "deck.inp"}).out;
    return std::count(out.begin(), out.end(), '\n');
  };
  auto const both = linesOf(deck + "*END ASSEMBLY\n" + steps);
  EXPECT_EQ(both, linesOf(deck + "*END ASSEMBLY\n"));
  EXPECT_LE(both, 24);
}

TEST_F(Maps, ACheckFindsWhatOnlyTheMapsShow)
{
  files.Write("cart.inp", "*PART, NAME=WHEEL\n"
                          "*NODE\n"
                          "1, 0., 0., 0.\n"
                          "*NSET, NSET=RIM\n"
                          "1, SPOKES\n"
                          "*END PART\n"
                          "*ASSEMBLY, NAME=CART\n"
                          "*END ASSEMBLY\n");
  ProgramRun const run = Run({"check", "--quiet", "cart.inp"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "cart.inp:4: error: in keyword *NSET, file \"cart.inp\", line 4: The following "
            "sets specified do not exist. Sets should be defined before they are used:\n"
            "SPOKES\n"
            "    4 | *NSET, NSET=RIM\n");
}

TEST_F(Maps, AFlatDeckHasNoneYet)
{
  files.Write("flat.inp", "*NODE\n1, 0., 0., 0.\n");
  ProgramRun const run = Run({"dump", "--what", "maps", "flat.inp"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "flat.inp: warning: The deck is a flat model, and flat models are not divided "
                     "into parts yet: there are no maps.\n");
  EXPECT_EQ(Run({"dump", "--what", "maps", "--stage", "expand", "flat.inp"}).status, 2);
}

} // namespace

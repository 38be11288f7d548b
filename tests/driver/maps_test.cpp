#include "Inpdeck.h"

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
  EXPECT_EQ(all["keywords"][1]["data"].size(), 3U);
  EXPECT_TRUE(all.contains("instances"));
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
  EXPECT_EQ(run.err, "cart.inp:4: error: in keyword *NSET, file \"cart.inp\", line 4: The following "
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

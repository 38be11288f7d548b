#include "inp_Coord.h"

#include "gsl_Matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace
{
double const halfPi = 1.5707963267948966;

std::vector<double> Position(inp_Coord const& coord) { return {coord.x, coord.y, coord.z}; }
std::vector<double> Normal(inp_Coord const& coord) { return {coord.nx, coord.ny, coord.nz}; }

void ExpectNear(std::vector<double> const& expected, std::vector<double> const& actual)
{
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_NEAR(expected[i], actual[i], 1e-14) << "component " << i;
}
} // namespace

TEST(inp_Coord, TakesAUnitNormalAndKeepsItsOwnWhenGivenNone)
{
  inp_Coord coord;
  coord.AttachNormalComponents(0.0, 3.0, 4.0);
  ExpectNear({0.0, 0.6, 0.8}, Normal(coord));
  coord.AttachNormalComponents(0.0, 0.0, 0.0);
  ExpectNear({0.0, 0.6, 0.8}, Normal(coord));
}

TEST(inp_Coord, MovesPositionAsPointAndNormalAsDirection)
{
  gsl_Matrix motion = gsl_Matrix::AxisRotation(gsl_Point(), gsl_Vector(0.0, 0.0, 1.0), halfPi);
  motion.SetTranslation(gsl_Vector(10.0, 0.0, 0.0));
  inp_Coord coord(1.0, 0.0, 5.0, 2.0, 0.0, 0.0);
  coord.Transform(motion);
  ExpectNear({10.0, 1.0, 5.0}, Position(coord));
  ExpectNear({0.0, 1.0, 0.0}, Normal(coord));

  inp_Coord withoutNormal(1.0, 0.0, 5.0);
  withoutNormal.Transform(motion);
  EXPECT_EQ((std::vector<double>{0.0, 0.0, 0.0}), Normal(withoutNormal));

  inp_Coord undefined(1.0, 2.0, 3.0, 2.0, 0.0, 0.0);
  undefined.defined = false;
  undefined.Transform(motion);
  EXPECT_EQ((std::vector<double>{1.0, 2.0, 3.0}), Position(undefined));
}

TEST(inp_Coord, ZeroesWhatIsBelowTheRoundingOfTheLargestComponent)
{
  std::pair<std::vector<double>, std::vector<double>> const cases[] = {
    {{1e-16, -4.0, 1e-15}, {0.0, -4.0, 1e-15}},
    {{0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}},
    {{1e-300, 1e-305, 1e-320}, {1e-300, 1e-305, 0.0}},
    {{1.0, 2.220446049250313e-16, -2.2e-16}, {1.0, 2.220446049250313e-16, 0.0}},
  };
  for (auto const& [given, expected] : cases)
  {
    inp_Coord coord(given[0], given[1], given[2]);
    coord.ZeroSmallerThanTolerance();
    EXPECT_EQ(expected, Position(coord));
  }
}

TEST(inp_Coord, ConvertsPositionAndNormalOfCurvilinearFrames)
{
  inp_Coord cylindrical(2.0, 90.0, 7.0, 1.0, 180.0, 0.5);
  cylindrical.Cylindrical2Rectangular();
  ExpectNear({0.0, 2.0, 7.0}, Position(cylindrical));
  ExpectNear({-1.0, 0.0, 0.5}, Normal(cylindrical));

  inp_Coord spherical(2.0, 60.0, 30.0, 1.0, 0.0, 90.0);
  spherical.Spherical2Rectangular();
  double const across = std::sqrt(3.0);
  ExpectNear({0.5 * across, 0.5 * across * std::sqrt(3.0), 1.0}, Position(spherical));
  ExpectNear({0.0, 0.0, 1.0}, Normal(spherical));
}

TEST(inp_Coord, IncrementsBecomeTheWayBetweenConvertedEnds)
{
  double dr = 1.0;
  double dtheta = 90.0;
  inp_Coord::DifferentialCylindricalConversion(2.0, 0.0, dr, dtheta);
  ExpectNear({-2.0, 3.0}, {dr, dtheta}); // from (2, 0) to (0, 3)

  dr = 1.0;
  dtheta = 90.0;
  double dphi = 30.0;
  inp_Coord::DifferentialSphericalConversion(1.0, 0.0, 0.0, dr, dtheta, dphi);
  ExpectNear({-1.0, std::sqrt(3.0), 1.0}, {dr, dtheta, dphi});
}

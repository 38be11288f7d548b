#include "gsl_Vector.h"

#include "gsl_Matrix.h"
#include "gsl_Plane.h"
#include "gsl_StLine.h"
#include "gsl_Util.h"
#include "omi_Singleton.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace
{
constexpr double pi = std::numbers::pi;

void ExpectNear(double x, double y, double z, gsl_Point const& point, double bound = 1.0e-14)
{
  EXPECT_NEAR(x, point.X(), bound);
  EXPECT_NEAR(y, point.Y(), bound);
  EXPECT_NEAR(z, point.Z(), bound);
}
} // namespace

TEST(gsl_Vector, NormalizeAnswersWhetherThereIsALength)
{
  double const tolerance = omi_Singleton<gsl_Util>::Instance().tolerance;
  struct
  {
    char const* what;
    gsl_Vector vector;
    bool hasLength;
  } const cases[] = {
    {"at the tolerance", {0.0, tolerance, 0.0}, false},
    {"above the tolerance", {0.0, -2.0 * tolerance, 0.0}, true},
    {"three components below, together above", {tolerance, tolerance, tolerance}, true},
    {"squares overflow", {1.0e200, 1.0e200, 0.0}, true},
    {"squares vanish", {1.0e-200, 0.0, 0.0}, false},
    {"no number", {std::nan(""), 1.0, 0.0}, false},
  };
  for (auto const& [what, vector, hasLength] : cases)
  {
    SCOPED_TRACE(what);
    gsl_Vector unit = vector;
    EXPECT_EQ(hasLength, unit.Normalize());
    if (hasLength)
    {
      EXPECT_NEAR(1.0, std::hypot(unit.X(), unit.Y(), unit.Z()), 1.0e-15);
      EXPECT_NEAR(0.0, unit.AngleWith(vector, false), 1.0e-15);
    }
    else
    {
      EXPECT_TRUE(unit.Y() == vector.Y() && unit.Z() == vector.Z()) << "left as it was";
    }
  }
}

TEST(gsl_Vector, MagnitudeFollowsEveryChange)
{
  gsl_Vector vector(3.0, 4.0, 12.0);
  EXPECT_EQ(13.0, vector.ComputeMagnitude());
  vector.Scale(-2.0);
  vector.Negate();
  EXPECT_EQ(26.0, vector.ComputeMagnitude());
  EXPECT_EQ(6.0, vector.X());
  vector.Set(0.0, 0.0, -7.0);
  EXPECT_EQ(7.0, vector.ComputeMagnitude());
  gsl_Matrix move;
  move.SetTranslation({0.0, 24.0, 0.0});
  vector.RotateAndTransform(move);
  EXPECT_EQ(25.0, vector.ComputeMagnitude());
  EXPECT_TRUE(vector.Normalize());
  EXPECT_EQ(1.0, vector.ComputeMagnitude());
}

TEST(gsl_Vector, AlgebraByHand)
{
  gsl_Vector const a(1.0, 2.0, 3.0);
  gsl_Vector const b(4.0, -5.0, 6.0);
  EXPECT_EQ(12.0, a.DotProduct(b));
  EXPECT_EQ(gsl_Vector(27.0, 6.0, -13.0), a.CrossProduct(b));
  EXPECT_EQ(gsl_Vector(-2.0, 9.5, 0.0),
            2.0 * a - (b - a * 0.5) + 0.5 * gsl_Vector(-1.0, -1.0, -3.0));
  EXPECT_EQ(gsl_Vector(3.0, -7.0, 3.0),
            gsl_Vector(gsl_Point(1.0, 2.0, 3.0), gsl_Point(4.0, -5.0, 6.0)));
  EXPECT_TRUE(a == a + gsl_Vector(1.0e-13, 0.0, -1.0e-13));
  EXPECT_FALSE(a == a + gsl_Vector(0.0, 0.0, 1.0e-11));
}

TEST(gsl_Vector, AngleIsGoodAtEveryOpening)
{
  gsl_Vector const x(5.0, 0.0, 0.0);
  for (double const angle : {0.0, 1.0e-10, 0.5, pi / 2, 2.0, pi - 1.0e-10, pi})
  {
    gsl_Vector const turned(0.01 * std::cos(angle), 0.0, 0.01 * std::sin(angle));
    EXPECT_NEAR(angle, x.AngleWith(turned, false), 1.0e-15 + angle * 1.0e-15);
    EXPECT_NEAR(std::min(angle, pi - angle), turned.AngleWith(x, true), 2.0e-15);
  }
  EXPECT_EQ(0.0, x.AngleWith({}, false));
}

TEST(gsl_Vector, ThreePointsGiveANormalWhateverTheirScale)
{
  for (double const scale : {1.0e-9, 1.0, 1.0e9})
  {
    gsl_Vector normal({}, {2.0 * scale, 0.0, 0.0}, {scale, scale, 0.0});
    EXPECT_NEAR(std::sin(pi / 4), normal.ComputeMagnitude(), 1.0e-15);
    EXPECT_TRUE(normal.Normalize());
    EXPECT_EQ(gsl_Vector(0.0, 0.0, 1.0), normal);
  }
  gsl_Point const a(0.1, 0.2, 0.3);
  EXPECT_FALSE(gsl_Vector(a, {0.2, 0.4, 0.6}, {0.7, 1.4, 2.1}).Normalize()) << "on a line";
  EXPECT_FALSE(gsl_Vector(a, {0.7, 1.0, 2.0}, {0.7, 1.0, 2.0}).Normalize()) << "b on c";
}

TEST(gsl_Point, WeightsAreNotBroughtToOne)
{
  gsl_Point const a(1.0, 2.0, 3.0);
  gsl_Point const b(5.0, 6.0, 7.0);
  ExpectNear(2.0, 3.0, 4.0, gsl_Point(a, 0.75, b, 0.25));
  ExpectNear(6.0, 8.0, 10.0, gsl_Point(a, 1.0, b, 1.0));
}

TEST(gsl_Point, ProjectsOnPlanes)
{
  gsl_Point const p(4.0, 5.0, 9.0);
  // x + y + z = 3; p stands 15 / sqrt(3) off, so 5 goes from each component.
  gsl_Plane const plane({3.0, 0.0, 0.0}, {7.0, 7.0, 7.0});
  EXPECT_NEAR(1.0, plane.Direction().ComputeMagnitude(), 1.0e-15);
  ExpectNear(-1.0, 0.0, 4.0, p.ProjectOn(plane));

  gsl_Plane const none({3.0, 0.0, 0.0}, {0.0, 1.0e-13, 0.0});
  EXPECT_EQ(0.0, none.Direction().ComputeMagnitude());
  ExpectNear(4.0, 5.0, 9.0, p.ProjectOn(none), 0.0);
}

TEST(gsl_Point, ProjectsOnLines)
{
  double parameter = 99.0;
  gsl_StLine const line({1.0, 1.0, 1.0}, {1.0, 4.0, 5.0});
  EXPECT_EQ(gsl_Vector(0.0, 0.6, 0.8), line.Direction());
  ExpectNear(1.0, 7.0, 9.0, gsl_Point(-3.0, 3.0, 12.0).ProjectOn(line, parameter));
  EXPECT_NEAR(10.0, parameter, 1.0e-14);
  ExpectNear(1.0, -2.0, -3.0, gsl_Point(8.0, 2.0, -6.0).ProjectOn(line, parameter));
  EXPECT_NEAR(-5.0, parameter, 1.0e-14);

  gsl_StLine const none({1.0, 2.0, 3.0}, {1.0, 2.0, 3.0 + 1.0e-13});
  ExpectNear(1.0, 2.0, 3.0, gsl_Point(8.0, 2.0, -6.0).ProjectOn(none, parameter), 0.0);
  EXPECT_EQ(0.0, parameter);
}

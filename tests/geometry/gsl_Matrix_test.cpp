#include "gsl_Matrix.h"

#include "VRXBasException.h"
#include "gsl_Plane.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace
{
constexpr double pi = std::numbers::pi;
double const infinity = INFINITY;

/// Motions, points and planes within some ten units of the origin, the same in every run.
class MotionSource
{
public:
  double Between(double low, double high)
  {
    return low + (high - low) * static_cast<double>(m_engine()) / 4294967296.0;
  }
  gsl_Point Point() { return {Between(-10, 10), Between(-10, 10), Between(-10, 10)}; }
  gsl_Vector Direction() { return gsl_Vector(Point()); }
  gsl_Matrix Rotation() { return gsl_Matrix::AxisRotation(Point(), Direction(), Between(-7, 7)); }
  gsl_Matrix Motion()
  {
    gsl_Matrix motion;
    motion.SetTranslation(Direction());
    motion.Concatenate(Rotation());
    return motion;
  }

private:
  std::mt19937 m_engine{20240229};
};

gsl_Point Moved(gsl_Matrix const& matrix, gsl_Point point)
{
  matrix.Transform(point);
  return point;
}

gsl_Vector Turned(gsl_Matrix const& matrix, gsl_Vector vector)
{
  matrix.Transform(vector);
  return vector;
}

void ExpectNear(gsl_Point const& expected, gsl_Point const& actual, double bound)
{
  EXPECT_NEAR(0.0, gsl_Vector(expected, actual).ComputeMagnitude(), bound);
}

void ExpectNear(gsl_Matrix const& expected, gsl_Matrix const& actual, double bound)
{
  double a[4][4];
  double b[4][4];
  expected.AsArray(a);
  actual.AsArray(b);
  for (int i = 0; i < 16; ++i)
    EXPECT_NEAR(a[i / 4][i % 4], b[i / 4][i % 4], bound) << "row " << i / 4 << " column " << i % 4;
}

// The largest entry of R'R - 1.
double Drift(gsl_Matrix const& matrix)
{
  double m[4][4];
  matrix.AsArray(m);
  double drift = 0.0;
  for (int i = 0; i < 9; ++i)
  {
    double sum = i / 3 == i % 3 ? -1.0 : 0.0;
    for (auto const& row : {m[0], m[1], m[2]})
      sum += row[i / 3] * row[i % 3];
    drift = std::max(drift, std::abs(sum));
  }
  return drift;
}
} // namespace

TEST(gsl_Matrix, ConventionByHand)
{
  gsl_Matrix system;
  system.SetTranslation({10.0, 20.0, 30.0});
  system.SetRotationVectors({0.0, 2.0, 0.0}, {0.0, 0.0, 3.0}, {4.0, 0.0, 0.0});
  double const expected[4][4] = {{0, 0, 1, 10}, {1, 0, 0, 20}, {0, 1, 0, 30}, {0, 0, 0, 1}};
  double actual[4][4];
  system.AsArray(actual);
  EXPECT_TRUE(std::equal(&expected[0][0], &expected[0][0] + 16, &actual[0][0]));
  ExpectNear({13.0, 21.0, 32.0}, Moved(system, {1.0, 2.0, 3.0}), 0.0);
  EXPECT_EQ(gsl_Vector(3.0, 1.0, 2.0), Turned(system, {1.0, 2.0, 3.0}));
  ExpectNear({1.0, 2.0, 3.0}, Moved(system.InverseRigidTransform(), {13.0, 21.0, 32.0}), 0.0);

  gsl_Matrix rows;
  rows.SetTranslation({10.0, 20.0, 30.0});
  rows.SetRow(0, {0.0, 0.0, 1.0});
  rows.SetRow(1, {1.0, 0.0, 0.0});
  rows.SetRow(2, {0.0, 1.0, 0.0});
  ExpectNear(system, rows, 0.0);
  EXPECT_THROW(rows.SetRow(3, {}), VRXBasAssertException);
}

TEST(gsl_Matrix, ConcatenateLetsTheOtherFollow)
{
  gsl_Matrix position;
  position.SetTranslation({5.0, 0.0, 0.0});
  position.Concatenate(gsl_Matrix::AxisRotation({5.0, 0.0, 0.0}, {0.0, 0.0, 2.0}, pi / 2));
  ExpectNear({5.0, 1.0, 0.0}, Moved(position, {1.0, 0.0, 0.0}), 0.0);

  gsl_Matrix twice = position;
  twice.Concatenate(twice);
  ExpectNear(Moved(position, Moved(position, {1.0, 2.0, 3.0})), Moved(twice, {1.0, 2.0, 3.0}), 0.0);
}

TEST(gsl_Matrix, QuarterTurnsAboutCoordinateAxesAreExact)
{
  struct
  {
    gsl_Point through;
    gsl_Vector axis;
    double degrees;
    gsl_Point image; // of (1, 2, 3)
  } const cases[] = {
    {{}, {0, 0, 5}, 180, {-1, -2, 3}},      {{}, {0, 0, 5}, 3690, {-2, 1, 3}},
    {{}, {0.1, 0, 0}, -90, {1, 3, -2}},     {{}, {0, -1, 0}, 270, {3, 2, -1}},
    {{1, 0, 7}, {0, 0, 1}, 90, {-1, 0, 3}}, {{4, 4, 4}, {0, 1, 0}, 180, {7, 2, 5}},
  };
  for (auto const& [through, axis, degrees, image] : cases)
  {
    SCOPED_TRACE(degrees);
    auto const rotation =
      gsl_Matrix::AxisRotation(through, axis, degrees * 3.141592653589793 / 180.0);
    ExpectNear(image, Moved(rotation, {1.0, 2.0, 3.0}), 0.0);
  }
  ExpectNear({3.0, 1.0, 2.0},
             Moved(gsl_Matrix::AxisRotation({}, {9, 9, 9}, 2 * pi / 3), {1.0, 2.0, 3.0}), 1.0e-14);
}

TEST(gsl_Matrix, MotionsKeepDistancesAndComeBack)
{
  MotionSource source;
  for (int run = 0; run < 300; ++run)
  {
    gsl_Matrix const first = source.Motion();
    gsl_Matrix const second = source.Motion();
    gsl_Matrix both = first;
    both.Concatenate(second);
    gsl_Point const p = source.Point();
    gsl_Point const q = source.Point();
    ASSERT_NEAR(1.0, both.Determinant(), 1.0e-14);
    ASSERT_NEAR(gsl_Vector(p, q).ComputeMagnitude(),
                gsl_Vector(Moved(both, p), Moved(both, q)).ComputeMagnitude(), 1.0e-13);
    ASSERT_EQ(gsl_Vector(Moved(both, p), Moved(both, q)), Turned(both, gsl_Vector(p, q)));
    ExpectNear(Moved(second, Moved(first, p)), Moved(both, p), 1.0e-13);
    ExpectNear(p, Moved(both.InverseRigidTransform(), Moved(both, p)), 1.0e-13);

    ASSERT_FALSE(both.IsIdentity());
    gsl_Matrix undone = both;
    undone.Concatenate(both.InverseRigidTransform());
    ExpectNear(gsl_Matrix(), undone, 1.0e-13);
    ASSERT_TRUE(undone.IsIdentity());
  }
}

TEST(gsl_Matrix, LongChainsStayOrthonormal)
{
  MotionSource source;
  gsl_Matrix chain;
  for (int i = 0; i < 200000; ++i)
    chain.Concatenate(gsl_Matrix::AxisRotation({}, source.Direction(), source.Between(-4, 4)));
  EXPECT_LT(Drift(chain), 4.0e-15);
}

TEST(gsl_Matrix, ConcatenateDoesNotMendWhatWasGivenBent)
{
  gsl_Matrix sheared;
  sheared.SetRow(0, {1.0, 0.5, 0.0});
  sheared.Concatenate(gsl_Matrix::AxisRotation({}, {0.0, 0.0, 1.0}, pi / 2));
  ExpectNear({-2.0, 2.0, 3.0}, Moved(sheared, {1.0, 2.0, 3.0}), 0.0);
}

TEST(gsl_Matrix, ReflectionTurnsHandsAndIsItsOwnInverse)
{
  ExpectNear({1.0, 2.0, 7.0},
             Moved(gsl_Matrix::Reflection(gsl_Plane({0, 0, 5}, {0, 0, -2})), {1.0, 2.0, 3.0}), 0.0);
  EXPECT_TRUE(gsl_Matrix::Reflection(gsl_Plane({0, 0, 5}, {})).IsIdentity());

  MotionSource source;
  for (int run = 0; run < 100; ++run)
  {
    gsl_Plane const plane(source.Point(), source.Direction());
    gsl_Point const p = source.Point();
    gsl_Matrix const reflection = gsl_Matrix::Reflection(plane);
    ExpectNear(gsl_Point(p.ProjectOn(plane), 2.0, p, -1.0), Moved(reflection, p), 1.0e-13);
    ExpectNear(reflection, reflection.InverseRigidTransform(), 1.0e-13);

    gsl_Matrix mirrored = source.Motion();
    mirrored.Concatenate(reflection);
    ASSERT_NEAR(-1.0, mirrored.Determinant(), 1.0e-14);
    ExpectNear(p, Moved(mirrored.InverseRigidTransform(), Moved(mirrored, p)), 1.0e-13);
    mirrored.Concatenate(reflection);
    ASSERT_NEAR(1.0, mirrored.Determinant(), 1.0e-14);
  }
}

TEST(gsl_Matrix, GetAxisRotationPositionsAnInstance)
{
  MotionSource source;
  double const angles[] = {1.0e-9, 1.0e-4, 0.1, pi / 2, 3.0, pi - 1.0e-4, pi - 1.0e-9, pi};
  for (int run = 0; run < 400; ++run)
  {
    double const angle = angles[run % 8];
    gsl_Vector axis = source.Direction();
    axis.Normalize();
    gsl_Matrix motion;
    motion.SetTranslation(source.Direction());
    motion.Concatenate(gsl_Matrix::AxisRotation(source.Point(), axis, angle));

    gsl_Vector translation;
    gsl_Point point;
    gsl_Vector direction;
    double radians = 0.0;
    motion.GetTranslation(translation);
    ASSERT_TRUE(motion.GetAxisRotation(point, direction, radians));
    EXPECT_NEAR(angle, radians, 1.0e-14);
    EXPECT_NEAR(1.0, direction.ComputeMagnitude(), 1.0e-14);
    EXPECT_NEAR(0.0, axis.AngleWith(direction, angle == pi), 1.0e-14 / std::min(angle, 1.0));

    gsl_Matrix again;
    again.SetTranslation(translation);
    again.Concatenate(gsl_Matrix::AxisRotation(point, direction, radians));
    ExpectNear(motion, again, 1.0e-13);
  }
}

TEST(gsl_Matrix, GetAxisRotationOfWhatHasNoAxis)
{
  gsl_Matrix const halfTurn = gsl_Matrix::AxisRotation({}, {-0.6, 0.0, -0.8}, -pi);
  gsl_Matrix const nearHalfTurn = gsl_Matrix::AxisRotation({}, {-0.36, -0.48, -0.8}, pi - 1.0e-14);
  gsl_Matrix translated;
  translated.SetTranslation({1.0, 2.0, 3.0});
  gsl_Matrix barelyTurned = gsl_Matrix::AxisRotation({}, {1.0, 0.0, 0.0}, 1.0e-13);
  gsl_Matrix flat;
  flat.SetRotationVectors({1.0, 0.0, 0.0}, {}, {});
  struct
  {
    char const* what;
    gsl_Matrix matrix;
    bool isRotation;
    gsl_Vector direction;
    double radians;
  } const cases[] = {
    {"half turn", halfTurn, true, {0.6, 0.0, 0.8}, pi},
    {"half turn but for rounding", nearHalfTurn, true, {0.36, 0.48, 0.8}, pi - 1.0e-14},
    {"translation", translated, true, {0.0, 0.0, 1.0}, 0.0},
    {"below the tolerance", barelyTurned, true, {0.0, 0.0, 1.0}, 0.0},
    {"reflection", gsl_Matrix::Reflection(gsl_Plane({}, {1, 0, 0})), false, {0.0, 0.0, 1.0}, 0.0},
    {"axes lost", flat, false, {0.0, 0.0, 1.0}, 0.0},
  };
  for (auto const& [what, matrix, isRotation, direction, radians] : cases)
  {
    SCOPED_TRACE(what);
    gsl_Point point;
    gsl_Vector axis;
    double angle = 99.0;
    EXPECT_EQ(isRotation, matrix.GetAxisRotation(point, axis, angle));
    EXPECT_EQ(direction, axis);
    EXPECT_NEAR(radians, angle, 1.0e-15);
  }
}

TEST(gsl_Matrix, IdentityIsToldWithinTheToleranceAfterEveryWriter)
{
  gsl_Matrix matrix;
  EXPECT_TRUE(matrix.IsIdentity());
  matrix.SetTranslation({0.0, 1.0e-13, 0.0});
  EXPECT_TRUE(matrix.IsIdentity());
  matrix.SetRow(1, {0.0, -1.0, 0.0});
  EXPECT_FALSE(matrix.IsIdentity());
  matrix.SetRotationVectors({2.0, 0.0, 0.0}, {0.0, 2.0, 0.0}, {0.0, 0.0, 2.0});
  EXPECT_TRUE(matrix.IsIdentity());
  matrix.Concatenate(gsl_Matrix::AxisRotation({}, {1.0, 1.0, 0.0}, 1.0e-6));
  EXPECT_FALSE(matrix.IsIdentity());
  EXPECT_FALSE(matrix.InverseRigidTransform().IsIdentity());
  EXPECT_FALSE(gsl_Matrix::Reflection(gsl_Plane({}, {1.0, 0.0, 0.0})).IsIdentity());
  matrix.FillIdentity();
  EXPECT_TRUE(matrix.IsIdentity());
  EXPECT_TRUE(gsl_Matrix::AxisRotation({1.0, 2.0, 3.0}, {}, 1.0).IsIdentity()) << "no axis";
  for (double const noNumber : {std::nan(""), infinity})
  {
    matrix.SetTranslation({noNumber, 0.0, 0.0});
    EXPECT_FALSE(matrix.IsIdentity());
  }
}

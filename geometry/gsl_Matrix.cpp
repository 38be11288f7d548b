#include "gsl_Matrix.h"

#include "VRXBasException.h"
#include "gsl_Plane.h"
#include "gsl_Util.h"
#include "omi_Singleton.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

static_assert(std::is_trivially_copyable_v<gsl_Matrix>);

namespace
{
constexpr double epsilon = std::numeric_limits<double>::epsilon();

double Tolerance() { return omi_Singleton<gsl_Util>::Instance().tolerance; }

// Makes a sine or cosine 0 that is smaller than the rounding of its angle, which was converted from degrees:
// otherwise a quarter turn would put 6e-17 of x into y.
double WithoutRounding(double sineOrCosine, double radians)
{
  return std::abs(sineOrCosine) <= 2.0 * epsilon * std::abs(radians) ? 0.0 : sineOrCosine;
}

// The direction with length 1, however short it is: the tolerance is meant for lengths in the deck.
gsl_Vector UnitAxis(gsl_Vector const& axis)
{
  double const magnitude = axis.ComputeMagnitude();
  bool const hasLength =
    std::isfinite(magnitude) && magnitude >= std::numeric_limits<double>::min();
  if (!hasLength || std::abs(magnitude - 1.0) <= 4.0 * epsilon)
  {
    return axis;
  }
  return {axis.X() / magnitude, axis.Y() / magnitude, axis.Z() / magnitude};
}
} // namespace

gsl_Matrix gsl_Matrix::InverseRigidTransform() const
{
  gsl_Matrix inverse;
  gsl_Vector back = Column(3);
  back.Negate();
  for (int i = 0; i < 3; ++i)
  {
    inverse.SetColumn(i, Row(i));
    inverse.m_rows[i][3] = Column(i).DotProduct(back);
  }
  inverse.UpdateIsIdentity();
  return inverse;
}

void gsl_Matrix::SetTranslation(gsl_Vector const& translation)
{
  SetColumn(3, translation);
  UpdateIsIdentity();
}

void gsl_Matrix::GetTranslation(gsl_Vector& translation) const { translation = Column(3); }

void gsl_Matrix::SetRotationVectors(gsl_Vector const& a, gsl_Vector const& b, gsl_Vector const& c)
{
  SetColumn(0, UnitAxis(a));
  SetColumn(1, UnitAxis(b));
  SetColumn(2, UnitAxis(c));
  UpdateIsIdentity();
}

void gsl_Matrix::SetRow(int i, gsl_Vector const& row)
{
  VRXBasAssert(i >= 0 && i < 3, "a rotation has the rows 0, 1 and 2");
  m_rows[i][0] = row.X();
  m_rows[i][1] = row.Y();
  m_rows[i][2] = row.Z();
  UpdateIsIdentity();
}

void gsl_Matrix::AsArray(double values[][4]) const
{
  static constexpr double lastRow[] = {0.0, 0.0, 0.0, 1.0};
  for (int i = 0; i < 4; ++i)
  {
    std::copy_n(i < 3 ? m_rows[i] : lastRow, 4, values[i]);
  }
}

void gsl_Matrix::Concatenate(gsl_Matrix const& next)
{
  gsl_Matrix product;
  for (int i = 0; i < 3; ++i)
  {
    gsl_Vector column = Column(i);
    next.Transform(column);
    product.SetColumn(i, column);
  }
  gsl_Vector translation = Column(3);
  translation.RotateAndTransform(next);
  product.SetColumn(3, translation);
  product.RemoveDrift();
  product.UpdateIsIdentity();
  *this = product;
}

// Rodrigues' formula: the part of a vector along the axis stays, the part across it turns. So points on the
// axis stay where they are, without rounding. The translation, point - R * point, is computed from the part
// across alone: neither a point far out along the axis nor a small angle then loses digits.
gsl_Matrix gsl_Matrix::AxisRotation(gsl_Point const& point, gsl_Vector const& direction,
                                    double radians)
{
  gsl_Matrix rotation;
  gsl_Vector axis = direction;
  if (!axis.Normalize())
  {
    return rotation;
  }
  double const sine = WithoutRounding(std::sin(radians), radians);
  double const cosine = WithoutRounding(std::cos(radians), radians);
  for (int i = 0; i < 3; ++i)
  {
    gsl_Vector const unit = rotation.Column(i);
    gsl_Vector const along = axis * axis.DotProduct(unit);
    rotation.SetColumn(i, along + (unit - along) * cosine + axis.CrossProduct(unit) * sine);
  }
  double const halfSine = std::sin(0.5 * radians);
  double const versine =
    cosine == 0.0 ? 1.0 : 2.0 * halfSine * halfSine; // 1 - cosine, in all digits
  gsl_Vector const position(point);
  gsl_Vector const across = position - axis * axis.DotProduct(position);
  rotation.SetColumn(3, across * versine - axis.CrossProduct(across) * sine);
  rotation.UpdateIsIdentity();
  return rotation;
}

bool gsl_Matrix::GetAxisRotation(gsl_Point& point, gsl_Vector& direction, double& radians) const
{
  point.Set(m_rows[0][3], m_rows[1][3], m_rows[2][3]);
  direction.Set(0.0, 0.0, 1.0);
  radians = 0.0;
  if (!(Determinant() > 0.5)) // 1 for a rotation; about -1, or 0 where an axis failed
  {
    return false;
  }
  // Twice the axis times the sine, and twice the cosine: together they give every angle with all digits.
  gsl_Vector twist(m_rows[2][1] - m_rows[1][2], m_rows[0][2] - m_rows[2][0],
                   m_rows[1][0] - m_rows[0][1]);
  double const cosine = 0.5 * (m_rows[0][0] + m_rows[1][1] + m_rows[2][2] - 1.0);
  double const angle = std::atan2(0.5 * twist.ComputeMagnitude(), cosine);
  if (cosine < 0.0)
  {
    direction = AxisOfWideTurn(twist, cosine);
    radians = angle;
  }
  else if (angle > Tolerance() && twist.Normalize())
  {
    direction = twist;
    radians = angle;
  }
  return true;
}

gsl_Matrix gsl_Matrix::Reflection(gsl_Plane const& plane)
{
  gsl_Vector const& normal = plane.Direction();
  gsl_Matrix reflection;
  for (int i = 0; i < 3; ++i)
  {
    gsl_Vector const unit = reflection.Column(i);
    reflection.SetColumn(i, unit - normal * (2.0 * normal.DotProduct(unit)));
  }
  reflection.SetColumn(3, normal * (2.0 * normal.DotProduct(gsl_Vector(plane.Point()))));
  reflection.UpdateIsIdentity();
  return reflection;
}

double gsl_Matrix::Determinant() const
{
  return Column(0).DotProduct(Column(1).CrossProduct(Column(2)));
}

void gsl_Matrix::SetColumn(int i, gsl_Vector const& column)
{
  m_rows[0][i] = column.X();
  m_rows[1][i] = column.Y();
  m_rows[2][i] = column.Z();
}

// Rounding makes the columns of a product slightly oblique. One step of R -> R (3 - R'R) / 2 brings it to the
// nearest true rotation. A matrix that is oblique by more than rounding was given so, and stays.
void gsl_Matrix::RemoveDrift()
{
  gsl_Vector const columns[] = {Column(0), Column(1), Column(2)};
  double excess[3][3];
  double drift = 0.0;
  for (int i = 0; i < 3; ++i)
  {
    for (int j = 0; j < 3; ++j)
    {
      excess[i][j] = columns[i].DotProduct(columns[j]) - (i == j ? 1.0 : 0.0);
      drift = std::max(drift, std::abs(excess[i][j]));
    }
  }
  if (drift <= 8.0 * epsilon || drift > Tolerance())
  {
    return;
  }
  for (int j = 0; j < 3; ++j)
  {
    SetColumn(j, columns[j] - 0.5 * (columns[0] * excess[0][j] + columns[1] * excess[1][j] +
                                     columns[2] * excess[2][j]));
  }
}

// Towards a half turn the sine vanishes, and with it the twist, sine * axis. The axis is then taken from the
// symmetric part of the rotation, cosine + (1 - cosine) * axis * axis'. Its sign comes from the twist; at a
// half turn both signs are right.
gsl_Vector gsl_Matrix::AxisOfWideTurn(gsl_Vector const& twist, double cosine) const
{
  int largest = m_rows[0][0] >= m_rows[1][1] ? 0 : 1;
  largest = m_rows[largest][largest] >= m_rows[2][2] ? largest : 2;
  gsl_Vector const unit(largest == 0 ? 1.0 : 0.0, largest == 1 ? 1.0 : 0.0,
                        largest == 2 ? 1.0 : 0.0);
  gsl_Vector axis = 0.5 * (Column(largest) + Row(largest)) - unit * cosine;
  axis.Normalize();
  if (twist.ComputeMagnitude() > Tolerance() && axis.DotProduct(twist) < 0.0)
  {
    axis.Negate();
  }
  return axis;
}

// The comparisons are written so that they fail for an entry that is NaN.
void gsl_Matrix::UpdateIsIdentity()
{
  gsl_Util const& util = omi_Singleton<gsl_Util>::Instance();
  m_isIdentity = true;
  for (int i = 0; i < 3; ++i)
  {
    for (int j = 0; j < 4; ++j)
    {
      m_isIdentity = m_isIdentity && util.IsZero(m_rows[i][j] - (i == j ? 1.0 : 0.0));
    }
  }
}

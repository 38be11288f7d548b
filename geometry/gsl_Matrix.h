#pragma once

#include "gsl_Point.h"
#include "gsl_Vector.h"

class gsl_Plane;

/// A rigid motion, or a reflection: a rotation R, then a translation t. Identity at construction.
///
///     | R00 R01 R02 | t0 |   | x |        Points and vectors are columns, to the right of the matrix:
///     | R10 R11 R12 | t1 | * | y |        a point p goes to R p + t, a vector v to R v. The columns of R
///     | R20 R21 R22 | t2 |   | z |        are where the x, y and z axes go, so a matrix whose columns are
///     |  0   0   0  |  1 |   | 1 |        the axes of a local system, with its origin as the translation,
///                                         takes local coordinates to those of the outside.
///
/// Systems are right-handed; a positive angle turns counter-clockwise as seen from the tip of the axis.
/// Angles are radians; the deck's degrees are converted where they are read.
///
///     gsl_Matrix position;
///     position.SetTranslation(gsl_Vector(5.0, 0.0, 0.0));                         // first this,
///     position.Concatenate(gsl_Matrix::AxisRotation(a, gsl_Vector(a, b), angle)); // then that
///     position.Transform(point);
///
/// A plain value of twelve numbers that copies as memory. Applying one is 9 multiplications and 9
/// additions; IsIdentity reads a flag that the writers keep.
class gsl_Matrix
{
public:
  gsl_Matrix() = default;

  void FillIdentity() { *this = gsl_Matrix(); }

  /// True when every entry is that of the identity within the tolerance of gsl_Util, so that a full
  /// turn, or a motion and its inverse, count as none. O(1).
  bool IsIdentity() const { return m_isIdentity; }

  /// Rotates and translates, in place.
  void Transform(gsl_Point& point) const;

  /// Rotates, in place.
  void Transform(gsl_Vector& vector) const;

  /// The motion back: R transposed, and -R transposed * t. Only for matrices that keep lengths, as
  /// rotations and reflections do.
  [[nodiscard]] gsl_Matrix InverseRigidTransform() const;

  /// Sets the last column; the rotation stays.
  void SetTranslation(gsl_Vector const& translation);
  void GetTranslation(gsl_Vector& translation) const;

  /// Sets the columns of the rotation: the axes of a local system in outside coordinates. Each is brought
  /// to length 1, so axes from cross products need not be; a zero one stays zero. That they are at
  /// right angles is the caller's care. The translation stays.
  void SetRotationVectors(gsl_Vector const& a, gsl_Vector const& b, gsl_Vector const& c);

  /// Sets a row of the rotation, 0 to 2, as it stands; the translation stays.
  void SetRow(int i, gsl_Vector const& row);

  /// Writes the four rows of the whole matrix.
  void AsArray(double values[][4]) const;

  /// Lets another motion follow: the product `next` * this. Rotations stay orthonormal however many are
  /// concatenated; what was not orthonormal within the tolerance of gsl_Util is only multiplied.
  void Concatenate(gsl_Matrix const& next);

  /// The rotation about the axis through a point along a direction of any length; the identity when
  /// the direction is none (gsl_Vector::Normalize). Quarter turns are free of rounding about the
  /// coordinate axes.
  static gsl_Matrix AxisRotation(gsl_Point const& point, gsl_Vector const& direction,
                                 double radians);

  /// The rotation as it follows the translation: the motion is a translation by GetTranslation, then
  /// AxisRotation(point, direction, radians), the two lines that position an instance.
  ///
  /// The axis stands at the translated origin; `direction` has length 1 and `radians` lies between 0
  /// and pi. Of the two axes of a half turn it is the one whose largest component is positive. A turn
  /// that is zero within the tolerance is 0 about the z-axis; so is the answer, with false, for a matrix
  /// that reflects or has lost an axis.
  bool GetAxisRotation(gsl_Point& point, gsl_Vector& direction, double& radians) const;

  /// The reflection in a plane; the identity when the plane has no normal.
  static gsl_Matrix Reflection(gsl_Plane const& plane);

  /// 1 for a rigid motion, -1 for one that reflects.
  double Determinant() const;

private:
  gsl_Vector Row(int i) const { return {m_rows[i][0], m_rows[i][1], m_rows[i][2]}; }
  gsl_Vector Column(int i) const { return {m_rows[0][i], m_rows[1][i], m_rows[2][i]}; }
  void SetColumn(int i, gsl_Vector const& column);
  void RemoveDrift();
  gsl_Vector AxisOfWideTurn(gsl_Vector const& twist, double cosine) const;
  void UpdateIsIdentity();

  double m_rows[3][4] = {{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}};
  bool m_isIdentity = true;
};

inline void gsl_Matrix::Transform(gsl_Point& point) const
{
  double const x = point.X();
  double const y = point.Y();
  double const z = point.Z();
  point.Set(m_rows[0][0] * x + m_rows[0][1] * y + m_rows[0][2] * z + m_rows[0][3],
            m_rows[1][0] * x + m_rows[1][1] * y + m_rows[1][2] * z + m_rows[1][3],
            m_rows[2][0] * x + m_rows[2][1] * y + m_rows[2][2] * z + m_rows[2][3]);
}

inline void gsl_Matrix::Transform(gsl_Vector& vector) const
{
  double const x = vector.X();
  double const y = vector.Y();
  double const z = vector.Z();
  vector.Set(m_rows[0][0] * x + m_rows[0][1] * y + m_rows[0][2] * z,
             m_rows[1][0] * x + m_rows[1][1] * y + m_rows[1][2] * z,
             m_rows[2][0] * x + m_rows[2][1] * y + m_rows[2][2] * z);
}

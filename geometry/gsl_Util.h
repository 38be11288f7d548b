#pragma once

#include <cmath>

/// What the geometry classes share: omi_Singleton<gsl_Util>::Instance().
struct gsl_Util
{
  /// The magnitude at and below which a length, a sine or cosine of unit vectors, or an angle in
  /// radians counts as zero.
  ///
  /// Arithmetic on unit vectors leaves some 1e-15 where zero is meant, and differences of coordinates in
  /// the thousands some 1e-13; the tolerance stands above both. It stands below what a deck can mean:
  /// lengths have the deck's units and are not scaled, so a model of nanometres written in metres, 1e-9,
  /// is still told from a point, and a turn by this angle moves a point a thousand units away by 1e-9.
  double const tolerance = 1.0e-12;

  bool IsZero(double value) const { return std::abs(value) <= tolerance; }
};

#pragma once

#include "korvelfile/outside/base/Export.h"

/// Covariance matrix of a position in the plane, and its error ellipse.
///
/// A plain value, safe to copy between threads.
class PtErrMatrix {
 public:
  /// @param sN          standard error of north, metres
  /// @param sE          standard error of east, metres
  /// @param covariance  of north and east, square metres
  constexpr PtErrMatrix(double sN, double sE, double covariance)
      : sN_(sN), sE_(sE), covariance_(covariance) {}

  /// The standard error ellipse: the one of the single standard errors, which the true position
  /// lies in with a probability of 39 %.
  ///
  /// A matrix that rounding has left slightly indefinite gives a minor semi-axis of 0. If the two
  /// axes are equal, the bearing is 0. Where a number is not finite, all three are undefined.
  /// Source: W. Niemeier, Ausgleichungsrechnung, 2nd edition 2008, on the confidence ellipse;
  /// principal axes of a symmetric 2 x 2 matrix.
  /// @param[out] a        major semi-axis, metres
  /// @param[out] b        minor semi-axis, metres, 0 <= b <= a
  /// @param[out] bearing  azimuth of the major axis, radians, 0 <= bearing < pi
  KORVELBASE_EXPORT void Mat2Ell(double& a, double& b, double& bearing) const;

 private:
  double sN_;
  double sE_;
  double covariance_;
};

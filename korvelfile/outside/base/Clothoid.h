#pragma once

#include "korvelfile/outside/base/Export.h"
#include "korvelfile/outside/base/Vector.h"

/// Clothoid in the plane: a curve whose curvature runs linearly with its length, from that of a
/// start radius to that of an end radius.
///
/// Radii are signed as those of `CircleArc`, positive to the right, and 0 where the curvature is 0.
/// Radii of opposite sign make a curve with a turning point, where the curvature runs through zero.
/// The parameter A is the root of length over difference of curvature. Lengths are in the unit of
/// the coordinates, angles mathematical and in radians.
///
/// The law goes on before the start and beyond the end: every length has its point, counted from
/// the start. Points are good to 1e-10 m over kilometres at A from 20 to 2000 (to some 1e-16 of
/// the larger of A and the curve's extent).
///
/// Equal radii, a parameter or length of 0, a negative length and numbers that aren't finite make
/// no clothoid but a point: its parameter and length are 0, it has no foot for any point, and the
/// start, with the start direction, is all its places. A plain value, safe to copy between threads.
class KORVELBASE_EXPORT Clothoid {
 public:
  Clothoid() = default;  ///< A point in the origin.

  /// Sets the curve from `start` in the tangent `direction` by its `parameter`, of which the square
  /// counts, so that its sign is of no account.
  void SetWithParameter(const Vector& start, double direction, double parameter, double startRadius,
                        double endRadius);

  /// Sets the curve by its `length`, which is positive.
  void SetWithLength(const Vector& start, double direction, double length, double startRadius,
                     double endRadius);

  double GetParameter() const { return parameter_; }  ///< A, not negative.
  double CalcArcLength() const { return length_; }    ///< From start to end, not negative.

  /// The point at the whole length.
  Vector CalcEndPoint() const { return TangentPoint(nullptr, nullptr, length_); }

  /// The point at `length` from the start.
  ///
  /// @param direction  becomes the angle of the tangent there, in no particular period; may be null
  /// @param second     becomes the curvature there, 1 over the signed radius; may be null
  /// @param length     from the start, also below 0 and above the whole length; one that isn't
  ///                   finite, or takes the curve beyond all numbers, counts as 0
  Vector TangentPoint(double* direction, double* second, double length) const;

  /// Projects `point` on the curve: of the places between start and end to which it stands square
  /// the nearest, or, where an end of the curve is nearer, the first such place beyond that end.
  ///
  /// The foot is found to 1e-10 m, but for points within that of a centre of curvature. On a curve
  /// of more than thirty turns it may be another foot than the nearest.
  ///
  /// @param result     becomes (length from the start at the foot, distance from it, positive to
  ///                   the right)
  /// @param tolerance  no coarser foot than the above comes from a larger one
  /// @return false, with `result` unchanged, if there is no foot
  bool OrthoOut(const Vector& point, Vector& result, double tolerance) const;

 private:
  // Takes the curvature at the start and its change to the end; a point if that makes no clothoid.
  void Set(const Vector& start, double direction, double parameterSquare, double startCurvature,
           double change);

  // Point less start.
  Vector GetPlace(double length) const;

  Vector start_;
  Vector along_{1.0, 0.0};  // unit vector of the start direction
  double direction_ = 0.0;
  double parameter_ = 0.0;
  double length_ = 0.0;
  double curvature_ = 0.0;  // at the start
  double rate_ = 0.0;       // change of the curvature per length; 0 of a point
};

#pragma once

#include "korvelfile/outside/base/Export.h"
#include "korvelfile/outside/base/GeometryInterface.h"
#include "korvelfile/outside/base/Vector.h"

/// Circular arc in the plane, from a start to an end.
///
/// Radii are signed: along an arc of positive radius the mathematical angle of the tangent falls,
/// it turns right; along one of negative radius it grows. Lengths are in the unit of the
/// coordinates, angles mathematical and in radians.
///
/// What can't be an arc is the straight chord between its ends, with radius 0. A plain value, safe
/// to copy between threads.
class KORVELBASE_EXPORT CircleArc : public GeometryInterface {
 public:
  CircleArc() = default;  ///< A point in the origin, with radius 0.

  /// The arc of at most half a circle from `start` to `end`, as `Set` makes it; the straight chord
  /// where `Set` gives false. The last two arguments are reserved and 0.
  CircleArc(const Vector& start, const Vector& end, double radius, int, int);

  /// The arc from `start` in the tangent `direction` over `length`, of any number of turns.
  ///
  /// Against the direction if the length is negative. A straight if the radius is 0; the point
  /// `start` if one of the numbers isn't finite. The last two arguments are reserved and 0.
  CircleArc(const Vector& start, double radius, double direction, double length, int, int);

  /// Makes this the arc of at most half a circle from `start` to `end`.
  ///
  /// A chord that is longer than the diameter by no more than the rounding of the coordinates
  /// counts as the diameter. The last two arguments are reserved and 0.
  /// @return false, with the arc unchanged, if there is none: the chord is longer than the
  /// diameter,
  ///   the radius is 0, the points are equal, or a number isn't finite
  bool Set(const Vector& start, const Vector& end, double radius, int, int);

  int GetType() const override { return kCircleArc; }

  const Vector& GetStartPoint() const { return start_; }  ///< Where it begins.
  const Vector& GetEndPoint() const { return end_; }      ///< Where it ends.
  Vector GetMidPoint() const;                             ///< Halfway along the arc.
  double GetRadius() const { return radius_; }            ///< With its sign; 0 of a straight.
  double GetLength() const { return length_; }            ///< Along the arc.

  /// Mathematical angle of the tangent at the start: -pi to pi of an arc between two points, else
  /// as it was given.
  double GetBearing() const { return bearing_; }

  /// Mathematical angle of the tangent at the end, in no particular period.
  double GetEndBearing() const { return bearing_ - GetTurn(length_); }

  /// Centre of the circle; the start if the radius is 0.
  Vector GetCenter() const;

  /// The point at `length` along the arc, also before its start and beyond its end.
  Vector GetPoint(double length) const;

 private:
  // Angle, positive to the right, by which the tangent turns over `length`.
  double GetTurn(double length) const { return radius_ == 0.0 ? 0.0 : length / radius_; }

  Vector start_;
  Vector end_;
  double radius_ = 0.0;
  double bearing_ = 0.0;
  double length_ = 0.0;
};

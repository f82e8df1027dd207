#pragma once

#include "korvelfile/outside/base/Export.h"
#include "korvelfile/outside/base/Vector.h"

/// Straight segment in the plane, from a start to an end.
///
/// A plain value, safe to copy between threads. Start and end may coincide: the segment is then a
/// point, of length 0 and direction 0.
class Line {
 public:
  constexpr Line() = default;  ///< From the origin to the origin.

  /// From `start` to `end`.
  constexpr Line(const Vector& start, const Vector& end) : start_(start), end_(end) {}

  /// From `start` in the mathematical angle `direction`, radians, over `length`.
  KORVELBASE_EXPORT Line(const Vector& start, double direction, double length);

  constexpr const Vector& GetStart() const { return start_; }  ///< Where it begins.
  constexpr const Vector& GetEnd() const { return end_; }      ///< Where it ends.

  /// The difference end less start.
  constexpr Vector GetVector() const { return end_ - start_; }

  /// Distance from start to end.
  double GetLength() const { return start_.GetDistance(end_); }

  /// Mathematical angle from start to end, -pi to pi.
  double GetDirection() const { return start_.GetDirection(end_); }

  /// Foot of the perpendicular from `point` on the straight line through start and end, which may
  /// lie beyond either; the start if the two coincide.
  KORVELBASE_EXPORT Vector GetFoot(const Vector& point) const;

  /// Where `point` stands along and beside the straight line through start and end.
  ///
  /// @return (station, offset) in the unit of the coordinates: the station grows from 0 at the
  ///   start to the length at the end, below and beyond them too; the offset is positive to the
  ///   right. (0, 0) if start and end coincide
  KORVELBASE_EXPORT Vector OrthoOut(const Vector& point) const;

  /// Shortest distance from `point` to the segment: to the foot of the perpendicular, or to the
  /// nearer end where the foot lies beyond.
  KORVELBASE_EXPORT double GetDistance(const Vector& point) const;

  /// True if `point` lies within `distance` of the segment, the limit itself included.
  ///
  /// False for a negative distance and where a number is NaN.
  KORVELBASE_EXPORT bool IsPointNear(const Vector& point, double distance) const;

 private:
  // Share of the way from start to end at which the foot of the perpendicular stands.
  double GetShare(const Vector& point) const;

  Vector start_;
  Vector end_;
};

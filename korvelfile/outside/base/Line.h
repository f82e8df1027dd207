#pragma once

#include "korvelfile/outside/base/Export.h"
#include "korvelfile/outside/base/GeometryInterface.h"
#include "korvelfile/outside/base/Vector.h"

class Circle;

/// Straight segment in the plane, from a start to an end.
///
/// A plain value, safe to copy between threads. Start and end may coincide: the segment is then a
/// point, of length 0 and direction 0.
class KORVELBASE_EXPORT Line : public GeometryInterface {
 public:
  Line() = default;  ///< From the origin to the origin.

  /// From `start` to `end`.
  Line(const Vector& start, const Vector& end) : start_(start), end_(end) {}

  /// From `start` in the mathematical angle `direction`, radians, over `length`.
  Line(const Vector& start, double direction, double length);

  int GetType() const override { return kLine; }

  const Vector& GetStart() const { return start_; }  ///< Where it begins.
  const Vector& GetEnd() const { return end_; }      ///< Where it ends.

  /// The difference end less start.
  Vector GetVector() const { return end_ - start_; }

  /// Distance from start to end.
  double GetLength() const { return start_.GetDistance(end_); }

  /// Mathematical angle from start to end, -pi to pi.
  double GetDirection() const { return start_.GetDirection(end_); }

  /// Difference of y over difference of x, as the division gives it: infinite where the line runs
  /// along y, NaN where it has no length.
  double GetSlope() const { return GetVector().y / GetVector().x; }

  /// The two points in which the straight line through start and end crosses `circle`, in the
  /// order of the line's direction; the point of contact twice if it touches.
  ///
  /// @return false, with the points unchanged, if they don't meet, the line has no length, or a
  ///   number isn't finite
  bool GetIntersection(const Circle& circle, Vector& first, Vector& second) const;

  /// Foot of the perpendicular from `point` on the straight line through start and end, which may
  /// lie beyond either; the start if the two coincide.
  Vector GetFoot(const Vector& point) const;

  /// Where `point` stands along and beside the straight line through start and end.
  ///
  /// @return (station, offset) in the unit of the coordinates: the station grows from 0 at the
  ///   start to the length at the end, below and beyond them too; the offset is positive to the
  ///   right. (0, 0) if start and end coincide
  Vector OrthoOut(const Vector& point) const;

  /// Shortest distance from `point` to the segment: to the foot of the perpendicular, or to the
  /// nearer end where the foot lies beyond.
  double GetDistance(const Vector& point) const;

  /// True if `point` lies within `distance` of the segment, the limit itself included.
  ///
  /// False for a negative distance and where a number is NaN.
  bool IsPointNear(const Vector& point, double distance) const;

 private:
  // Share of the way from start to end at which the foot of the perpendicular stands.
  double GetShare(const Vector& point) const;

  Vector start_;
  Vector end_;
};

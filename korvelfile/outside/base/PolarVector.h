#pragma once

#include <cmath>

#include "korvelfile/outside/base/Vector.h"

/// Difference of two plane positions as distance and direction.
///
/// A plain value, safe to copy between threads.
class PolarVector {
 public:
  double distance = 0.0;  ///< Length, in the unit of the coordinates.
  double angle = 0.0;     ///< Mathematical angle, radians, from x towards y; any period.

  constexpr PolarVector() = default;  ///< The null vector.

  /// `length` in the `direction` of a mathematical angle, radians.
  constexpr PolarVector(double length, double direction) : distance(length), angle(direction) {}

  /// Length and direction of `v`; the angle is -pi to pi, and 0 for the null vector.
  explicit PolarVector(const Vector& v) : distance(v.GetLength()), angle(std::atan2(v.y, v.x)) {}

  /// The same difference in coordinates.
  Vector GetVector() const { return {distance * std::cos(angle), distance * std::sin(angle)}; }
};

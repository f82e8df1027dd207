#pragma once

#include "korvelfile/outside/base/Export.h"
#include "korvelfile/outside/base/Vector.h"

/// Circle in the plane, run through in the sense that the sign of its radius tells.
///
/// A plain value, safe to copy between threads.
class KORVELBASE_EXPORT Circle {
 public:
  Circle() = default;  ///< A point in the origin, of radius 0.

  /// Through `point` with the tangent of the mathematical angle `direction` there.
  ///
  /// @param direction  radians, in any period
  /// @param radius     unit of the coordinates; positive if the circle turns right, so that its
  ///                   centre lies right of the tangent; 0 makes it the point
  ///
  /// The last argument is reserved and 0.
  Circle(const Vector& point, double direction, double radius, int);

  const Vector& GetCenter() const { return center_; }  ///< The centre.
  double GetRadius() const { return radius_; }         ///< As given, with its sign.

 private:
  Vector center_;
  double radius_ = 0.0;
};

#pragma once

#include "korvelfile/outside/base/Export.h"
#include "korvelfile/outside/base/Line.h"
#include "korvelfile/outside/base/Vector.h"

/// Rectangle along the axes, y growing upwards: left <= right and bottom <= top.
///
/// A plain value, safe to copy between threads. The borders belong to it, so that a rectangle
/// without width or height still holds its points.
class Rect {
 public:
  double left = 0.0;    ///< Least x.
  double top = 0.0;     ///< Greatest y.
  double right = 0.0;   ///< Greatest x.
  double bottom = 0.0;  ///< Least y.

  constexpr Rect() = default;  ///< The origin alone.

  /// The four borders as they are given.
  constexpr Rect(double left_, double top_, double right_, double bottom_)
      : left(left_), top(top_), right(right_), bottom(bottom_) {}

  /// The rectangle between two opposite corners, in any order.
  KORVELBASE_EXPORT Rect(const Vector& a, const Vector& b);

  /// The extent of nothing, to be widened: left and bottom DBL_MAX, right and top -DBL_MAX.
  KORVELBASE_EXPORT static Rect Nothing();

  /// Widens the rectangle so that it holds `point`. NaN widens nothing.
  KORVELBASE_EXPORT void Widen(const Vector& point);

  /// True if any point of `line` lies inside or on the border.
  ///
  /// False for the extent of nothing, and for lines whose coordinates are not finite or beyond
  /// 1e150. Whether a slanted line touches a corner is decided to about 1e-16 of its coordinates
  /// relative to that corner.
  KORVELBASE_EXPORT bool Intersects(const Line& line) const;

  /// Exact comparison of the borders.
  friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

#pragma once

#include <cmath>

#include "korvelfile/outside/base/Vector.h"

/// Position or difference in space, mostly (E, N, H) in metres.
///
/// A plain value of three numbers and nothing else: it is a base of every point in memory. Safe to
/// copy between threads. An undefined coordinate counts as the tiny number it is.
class Vector3d {
 public:
  double x = 0.0;  ///< East, where nothing else is said.
  double y = 0.0;  ///< North, where nothing else is said.
  double z = 0.0;  ///< Height.

  constexpr Vector3d() = default;  ///< The origin.

  /// The position or difference (x, y, z).
  constexpr Vector3d(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}

  /// The plane position: same x and y.
  constexpr Vector GetXY() const { return {x, y}; }

  /// Length in space.
  double GetLength() const { return std::hypot(x, y, z); }

  /// Slope distance to `to`.
  double GetDistance(const Vector3d& to) const { return (to - *this).GetLength(); }

  /// Scalar product.
  constexpr double GetScalarProduct(const Vector3d& v) const { return x * v.x + y * v.y + z * v.z; }

  constexpr Vector3d& operator+=(const Vector3d& v);  ///< Adds `v`.
  constexpr Vector3d& operator-=(const Vector3d& v);  ///< Takes `v` off.

  /// Sum.
  friend constexpr Vector3d operator+(Vector3d a, const Vector3d& b) { return a += b; }
  /// Difference.
  friend constexpr Vector3d operator-(Vector3d a, const Vector3d& b) { return a -= b; }
  /// Opposite.
  friend constexpr Vector3d operator-(const Vector3d& v) { return {-v.x, -v.y, -v.z}; }
  /// Multiple.
  friend constexpr Vector3d operator*(const Vector3d& v, double factor) {
    return {v.x * factor, v.y * factor, v.z * factor};
  }
  /// Multiple.
  friend constexpr Vector3d operator*(double factor, const Vector3d& v) { return v * factor; }

  /// Exact comparison of the coordinates.
  friend constexpr bool operator==(const Vector3d&, const Vector3d&) = default;
};

static_assert(sizeof(Vector3d) == 3 * sizeof(double));

constexpr Vector3d& Vector3d::operator+=(const Vector3d& v) {
  x += v.x;
  y += v.y;
  z += v.z;
  return *this;
}

constexpr Vector3d& Vector3d::operator-=(const Vector3d& v) {
  x -= v.x;
  y -= v.y;
  z -= v.z;
  return *this;
}

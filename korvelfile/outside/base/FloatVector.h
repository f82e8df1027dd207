#pragma once

/// Pair of floats, such as the corrections at a point of a network.
///
/// Sums and differences are rounded to single precision, component by component. A plain value.
class FloatVector {
 public:
  float x = 0.0F;
  float y = 0.0F;

  constexpr FloatVector() = default;  ///< (0, 0).

  /// (x, y).
  constexpr FloatVector(float x_, float y_) : x(x_), y(y_) {}

  /// Sets both components.
  constexpr void Set(float x_, float y_) {
    x = x_;
    y = y_;
  }

  /// Sum.
  friend constexpr FloatVector operator+(const FloatVector& a, const FloatVector& b) {
    return {a.x + b.x, a.y + b.y};
  }
  /// Difference.
  friend constexpr FloatVector operator-(const FloatVector& a, const FloatVector& b) {
    return {a.x - b.x, a.y - b.y};
  }
  /// Multiple: worked in double precision, then rounded to single.
  friend constexpr FloatVector operator*(double factor, const FloatVector& v) {
    return {static_cast<float>(factor * static_cast<double>(v.x)),
            static_cast<float>(factor * static_cast<double>(v.y))};
  }
};

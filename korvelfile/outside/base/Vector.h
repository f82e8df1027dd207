#pragma once

#include <cmath>

#include "korvelfile/outside/base/Export.h"

class PolarVector;
struct SkBindingPoints;

/// Position or difference in the plane, with the classical ways to find a position from
/// measurements: polar survey, arc section, distance with angle, three-point resection.
///
/// Angles are mathematical: radians from x towards y. In a frame whose x is north and whose y is
/// east they are azimuths, and all of this holds there unchanged. "Left" of a line means the side
/// that the mathematical angle grows to: with x to the right and y upwards it is the left hand;
/// on a map of the north-east frame, where angles run clockwise, it is the right hand.
///
/// A plain value, safe to copy between threads. The `Meas...` operations set this vector and give
/// true, or give false and leave it as it was; this vector may also be one of the arguments. They
/// refuse numbers that are not finite, and distances that are zero, negative or undefined. They
/// compute relative to the given points, so large coordinates cost no digits.
class Vector {
 public:
  double x = 0.0;  ///< East, or north in the frame of the free station.
  double y = 0.0;  ///< North, or east in the frame of the free station.

  constexpr Vector() = default;  ///< The origin.

  /// The position or difference (x, y).
  constexpr Vector(double x_, double y_) : x(x_), y(y_) {}

  /// Distance from the origin.
  double GetLength() const { return std::hypot(x, y); }

  /// Distance to `to`.
  double GetDistance(const Vector& to) const { return (to - *this).GetLength(); }

  /// Mathematical angle from here to `to`, -pi to pi as `atan2` gives it; 0 if they coincide.
  double GetDirection(const Vector& to) const { return std::atan2(to.y - y, to.x - x); }

  /// Scalar product.
  constexpr double GetScalarProduct(const Vector& v) const { return x * v.x + y * v.y; }

  /// Twice the signed area of the triangle of origin, this and `v`; positive if `v` lies left.
  constexpr double GetCrossProduct(const Vector& v) const { return x * v.y - y * v.x; }

  /// Polar survey: the point at `polar` from `from`.
  ///
  /// Never refuses: whatever the numbers give is taken.
  KORVELBASE_EXPORT void MeasPolar(const Vector& from, const PolarVector& polar);

  /// Arc section: the point at distance `rA` from `a` and `rB` from `b`, left of the line from `a`
  /// to `b`.
  ///
  /// Circles that miss each other by no more than 1e-9 of the longest of the three lengths count
  /// as touching and give the point of the circle round `a` that is nearest to the other one.
  /// @return false if the circles do not meet, or if `a` and `b` lie within 1e-9 of the longer
  ///         distance of each other
  KORVELBASE_EXPORT bool MeasBinding(const Vector& a, double rA, const Vector& b, double rB);

  /// Distance and angle: the point at distance `rB` from `b` from which the direction to `b` less
  /// the direction to `a` is `t`.
  ///
  /// Of two such points it takes the one farther from `a`; `SkBindingSolutions` gives both. `t` is
  /// in radians and in any period; its sign tells the side.
  /// @return false if there is no such point
  KORVELBASE_EXPORT bool MeasSkBinding(const Vector& a, const Vector& b, double rB, double t);

  /// All points that `MeasSkBinding` can choose from.
  ///
  /// There are two if `t` is acute and the distance from `a` to `b` is shorter than `rB` but longer
  /// than rB |sin t|. If it is shorter than that by at most 1e-9 of `rB`, the line of sight counts
  /// as touching the circle round `b` through `a`. A point closer to `a` than 1e-9 of the longest
  /// length is none, for it has no direction to `a`.
  KORVELBASE_EXPORT static SkBindingPoints SkBindingSolutions(const Vector& a, const Vector& b,
                                                              double rB, double t);

  /// Three-point resection: the point from which `p1`, `p2` and `p3` are seen in the directions
  /// `a1`, `a2` and `a3`, up to a constant common to all three.
  ///
  /// The directions are radians, in any period, and grow from x towards y. The order of the points
  /// does not matter.
  /// @return false if there is no such point, or no single one: all four points on one circle or
  ///         one line (to about 1e-9 of the distances between the given points)
  KORVELBASE_EXPORT bool MeasResec(const Vector& p1, double a1, const Vector& p2, double a2,
                                   const Vector& p3, double a3);

  constexpr Vector& operator+=(const Vector& v);  ///< Adds `v`.
  constexpr Vector& operator-=(const Vector& v);  ///< Takes `v` off.

  /// Sum.
  friend constexpr Vector operator+(Vector a, const Vector& b) { return a += b; }
  /// Difference.
  friend constexpr Vector operator-(Vector a, const Vector& b) { return a -= b; }
  /// Opposite.
  friend constexpr Vector operator-(const Vector& v) { return {-v.x, -v.y}; }
  /// Multiple.
  friend constexpr Vector operator*(const Vector& v, double factor) {
    return {v.x * factor, v.y * factor};
  }
  /// Multiple.
  friend constexpr Vector operator*(double factor, const Vector& v) { return v * factor; }

  /// Exact comparison of the coordinates.
  friend constexpr bool operator==(const Vector&, const Vector&) = default;
};

/// What `Vector::SkBindingSolutions` found.
struct SkBindingPoints {
  int count = 0;    ///< 0, 1 or 2.
  Vector point[2];  ///< The first `count` are set, the one farther from `a` first.
};

constexpr Vector& Vector::operator+=(const Vector& v) {
  x += v.x;
  y += v.y;
  return *this;
}

constexpr Vector& Vector::operator-=(const Vector& v) {
  x -= v.x;
  y -= v.y;
  return *this;
}

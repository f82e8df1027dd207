#pragma once

#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/Rect.h"
#include "korvelfile/outside/base/Vector.h"

namespace Model {

/// Place on a shape.
struct Place {
  Vector point;            ///< x east, y north
  double direction = 0.0;  ///< mathematical angle of the tangent, radians
};

/// Foot of a point on a shape.
struct Foot {
  double length = 0.0;  ///< from the start
  double offset = 0.0;  ///< positive to the right
};

/// Geometry of an element of a line: a straight or a curve from a start over a length.
///
/// Immutable, so that any number of threads may ask at once.
class Shape {
 public:
  /// How far beyond an end a foot may lie for it to count as at that end, metres: each of two
  /// elements may see a point at their joint a little beyond its own end.
  static constexpr double kEndTolerance = 1e-6;

  virtual ~Shape() = default;
  Shape(const Shape&) = delete;
  Shape& operator=(const Shape&) = delete;

  /// Metres, 0 or more.
  double GetLength() const { return length_; }

  /// The place at `length` from the start; the law goes on beyond both ends.
  virtual Place PlaceAt(double length) const = 0;

  /// The nearest foot of `point` between the ends; false if it has none.
  bool FindFoot(const Vector& point, Foot& foot) const;

  /// Holds the whole shape.
  const Rect& GetExtent() const { return extent_; }

 protected:
  explicit Shape(double length) : length_(length) {}

  /// Works out the extent, given the largest curvature from start to end, 1/m.
  void MeasureExtent(double curvature);

 private:
  /// The nearest foot of `point`, which may lie beyond the ends; false if there is none.
  virtual bool FindFootAnywhere(const Vector& point, Foot& foot) const = 0;

  double length_;
  Rect extent_ = Rect::Nothing();
};

/// Straight.
class StraightShape : public Shape {
 public:
  /// @throws LineException for numbers that aren't finite and a negative length
  StraightShape(const Vector& start, double direction, double length);

  Place PlaceAt(double length) const override;

 private:
  bool FindFootAnywhere(const Vector& point, Foot& foot) const override;

  Place start_;
  Vector along_;
};

/// Circular arc of less than one turn.
class ArcShape : public Shape {
 public:
  /// @param radius signed, positive turns right
  /// @throws LineException for numbers that aren't finite, a radius of 0 and a negative length
  ArcShape(const Vector& start, double direction, double radius, double length);

  Place PlaceAt(double length) const override;

 private:
  bool FindFootAnywhere(const Vector& point, Foot& foot) const override;

  Place start_;
  Vector along_;
  double radius_;
};

/// Clothoid.
class ClothoidShape : public Shape {
 public:
  /// @throws LineException if `curve` is none, or for a length that is negative or not finite
  ClothoidShape(const Clothoid& curve, double length);

  Place PlaceAt(double length) const override;

 private:
  bool FindFootAnywhere(const Vector& point, Foot& foot) const override;

  Clothoid curve_;
};

}  // namespace Model

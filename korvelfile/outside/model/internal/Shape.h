#pragma once

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

/// End of a shape.
struct ShapeEnd {
  Vector point;
  Vector along;  ///< unit vector of the tangent
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

  double GetLength() const { return length_; }             ///< Metres, 0 or more.
  const ShapeEnd& GetStart() const { return start_; }      ///< Where it begins.
  const ShapeEnd& GetEnd() const { return end_; }          ///< Where it ends.
  double GetStartDirection() const { return direction_; }  ///< As it was given.

  /// The place at `length` from the start; the law goes on beyond both ends.
  virtual Place PlaceAt(double length) const = 0;

  /// The nearest foot of `point` between the ends; false if it has none.
  bool FindFoot(const Vector& point, Foot& foot) const;

  /// Holds the whole shape.
  Rect GetExtent() const;

  /// The square of a distance that no place of the shape is nearer to `point` than.
  double GetLeastSquare(const Vector& point) const;

 protected:
  /// @throws LineException for numbers that aren't finite and a negative length
  Shape(const Place& start, double length);

  /// To be called by the constructor: takes the end from the law of the shape.
  /// @throws LineException for an end beyond all numbers
  void MeasureEnd();

 private:
  /// The nearest foot of the point `from` the start, which may lie a little beyond the ends.
  virtual bool FindFootFrom(const Vector& from, Foot& foot) const = 0;

  double length_;
  double direction_;
  ShapeEnd start_;
  ShapeEnd end_;
  Vector chord_;
  double sag_ = 0.0;  // no place is farther from the chord
};

}  // namespace Model

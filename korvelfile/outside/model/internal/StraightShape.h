#pragma once

#include "korvelfile/outside/model/internal/Shape.h"

namespace Model {

/// Straight.
class StraightShape final : public Shape {
 public:
  /// @throws LineException for numbers that aren't finite and a negative length
  StraightShape(const Place& start, double length) : Shape(start, length) { MeasureEnd(); }

  Place PlaceAt(double length) const override;

 private:
  bool FindFootFrom(const Vector& from, Foot& foot) const override;
};

}  // namespace Model

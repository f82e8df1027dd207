#pragma once

#include "korvelfile/outside/model/internal/Shape.h"

namespace Model {

/// Circular arc of less than one turn.
class ArcShape final : public Shape {
 public:
  /// @param radius signed, positive turns right
  /// @throws LineException for numbers that aren't finite, a radius of 0, and a length that is
  ///   negative or a turn and more
  ArcShape(const Place& start, double radius, double length);

  Place PlaceAt(double length) const override;

 private:
  bool FindFootFrom(const Vector& from, Foot& foot) const override;

  double radius_;
};

}  // namespace Model

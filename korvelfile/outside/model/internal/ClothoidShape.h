#pragma once

#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/model/internal/Shape.h"

namespace Model {

/// Clothoid: an entry, an exit, a curve between two radii or over a turning point.
class ClothoidShape final : public Shape {
 public:
  /// @throws LineException if there is no such clothoid, for numbers that aren't finite and a
  ///   negative length
  ClothoidShape(const Place& start, double parameter, double radius, double endRadius,
                double length);

  Place PlaceAt(double length) const override;

 private:
  bool FindFootFrom(const Vector& from, Foot& foot) const override;

  Clothoid curve_;          // from the origin, so that large coordinates cost no digits
  double curvature_ = 0.0;  // at the start, 1/m, positive to the right
  double rate_ = 0.0;       // change of the curvature per length
};

}  // namespace Model

#pragma once

#include "korvelfile/outside/model/ILine.h"

namespace File::detail {

/// Radii of curves parallel to a centre line.
class RadiusCalculator {
 public:
  /// @param line      must outlive the object
  /// @param tolerance metres: elements no longer than it have one curvature, radii no longer
  ///                  than it are none
  RadiusCalculator(const Model::ILine& line, double tolerance)
      : line_(line), tolerance_(tolerance) {}

  /// Radius at `arc` of the parallel at `offset`, with the sign of the centre line's; 0 where that
  /// is straight or has no such place.
  double RadiusAt(double arc, double offset) const;

  double GetTolerance() const { return tolerance_; }

 private:
  double CenterRadiusAt(double arc) const;

  const Model::ILine& line_;
  double tolerance_;
};

}  // namespace File::detail

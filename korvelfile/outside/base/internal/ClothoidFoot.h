#pragma once

#include <complex>
#include <optional>

namespace clothoid {

/// A place on a curve, seen from there a point: ahead and to the left, in the frame of the tangent.
struct Sight {
  double length;  ///< from the start of the curve
  double ahead;
  double left;
};

/// The place on the curve of `Integrate` at which `point` stands square to it: the nearest between
/// 0 and `whole`, or, where an end is nearer, the first one beyond that end.
///
/// @return none if none was found, or a number isn't finite
std::optional<Sight> FindFoot(double k, double c, double whole, const std::complex<double>& point);

}  // namespace clothoid

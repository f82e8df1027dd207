#pragma once

#include <cmath>

#include "korvelfile/outside/base/Vector3d.h"

/// Seeks the correction of the coordinate that is (`north`, `east`) once it is corrected.
///
/// Each of at most ten passes takes the correction where the last one leads back to. They shorten
/// the error by the gradient of the corrections; what the tenth gives is the answer too.
/// @param tolerance how near to (`north`, `east`) the answer must lead, in the unit of both
/// @param find      gives the correction at (north, east) in `correction`; false if there is none
/// @return false once `find` gives false
template <class Find>
bool IterateInverse(double north, double east, double tolerance, Find find, Vector3d& correction) {
  constexpr int kPasses = 10;
  double n = north;
  double e = east;
  for (int pass = 0; pass < kPasses; ++pass) {
    if (!find(n, e, correction)) return false;
    if (tolerance > std::fabs(correction.x + n - north) &&
        tolerance > std::fabs(correction.y + e - east))
      return true;
    n = north - correction.x;
    e = east - correction.y;
  }
  return true;
}

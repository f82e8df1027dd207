#pragma once

#include "korvelfile/outside/base/Export.h"
#include "korvelfile/outside/base/Line.h"
#include "korvelfile/outside/base/Vector.h"

/// Intersections of lines.
class KORVELBASE_EXPORT Intersection {
 public:
  /// The point in which two straight lines meet, each taken beyond its ends.
  ///
  /// Computed from the start of `a`, so that large coordinates cost no digits.
  /// @return false, with `crossing` unchanged, if the lines are parallel, one of them has no
  ///         length, or a number is not finite
  static bool Calculate(const Line& a, const Line& b, Vector& crossing);
};

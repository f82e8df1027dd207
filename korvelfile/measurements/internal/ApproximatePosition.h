#pragma once

#include <optional>

#include "korvelfile/outside/base/Vector.h"

class FreeStn;

/// Where the adjustment of a free station starts, in its frame (N, E).
struct ApproximatePosition {
  Vector position;               ///< the one to take
  std::optional<Vector> second;  ///< the other one that the same sights fit, if there is one

  /// The first position that the backsights of `station` give: neighbours in pairs, in their order,
  /// then a resection from the first three. Nothing if none gives one.
  static std::optional<ApproximatePosition> Find(const FreeStn& station);
};

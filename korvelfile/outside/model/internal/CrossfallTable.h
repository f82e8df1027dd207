#pragma once

#include <vector>

#include "korvelfile/outside/model/Proxies.h"

namespace Model {

/// Crossfalls along a line, linear between the chainages that they are given at.
///
/// Immutable, so that any number of threads may ask at once.
class CrossfallTable {
 public:
  CrossfallTable() = default;  ///< Of no crossfalls.

  /// The records of `camber`, in any order; the first slope is that to the left.
  /// @throws LineException if a chainage is not finite
  explicit CrossfallTable(const ICamberFileProxy& camber);

  /// Both slopes at a chainage; false, with both unchanged, more than 1 mm before the first and
  /// behind the last record, and between slopes that aren't finite.
  bool SlopesAt(double chainage, double& left, double& right) const;

 private:
  std::vector<Proxy::CamberSlopeElement> records_;
};

}  // namespace Model

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

  /// The records of `camber`, by ascending chainage.
  explicit CrossfallTable(const ICamberFileProxy& camber);

  /// Both slopes at a chainage; false before the first and behind the last record.
  bool SlopesAt(double chainage, double& first, double& second) const;

 private:
  std::vector<Proxy::CamberSlopeElement> records_;
};

}  // namespace Model

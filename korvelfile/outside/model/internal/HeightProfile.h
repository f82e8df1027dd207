#pragma once

#include <vector>

#include "korvelfile/outside/model/Proxies.h"

namespace Model {

/// Heights along a line: straight grades and circular curves, each from its start on.
///
/// Immutable, so that any number of threads may ask at once.
class HeightProfile {
 public:
  HeightProfile() = default;  ///< Of the height 0 everywhere.

  /// The elements of `profile`, in any order.
  /// @throws LineException if a chainage is not finite
  explicit HeightProfile(const IProfileFileProxy& profile);

  /// Height at a chainage.
  ///
  /// Between the end of an element and the start of the next one, on the straight between them.
  /// @return the undefined number more than 1 mm before the first and behind the last element, and
  ///   where a curve would be steeper than vertical
  double HeightAt(double chainage) const;

 private:
  std::vector<Proxy::ProfileElement> elements_;
};

}  // namespace Model

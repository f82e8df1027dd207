#include "korvelfile/outside/model/internal/CrossfallTable.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/outside/model/LineException.h"

namespace Model {

namespace {

using Record = Proxy::CamberSlopeElement;

// How far beyond both ends a crossfall is still given, metres: files have rounded chainages.
constexpr double kEndTolerance = 1e-3;

}  // namespace

CrossfallTable::CrossfallTable(const ICamberFileProxy& camber) {
  const int count = camber.GetElementCount();
  for (int i = 0; i < count; ++i) {
    records_.push_back(camber.GetAt(i));
    if (!std::isfinite(records_.back().Section)) throw LineException("A crossfall has no chainage");
  }
  std::stable_sort(records_.begin(), records_.end(),
                   [](const Record& a, const Record& b) { return a.Section < b.Section; });
}

bool CrossfallTable::SlopesAt(double chainage, double& left, double& right) const {
  if (records_.empty() || !(chainage >= records_.front().Section - kEndTolerance) ||
      !(chainage <= records_.back().Section + kEndTolerance))
    return false;
  const auto next =
      std::upper_bound(records_.begin(), records_.end(), chainage,
                       [](double value, const Record& r) { return value < r.Section; });
  const Record& to = next == records_.end() ? records_.back() : *next;
  const Record& from = next == records_.begin() ? to : *(next - 1);
  const double extent = to.Section - from.Section;
  const double share = extent > 0.0 ? (chainage - from.Section) / extent : 0.0;
  const double atLeft = std::lerp(from.Slope1, to.Slope1, share);
  const double atRight = std::lerp(from.Slope2, to.Slope2, share);
  if (!std::isfinite(atLeft) || !std::isfinite(atRight)) return false;
  left = atLeft;
  right = atRight;
  return true;
}

}  // namespace Model

#include "korvelfile/outside/model/internal/CrossfallTable.h"

#include <algorithm>
#include <cmath>

namespace Model {

CrossfallTable::CrossfallTable(const ICamberFileProxy& camber) {
  for (int i = 0; i < camber.GetElementCount(); ++i) records_.push_back(camber.GetAt(i));
}

bool CrossfallTable::SlopesAt(double chainage, double& first, double& second) const {
  if (records_.empty() || std::isnan(chainage)) return false;
  auto next = std::upper_bound(
      records_.begin(), records_.end(), chainage,
      [](double value, const Proxy::CamberSlopeElement& r) { return value < r.Section; });
  if (next == records_.begin()) return false;
  const Proxy::CamberSlopeElement& from = *(next - 1);
  if (next == records_.end() && chainage > from.Section) return false;
  const Proxy::CamberSlopeElement& to = next == records_.end() ? from : *next;
  const double extent = to.Section - from.Section;
  const double share = extent > 0.0 ? (chainage - from.Section) / extent : 0.0;
  first = std::lerp(from.Slope1, to.Slope1, share);
  second = std::lerp(from.Slope2, to.Slope2, share);
  return true;
}

}  // namespace Model

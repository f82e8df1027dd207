#include "korvelfile/outside/model/internal/HeightProfile.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "korvelfile/outside/base/Undefined.h"

namespace Model {

namespace {

// How far beyond the first and the last chainage a height is still given, metres.
constexpr double kEndTolerance = 1e-3;

double OrUndefined(double height) { return std::isfinite(height) ? height : kUndefined; }

// The sine of the slope's angle grows evenly along the chainage of a circle: by ds / R. The chord
// rises by the tangent of the mean angle, here of sines and cosines.
double HeightOn(const Proxy::ProfileElement& e, double ds) {
  if (e.Radius == 0.0) return e.Z + e.Slope * ds;
  const double length = std::hypot(1.0, e.Slope);
  const double sine = e.Slope / length;
  const double sineThere = sine + ds / e.Radius;
  const double cosineThere = std::sqrt((1.0 - sineThere) * (1.0 + sineThere));  // NaN if too steep
  return e.Z + ds * (sine + sineThere) / (1.0 / length + cosineThere);
}

}  // namespace

HeightProfile::HeightProfile(const IProfileFileProxy& profile) {
  for (int i = 0; i < profile.GetElementCount(); ++i) elements_.push_back(profile.GetAt(i));
}

double HeightProfile::HeightAt(double chainage) const {
  if (elements_.empty()) return 0.0;
  const auto next = std::upper_bound(
      elements_.begin(), elements_.end(), chainage,
      [](double value, const Proxy::ProfileElement& e) { return value < e.Section; });
  if (std::isnan(chainage)) return kUndefined;
  if (next == elements_.begin())
    return next->Section - chainage <= kEndTolerance ? OrUndefined(next->Z) : kUndefined;
  const Proxy::ProfileElement& e = *(next - 1);
  const double ds = chainage - e.Section;
  if (ds <= e.Length) return OrUndefined(HeightOn(e, ds));
  if (next == elements_.end())
    return ds <= e.Length + kEndTolerance ? OrUndefined(HeightOn(e, e.Length)) : kUndefined;
  const double end = HeightOn(e, e.Length);
  const double share = (ds - e.Length) / (next->Section - e.Section - e.Length);
  return OrUndefined(end + share * (next->Z - end));
}

}  // namespace Model

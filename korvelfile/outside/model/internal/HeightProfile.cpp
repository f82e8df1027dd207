#include "korvelfile/outside/model/internal/HeightProfile.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"

namespace Model {

namespace {

using Proxy::ProfileElement;

// How far beyond both ends a height is still given, metres: files have rounded chainages.
constexpr double kEndTolerance = 1e-3;

double OrUndefined(double height) { return std::isfinite(height) ? height : kUndefined; }

// The sine of the slope's angle grows evenly along the chainage of a circle: by ds / R. The chord
// rises by the tangent of the mean angle, here of sines and cosines. NaN where the circle ends.
double HeightOn(const ProfileElement& e, double ds) {
  if (e.Radius == 0.0) return e.Z + e.Slope * ds;
  const double length = std::hypot(1.0, e.Slope);
  const double sine = e.Slope / length;
  const double sineThere = sine + ds / e.Radius;
  const double cosineThere = std::sqrt((1.0 - sineThere) * (1.0 + sineThere));
  return e.Z + ds * (sine + sineThere) / (1.0 / length + cosineThere);
}

double HeightBetween(const ProfileElement& e, const ProfileElement& next, double chainage) {
  const double from = HeightOn(e, e.Length);
  const double end = e.Section + e.Length;
  return std::lerp(from, next.Z, (chainage - end) / (next.Section - end));
}

}  // namespace

HeightProfile::HeightProfile(const IProfileFileProxy& profile) {
  const int count = profile.GetElementCount();
  for (int i = 0; i < count; ++i) {
    elements_.push_back(profile.GetAt(i));
    if (!std::isfinite(elements_.back().Section))
      throw LineException("An element of the profile has no chainage");
  }
  std::stable_sort(
      elements_.begin(), elements_.end(),
      [](const ProfileElement& a, const ProfileElement& b) { return a.Section < b.Section; });
}

double HeightProfile::HeightAt(double chainage) const {
  if (elements_.empty()) return 0.0;
  const auto next =
      std::upper_bound(elements_.begin(), elements_.end(), chainage,
                       [](double value, const ProfileElement& e) { return value < e.Section; });
  const ProfileElement& e = next == elements_.begin() ? *next : *(next - 1);
  const double ds = chainage - e.Section;
  if (ds > e.Length && next != elements_.end())
    return OrUndefined(HeightBetween(e, *next, chainage));
  if (!(ds >= -kEndTolerance && ds <= e.Length + kEndTolerance)) return kUndefined;
  return OrUndefined(HeightOn(e, ds));
}

}  // namespace Model

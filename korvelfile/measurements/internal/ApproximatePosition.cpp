#include "korvelfile/measurements/internal/ApproximatePosition.h"

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "korvelfile/measurements/CBacksight.h"
#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/internal/FreeStnWeights.h"
#include "korvelfile/outside/base/Angles.h"

namespace {

using Found = std::optional<ApproximatePosition>;

Vector PlaneOf(const CBacksight& backsight) { return backsight.Given.GetXY(); }

// The directions tell on which side of the two points the station lies.
Found ArcSection(const CBacksight& first, const CBacksight& second) {
  const bool inOrder = NormalizeAngle(first.Angle - second.Angle, kTwoPi, 0.0) > kPi;
  const CBacksight& a = inOrder ? first : second;
  const CBacksight& b = inOrder ? second : first;
  Vector position;
  if (!position.MeasBinding(PlaneOf(a), a.Distance, PlaneOf(b), b.Distance)) return {};
  return ApproximatePosition{position, {}};
}

// Weighted squares of what the backsights beside `a` and `b` miss at `position`. These two fit it
// exactly and turn the circle.
double Misfit(const FreeStn& station, const Vector& position, const CBacksight& a,
              const CBacksight& b) {
  const double orientation = position.GetDirection(PlaneOf(b)) - b.Angle;
  double sum = 0.0;
  for (const CBacksight& other : station.Backsights) {
    if (&other == &a || &other == &b) continue;
    const double D = position.GetDistance(PlaneOf(other));
    const double turn =
        std::remainder(other.Angle + orientation - position.GetDirection(PlaneOf(other)), kTwoPi);
    sum += turn * turn * FreeStnWeights::OfDirection(station, D);
    const double excess = other.HasDistance() ? other.Distance - D : 0.0;
    sum += excess * excess * FreeStnWeights::OfDistance(station, D);
  }
  return sum;
}

// `b` has the distance. Of two positions the one farther from `a` comes first.
Found DistanceAndAngle(const FreeStn& station, const CBacksight& a, const CBacksight& b) {
  SkBindingPoints points =
      Vector::SkBindingSolutions(PlaneOf(a), PlaneOf(b), b.Distance, b.Angle - a.Angle);
  if (points.count == 0) return {};
  if (points.count == 1) return ApproximatePosition{points.point[0], {}};
  if (Misfit(station, points.point[1], a, b) < Misfit(station, points.point[0], a, b))
    std::swap(points.point[0], points.point[1]);
  return ApproximatePosition{points.point[0], points.point[1]};
}

Found FromPair(const FreeStn& station, const CBacksight& first, const CBacksight& second) {
  if (first.HasDistance() && second.HasDistance()) return ArcSection(first, second);
  if (first.HasDistance()) return DistanceAndAngle(station, second, first);
  if (second.HasDistance()) return DistanceAndAngle(station, first, second);
  return {};
}

Found Resection(const CBacksight& p1, const CBacksight& p2, const CBacksight& p3) {
  Vector position;
  if (!position.MeasResec(PlaneOf(p1), p1.Angle, PlaneOf(p2), p2.Angle, PlaneOf(p3), p3.Angle))
    return {};
  return ApproximatePosition{position, {}};
}

}  // namespace

Found ApproximatePosition::Find(const FreeStn& station) {
  const std::vector<CBacksight>& all = station.Backsights;
  for (std::size_t i = 0; i + 1 < all.size(); ++i)
    if (const Found found = FromPair(station, all[i], all[i + 1])) return found;
  if (all.size() < 3) return {};
  return Resection(all[0], all[1], all[2]);
}

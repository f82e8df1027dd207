#include "korvelfile/outside/model/internal/RoadLine.h"

#include <cmath>
#include <utility>

#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/internal/Elements.h"

namespace Model {

RoadLine::RoadLine(HeightProfile profile, CrossfallTable crossfalls)
    : profile_(std::move(profile)), crossfalls_(std::move(crossfalls)) {}

LineStation RoadLine::Station(const Coordinate& point) const {
  Foot foot;
  if (!Elements().FindNearest(ToVector(point), foot))
    throw LineException("The point has no foot on the line");
  return {foot.length, foot.offset, profile_.HeightAt(foot.length)};
}

Coordinate RoadLine::PointAt(double arc, double offset) const {
  const Place place = Elements().PlaceAt(arc);
  const Vector right(std::sin(place.direction), -std::cos(place.direction));
  const Vector point = place.point + offset * right;
  if (!std::isfinite(point.x) || !std::isfinite(point.y))
    throw LineException("The line has no point at this offset");
  return {point.y, point.x, profile_.HeightAt(arc)};
}

double RoadLine::SurfaceHeightAt(double arc, double offset) const {
  const double height = profile_.HeightAt(arc);
  if (IsUndefined(height) || offset == 0.0) return height;
  double left = 0.0;
  double right = 0.0;
  if (!CrossfallAt(arc, left, right)) return kUndefined;
  return height + (offset < 0.0 ? left : right) * std::fabs(offset);
}

}  // namespace Model

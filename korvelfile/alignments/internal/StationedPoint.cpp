#include "korvelfile/alignments/internal/StationedPoint.h"

#include <cmath>
#include <utility>

#include "korvelfile/alignments/internal/EndOfLine.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"

namespace File::detail {

StationedPoint StationPoint(const Model::ILine& line, std::shared_ptr<Korvel::IPxyPoint> point) {
  const Vector3d& position = point->GetInformation().position;
  if (IsUndefined(position.x) || IsUndefined(position.y))
    throw Model::LineException("A point has no position");
  const Model::LineStation station = line.Station({position.y, position.x, 0.0});
  if (!std::isfinite(station.Arc) || !std::isfinite(station.Offset))
    throw Model::LineException("The line gives no station for a point");
  return {std::move(point), station};
}

StationedPoint StationPoint(const Model::ILine& line, Korvel::ICoordinateLine& points, int index) {
  if (index >= points.GetPointCount()) throw EndOfLine();
  return StationPoint(line, points.GetPoint(index));
}

}  // namespace File::detail

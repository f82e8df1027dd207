#pragma once

#include <memory>

#include "korvelfile/outside/base/Vector3d.h"
#include "korvelfile/outside/model/ILine.h"
#include "korvelfile/outside/services/ICoordinateFile.h"
#include "korvelfile/outside/services/IPxyPoint.h"

namespace File::detail {

/// A point and its place on the centre line. The height of the station is the centre line's.
struct StationedPoint {
  std::shared_ptr<Korvel::IPxyPoint> point;
  Model::LineStation station;

  const Korvel::PointInformation& Information() const { return point->GetInformation(); }
  const Vector3d& Position() const { return Information().position; }
};

/// Two neighbouring points of a line, and a point between them.
struct Span {
  StationedPoint a, m, b;
};

/// @throws Model::LineException for a point without a place on the line
StationedPoint StationPoint(const Model::ILine& line, std::shared_ptr<Korvel::IPxyPoint> point);

/// Point number `index` of `points`.
/// @throws EndOfLine behind the last one
/// @throws Model::LineException for a point without a place on the line
StationedPoint StationPoint(const Model::ILine& line, Korvel::ICoordinateLine& points, int index);

}  // namespace File::detail

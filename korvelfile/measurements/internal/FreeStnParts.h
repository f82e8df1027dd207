#pragma once

#include <cmath>
#include <cstdint>
#include <string>

#include "korvelfile/measurements/CBacksight.h"
#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/outside/base/Vector.h"

/// What the plane and the height of a free station share.
namespace FreeStnParts {

/// From the station to the point as it stands now, (N, E).
inline Vector Sight(const FreeStn& station, const CBacksight& backsight) {
  return {backsight.Adjusted.x - station.Station.x, backsight.Adjusted.y - station.Station.y};
}

/// Quicker than std::hypot, which guards lengths beyond all measuring; these end as not finite.
inline double LengthOf(const Vector& sight) { return std::sqrt(sight.GetScalarProduct(sight)); }

/// Plane distance from the station to the point as it stands now.
inline double SightLength(const FreeStn& station, const CBacksight& backsight) {
  return LengthOf(Sight(station, backsight));
}

/// Takes `residual` and the name of its backsight if it is the largest by absolute value so far.
inline void KeepLargest(double residual, const std::string& name, double& largest,
                        std::string& itsName) {
  if (!(std::fabs(residual) > std::fabs(largest))) return;
  largest = residual;
  itsName = name;
}

/// True if the counters, which are public and rule the size of the matrices, tell the truth.
bool CountersFit(const FreeStn& station);

/// True if Newmat, which counts elements in int, can hold `m` x `u` of them.
bool FitsNewmat(std::int64_t m, std::int64_t u);

}  // namespace FreeStnParts

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/base/Vector.h"
#include "tools/korvel/KnownPoints.h"
#include "tools/korvel/NewPoint.h"

class StationDataItem;

namespace korvel {

/// A record that took no part, and why.
struct LeftOut {
  std::string name;
  int type = 0;  ///< of the record, `PlmTypes::inm_rec_t`
  std::string reason;
};

/// What an adjustment without one of the backsights changes; undefined where it gives nothing.
/// Metres and radians.
struct WithoutOne {
  std::string name;     ///< of the backsight left out
  std::string failure;  ///< why there is no station without it; empty if there is one
  double dE = kUndefined;
  double dN = kUndefined;
  double dH = kUndefined;
  double dOrientation = kUndefined;
  double stdDev = kUndefined;  ///< of unit weight, without the backsight
  bool dropsMost = false;      ///< no other one's absence makes the deviation smaller
};

/// How one backsight fits the adjusted station: computed minus observed, undefined where nothing
/// was observed. Metres and radians.
struct SightResidual {
  double distance = kUndefined;
  double direction = 0.0;
  double plane = 0.0;
  double height = kUndefined;
  double spatial = kUndefined;
  Vector displacement;  ///< (E, N) from the given point to where the sight puts it
};

/// All that is known of one station after its adjustment.
struct StationOutcome {
  StationDataItem* station = nullptr;  ///< owned by the measurement file
  std::string failure;                 ///< why there is no result; empty if there is one
  double ppm = 0.0;                    ///< atmospheric correction that was applied to distances

  FreeStn adjustment;
  std::vector<KnownPoint> points;  ///< of the backsights, in their order
  FreeStnResult result;            ///< heights are undefined if none was found
  std::string heightNote;          ///< why there is no height; empty if there is one
  bool hasConverged = true;
  std::optional<Vector> second;  ///< (E, N) that fits the first sights as well

  std::vector<SightResidual> residuals;  ///< one for each backsight
  std::vector<LeftOut> leftOut;
  std::vector<WithoutOne> withoutOne;  ///< one for each backsight, if asked for
  std::vector<NewPoint> newPoints;     ///< in file order

  bool IsComputed() const { return failure.empty(); }

  /// Observations less unknowns of the plane.
  int DegreesOfFreedom() const { return adjustment.DistanceCount + adjustment.BacksightCount - 3; }
};

}  // namespace korvel

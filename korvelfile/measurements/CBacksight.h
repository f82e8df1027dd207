#pragma once

#include <string>

#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/base/Vector3d.h"

/// One backsight of a free station: the reduced observation and the position of its point.
///
/// A plain value. Positions and their errors are (N, E, H), the frame of `FreeStn`. Metres and
/// radians.
struct CBacksight {
  double Distance = kUndefined;    ///< reduced horizontal distance, or undefined
  double Angle = 0.0;              ///< reduced horizontal direction, clockwise, in any period
  Vector3d Given;                  ///< position of the point as given; its height may be undefined
  Vector3d Adjusted;               ///< position now: a satellite point moves, others stay `Given`
  std::string Name;                ///< of the record
  double HeightDiff = kUndefined;  ///< from the station mark up to the point, or undefined
  bool IsGps = false;              ///< the position is a satellite observation
  Vector3d GpsErrors;              ///< standard errors of that position

  /// True if a distance was measured.
  bool HasDistance() const { return !IsUndefined(Distance); }

  /// True if the sight gives the station a height.
  bool HasHeightDiff() const { return !IsUndefined(HeightDiff); }
};

#pragma once

#include <string>
#include <vector>

#include "korvelfile/outside/base/Vector.h"

namespace korvel {

struct StationOptions;
struct StationOutcome;

/// One sighted point of a plot, (E, N) in metres.
struct PlotTarget {
  std::string name;
  Vector place;
  Vector displacement;  ///< from the given point to where the sight puts it; of backsights only
};

/// What a plot shows, taken out of the outcome of a station.
struct PlotScene {
  PlotTarget station;
  std::vector<PlotTarget> backsights;
  std::vector<PlotTarget> newPoints;
  bool hasEllipse = false;
  double ellipseA = 0.0;  ///< semi-axes, metres
  double ellipseB = 0.0;
  double ellipseBearing = 0.0;  ///< azimuth of `ellipseA`, radians

  /// A line of the panel: a name and a figure.
  struct Fact {
    std::string name;
    std::string value;
  };
  std::vector<Fact> facts;
  std::string source;  ///< the measurement file

  explicit PlotScene(const StationOutcome& outcome, const StationOptions& options);

  /// Places of all that must be on the map.
  std::vector<Vector> Places() const;

  /// Length of the largest displacement, metres.
  double LargestDisplacement() const;
};

}  // namespace korvel

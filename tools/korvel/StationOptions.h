#pragma once

#include <string>
#include <vector>

#include "korvelfile/measurements/FreeStn.h"
#include "tools/korvel/AngleUnit.h"

namespace korvel {

/// How the height of a free station is found.
enum class HeightMethod { None, Mean, Weighted };

/// The settings of an adjustment, with the defaults of `FreeStn`. Metres, radians, ppm.
struct AdjustmentSettings {
  double angleError = FreeStn().AngleError;
  double verticalError = FreeStn().VerticalError;
  double distanceError = FreeStn().DistanceError;
  double distancePpm = FreeStn().DistancePpm;
  double centringError = FreeStn().CentringError;
  int sets = FreeStn().Sets;
  HeightMethod height = HeightMethod::Mean;
};

/// What the command line of `korvel station` asks for. A path or name not given is empty.
struct StationOptions {
  std::string job;                 ///< the `.plm` file
  std::vector<std::string> known;  ///< coordinate files
  std::string station;             ///< name of the only station to do
  std::string points;              ///< coordinate file to write
  std::string plot;                ///< picture to write
  bool json = false;
  bool leaveOneOut = false;
  bool verbose = false;
  AngleUnit angles = FindAngleUnit("gon");
  AdjustmentSettings settings;
};

/// "mean", "weighted" or "none".
std::string HeightMethodName(HeightMethod method);

/// The method of one of these names.
HeightMethod FindHeightMethod(const std::string& name);

}  // namespace korvel

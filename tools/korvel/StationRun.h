#pragma once

#include <string>
#include <vector>

#include "tools/korvel/StationOptions.h"
#include "tools/korvel/StationOutcome.h"

namespace korvel {

/// One run of `korvel station`: what was asked for and all that came out, as the reports need it.
struct StationRun {
  StationOptions options;
  std::string program;                  ///< name and version
  std::string date;                     ///< local date and time, "2019-04-23 15:30:05"
  std::string jobDescription;           ///< from the header of the measurement file, may be empty
  std::vector<std::string> knownFiles;  ///< one line for each, with its count of points
  std::vector<std::string> warnings;
  std::vector<StationOutcome> outcomes;  ///< in file order
  std::string pointsFile;                ///< empty if none was written
  std::vector<std::string> plots;        ///< files written
};

}  // namespace korvel

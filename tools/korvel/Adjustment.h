#pragma once

#include <string>
#include <vector>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "tools/korvel/StationOptions.h"
#include "tools/korvel/StationOutcome.h"

namespace korvel {

/// One adjustment and how it ended.
struct Adjusted {
  std::string failure;     ///< why there is no result; empty if there is one
  FreeStnResult result;    ///< heights are undefined if none was found
  std::string heightNote;  ///< why there is no height; empty if there is one
};

/// Puts the settings into a station without backsights.
void ApplySettings(const AdjustmentSettings& settings, FreeStn& free);

/// Adjusts plane and height. `free` keeps the adjusted position and orientation.
Adjusted Adjust(FreeStn& free, HeightMethod height);

/// Residuals of all backsights from the adjusted station `free`, computed minus observed.
///
/// Distance and direction residuals are those of the adjusted position itself; plane, height and
/// spatial ones those of `result`.
std::vector<SightResidual> ResidualsOf(const FreeStn& free, const FreeStnResult& result);

/// True unless the iteration ended before it came to rest.
///
/// At rest the residuals of the last linear solution, whose largest `result` holds, are those of
/// the adjusted position.
bool HasConverged(const std::vector<SightResidual>& residuals, const FreeStnResult& result);

/// Adjusts again without each backsight in turn and compares with `result`.
std::vector<WithoutOne> LeaveOneOut(const FreeStn& free, const FreeStnResult& result,
                                    HeightMethod height);

/// "1.10.2": of the library that does the matrices.
const char* NewmatVersion();

}  // namespace korvel

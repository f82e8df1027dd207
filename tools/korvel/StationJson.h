#pragma once

#include <iosfwd>

namespace korvel {

struct StationRun;

/// Writes a run as one JSON object, with numbers in full precision and null for what is undefined.
/// Lengths are metres, angles the unit that "angle_unit" names.
void PrintStationJson(const StationRun& run, std::ostream& out);

}  // namespace korvel

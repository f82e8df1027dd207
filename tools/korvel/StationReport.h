#pragma once

#include <iosfwd>

namespace korvel {

struct StationRun;

/// Writes the report of a run for people: header, then every station with what it rests on.
void PrintStationReport(const StationRun& run, std::ostream& out);

}  // namespace korvel

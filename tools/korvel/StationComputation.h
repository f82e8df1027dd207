#pragma once

#include "tools/korvel/StationOutcome.h"

class StationDataItem;

namespace korvel {

class KnownPoints;
struct StationOptions;

/// Adjusts one station as a free station, establishes it and computes what it sighted.
///
/// Backsights are the records of type 7 that name a known point with plane coordinates, unless
/// their attribute "FSBU" is there with none of its three lowest bits set. Every other record that
/// isn't switched off so and has a distance becomes a new point. The station gets position and
/// orientation, and the attributes "sE", "sN", "sZ" and "s0", which pass on to its point.
StationOutcome ComputeStation(StationDataItem& station, const KnownPoints& known,
                              const StationOptions& options);

}  // namespace korvel

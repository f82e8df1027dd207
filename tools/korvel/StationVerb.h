#pragma once

#include "tools/korvel/VerbRun.h"

namespace CLI {
class App;
}

namespace korvel {

struct StationOptions;

/// Describes `korvel station` to the command line, which sets `run` where it asks for it.
void AddStationVerb(CLI::App& app, VerbRun& run);

/// Does what `options` ask for and prints the report.
/// @return an `ExitStatus`
/// @throws InputError for wrong use or unreadable input
int RunStationVerb(const StationOptions& options);

}  // namespace korvel

#pragma once

namespace CLI {
class App;
}

namespace korvel {

struct StationOptions;

/// Describes `korvel station` to the command line: its arguments fill `options`.
void AddStationVerb(CLI::App& app, StationOptions& options);

/// Does what `options` ask for and prints the report.
/// @return an `ExitStatus`
/// @throws InputError for wrong use or unreadable input
int RunStationVerb(const StationOptions& options);

}  // namespace korvel

#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace korvel {

/// What the command line of `korvel info` asks for.
struct InfoOptions {
  std::vector<std::string> files;
  bool json = false;
  bool verbose = false;
};

/// Describes `korvel info` to the command line: its arguments fill `options`.
void AddInfoVerb(CLI::App& app, InfoOptions& options);

/// Prints what each file holds.
/// @return an `ExitStatus`: `kBadInput` if any of them can't be read
int RunInfoVerb(const InfoOptions& options);

}  // namespace korvel

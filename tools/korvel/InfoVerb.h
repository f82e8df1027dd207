#pragma once

#include "tools/korvel/VerbRun.h"

namespace CLI {
class App;
}

namespace korvel {

/// Describes `korvel info`, which tells what each file holds, to the command line, which sets `run`
/// where it asks for it.
void AddInfoVerb(CLI::App& app, VerbRun& run);

}  // namespace korvel

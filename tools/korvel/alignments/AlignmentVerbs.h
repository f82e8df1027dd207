#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verbs that have to do with roads and tunnels, `align` and `tunnel`; each sets `run`
/// where the command line asks for it.
void AddAlignmentVerbs(CLI::App& app, VerbRun& run);

}  // namespace korvel

#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `plot`, which draws the outline of a tunnel, to the verbs of `group`; it sets
/// `run` where the command line asks for it.
void AddTunnelPlotVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `plot`, which draws a road, to the verbs of `group`; it sets `run` where the
/// command line asks for it.
void AddRoadPlotVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

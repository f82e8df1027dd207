#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `refine`, which lets the lines of a design follow the curves of a road, to the
/// verbs of `group`; it sets `run` where the command line asks for it.
void AddRefineVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

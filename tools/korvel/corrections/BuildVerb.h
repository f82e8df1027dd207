#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `build`, which makes a correction grid from residuals, to the verbs of `group`; it
/// sets `run` where the command line asks for it.
void AddBuildVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `point`, which turns chainages and offsets into points, to the verbs of `group`;
/// it sets `run` where the command line asks for it.
void AddLinePointVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

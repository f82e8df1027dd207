#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `correct`, which applies a model to a coordinate file; it sets `run` where the
/// command line asks for it.
void AddCorrectVerb(CLI::App& app, VerbRun& run);

}  // namespace korvel

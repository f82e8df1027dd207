#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `check`, which finds and mends faults of line files and profiles, to the verbs of
/// `group`; it sets `run` where the command line asks for it.
void AddCheckVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

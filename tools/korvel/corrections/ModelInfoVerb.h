#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `info`, which tells what model files hold, to the verbs of `group`; it sets `run`
/// where the command line asks for it.
void AddModelInfoVerb(CLI::App& group, VerbRun& run, const char* what);

}  // namespace korvel

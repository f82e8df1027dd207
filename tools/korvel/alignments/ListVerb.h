#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `list`, which lists the elements of line files, profiles and camber files, to the
/// verbs of `group`; it sets `run` where the command line asks for it.
void AddListVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `expand`, which updates and widens a correction grid, to the verbs of `group`; it
/// sets `run` where the command line asks for it.
void AddExpandVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

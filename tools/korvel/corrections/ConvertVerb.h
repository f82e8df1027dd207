#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `convert`, which makes geoid grids from other formats, to the verbs of `group`; it
/// sets `run` where the command line asks for it.
void AddConvertVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `station`, which turns points into chainages and offsets, to the verbs of `group`;
/// it sets `run` where the command line asks for it.
void AddLineStationVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verbs that have to do with correction models, `grid`, `geoid`, `triad` and `correct`;
/// each sets `run` where the command line asks for it.
void AddCorrectionVerbs(CLI::App& app, VerbRun& run);

}  // namespace korvel

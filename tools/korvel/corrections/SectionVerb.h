#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `section`, which lists the corrections of a network along a line, to the verbs of
/// `group`; it sets `run` where the command line asks for it.
void AddSectionVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

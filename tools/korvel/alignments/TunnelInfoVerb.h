#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `info`, which tells what outlines of tunnels hold, to the verbs of `group`; it
/// sets `run` where the command line asks for it.
void AddTunnelInfoVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

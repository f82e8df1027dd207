#pragma once

#include "tools/korvel/VerbRun.h"

namespace korvel {

/// Adds the verb `offset`, which tells how far points lie from the outline of a tunnel and makes
/// parallel outlines, to the verbs of `group`; it sets `run` where the command line asks for it.
void AddTunnelOffsetVerb(CLI::App& group, VerbRun& run);

}  // namespace korvel

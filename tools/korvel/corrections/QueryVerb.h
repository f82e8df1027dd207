#pragma once

#include "tools/korvel/VerbRun.h"
#include "tools/korvel/corrections/CorrectionModel.h"

namespace korvel {

/// Adds the verb `query` for models of `kind` to the verbs of `group`; it sets `run` where the
/// command line asks for it.
void AddQueryVerb(CLI::App& group, VerbRun& run, ModelKind kind);

}  // namespace korvel

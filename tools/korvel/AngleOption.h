#pragma once

#include "tools/korvel/AngleUnit.h"

namespace CLI {
class App;
}

namespace korvel {

/// Adds the option `--angles`, which sets `unit`; what it holds before is the default.
/// @param what for the verb's help
void AddAnglesOption(CLI::App& verb, AngleUnit& unit, const char* what);

}  // namespace korvel

#pragma once

#include <iosfwd>

#include "tools/korvel/JsonText.h"

namespace korvel {

/// Writes what `SummarizeFile` gave for people: one line for each member, a table for each array
/// of objects.
void PrintSummary(const Json& summary, std::ostream& out);

}  // namespace korvel

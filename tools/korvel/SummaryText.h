#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "tools/korvel/JsonText.h"

namespace korvel {

/// Writes what `SummarizeFile` gave for people: one line for each member, a table for each array
/// of objects.
void PrintSummary(const Json& summary, std::ostream& out);

/// Prints on standard output what `summarize` gives for each file, for people or as one JSON array.
/// A file for which it throws `InputError` is told on standard error and doesn't stop the others.
/// @return an `ExitStatus`: `kBadInput` if any of them can't be read
int PrintSummaries(const std::vector<std::string>& files, bool isJson,
                   const std::function<Json(const std::string& path)>& summarize);

}  // namespace korvel

/// @file
/// What all JSON output shares.
#pragma once

#include <iosfwd>
#include <string>

#include <nlohmann/json.hpp>

namespace korvel {

/// Keeps members in the order in which they were added.
using Json = nlohmann::ordered_json;

/// A number, or null if it isn't known.
Json JsonNumber(double value);

/// A text of a file, as UTF-8.
Json JsonText(const std::string& text);

/// Writes `json`, indented, with a line end.
void PrintJson(const Json& json, std::ostream& out);

}  // namespace korvel

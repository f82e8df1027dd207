#pragma once

#include <string>

#include "tools/korvel/AngleUnit.h"
#include "tools/korvel/JsonText.h"

namespace korvel {

/// What a model file holds, as members of a JSON object: what it is, extents, rows and columns or
/// points and triangles, range of the values.
/// @param angles unit of latitude and longitude
/// @throws InputError if the file can't be read or is no model
Json SummarizeModel(const std::string& path, const AngleUnit& angles);

}  // namespace korvel

#pragma once

#include <string>

#include "tools/korvel/JsonText.h"

namespace korvel {

class LibraryMessages;

/// What a file holds, as members of a JSON object: "file", "format", "version", "header" and what
/// the format has of counts, extents and codes.
/// @throws InputError if the file can't be read, or its extension is none that the library knows
Json SummarizeFile(const std::string& path, LibraryMessages& messages);

}  // namespace korvel

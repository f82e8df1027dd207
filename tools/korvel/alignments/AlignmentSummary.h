#pragma once

#include <string>

#include "tools/korvel/JsonText.h"

namespace korvel {

class LibraryMessages;

/// What a line file, a profile or a camber file holds, told by its extension.
/// @throws InputError if it can't be read
Json SummarizeAlignment(const std::string& path, LibraryMessages& messages);

}  // namespace korvel

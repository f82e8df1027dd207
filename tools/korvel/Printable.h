/// @file
/// Texts of files, which are bytes, as a terminal, JSON and a plot can take them: UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel {

/// `text` as valid UTF-8; a byte that isn't UTF-8 is taken as Latin-1.
std::string ToUtf8(std::string_view text);

/// As `ToUtf8`, with "?" for control characters, which could disturb a terminal. Line feeds stay.
std::string Printable(std::string_view text);

/// How many characters a UTF-8 text shows.
std::size_t CharacterCount(std::string_view utf8);

}  // namespace korvel

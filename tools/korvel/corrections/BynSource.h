#pragma once

#include <bit>
#include <string>

namespace korvel {

/// Looks whether the BYN file `path` makes sense, before it is converted.
///
/// Its header must make a grid, with a usable size and factor of the heights; as many heights must
/// follow as it has nodes; and read in the order of bytes that the header tells they must make the
/// smoother surface.
/// @return the order of bytes of the heights
/// @throws InputError that says what is wrong
std::endian CheckByn(const std::string& path);

}  // namespace korvel

/// @file
/// Layout of the header of a correction grid file, the same for reading and writing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

class CcgFileInfo;

/// The newest format version. It stands in files and never changes.
inline constexpr std::uint8_t kCcgVersion = 5;

/// Room for the longest header.
inline constexpr std::size_t kCcgHeaderRoom = 106;

/// Reads types, limits, spacings and approximate corrections, as far as the version has them, and
/// sets the data offset. Without a height interpolation of its own a grid has the plane's.
///
/// @param bytes the start of the file, with zeros behind its end
/// @return false if the magic is another or the version is above `kCcgVersion`
bool DecodeCcgHeader(const std::array<unsigned char, kCcgHeaderRoom>& bytes, CcgFileInfo& info);

/// The header as it stands in a file of the version in `info`; the first node follows it.
std::string EncodeCcgHeader(const CcgFileInfo& info);

/// Gives `info` the format version and the data offset that goes with it.
void SetCcgVersion(CcgFileInfo& info, std::uint8_t version);

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "korvelfile/outside/base/PositionedFile.h"
#include "korvelfile/outside/base/Types.h"

/// Most floats that `ReadFloatsAt` reads at once.
inline constexpr std::size_t kMostFloats = 192;

/// Reads `count` little-endian floats from `offset`, at most `kMostFloats`; false unless all of
/// them are there.
inline bool ReadFloatsAt(const PositionedFile& file, std::int64_t offset, std::size_t count,
                         float* values) {
  std::array<unsigned char, 4 * kMostFloats> bytes;
  if (!file.Read(offset, bytes.data(), 4 * count)) return false;
  for (std::size_t i = 0; i < count; ++i)
    values[i] = _Types::LittleEndianBytesToFloat(&bytes[4 * i]);
  return true;
}

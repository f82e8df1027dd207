#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/corrections/internal/GrdHeader.h"
#include "korvelfile/outside/base/Types.h"

/// Part of the header of a BYN file: all little endian, whatever the order of the heights.
struct BynHeader {
  static constexpr std::size_t kSize = 80;  ///< bytes; the heights stand behind
  using Bytes = std::array<unsigned char, kSize>;

  GrdHeader grid;              ///< limits and spacing in degrees
  double factor = 1.0;         ///< heights are numbers in the file divided by it, m
  std::int16_t valueSize = 0;  ///< of a height, bytes
  std::uint16_t order = 0;     ///< of the heights: 0 big endian, 1 little endian

  explicit BynHeader(const Bytes& bytes) {
    const auto degrees = [&](std::size_t at) {
      return _Types::LittleEndianBytesToInt32(&bytes[at]) / kSecondsPerDegree;
    };
    const auto spacing = [&](std::size_t at) {
      return _Types::LittleEndianBytesToInt16(&bytes[at]) / kSecondsPerDegree;
    };
    grid = {GrdFile::kGeographicMagic,
            degrees(0),
            degrees(4),
            degrees(8),
            degrees(12),
            spacing(16),
            spacing(18)};
    factor = _Types::LittleEndianBytesToDouble(&bytes[24]);
    valueSize = _Types::LittleEndianBytesToInt16(&bytes[32]);
    order = _Types::LittleEndianBytesToUInt16(&bytes[48]);
  }

 private:
  static constexpr double kSecondsPerDegree = 3600.0;
};

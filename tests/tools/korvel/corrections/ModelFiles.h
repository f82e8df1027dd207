/// @file
/// Model files and points for the tests of the verbs.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Types.h"
#include "korvelfile/outside/base/Vector.h"
#include "tests/tools/korvel/CsvText.h"
#include "tests/tools/korvel/RunKorvel.h"

/// A real grid, or what it is to answer.
inline std::string RealGrid(const std::string& name) {
  return KORVELFILE_TEST_DATA "/grids/" + name;
}

/// A correction that changes evenly over the plane: triangles give it everywhere.
inline Vector EvenCorrection(double north, double east) {
  return {0.001 * north - 0.002 * east + 0.05, 0.003 * north + 0.001 * east - 0.02};
}

/// Writes a network of 2 x 2 squares of 100 m, each of two triangles, with `EvenCorrection`.
inline void WriteNetwork(const std::string& path) {
  std::string bytes;
  const auto addRecord = [&](const auto& fill) {
    unsigned char record[32] = {};
    fill(record);
    bytes.append(record, record + sizeof record);
  };
  const auto addWords = [&](std::size_t at, const std::vector<std::uint32_t>& words) {
    addRecord([&](unsigned char* record) {
      for (std::size_t i = 0; i < words.size(); ++i)
        _Types::UInt32ToLittleEndianBytes(words[i], record + at + 4 * i);
    });
  };
  bytes = "TRIAD   " + std::string(24, '\0');
  addWords(12, {7, 16, 16, 24});
  addWords(0, {1});
  for (int i = 3; i < 7; ++i) addWords(0, {});
  for (int i = 0; i < 9; ++i)
    addRecord([&](unsigned char* record) {
      const double north = 100.0 * (i / 3);
      const double east = 100.0 * (i % 3);
      const Vector correction = EvenCorrection(north, east);
      _Types::DoubleToLittleEndianBytes(north, record);
      _Types::DoubleToLittleEndianBytes(east, record + 8);
      _Types::FloatToLittleEndianBytes(static_cast<float>(correction.x), record + 16);
      _Types::FloatToLittleEndianBytes(static_cast<float>(correction.y), record + 20);
    });
  for (const std::uint32_t corner : {1U, 2U, 4U, 5U}) {
    addWords(0, {corner, corner + 1, corner + 3});
    addWords(0, {corner + 1, corner + 4, corner + 3});
  }
  WriteBytes(path, bytes);
}

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

/// Header of a `.grd` file, in the units of the file: degrees where the grid is geographic.
struct GrdHeader {
  static constexpr std::size_t kSize = 64;  ///< bytes; the heights stand behind
  using Bytes = std::array<unsigned char, kSize>;

  std::uint32_t magic = 0;
  double south = 0.0;
  double north = 0.0;
  double west = 0.0;
  double east = 0.0;
  double rowSpacing = 0.0;
  double columnSpacing = 0.0;

  static GrdHeader FromBytes(const Bytes& bytes);
  Bytes ToBytes() const;

  /// Sets the six numbers, in the order of the file, by what `read` gives for each; false once it
  /// has given false.
  template <class Read>
  bool ReadNumbers(Read read) {
    return std::all_of(kNumbers.begin(), kNumbers.end(),
                       [&](double GrdHeader::*number) { return read(this->*number); });
  }

  /// Rows and columns by limits and spacing; 0 where the numbers give no sensible count.
  std::int32_t GetRows() const;
  std::int32_t GetColumns() const;

  /// The header with its six numbers multiplied by `factor`.
  GrdHeader Scaled(double factor) const;

 private:
  using Numbers = std::array<double GrdHeader::*, 6>;
  static const Numbers kNumbers;  ///< in the order of the file, behind the magic
};

/// A row is filled up with zeros to a multiple of this many heights.
inline constexpr std::int64_t kGrdStrideStep = 16;

/// Heights from one row to the next.
constexpr std::int64_t GrdStride(std::int64_t columns) {
  return (columns + kGrdStrideStep - 1) / kGrdStrideStep * kGrdStrideStep;
}

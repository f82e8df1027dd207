#include "korvelfile/corrections/internal/PackedBlock.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::uint32_t kSign = 0x80000000U;
constexpr std::uint32_t kWordBits = 64;

// Small distances of either sign become small numbers: 0, -1, 1, -2 as 0, 1, 2, 3.
std::uint32_t Folded(std::uint32_t distance) {
  return (distance << 1U) ^ ((distance & kSign) != 0 ? ~0U : 0U);
}

std::uint32_t Unfolded(std::uint32_t folded) { return (folded >> 1U) ^ (0U - (folded & 1U)); }

}  // namespace

PackedBlock::PackedBlock(const float* nodes, int values) {
  tiles_.reserve(static_cast<std::size_t>(kTiles * values));
  for (int value = 0; value < values; ++value) {
    for (int tile = 0; tile < kTiles; ++tile) {
      Values own;
      for (int i = 0; i < kTile * kTile; ++i) {
        const int node = i / kTile * kColumns + tile * kTile + i % kTile;
        own[static_cast<std::size_t>(i)] = nodes[node * values + value];
      }
      Pack(own);
    }
  }
  words_.resize(end_ / kWordBits + 2);  // a distance is read from two words
  words_.shrink_to_fit();
}

// Bits that the farthest of the tile's distances takes.
std::uint32_t PackedBlock::Measure(const Values& values, Tile& tile, Distances& distances) {
  std::uint32_t all = 0;
  for (int row = 0; row < kTile; ++row) {
    const CubicSurface::Profile profile = tile.surface.AlongRow(row);
    for (int column = 0; column < kTile; ++column) {
      const auto k = static_cast<std::size_t>(row * kTile + column);
      const std::uint32_t expected = tile.scale.CountOf(profile.At(column));
      distances[k] = Folded(tile.scale.CountOf(values[k]) - expected);
      all |= distances[k];
    }
  }
  tile.bits = static_cast<std::uint8_t>(std::bit_width(all));
  return tile.bits;
}

void PackedBlock::Pack(const Values& values) {
  Tile tile{CubicSurface(values), end_, 0, {}};
  Distances distances;
  Measure(values, tile, distances);
  Tile decimal = tile;
  decimal.scale = ValueScale::DecimalsOf(values);
  Distances steps;
  if (decimal.scale.IsDecimal() && Measure(values, decimal, steps) < tile.bits) {
    tile = decimal;
    distances = steps;
  }
  for (const std::uint32_t distance : distances) Append(distance, tile.bits);
  tiles_.push_back(tile);
}

void PackedBlock::Append(std::uint32_t distance, std::uint32_t bits) {
  const std::size_t word = end_ / kWordBits;
  const std::uint32_t shift = end_ % kWordBits;
  if (words_.size() < word + 2) words_.resize(word + 2);
  words_[word] |= std::uint64_t{distance} << shift;
  if (shift > kWordBits / 2) words_[word + 1] |= std::uint64_t{distance} >> (kWordBits - shift);
  end_ += bits;
}

std::uint32_t PackedBlock::Distance(const Tile& tile, int index) const {
  const std::uint32_t bit =
      tile.firstBit + std::uint32_t{tile.bits} * static_cast<std::uint32_t>(index);
  const std::uint32_t shift = bit % kWordBits;
  const std::uint64_t* word = &words_[bit / kWordBits];
  const std::uint64_t high = shift > kWordBits / 2 ? word[1] << (kWordBits - shift) : 0;
  const std::uint64_t mask = (std::uint64_t{1} << tile.bits) - 1;
  return static_cast<std::uint32_t>(((word[0] >> shift) | high) & mask);
}

void PackedBlock::Get(int row, int column, int columns, int values, float* nodes) const {
  for (int value = 0; value < values; ++value)
    GetValue(row, column, columns, value, values, nodes + value);
}

void PackedBlock::GetValue(int row, int column, int columns, int value, int values,
                           float* nodes) const {
  const int end = column + columns;
  while (column < end) {
    const Tile& tile = tiles_[static_cast<std::size_t>(value * kTiles + column / kTile)];
    const CubicSurface::Profile profile = tile.surface.AlongRow(row);
    const int endInTile = std::min(end, (column / kTile + 1) * kTile);
    for (; column < endInTile; ++column, nodes += values) {
      const int inTile = column % kTile;
      const std::uint32_t distance = Unfolded(Distance(tile, row * kTile + inTile));
      *nodes = tile.scale.ValueOf(tile.scale.CountOf(profile.At(inTile)) + distance);
    }
  }
}

std::size_t PackedBlock::GetSize() const {
  return tiles_.capacity() * sizeof(Tile) + words_.capacity() * sizeof(words_[0]);
}

std::size_t PackedBlock::LargestSize(int values) {
  const std::size_t bytes = kNodes * sizeof(float) + kTiles * sizeof(Tile);
  return bytes * static_cast<std::size_t>(values) + 2 * sizeof(std::uint64_t);
}

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "korvelfile/corrections/internal/CubicSurface.h"
#include "korvelfile/corrections/internal/ValueScale.h"

/// Rectangle of grid values, packed without loss.
///
/// The values of a grid follow a smooth surface. For each tile of 16 x 16 nodes a cubic surface is
/// laid through them, and each value is kept as its distance from that, in as many bits as the
/// farthest of the tile needs. It is counted in floats, some 5 to 15 bits instead of 32 in a smooth
/// grid, or in steps of a decimal figure, which takes noise in a grid of rounded figures. Any one
/// value is found without looking at the others.
class PackedBlock {
 public:
  static constexpr int kRows = 16;     ///< of nodes
  static constexpr int kColumns = 64;  ///< of nodes
  static constexpr int kNodes = kRows * kColumns;

  /// A block without content.
  PackedBlock() = default;

  /// Packs `kNodes` nodes, row after row, of 1 to 3 `values` each, one behind the other.
  PackedBlock(const float* nodes, int values);

  /// Copies the nodes of `row` from `column` on, bit for bit as they were packed.
  ///
  /// @param columns how many; they don't reach beyond the block
  /// @param values of a node, as many as were packed
  void Get(int row, int column, int columns, int values, float* nodes) const;

  /// Memory that the content takes, bytes.
  std::size_t GetSize() const;

  /// The most that it may take in a block of so many values a node.
  static std::size_t LargestSize(int values);

 private:
  static constexpr int kTile = 16;  ///< nodes along a side
  static constexpr int kTiles = kColumns / kTile;

  using Values = std::array<float, kTile * kTile>;

  struct Tile {
    CubicSurface surface;
    std::uint32_t firstBit = 0;
    std::uint8_t bits = 0;  ///< of each distance, 0 to 32
    ValueScale scale;
  };
  using Distances = std::array<std::uint32_t, kTile * kTile>;

  static std::uint32_t Measure(const Values& values, Tile& tile, Distances& distances);
  void Pack(const Values& values);
  void GetValue(int row, int column, int columns, int value, int values, float* nodes) const;
  void Append(std::uint32_t distance, std::uint32_t bits);
  std::uint32_t Distance(const Tile& tile, int index) const;

  std::vector<Tile> tiles_;  ///< `kTiles` for each value of a node
  std::vector<std::uint64_t> words_;
  std::uint32_t end_ = 0;  ///< bits in use
};

#include "korvelfile/corrections/internal/BlockCache.h"

#include <algorithm>
#include <array>

#include "korvelfile/corrections/internal/PositionedFloats.h"
#include "korvelfile/outside/base/PositionedFile.h"

namespace {

constexpr std::int64_t kValueSize = 4;

constexpr int kMissesOfFirst = 2;           // where there is room whatever the block takes
constexpr int kMissesOfOther = 16;          // where another block must go
constexpr std::int64_t kShortWhile = 4096;  // misses

using BlockNodes = std::array<float, PackedBlock::kNodes * 3>;

// Reads one row of a block; nodes beyond the row or the file stay as they are.
bool ReadRow(const PositionedFile& file, const GridLayout& layout, std::int64_t row,
             std::int64_t column, float* nodes) {
  const std::int64_t nodeSize = kValueSize * layout.values;
  const std::int64_t offset = layout.start + row * layout.stride + column * nodeSize;
  const std::int64_t inRow = layout.stride - column * nodeSize;
  const std::int64_t inFile = file.GetState().size - offset;
  const std::int64_t count =
      std::min({PackedBlock::kColumns * nodeSize, inRow, inFile}) / kValueSize;
  return count <= 0 || ReadFloatsAt(file, offset, static_cast<std::size_t>(count), nodes);
}

}  // namespace

BlockCache::BlockCache(const GridLayout& layout) : layout_(layout) {
  const std::int64_t columns = layout.stride / (kValueSize * layout.values);
  blocksInRow_ = (columns + PackedBlock::kColumns - 1) / PackedBlock::kColumns;
}

bool BlockCache::Get(const NodeWindow& window, float* nodes) const {
  for (std::int64_t row = window.row; row < window.row + window.rows; ++row) {
    const std::int64_t first = row / PackedBlock::kRows * blocksInRow_;
    std::int64_t column = window.column;
    const std::int64_t end = column + window.columns;
    while (column < end) {
      const std::int64_t number = first + column / PackedBlock::kColumns;
      const Slot& slot = SlotOf(number);
      if (slot.number != number) return false;
      const auto inBlock = static_cast<int>(column % PackedBlock::kColumns);
      const int count =
          static_cast<int>(std::min<std::int64_t>(end - column, PackedBlock::kColumns - inBlock));
      slot.block.Get(static_cast<int>(row % PackedBlock::kRows), inBlock, count, layout_.values,
                     nodes);
      nodes += count * layout_.values;
      column += count;
    }
  }
  return true;
}

void BlockCache::Miss(const PositionedFile& file, const NodeWindow& window) {
  const std::int64_t lastRow = (window.row + window.rows - 1) / PackedBlock::kRows;
  const std::int64_t lastColumn = (window.column + window.columns - 1) / PackedBlock::kColumns;
  for (std::int64_t row = window.row / PackedBlock::kRows; row <= lastRow; ++row) {
    for (std::int64_t column = window.column / PackedBlock::kColumns; column <= lastColumn;
         ++column)
      Miss(file, row * blocksInRow_ + column);
  }
}

void BlockCache::Miss(const PositionedFile& file, std::int64_t number) {
  Slot& slot = SlotOf(number);
  if (slot.number == number) return;
  if (!IsWanted(slot, number)) return;
  Empty(slot);
  if (!ReadBlock(file, number, slot.block)) return;
  slot.number = number;
  size_ += slot.block.GetSize();
  MakeRoom(slot);
}

bool BlockCache::ReadBlock(const PositionedFile& file, std::int64_t number,
                           PackedBlock& block) const {
  BlockNodes nodes{};
  for (int i = 0; i < PackedBlock::kRows; ++i) {
    float* const row = &nodes[static_cast<std::size_t>(i * PackedBlock::kColumns * layout_.values)];
    if (!ReadRow(file, layout_, number / blocksInRow_ * PackedBlock::kRows + i,
                 number % blocksInRow_ * PackedBlock::kColumns, row))
      return false;
  }
  block = PackedBlock(nodes.data(), layout_.values);
  return true;
}

bool BlockCache::IsWanted(Slot& slot, std::int64_t number) {
  ++misses_;
  if (slot.wanted != number || misses_ - slot.since > kShortWhile) {
    slot.wanted = number;
    slot.misses = 0;
    slot.since = misses_;
  }
  ++slot.misses;
  const std::size_t largest = PackedBlock::LargestSize(layout_.values);
  const bool isFree = slot.number < 0 && size_ + largest <= kRoom;
  return slot.misses >= (isFree ? kMissesOfFirst : kMissesOfOther);
}

void BlockCache::MakeRoom(const Slot& keeper) {
  while (size_ > kRoom) {
    Slot& next = slots_[hand_];
    if (&next != &keeper) Empty(next);
    hand_ = (hand_ + 1) % kSlots;
  }
}

void BlockCache::Empty(Slot& slot) {
  size_ -= slot.block.GetSize();
  slot.block = {};
  slot.number = -1;
  slot.misses = 0;
}

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "korvelfile/corrections/internal/GridReader.h"
#include "korvelfile/corrections/internal/PackedBlock.h"

class PositionedFile;

/// Blocks of one grid file, as many as there is room for.
///
/// Reading a block costs some eight times what reading a stencil does. So it is read only when it
/// was missed before, and takes the place of another one only when it is missed again and again in
/// a short while: where an application works moves on, but points scattered over more blocks than
/// there is room for don't drive each other out.
class BlockCache {
 public:
  /// No blocks yet of a file laid out so.
  explicit BlockCache(const GridLayout& layout);

  /// Copies the nodes of `window`, if all of their blocks are here.
  bool Get(const NodeWindow& window, float* nodes) const;

  /// Tells that blocks of `window` were missed; reads from `file` those whose turn it is.
  void Miss(const PositionedFile& file, const NodeWindow& window);

 private:
  static constexpr std::size_t kSlots = 4096;
  static constexpr std::size_t kRoom = std::size_t{27} << 18U;  ///< bytes of packed content

  struct Slot {
    std::int64_t number = -1;  ///< of the block that is here
    std::int64_t wanted = -1;  ///< last block that was missed here
    int misses = 0;            ///< of that block, counted from
    std::int64_t since = 0;    ///< this miss of all
    PackedBlock block;
  };

  Slot& SlotOf(std::int64_t number) { return slots_[static_cast<std::size_t>(number) % kSlots]; }
  const Slot& SlotOf(std::int64_t number) const {
    return slots_[static_cast<std::size_t>(number) % kSlots];
  }

  void Miss(const PositionedFile& file, std::int64_t number);
  bool IsWanted(Slot& slot, std::int64_t number);
  bool ReadBlock(const PositionedFile& file, std::int64_t number, PackedBlock& block) const;
  void MakeRoom(const Slot& keeper);
  void Empty(Slot& slot);

  GridLayout layout_;
  std::int64_t blocksInRow_;
  std::vector<Slot> slots_{kSlots};
  std::size_t size_ = 0;  ///< bytes of packed content
  std::int64_t misses_ = 0;
  std::size_t hand_ = 0;  ///< slot that is emptied next
};

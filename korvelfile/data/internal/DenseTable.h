#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace internal {

/// A hash table of numbers, for values that somebody else keeps.
///
/// Open addressing with linear probing, and 32 bits of each value's hash beside its number: a
/// look-up touches one cache line and, as a rule, no value but the equal one, and growing touches
/// no value at all. Numbers go up to 2^32 - 2.
class DenseTable {
 public:
  using Number = std::uint32_t;
  static constexpr Number kNone = 0xFFFFFFFF;

  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t next = 0;  ///< the number after the value's, so that 0 marks an empty slot
  };

  DenseTable() : slots_(kFirstCapacity) {}

  /// The number with this hash for which `isEqual(number)` holds, or `kNone`.
  template <class IsEqual>
  Number Find(std::uint32_t hash, IsEqual isEqual) const;

  /// Adds a number that isn't there.
  void Insert(std::uint32_t hash, Number number);

  /// Takes out a number that is there.
  void Erase(std::uint32_t hash, Number number);

  /// Takes out no number, and lowers all numbers above `number` by one.
  void CloseUp(Number number);

  void Clear();

  /// Makes room for `count` numbers.
  void Reserve(std::size_t count);

  /// Starts fetching the slot that `hash` has or would get.
  void Prefetch(std::uint32_t hash) const { __builtin_prefetch(&slots_[HomeOf(hash)], 1); }

  const std::vector<Slot>& GetSlots() const { return slots_; }

 private:
  static constexpr std::size_t kFirstCapacity = 64;  // a power of two, as are all others

  bool IsFull(std::size_t count) const { return 4 * count > 3 * slots_.size(); }
  std::size_t HomeOf(std::size_t hash) const { return hash & (slots_.size() - 1); }
  std::size_t After(std::size_t place) const { return HomeOf(place + 1); }
  std::size_t FirstEmpty(std::uint32_t hash) const;
  void Grow();
  void CloseGap(std::size_t gap);

  std::vector<Slot> slots_;
  std::size_t size_ = 0;
};

template <class IsEqual>
DenseTable::Number DenseTable::Find(std::uint32_t hash, IsEqual isEqual) const {
  for (std::size_t place = HomeOf(hash); slots_[place].next != 0; place = After(place)) {
    const Slot& slot = slots_[place];
    if (slot.hash == hash && isEqual(slot.next - 1)) return slot.next - 1;
  }
  return kNone;
}

}  // namespace internal

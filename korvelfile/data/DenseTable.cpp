#include "korvelfile/data/internal/DenseTable.h"

namespace internal {

std::size_t DenseTable::FirstEmpty(std::uint32_t hash) const {
  std::size_t place = HomeOf(hash);
  while (slots_[place].next != 0) place = After(place);
  return place;
}

void DenseTable::Insert(std::uint32_t hash, Number number) {
  if (IsFull(size_ + 1)) Grow();
  slots_[FirstEmpty(hash)] = {hash, number + 1};
  ++size_;
}

void DenseTable::Grow() {
  std::vector<Slot> former(2 * slots_.size());
  former.swap(slots_);
  for (const Slot& slot : former) {
    if (slot.next != 0) slots_[FirstEmpty(slot.hash)] = slot;
  }
}

void DenseTable::Reserve(std::size_t count) {
  while (IsFull(count)) Grow();
}

void DenseTable::Clear() {
  slots_.assign(kFirstCapacity, {});
  size_ = 0;
}

void DenseTable::Erase(std::uint32_t hash, Number number) {
  std::size_t place = HomeOf(hash);
  while (slots_[place].next != number + 1) place = After(place);
  CloseGap(place);
  --size_;
}

// Moves entries behind the gap into it that would otherwise no longer be found from their home.
void DenseTable::CloseGap(std::size_t gap) {
  for (std::size_t place = After(gap); slots_[place].next != 0; place = After(place)) {
    const std::size_t home = HomeOf(slots_[place].hash);
    if (HomeOf(place - home) < HomeOf(place - gap)) continue;
    slots_[gap] = slots_[place];
    gap = place;
  }
  slots_[gap] = {};
}

void DenseTable::CloseUp(Number number) {
  for (Slot& slot : slots_) {
    if (slot.next > number + 1) --slot.next;
  }
}

}  // namespace internal

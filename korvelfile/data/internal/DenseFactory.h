#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include <boost/flyweight/factory_tag.hpp>

#include "korvelfile/data/internal/DenseTable.h"

namespace internal {

/// Places for values, numbered, in blocks that never move. A place given back is used again.
template <class Value>
class ValuePool {
 public:
  using Index = std::uint32_t;

  Value& operator[](Index index) { return *std::launder(reinterpret_cast<Value*>(At(index))); }

  /// Makes a value of `arguments` and gives its number.
  template <class... Arguments>
  Index Make(Arguments&&... arguments) {
    if (free_.empty()) AddBlock();
    const Index index = free_.back();
    new (At(index)) Value(std::forward<Arguments>(arguments)...);
    free_.pop_back();
    return index;
  }

  void Destroy(Index index) {
    (*this)[index].~Value();
    free_.push_back(index);  // within the capacity that AddBlock made
  }

 private:
  static constexpr Index kBlockSize = 1024;

  struct Place {
    alignas(Value) std::byte bytes[sizeof(Value)];
  };

  std::byte* At(Index index) { return blocks_[index / kBlockSize][index % kBlockSize].bytes; }

  void AddBlock() {
    const auto first = static_cast<Index>(blocks_.size() * kBlockSize);
    if (free_.capacity() < first + kBlockSize) free_.reserve(2 * (first + kBlockSize));
    blocks_.emplace_back(new Place[kBlockSize]);
    for (Index i = kBlockSize; i > 0; --i) free_.push_back(first + i - 1);
  }

  std::vector<std::unique_ptr<Place[]>> blocks_;
  std::vector<Index> free_;
};

/// Where the table of a factory stands, for those that want a slot fetched ahead of its use. May be
/// out of date: then the wrong bytes are fetched, and nothing else happens.
template <class Key, class Hash>
class DenseTableHint {
 public:
  /// Starts fetching the slot that `key` has or would get; any thread, without a lock.
  static void Prefetch(const Key& key) {
    const std::size_t home = Hash()(key) & mask_.load(std::memory_order_relaxed);
    const auto first = firstSlot_.load(std::memory_order_relaxed);
    __builtin_prefetch(reinterpret_cast<const void*>(first + home * sizeof(DenseTable::Slot)), 1);
  }

  static void Publish(const DenseTable& table) {
    const auto& slots = table.GetSlots();
    firstSlot_.store(reinterpret_cast<std::uintptr_t>(slots.data()), std::memory_order_relaxed);
    mask_.store(slots.size() - 1, std::memory_order_relaxed);
  }

 private:
  static inline std::atomic<std::uintptr_t> firstSlot_{0};
  static inline std::atomic<std::size_t> mask_{0};
};

/// A hashed factory of flyweights for many distinct values: the names of a million points.
///
/// Boost's own hashed factory, a table of linked nodes, took three times as long. Memory of values
/// that are gone is kept for others.
template <class Entry, class Key, class Hash>
class DenseFactory : public boost::flyweights::factory_marker {
 public:
  using handle_type = const Entry*;

  /// The stored value equal to `entry`, which is stored if there is none.
  handle_type insert(const Entry& entry) { return Insert(entry); }
  handle_type insert(Entry&& entry) { return Insert(std::move(entry)); }

  void erase(handle_type handle);

  static const Entry& entry(handle_type handle) { return *handle; }

 private:
  static std::uint32_t HashOf(const Key& key) { return static_cast<std::uint32_t>(Hash()(key)); }

  template <class E>
  handle_type Insert(E&& entry);

  DenseTable table_;
  ValuePool<Entry> values_;
};

template <class Entry, class Key, class Hash>
template <class E>
const Entry* DenseFactory<Entry, Key, Hash>::Insert(E&& entry) {
  const Key& key = entry;
  const std::uint32_t hash = HashOf(key);
  DenseTable::Number number = table_.Find(hash, [&](DenseTable::Number candidate) {
    return static_cast<const Key&>(values_[candidate]) == key;
  });
  if (number == DenseTable::kNone) {
    number = values_.Make(std::forward<E>(entry));
    table_.Insert(hash, number);
    DenseTableHint<Key, Hash>::Publish(table_);
  }
  return &values_[number];
}

template <class Entry, class Key, class Hash>
void DenseFactory<Entry, Key, Hash>::erase(handle_type handle) {
  const std::uint32_t hash = HashOf(*handle);
  const DenseTable::Number number = table_.Find(
      hash, [&](DenseTable::Number candidate) { return &values_[candidate] == handle; });
  table_.Erase(hash, number);
  values_.Destroy(number);
}

/// Names the factory for a flyweight's list of policies.
template <class Hash>
struct DenseHashedFactory : boost::flyweights::factory_marker {
  template <class Entry, class Key>
  struct apply {
    using type = DenseFactory<Entry, Key, Hash>;
  };
};

}  // namespace internal

#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

/// Plain records in blocks of `kBlockSize` that never move: growing copies nothing, and costs one
/// allocation for each block.
///
/// A copy has blocks of its own. One thread at a time.
template <class Record, std::size_t kBlockSize>
class BlockStore {
  static_assert(std::is_trivially_copyable_v<Record>);

 public:
  BlockStore() = default;
  /// @throws std::bad_alloc
  BlockStore(const BlockStore& other);
  BlockStore& operator=(BlockStore other);

  std::size_t Size() const { return size_; }

  /// A new record at the end, its contents not set; null, with nothing changed, without memory.
  Record* Add();

  /// @param index below `Size`
  Record& operator[](std::size_t index) { return blocks_[index / kBlockSize][index % kBlockSize]; }
  const Record& operator[](std::size_t index) const {
    return blocks_[index / kBlockSize][index % kBlockSize];
  }

 private:
  struct Free {
    void operator()(Record* block) const { std::free(block); }
  };

  bool AddBlock();

  std::vector<std::unique_ptr<Record[], Free>> blocks_;
  std::size_t size_ = 0;
};

template <class Record, std::size_t kBlockSize>
BlockStore<Record, kBlockSize>::BlockStore(const BlockStore& other) {
  for (std::size_t i = 0; i < other.size_; ++i) {
    Record* record = Add();
    if (!record) throw std::bad_alloc();
    *record = other[i];
  }
}

template <class Record, std::size_t kBlockSize>
BlockStore<Record, kBlockSize>& BlockStore<Record, kBlockSize>::operator=(BlockStore other) {
  blocks_.swap(other.blocks_);
  std::swap(size_, other.size_);
  return *this;
}

template <class Record, std::size_t kBlockSize>
bool BlockStore<Record, kBlockSize>::AddBlock() {
  std::unique_ptr<Record[], Free> block(
      static_cast<Record*>(std::malloc(kBlockSize * sizeof(Record))));
  if (!block) return false;
  blocks_.push_back(std::move(block));
  return true;
}

template <class Record, std::size_t kBlockSize>
Record* BlockStore<Record, kBlockSize>::Add() {
  if (size_ % kBlockSize == 0 && !AddBlock()) return nullptr;
  return &(*this)[size_++];
}

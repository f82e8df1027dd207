#pragma once

#include <array>
#include <cstddef>
#include <new>
#include <string>
#include <string_view>

#include "korvelfile/data/DataItemInterface.h"
#include "korvelfile/data/SharedText.h"

namespace internal {

/// Names items a few steps after they are made.
///
/// Of a million different names each has its place somewhere in a table of many megabytes. Between
/// `Add` and the naming memory has the time to bring that place near. The last items get their
/// names from `Finish`; all items must live until the queue is destroyed.
class NameQueue {
 public:
  NameQueue() = default;
  NameQueue(const NameQueue&) = delete;
  NameQueue& operator=(const NameQueue&) = delete;
  ~NameQueue() {
    try {
      Finish();
    } catch (const std::bad_alloc&) {
      // A reading that ran out of memory has failed as a whole.
    }
  }

  void Add(DataItemInterface& item, std::string_view name) {
    Entry& entry = entries_[next_];
    next_ = (next_ + 1) % entries_.size();
    Name(entry);
    entry.name = name;
    entry.item = &item;
    SharedText::Expect(entry.name);
  }

  /// Names the items that still wait.
  void Finish() {
    for (Entry& entry : entries_) Name(entry);
  }

 private:
  struct Entry {
    DataItemInterface* item = nullptr;
    std::string name;
  };

  static void Name(Entry& entry) {
    if (entry.item) entry.item->SetName(entry.name);
    entry.item = nullptr;
  }

  std::array<Entry, 8> entries_;
  std::size_t next_ = 0;
};

}  // namespace internal

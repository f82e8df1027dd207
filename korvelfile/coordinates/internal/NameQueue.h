#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "korvelfile/data/DataItemInterface.h"
#include "korvelfile/data/SharedText.h"

namespace internal {

/// Names items a few steps after they are made.
///
/// Of a million different names each has its place somewhere in a table of many megabytes. Between
/// `Add` and the naming memory has the time to bring that place near. The last items get their
/// names when the queue is destroyed; all items must live until then.
class NameQueue {
 public:
  NameQueue() = default;
  NameQueue(const NameQueue&) = delete;
  NameQueue& operator=(const NameQueue&) = delete;
  ~NameQueue() {
    for (Entry& entry : entries_) Name(entry);
  }

  void Add(DataItemInterface& item, std::string_view name) {
    Entry& entry = entries_[next_];
    next_ = (next_ + 1) % entries_.size();
    Name(entry);
    entry.item = &item;
    entry.name = name;
    SharedText::Expect(entry.name);
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

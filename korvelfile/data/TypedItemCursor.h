#pragma once

#include <cstddef>
#include <memory>

#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/ItemCast.h"
#include "korvelfile/data/ScopedLock.h"

/// Walks the items of the class `T` in a list and passes by all others.
///
/// The list's mutex is held from one `Next` to the next, and until the cursor is destroyed if the
/// walk stops early.
template <class T>
class TypedItemCursor {
 public:
  /// @param list must outlive the cursor
  explicit TypedItemCursor(const DataItemListObject& list) : list_(list) {}

  /// Gives the next item.
  /// @return 0; 1 at the end of the list, with the mutex released and `item` unchanged
  int Next(T*& item) {
    if (index_ < 0) return -1;
    lock_ = std::make_shared<ListLock>(list_);
    while (index_ < list_.GetNumberOfItems()) {
      T* const found = ItemCast<T>(list_.GetItem(static_cast<std::size_t>(index_++)));
      if (!found) continue;
      item = found;
      return 0;
    }
    lock_.reset();
    return 1;
  }

 private:
  using ListLock = Korvel::scoped_lock<DataItemListObject>;

  const DataItemListObject& list_;
  int index_ = 0;
  std::shared_ptr<ListLock> lock_;
};

/// The first item of the class `T` in `list`, or null.
template <class T>
T* FindFirst(const DataItemListObject& list) {
  T* item = nullptr;
  return TypedItemCursor<T>(list).Next(item) == 0 ? item : nullptr;
}

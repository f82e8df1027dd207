#pragma once

#include "korvelfile/data/TypedItemCursor.h"

namespace korvel {

/// Calls `visit` with every item of the class T in `list`.
template <class T>
void ForEach(const DataItemListObject& list, const auto& visit) {
  TypedItemCursor<T> cursor(list);
  T* item = nullptr;
  while (cursor.Next(item) == 0) visit(*item);
}

}  // namespace korvel

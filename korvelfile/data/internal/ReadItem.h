#pragma once

#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"

namespace internal {

/// Reads the current row of object text into a new item at the end of `list`, and moves on.
///
/// @return the item, owned by `list`; null if the row has another keyword
template <class Item>
Item* ReadItem(GeoFileTextInputStream& in, DataItemListObject& list, const char* keyword,
               int version) {
  auto* item = new Item;
  list.InsertItem(item, -1);
  if (!ReadObjectRow(in.GetLine(), keyword, item, version)) return nullptr;
  in.NextLine();
  return item;
}

}  // namespace internal

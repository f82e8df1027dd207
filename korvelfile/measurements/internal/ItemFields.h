#pragma once

#include <string>

#include "korvelfile/data/DataItemInterface.h"
#include "korvelfile/outside/base/DataStream.h"

namespace internal {

/// Passes the name of an item as a text field.
inline void StreamName(DataStream& stream, DataItemInterface& item) {
  std::string name = item.GetName();
  stream.Stream(name);
  if (!stream.IsStoring()) item.SetName(name);
}

/// Passes a number or enumeration as a field of the smaller type `InFile`; what `InFile` can't hold
/// of a number is cut off in the file alone.
template <class InFile, class InMemory>
void StreamAs(DataStream& stream, InMemory& value, InFile absent = 0) {
  auto field = static_cast<InFile>(value);
  stream.Stream(field, absent);
  if (!stream.IsStoring()) value = static_cast<InMemory>(field);
}

}  // namespace internal

/// @file
/// Items as rows of object text, without their keyword.
#pragma once

#include <string>
#include <string_view>

#include "korvelfile/data/Streamable.h"
#include "korvelfile/outside/base/DataTextInputStream.h"
#include "korvelfile/outside/base/DataTextOutputStream.h"

inline std::string FieldsOf(Streamable& item, int version) {
  std::string fields;
  DataTextOutputStream stream(fields);
  item.Stream(stream, version);
  return fields;
}

template <class Item>
Item ItemFrom(std::string_view fields, int version) {
  Item item;
  DataTextInputStream stream(fields);
  item.Stream(stream, version);
  return item;
}

#include "korvelfile/data/AttributeFileInterface.h"

#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/Text.h"

namespace {

template <class T>
T* FindByName(const DataItemListObject& list, const char* name) {
  TypedItemCursor<T> cursor(list);
  T* item = nullptr;
  while (cursor.Next(item) == 0) {
    if (EqualNoCase(item->Name, name)) return item;
  }
  return nullptr;
}

}  // namespace

GeoAttribContext* AttributeFileInterface::GetAttribContext(const char* name) {
  return FindByName<GeoAttribContext>(*this, name);
}

GeoAttribType* AttributeFileInterface::GetAttribType(GeoAttribContext* context, const char* name) {
  return context ? FindByName<GeoAttribType>(*context, name) : nullptr;
}

void AttributeFileInterface::FreeCollector() { ClearListObject(); }

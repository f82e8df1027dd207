#include "korvelfile/measurements/InmlineDataItem.h"

#include "korvelfile/measurements/internal/ItemFields.h"

InmlineDataItem& InmlineDataItem::operator=(InmlineDataItem other) {
  DataItem::operator=(other);
  DataItemListObject::Swap(other);
  Polygon = other.Polygon;
  Code.swap(other.Code);
  return *this;
}

void InmlineDataItem::Stream(DataStream& stream, int /*version*/) {
  internal::StreamName(stream, *this);
  stream.Stream(Polygon);
  stream.Stream(Code);
}

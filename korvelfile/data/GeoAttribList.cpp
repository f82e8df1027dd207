#include "korvelfile/data/GeoAttribList.h"

GeoAttribList& GeoAttribList::operator=(GeoAttribList other) {
  DataItem<GeoAttribList>::operator=(other);
  DataItemListObject::Swap(other);
  return *this;
}

void GeoAttribList::Stream(DataStream& /*stream*/, int /*version*/) {}

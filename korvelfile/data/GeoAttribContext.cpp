#include "korvelfile/data/GeoAttribContext.h"

#include "korvelfile/data/FileVersions.h"
#include "korvelfile/outside/base/DataStream.h"

GeoAttribContext& GeoAttribContext::operator=(GeoAttribContext other) {
  DataItem<GeoAttribContext>::operator=(other);
  DataItemListObject::Swap(other);
  Name.swap(other.Name);
  Text2.swap(other.Text2);
  return *this;
}

int GeoAttribContext::GetVersion() const { return giAtrFileVersion; }

void GeoAttribContext::Stream(DataStream& stream, int /*version*/) {
  stream.Stream(Name);
  stream.Stream(Text2);
}

#include "korvelfile/data/GeoFileColors.h"

#include "korvelfile/data/GeoAttrib.h"

unsigned int GeoFileColors::GetObjectColor(const DataItemListObject* list) {
  const GeoAttrib* colour = list ? GeoAttrib::GetAttribute(list, "COLOR") : nullptr;
  return colour ? static_cast<unsigned int>(colour->GetIntValue()) : ColorUndef;
}

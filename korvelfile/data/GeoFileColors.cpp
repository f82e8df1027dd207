#include "korvelfile/data/GeoFileColors.h"

#include "korvelfile/data/GeoAttrib.h"

unsigned int GeoFileColors::GetObjectColor(const DataItemListObject* list) {
  const GeoAttrib* colour = GeoAttrib::GetAttribute(list, "COLOR");
  return colour ? static_cast<unsigned int>(colour->GetIntValue()) : ColorUndef;
}

#pragma once

#include "korvelfile/Export.h"

class DataItemListObject;

/// The colour of a point, a line or a file, kept in its attribute "COLOR".
namespace GeoFileColors {

/// No colour.
inline constexpr unsigned int ColorUndef = 0xFFFFFFFF;

/// The colour in the attributes of `list`; `ColorUndef` if that is null or names no colour.
KORVELFILE_EXPORT unsigned int GetObjectColor(const DataItemListObject* list);

}  // namespace GeoFileColors

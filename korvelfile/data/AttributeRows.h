/// @file
/// The attribute block of an object in object text.
#pragma once

#include "korvelfile/Export.h"

class DataItemListObject;
class GeoFile;
class GeoFileTextInputStream;

/// Writes the first `GeoAttribList` of `list`.
///
/// @param indent tabs in front of the row and its block, any number
/// @return false, with nothing written, if there is no attribute list
KORVELFILE_EXPORT bool WriteAttributeList(GeoFile& file, DataItemListObject* list, int version,
                                          int indent);

/// Reads an attribute list into a new `GeoAttribList` at the end of `list`. A file that ends within
/// the block counts as read.
///
/// @return false, with what was made so far left in `list`, if the rows are others
KORVELFILE_EXPORT bool ReadAttributeList(GeoFileTextInputStream& in, DataItemListObject* list,
                                         int version);

/// @file
/// The header block of an object text file.
#pragma once

#include "korvelfile/Export.h"

class DataItemListObject;
class GeoFile;
class GeoFileTextInputStream;

/// Stamps the writer's identity and `version` into the first `FileHeader` of `list` and writes it.
///
/// @return false, with nothing written, if there is no header. A failed write shows when the file
///   is closed.
KORVELFILE_EXPORT bool WriteFileHeader(GeoFile& file, DataItemListObject* list, int version);

/// Reads a header into a new `FileHeader` at the end of `list`.
///
/// A file that ends within the block counts as read.
/// @param version receives the file's version; 0 if it names none
/// @return false, with what was made so far left in `list`, if the rows aren't those of a header
KORVELFILE_EXPORT bool ReadFileHeader(GeoFileTextInputStream& in, DataItemListObject* list,
                                      int& version);

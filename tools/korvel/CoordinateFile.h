/// @file
/// Coordinate files with all that they hold, read by one way for all verbs.
#pragma once

#include <string>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "tools/korvel/ItemWalk.h"

class PxyCoordinateFile;

namespace korvel {

class LibraryMessages;

/// True if the extension is that of a coordinate file: .geo, .pxy, .llc.
bool IsCoordinateFile(const std::string& path);

/// Loads `path` into `file`, which stays in use.
/// @throws InputError that says what is wrong with it
void ReadCoordinateFile(const std::string& path, PxyCoordinateFile& file,
                        LibraryMessages& messages);

/// Writes what `file` holds to `path`, which is replaced whole, and stops using it.
/// @throws InputError if that fails
void SaveCoordinateFile(const std::string& path, PxyCoordinateFile& file,
                        LibraryMessages& messages);

/// "point", or "line.point" for a point in a line.
std::string FullName(const PointDataItem& point, const LineDataItem* line);

/// Calls `visit` with every point of `file` and the line that it stands in, null for a free one.
void ForEachPoint(const DataItemListObject& file, const auto& visit) {
  ForEach<PointDataItem>(file, [&](PointDataItem& point) { visit(point, nullptr); });
  ForEach<LineDataItem>(file, [&](LineDataItem& line) {
    ForEach<PointDataItem>(line, [&](PointDataItem& point) { visit(point, &line); });
  });
}

}  // namespace korvel

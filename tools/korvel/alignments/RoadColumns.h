/// @file
/// Columns of the results of stationing, in both directions.
#pragma once

#include <string>
#include <vector>

#include "tools/korvel/ResultWriter.h"
#include "tools/korvel/alignments/RoadFiles.h"

namespace korvel {

/// What JSON tells of a road besides the rows.
Json AboutRoad(const RoadPaths& paths);

/// @name Columns and cells that tell of the road where a point stands
/// The element, and as far as there are files for it: the height of the line, the crossfall on the
/// side of the point, rising away from the line, and the height of the surface.
/// @{
void AddRoadColumns(const Road& road, std::vector<ResultColumn>& columns);
void AddRoadCells(const Road& road, double chainage, double offset, std::vector<ResultCell>& cells);
/// @}

/// Undefined instead of what isn't known.
double KnownOrUndefined(double value);

/// How far `height` lies above `base`; undefined if one of them isn't known.
double HeightAbove(double height, double base);

inline constexpr int kMetreDecimals = 4;

}  // namespace korvel

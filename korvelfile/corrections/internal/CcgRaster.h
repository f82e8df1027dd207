#pragma once

#include <cstdint>

class CcgFileInfo;
class CcgInputGrid;

/// Floats of all nodes of a grid; 0 where it has no nodes.
std::uint64_t CountOfFloats(const CcgFileInfo& grid);

/// Where a node lies in the file, bytes from its start; -1 if there is no such node or its position
/// needs more than 32 bits.
std::int64_t NodePosition(const CcgFileInfo& grid, int row, int column);

/// Where the nodes of a sub-grid lie in a raster, snapped to the nearest nodes.
///
/// Limits that the spacing doesn't divide can put the last row or column one beyond the raster;
/// such nodes don't belong to the window.
struct CcgWindow {
  int row = -1;     ///< Of the raster, for the sub-grid's first; -1 if the sub-grid begins outside.
  int column = -1;  ///< As `row`.
  int rows = 0;
  int columns = 0;

  CcgWindow(const CcgFileInfo& raster, const CcgFileInfo& subGrid);

  bool IsInside() const { return row >= 0 && column >= 0; }
};

/// Copies the nodes of `source` to where they lie in `target`, a grid of the same correction type.
void CopyNodes(const CcgInputGrid& source, CcgInputGrid& target);

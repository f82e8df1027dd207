#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tools/korvel/corrections/CorrectionModel.h"

class CcgFileInfo;

namespace korvel {

/// The raster of a grid file, and where its nodes lie in the file. Metres, or radians for latitude
/// and longitude.
struct GridShape {
  std::string path;
  bool isGeographic = false;
  bool isPlaneFirst = false;  ///< the first two values of a node are corrections to north and east
  double northMax = 0.0;      ///< of row 0
  double eastMin = 0.0;       ///< of column 0
  double northSpacing = 0.0;
  double eastSpacing = 0.0;
  int rows = 0;
  int columns = 0;
  int values = 0;           ///< floats of a node
  std::int64_t start = 0;   ///< of the first node in the file, bytes
  std::int64_t stride = 0;  ///< from one row to the next, bytes

  ModelExtent Extent() const;
  double NorthOf(int row) const { return northMax - row * northSpacing; }
  double EastOf(int column) const { return eastMin + column * eastSpacing; }
  std::int64_t NodeCount() const { return std::int64_t{rows} * columns; }
};

/// The shape of a correction grid.
GridShape ShapeOf(const CcgFileInfo& info);

/// The shape of a correction grid or geoid grid.
/// @throws InputError if the file is neither, or its header makes no grid
GridShape ReadGridShape(const std::string& path);

/// Reads the nodes of the grid row by row from the north.
///
/// @param visit gets the number of the row and its values, node after node from the west; NaN
///   stands where there is no value
/// @return rows that the file holds whole; those behind them aren't visited
int VisitRows(const GridShape& shape,
              const std::function<void(int row, const std::vector<float>& values)>& visit);

}  // namespace korvel

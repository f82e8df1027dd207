#include "korvelfile/corrections/internal/CcgRaster.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "korvelfile/corrections/CcgInputGrid.h"

namespace {

constexpr int kFloatSize = 4;

std::uint64_t CountOfNodes(int rows, int columns) {
  if (rows <= 0 || columns <= 0) return 0;
  return static_cast<std::uint64_t>(rows) * static_cast<std::uint64_t>(columns);
}

std::ptrdiff_t FloatIndex(const CcgFileInfo& grid, int row, int column) {
  const std::ptrdiff_t node = std::ptrdiff_t{row} * grid.columns + column;
  return node * grid.GetNumberOfValues();
}

}  // namespace

std::uint64_t CountOfFloats(const CcgFileInfo& grid) {
  return CountOfNodes(grid.rows, grid.columns) *
         static_cast<std::uint64_t>(grid.GetNumberOfValues());
}

std::int64_t NodePosition(const CcgFileInfo& grid, int row, int column) {
  constexpr std::int64_t kFurthest = std::numeric_limits<std::int32_t>::max();
  if (row < 0 || row >= grid.rows || column < 0 || column >= grid.columns) return -1;
  const std::int64_t node = std::int64_t{row} * grid.columns + column;
  if (node > kFurthest) return -1;
  const std::int64_t position = grid.dataOffset + node * grid.GetNumberOfValues() * kFloatSize;
  return position <= kFurthest ? position : -1;
}

CcgWindow::CcgWindow(const CcgFileInfo& raster, const CcgFileInfo& subGrid)
    : row(raster.GetRowFromNorth(subGrid.northMax)),
      column(raster.GetColFromEast(subGrid.eastMin)) {
  if (!IsInside()) return;
  rows = std::clamp(raster.rows - row, 0, std::max(subGrid.rows, 0));
  columns = std::clamp(raster.columns - column, 0, std::max(subGrid.columns, 0));
}

void CopyNodes(const CcgInputGrid& source, CcgInputGrid& target) {
  const CcgWindow window(target, source);
  for (int row = 0; row < window.rows; ++row) {
    std::copy_n(source.residuals.begin() + FloatIndex(source, row, 0),
                window.columns * source.GetNumberOfValues(),
                target.residuals.begin() + FloatIndex(target, window.row + row, window.column));
  }
}

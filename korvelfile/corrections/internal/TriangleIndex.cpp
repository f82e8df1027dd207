#include "korvelfile/corrections/internal/TriangleIndex.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

// A uniform grid of cells, each with the triangles whose bounding box, somewhat widened, meets it.
// Trees of boxes were rejected: a network's triangles are much alike, and a cell is one access.
//
// How much wider? Let w and h be the extents of the triangle, D twice its area, q = w h / |D| and
// u = 2^-53. The test takes differences of coordinates, sums of two products of them, and quotients
// by D, all rounded. With |px - cx| = X w and |py - cy| = Y h, the computed weights of two corners
// differ from the true ones by at most about 8 u q (X + Y) + 16 u q. A point that passes has
// computed weights from 0 to 1, whence X + Y <= 4.1 as long as u q < 2^-20, and the true weights
// leave 0 to 1 by less than 50 u q. The point so leaves the box by less than 200 u q of w and h,
// which is below 2^-13 for the q that are let in. Slender triangles beyond, for which rounding can
// do anything, are candidates everywhere; those with D = 0 or NaN pass nowhere.

namespace {

constexpr double kLargestSlenderness = 1024.0 * 1024.0 * 1024.0;  // q
constexpr double kWidening = 1.0 / 1024.0;                        // parts of w and h
// Products of extents between these can't lose digits by underflow or overflow.
constexpr double kSmallestProduct = 1e-200;
constexpr double kLargestProduct = 1e200;

constexpr double kTrianglesPerCell = 4.0;
constexpr std::size_t kEntriesPerTriangle = 8;

// Extents that hold most of `values`, so that one stray corner doesn't spoil the cells.
std::pair<double, double> MainExtent(std::vector<double> values) {
  std::erase_if(values, [](double value) { return !std::isfinite(value); });
  if (values.empty()) return {0.0, 0.0};
  std::sort(values.begin(), values.end());
  const std::size_t stray = values.size() / 64;
  const double low = values[stray];
  const double high = values[values.size() - 1 - stray];
  const double margin = (high - low) / 16.0;
  return {std::max(low - margin, values.front()), std::min(high + margin, values.back())};
}

}  // namespace

CellAxis::CellAxis(double low, double high, int count) : low_(low) {
  const double factor = static_cast<double>(count) / (high - low);
  if (count < 2 || !(factor > 0.0) || !std::isfinite(factor)) return;
  factor_ = factor;
  last_ = static_cast<double>(count - 1);
}

TriangleIndex::TriangleIndex(std::vector<Vector> sample, std::size_t triangles) {
  std::vector<double> values(sample.size());
  const auto extentOf = [&](double Vector::*axis) {
    std::transform(sample.begin(), sample.end(), values.begin(),
                   [axis](const Vector& v) { return v.*axis; });
    return MainExtent(values);
  };
  const auto [left, right] = extentOf(&Vector::x);
  const auto [lower, upper] = extentOf(&Vector::y);

  const double cells = static_cast<double>(triangles) / kTrianglesPerCell;
  const double shape = (right - left) / (upper - lower);
  if (!(cells >= 1.0) || !(shape > 0.0) || !std::isfinite(shape)) return;
  const double columns = std::clamp(std::sqrt(cells * shape), 1.0, cells);
  columns_ = CellAxis(left, right, static_cast<int>(columns));
  rows_ = CellAxis(lower, upper, static_cast<int>(cells / columns));
  added_.reserve(triangles);
}

void TriangleIndex::Add(const Vector& a, const Vector& b, const Vector& c) {
  Cells& cells = added_.emplace_back();
  const double area = std::fabs((a.y - c.y) * (c.x - b.x) + (a.x - c.x) * (b.y - c.y));
  if (area == 0.0 || std::isnan(area)) return;

  const auto [left, right] = std::minmax({a.x, b.x, c.x});
  const auto [lower, upper] = std::minmax({a.y, b.y, c.y});
  const double w = right - left;
  const double h = upper - lower;
  const bool isRegular =
      w * h <= kLargestSlenderness * area && w * h >= kSmallestProduct && w * h <= kLargestProduct;
  const Vector margin(w * kWidening, h * kWidening);
  if (!isRegular || !Fits(Vector(left, lower) - margin, Vector(right, upper) + margin, cells))
    everywhere_.push_back(static_cast<int>(added_.size() - 1));
}

// False if the cells from `low` to `high` are too many.
bool TriangleIndex::Fits(const Vector& low, const Vector& high, Cells& cells) const {
  const int column = columns_.Cell(low.x);
  const int row = rows_.Cell(low.y);
  const int columns = columns_.Cell(high.x) - column + 1;
  const int rows = rows_.Cell(high.y) - row + 1;
  if (std::max(columns, rows) > std::numeric_limits<std::uint16_t>::max()) return false;
  cells = {static_cast<std::uint32_t>(CellOf(column, row)), static_cast<std::uint16_t>(columns),
           static_cast<std::uint16_t>(rows)};
  return true;
}

// Makes those triangles candidates everywhere that reach into too many cells.
void TriangleIndex::SetLargeAside() {
  std::array<std::size_t, 33> entries{};  // by bit length of the size
  for (const Cells& cells : added_)
    entries[static_cast<std::size_t>(std::bit_width(cells.Size()))] += cells.Size();
  std::size_t room = kEntriesPerTriangle * added_.size();
  int bits = 0;
  while (bits < 33 && entries[static_cast<std::size_t>(bits)] <= room)
    room -= entries[static_cast<std::size_t>(bits++)];
  if (bits == 33) return;

  for (std::size_t t = 0; t < added_.size(); ++t) {
    if (std::bit_width(added_[t].Size()) < bits) continue;
    everywhere_.push_back(static_cast<int>(t));
    added_[t].rows = 0;
  }
  std::sort(everywhere_.begin(), everywhere_.end());
}

template <class Use>
void TriangleIndex::ForEachCell(const Cells& cells, Use use) const {
  std::size_t row = cells.first;
  for (int i = 0; i < cells.rows; ++i, row += static_cast<std::size_t>(columns_.Count()))
    for (std::size_t cell = row; cell < row + cells.columns; ++cell) use(cell);
}

void TriangleIndex::Close() {
  SetLargeAside();
  starts_.assign(CellOf(0, rows_.Count()) + 1, 0);
  for (const Cells& cells : added_)
    ForEachCell(cells, [this](std::size_t cell) { ++starts_[cell]; });
  std::size_t end = 0;
  for (std::size_t& start : starts_) start = end += start;
  // Filled from the back, each end becomes a start.
  triangles_.resize(end);
  for (std::size_t t = added_.size(); t-- > 0;) {
    ForEachCell(added_[t],
                [&](std::size_t cell) { triangles_[--starts_[cell]] = static_cast<int>(t); });
  }
  added_ = {};
}

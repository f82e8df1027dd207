#include "korvelfile/corrections/internal/TriangleIndex.h"

#include <bit>
#include <cmath>
#include <limits>
#include <utility>

// Grids of square cells, one for each size of triangles, each triangle in one cell; its bounding
// box, somewhat widened, stands with it. A single grid with a triangle in every cell that it meets
// was rejected: it takes longer to fill, and long triangles fill too much of it.
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

constexpr double kLastStep = std::numeric_limits<std::uint16_t>::max();
constexpr std::size_t kTrianglesPerCell = 2;

struct Extent {
  double low;
  double high;

  double Length() const { return high - low; }
};

// By instructions that don't branch, unlike those of a list.
std::pair<double, double> MinMax(double a, double b, double c) {
  return {std::min(std::min(a, b), c), std::max(std::max(a, b), c)};
}

// What holds most of the sample along an axis, so that one stray corner doesn't spoil the cells.
Extent MainExtent(const std::vector<Vector>& sample, double Vector::*axis) {
  std::vector<double> values;
  for (const Vector& v : sample)
    if (std::isfinite(v.*axis)) values.push_back(v.*axis);
  if (values.empty()) return {0.0, 0.0};
  std::sort(values.begin(), values.end());
  const std::size_t stray = values.size() / 64;
  const Extent inner{values[stray], values[values.size() - 1 - stray]};
  const double margin = inner.Length() / 16.0;
  return {inner.low - margin, inner.high + margin};
}

}  // namespace

StepAxis::StepAxis(double low, double high, double length) : low_(low) {
  const double factor = 1.0 / length;
  if (!(factor > 0.0) || !std::isfinite(factor) || !std::isfinite(low)) return;
  factor_ = factor;
  last_ = std::floor(std::min((high - low) * factor, kLastStep));
}

TriangleIndex::TriangleIndex(const std::vector<Vector>& sample, std::size_t triangles) {
  const Extent x = MainExtent(sample, &Vector::x);
  const Extent y = MainExtent(sample, &Vector::y);
  const double length = std::max(x.Length(), y.Length()) / kLastStep;
  columns_ = StepAxis(x.low, x.high, length);
  rows_ = StepAxis(y.low, y.high, length);
  AddLevels(triangles / kTrianglesPerCell + 1);
  added_.reserve(triangles);
}

// The first level has at most `cells`, and so all of them about as many.
void TriangleIndex::AddLevels(std::size_t cells) {
  const auto count = [](const StepAxis& axis, int shift) {
    return std::size_t{axis.Last()} / (std::size_t{1} << shift) + 1;
  };
  std::size_t end = 0;
  for (int shift = 0; shift <= StepAxis::kBits; ++shift) {
    const std::size_t columns = count(columns_, shift);
    const std::size_t size = columns * count(rows_, shift);
    if (shift < StepAxis::kBits && size > cells) continue;
    levels_.push_back({shift, columns, end, end + size});
    end += size;
  }
  starts_.assign(end + 1, 0);
}

TriangleIndex::Box TriangleIndex::BoxOf(const Vector& a, const Vector& b, const Vector& c) const {
  const double area = std::fabs((a.y - c.y) * (c.x - b.x) + (a.x - c.x) * (b.y - c.y));
  if (area == 0.0 || std::isnan(area)) return {1, 0, 1, 0};

  const auto [left, right] = MinMax(a.x, b.x, c.x);
  const auto [lower, upper] = MinMax(a.y, b.y, c.y);
  const double w = right - left;
  const double h = upper - lower;
  const bool isRegular =
      w * h <= kLargestSlenderness * area && w * h >= kSmallestProduct && w * h <= kLargestProduct;
  if (!isRegular) return {0, columns_.Last(), 0, rows_.Last()};
  return {columns_.Step(left - w * kWidening), columns_.Step(right + w * kWidening),
          rows_.Step(lower - h * kWidening), rows_.Step(upper + h * kWidening)};
}

std::size_t TriangleIndex::CellOf(const Box& box) const {
  const auto size =
      static_cast<std::uint16_t>(std::max(box.right - box.left, box.upper - box.lower));
  const int level = std::max(static_cast<int>(std::bit_width(size)) - levels_.front().shift, 0);
  return levels_[static_cast<std::size_t>(level)].Cell(box.left, box.lower);
}

void TriangleIndex::Add(const Vector& a, const Vector& b, const Vector& c) {
  added_.push_back(BoxOf(a, b, c));
}

void TriangleIndex::Close() {
  for (const Box& box : added_)
    if (!box.IsEmpty()) ++starts_[CellOf(box)];
  std::uint32_t end = 0;
  for (std::uint32_t& start : starts_) start = end += start;
  // Filled from the back, each end becomes a start.
  entries_ = std::make_unique_for_overwrite<Entry[]>(end);
  for (std::size_t t = added_.size(); t-- > 0;) {
    if (added_[t].IsEmpty()) continue;
    entries_[--starts_[CellOf(added_[t])]] = {static_cast<int>(t), added_[t]};
  }
  added_ = {};
  std::erase_if(levels_,
                [this](const Level& level) { return starts_[level.begin] == starts_[level.end]; });
}

#include "tools/korvel/PlotLabels.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>

namespace {

constexpr double kCell = 1.5;  // points

// What it costs to cover a cell with each content.
constexpr int kLineCost = 1;
constexpr int kArrowCost = 40;
constexpr int kSignCost = 10000;

// Where a name stands round its sign, best first: the centre of the name less that of the sign, in
// halves of the name's size and gaps.
struct Direction {
  double x, y;
};
constexpr std::array<Direction, 8> kDirections{
    {{1, 0}, {-1, 0}, {0.8, -0.9}, {-0.8, -0.9}, {0.8, 0.9}, {-0.8, 0.9}, {0, -1}, {0, 1}}};

// A line or a sign of far outside must not cost time.
int ToCell(double offset) {
  return static_cast<int>(std::clamp(std::floor(offset / kCell), -1e6, 1e6));
}

}  // namespace

namespace korvel {

PlotLabels::PlotLabels(const Vector& corner, const Vector& size)
    : corner_(corner),
      columns_(ToCell(size.x) + 1),
      rows_(ToCell(size.y) + 1),
      raster_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_)) {}

unsigned char& PlotLabels::At(int column, int row) {
  return raster_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                 static_cast<std::size_t>(column)];
}

unsigned char PlotLabels::At(int column, int row) const {
  return const_cast<PlotLabels&>(*this).At(column, row);
}

PlotLabels::Cells PlotLabels::CellsOf(const Vector& corner, const Vector& size) const {
  const Vector from = corner - corner_;
  const Vector to = from + size;
  return {ToCell(from.x), ToCell(from.y), ToCell(to.x), ToCell(to.y)};
}

bool PlotLabels::IsInside(const Cells& c) const {
  return c.left >= 0 && c.top >= 0 && c.right < columns_ && c.bottom < rows_;
}

void PlotLabels::Mark(const Cells& c, unsigned char what) {
  for (int row = std::max(c.top, 0); row <= std::min(c.bottom, rows_ - 1); ++row)
    for (int column = std::max(c.left, 0); column <= std::min(c.right, columns_ - 1); ++column)
      At(column, row) |= what;
}

int PlotLabels::CostOf(unsigned char content) {
  if (content & kSign) return kSignCost;
  return content & kArrow ? kArrowCost : content & kLine ? kLineCost : 0;
}

int PlotLabels::Cost(const Cells& c) const {
  int cost = 0;
  for (int row = c.top; row <= c.bottom; ++row)
    for (int column = c.left; column <= c.right; ++column) cost += CostOf(At(column, row));
  return cost;
}

void PlotLabels::AddSign(const Vector& at, double radius) {
  Mark(CellsOf(at - Vector(radius, radius), Vector(radius, radius) * 2.0), kSign);
}

void PlotLabels::AddLine(const Vector& from, const Vector& to) { MarkAlong(from, to, kLine); }

void PlotLabels::AddArrow(const Vector& from, const Vector& to) { MarkAlong(from, to, kArrow); }

void PlotLabels::MarkAlong(const Vector& from, const Vector& to, unsigned char what) {
  const Vector way = to - from;
  const double length = way.GetLength();
  for (double done = 0.0; done < length; done += kCell)
    Mark(CellsOf(from + way * (done / length), {}), what);
}

std::optional<Vector> PlotLabels::Place(const Vector& at, const Vector& size, double gap,
                                        bool isMust) {
  int least = INT_MAX;
  Cells taken{};
  Vector place;
  for (const Direction& d : kDirections) {
    const Vector centre = at + Vector(d.x * (gap + size.x / 2.0), d.y * (gap + size.y / 2.0));
    const Vector corner = centre - size * 0.5;
    const Cells cells = CellsOf(corner, size);
    if (!IsInside(cells)) continue;
    const int cost = Cost(cells);
    if (cost >= least) continue;
    least = cost;
    taken = cells;
    place = corner + Vector(0.0, size.y);
  }
  if (least == INT_MAX || (least >= kArrowCost && !isMust)) return {};
  Mark(taken, kSign);
  return place;
}

}  // namespace korvel

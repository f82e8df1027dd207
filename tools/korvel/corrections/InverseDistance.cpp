#include "tools/korvel/corrections/InverseDistance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace {

using korvel::Residual;

constexpr double kEarthRadius = 6378137.0;  // metres
constexpr double kAtNode = 1e-6;            // metres; nearer than this is at the node

// What the residuals within reach of a node add up to.
struct NodeSum {
  double weight = 0.0;
  std::array<double, 3> values{};

  void Add(const Residual& residual, double distance) {
    const double w = 1.0 / std::pow(std::max(distance, kAtNode), 2);
    weight += w;
    for (std::size_t i = 0; i < values.size(); ++i)
      values[i] += w * static_cast<double>(residual.values[i]);
  }
};

// First and last of the nodes along an axis that lie within `reach` of `at`, all in spacings.
struct Span {
  int first;
  int last;

  Span(double at, double reach, int count)
      : first(static_cast<int>(std::clamp(std::ceil(at - reach), 0.0, count - 1.0))),
        last(static_cast<int>(std::clamp(std::floor(at + reach), -1.0, count - 1.0))) {}
};

// Adds residuals to all nodes within reach of them.
class Spreading {
 public:
  Spreading(const CcgInputGrid& grid, double radius)
      : grid_(grid),
        radius_(radius),
        metres_(grid.IsLatLongType() ? kEarthRadius : 1.0),
        sums_(static_cast<std::size_t>(grid.rows) * static_cast<std::size_t>(grid.columns)) {}

  void Add(const Residual& residual) {
    const double rowLength = grid_.northSpacing * metres_;
    const double row = (grid_.northMax - residual.north) / grid_.northSpacing;
    const Span rows(row, radius_ / rowLength, grid_.rows);
    for (int r = rows.first; r <= rows.last; ++r) AddToRow(residual, r, (r - row) * rowLength);
  }

  const std::vector<NodeSum>& Sums() const { return sums_; }

 private:
  // Parallels are shorter than the equator.
  double ColumnLength(int row) const {
    const double length = grid_.eastSpacing * metres_;
    if (!grid_.IsLatLongType()) return length;
    const double latitude = grid_.northMax - row * grid_.northSpacing;
    return length * std::max(std::cos(latitude), std::numeric_limits<float>::epsilon() * 1.0);
  }

  void AddToRow(const Residual& residual, int row, double south) {
    const double columnLength = ColumnLength(row);
    const double column = (residual.east - grid_.eastMin) / grid_.eastSpacing;
    const double reach = std::sqrt(std::max(0.0, radius_ * radius_ - south * south));
    const Span columns(column, reach / columnLength, grid_.columns);
    for (int c = columns.first; c <= columns.last; ++c) {
      const double distance = std::hypot(south, (c - column) * columnLength);
      if (distance <= radius_)
        sums_[static_cast<std::size_t>(row) * static_cast<std::size_t>(grid_.columns) +
              static_cast<std::size_t>(c)]
            .Add(residual, distance);
    }
  }

  const CcgInputGrid& grid_;
  double radius_;
  double metres_;  ///< of one unit of the grid, along a meridian
  std::vector<NodeSum> sums_;
};

}  // namespace

void korvel::SpreadByInverseDistance(const std::vector<Residual>& residuals, double radius,
                                     CcgInputGrid& grid,
                                     const std::function<void(double)>& progress) {
  Spreading spreading(grid, radius);
  for (std::size_t i = 0; i < residuals.size(); ++i) {
    progress(static_cast<double>(i) / static_cast<double>(residuals.size()));
    spreading.Add(residuals[i]);
  }
  const auto values = static_cast<std::size_t>(grid.GetNumberOfValues());
  for (std::size_t node = 0; node < spreading.Sums().size(); ++node) {
    const NodeSum& sum = spreading.Sums()[node];
    if (sum.weight <= 0.0) continue;
    for (std::size_t i = 0; i < values; ++i)
      grid.residuals[node * values + i] = static_cast<float>(sum.values.at(i) / sum.weight);
  }
}

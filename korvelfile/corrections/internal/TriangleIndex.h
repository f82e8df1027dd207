#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "korvelfile/outside/base/Vector.h"

/// Part of one axis of the plane, divided into equal cells; what lies beyond counts to the
/// outermost.
class CellAxis {
 public:
  CellAxis() = default;  ///< One cell.

  /// `count` cells from `low` to `high`.
  CellAxis(double low, double high, int count);

  /// The cell of `value`. Never falls where `value` grows; 0 for NaN.
  int Cell(double value) const {
    const double cell = (value - low_) * factor_;
    if (!(cell > 0.0)) return 0;
    return cell < last_ ? static_cast<int>(cell) : static_cast<int>(last_);
  }

  int Count() const { return static_cast<int>(last_) + 1; }

 private:
  double low_ = 0.0;
  double factor_ = 0.0;
  double last_ = 0.0;
};

/// Tells which triangles may pass the barycentric test of `Generic2DTin` for a point.
///
/// No triangle that passes is ever left out, however the test is rounded. Memory stays in
/// proportion to the triangles, whatever their shape.
class TriangleIndex {
 public:
  /// Of no triangles.
  TriangleIndex() = default;

  /// For `triangles` triangles whose corners lie as those in `sample`.
  TriangleIndex(std::vector<Vector> sample, std::size_t triangles);

  /// Adds the triangle with the next number, from 0.
  void Add(const Vector& a, const Vector& b, const Vector& c);

  /// Ends the adding.
  void Close();

  /// Candidates at `p`, in ascending order.
  std::span<const int> At(const Vector& p) const {
    const std::size_t cell = CellOf(columns_.Cell(p.x), rows_.Cell(p.y));
    return {triangles_.data() + starts_[cell], starts_[cell + 1] - starts_[cell]};
  }

  /// Candidates at any point, beside `At`, in ascending order.
  std::span<const int> Everywhere() const { return everywhere_; }

 private:
  // The cells that a triangle may reach into; no row if they are to be no candidates there.
  struct Cells {
    std::uint32_t first = 0;
    std::uint16_t columns = 0;
    std::uint16_t rows = 0;

    std::size_t Size() const { return std::size_t{columns} * rows; }
  };

  std::size_t CellOf(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_.Count()) +
           static_cast<std::size_t>(column);
  }
  bool Fits(const Vector& low, const Vector& high, Cells& cells) const;
  void SetLargeAside();
  template <class Use>
  void ForEachCell(const Cells& cells, Use use) const;

  CellAxis columns_;
  CellAxis rows_;
  std::vector<Cells> added_;
  int count_ = 0;                             // of triangles added
  std::vector<std::size_t> starts_ = {0, 0};  // of the cells' candidates, and the last end
  std::vector<int> triangles_;
  std::vector<int> everywhere_;
};

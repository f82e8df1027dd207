#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "korvelfile/outside/base/Vector.h"

/// One axis of the plane in steps of equal length; what lies beyond counts to the first or last.
class StepAxis {
 public:
  static constexpr int kBits = 16;  ///< that hold the number of a step

  StepAxis() = default;  ///< One step.

  /// Steps of `length` from `low`, the last one with `high`.
  StepAxis(double low, double high, double length);

  /// The step with `value`. Never falls where `value` grows; 0 for NaN.
  std::uint16_t Step(double value) const {
    return static_cast<std::uint16_t>(std::min(std::max(0.0, (value - low_) * factor_), last_));
  }

  /// Number of the last step.
  std::uint16_t Last() const { return static_cast<std::uint16_t>(last_); }

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

  /// For `triangles` triangles whose corners lie about as those in `sample`.
  TriangleIndex(const std::vector<Vector>& sample, std::size_t triangles);

  /// Adds the triangle with the next number, from 0.
  void Add(const Vector& a, const Vector& b, const Vector& c);

  /// Ends the adding.
  void Close();

  /// Hands the number of each candidate at `p` to `use`.
  template <class Use>
  void ForEachAt(const Vector& p, Use use) const {
    const std::uint16_t x = columns_.Step(p.x);
    const std::uint16_t y = rows_.Step(p.y);
    for (const Level& level : levels_) {
      const std::size_t cell = level.Cell(x, y);
      const bool hasLeft = x >> level.shift > 0;
      const bool hasLower = y >> level.shift > 0;
      if (hasLower) ForEachIn(cell - level.columns - hasLeft, cell - level.columns, x, y, use);
      ForEachIn(cell - hasLeft, cell, x, y, use);
    }
  }

 private:
  // Extent of a triangle in steps, ends included; nothing at all if the ends are crossed over.
  struct Box {
    std::uint16_t left;
    std::uint16_t right;
    std::uint16_t lower;
    std::uint16_t upper;

    bool Holds(std::uint16_t x, std::uint16_t y) const {
      return left <= x && x <= right && lower <= y && y <= upper;
    }
    bool IsEmpty() const { return left > right; }
  };

  struct Entry {
    int triangle;
    Box box;
  };

  // Square cells of 2^shift steps. A cell lists the triangles whose lower left corner it holds,
  // none of them longer than a cell: they end in the next cell at the farthest.
  struct Level {
    int shift;
    std::size_t columns;
    std::size_t begin;  // its first cell
    std::size_t end;

    std::size_t Cell(std::uint16_t x, std::uint16_t y) const {
      return begin + (std::size_t{y} >> shift) * columns + (std::size_t{x} >> shift);
    }
  };

  template <class Use>
  void ForEachIn(std::size_t firstCell, std::size_t lastCell, std::uint16_t x, std::uint16_t y,
                 Use& use) const {
    for (std::size_t e = starts_[firstCell]; e < starts_[lastCell + 1]; ++e)
      if (entries_[e].box.Holds(x, y)) use(entries_[e].triangle);
  }

  Box BoxOf(const Vector& a, const Vector& b, const Vector& c) const;
  std::size_t CellOf(const Box& box) const;
  void AddLevels(std::size_t cells);

  StepAxis columns_;
  StepAxis rows_;
  std::vector<Level> levels_;          // from the smallest cells to one that is everything
  std::vector<Box> added_;             // by triangle
  std::vector<std::uint32_t> starts_;  // of the cells' entries, and the last end
  std::unique_ptr<Entry[]> entries_;
};

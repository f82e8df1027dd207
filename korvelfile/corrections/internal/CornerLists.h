#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "korvelfile/corrections/internal/Prefetch.h"

/// Corner of a triangle: which triangle and which of its vertices, in one word.
class Corner {
 public:
  Corner() = default;
  Corner(std::size_t triangle, std::size_t vertex)
      : word_(static_cast<std::uint32_t>(4 * triangle + vertex)) {}

  int Triangle() const { return static_cast<int>(word_ >> 2U); }
  std::size_t Vertex() const { return word_ & 3U; }

 private:
  std::uint32_t word_;
};

/// The corners of triangles by the point that they stand at.
class CornerLists {
 public:
  /// @param triangles fewer than 2^30, with vertices below `points`
  template <class T>
  CornerLists(const std::vector<T>& triangles, std::size_t points)
      : starts_(points + 2),
        corners_(std::make_unique_for_overwrite<Corner[]>(3 * triangles.size())) {
    for (const T& triangle : triangles)
      for (const int point : triangle.vertex) ++starts_[static_cast<std::size_t>(point) + 2];
    for (std::size_t p = 2; p < starts_.size(); ++p) starts_[p] += starts_[p - 1];
    for (std::size_t t = 0; t < triangles.size(); ++t) {
      if (t + kPrefetchDistance < triangles.size())
        for (const int point : triangles[t + kPrefetchDistance].vertex) Prefetch(EndOf(point));
      for (std::size_t i = 0; i < 3; ++i) {
        *EndOf(triangles[t].vertex[i]) = Corner(t, i);
        ++starts_[static_cast<std::size_t>(triangles[t].vertex[i]) + 1];
      }
    }
  }

  /// Those at `point`, by ascending triangle.
  std::span<const Corner> At(std::size_t point) const {
    return {corners_.get() + starts_[point], starts_[point + 1] - starts_[point]};
  }

 private:
  // While filling: where the next corner at `point` goes. The start of the list behind is the end.
  Corner* EndOf(int point) { return corners_.get() + starts_[static_cast<std::size_t>(point) + 1]; }

  std::vector<std::uint32_t> starts_;  // and the last end
  std::unique_ptr<Corner[]> corners_;
};

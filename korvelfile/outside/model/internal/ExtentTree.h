#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <limits>
#include <vector>

#include "korvelfile/outside/base/Rect.h"
#include "korvelfile/outside/base/Vector.h"
#include "korvelfile/outside/model/internal/NearestFirst.h"

namespace Model {

/// Finds what lies near a point among things that follow each other along a line.
///
/// A binary tree over their extents in the order of the line: what follows each other lies near
/// each other, so that the extents of halves, quarters and so on are small.
class ExtentTree {
 public:
  /// Of things with these extents, numbered from 0.
  explicit ExtentTree(const std::vector<Rect>& extents)
      : count_(extents.size()),
        leaves_(std::bit_ceil(count_)),
        nodes_(2 * leaves_, Rect::Nothing()) {
    for (std::size_t i = 0; i < count_; ++i) nodes_[leaves_ + i] = extents[i];
    for (std::size_t i = leaves_ - 1; i >= kRoot; --i)
      nodes_[i] = Union(nodes_[2 * i], nodes_[2 * i + 1]);
  }

  /// Calls `visit(number)` for things by and by, near ones first, as long as the square of the
  /// distance from `point` to their extent is no more than what `visit` gave last.
  ///
  /// The nearest node of all goes first, not the nearer half of the last one: where a line comes
  /// back to where it was, the wrong half would be searched to its leaves.
  template <class Visit>
  void ForNear(const Vector& point, Visit visit) const {
    double limit = std::numeric_limits<double>::infinity();
    NearestFirst waiting;
    waiting.Push({0.0, kRoot});
    while (waiting.GetNearest() <= limit && !waiting.IsEmpty()) {
      const std::size_t leaf = Descend(waiting.Take(), point, waiting);
      if (leaf < count_) limit = visit(leaf);
    }
  }

 private:
  static constexpr std::size_t kRoot = 1;

  static Rect Union(const Rect& a, const Rect& b) {
    return {std::min(a.left, b.left), std::max(a.top, b.top), std::max(a.right, b.right),
            std::min(a.bottom, b.bottom)};
  }

  static double SquareDistance(const Rect& r, const Vector& p) {
    const double dx = std::max(std::max(r.left - p.x, p.x - r.right), 0.0);
    const double dy = std::max(std::max(r.bottom - p.y, p.y - r.top), 0.0);
    return dx * dx + dy * dy;
  }

  // Goes down, always into the nearest half there is, until that is a leaf; gives its number.
  std::size_t Descend(NearestFirst::Candidate here, const Vector& point,
                      NearestFirst& waiting) const {
    while (here.node < leaves_) {
      const double first = SquareDistance(nodes_[2 * here.node], point);
      const double second = SquareDistance(nodes_[2 * here.node + 1], point);
      const std::size_t isSecondNearer = second < first ? 1 : 0;
      waiting.Push({std::max(first, second), 2 * here.node + 1 - isSecondNearer});
      here = {std::min(first, second), 2 * here.node + isSecondNearer};
      if (here.square <= waiting.GetNearest()) continue;
      waiting.Push(here);
      here = waiting.Take();
    }
    return here.node - leaves_;
  }

  std::size_t count_;
  std::size_t leaves_;       // number of the first leaf
  std::vector<Rect> nodes_;  // the halves of n are 2 n and 2 n + 1
};

}  // namespace Model

#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

#include "korvelfile/outside/base/Rect.h"
#include "korvelfile/outside/base/Vector.h"

namespace Model {

/// Finds what lies near a point among things that follow each other along a line.
///
/// A balanced binary tree over their extents in the order of the line: what follows each other lies
/// near each other, so that the extents of halves, quarters and so on are small.
class ExtentTree {
 public:
  ExtentTree() = default;  ///< Of nothing.

  /// Of things with these extents, numbered from 0.
  explicit ExtentTree(const std::vector<Rect>& extents) : count_(extents.size()) {
    nodes_.resize(4 * count_);
    if (count_ > 0) Build(extents, kRoot, 0, count_);
  }

  /// Calls `visit(number)` for things by and by, near ones first, as long as the square of the
  /// distance from `point` to their extent is no more than what `visit` gave last.
  template <class Visit>
  void ForNear(const Vector& point, Visit visit) const {
    double limit = std::numeric_limits<double>::infinity();
    if (count_ > 0) Walk(point, kRoot, 0, count_, limit, visit);
  }

 private:
  static constexpr std::size_t kRoot = 1;

  static double SquareDistance(const Rect& r, const Vector& p) {
    const double dx = std::max({r.left - p.x, p.x - r.right, 0.0});
    const double dy = std::max({r.bottom - p.y, p.y - r.top, 0.0});
    return dx * dx + dy * dy;
  }

  void Build(const std::vector<Rect>& extents, std::size_t node, std::size_t begin,
             std::size_t end) {
    if (end - begin == 1) {
      nodes_[node] = extents[begin];
      return;
    }
    const std::size_t middle = begin + (end - begin) / 2;
    Build(extents, 2 * node, begin, middle);
    Build(extents, 2 * node + 1, middle, end);
    const Rect& a = nodes_[2 * node];
    const Rect& b = nodes_[2 * node + 1];
    nodes_[node] = Rect(std::min(a.left, b.left), std::max(a.top, b.top),
                        std::max(a.right, b.right), std::min(a.bottom, b.bottom));
  }

  template <class Visit>
  void Walk(const Vector& point, std::size_t node, std::size_t begin, std::size_t end,
            double& limit, Visit& visit) const {
    if (end - begin == 1) {
      limit = visit(begin);
      return;
    }
    const std::size_t middle = begin + (end - begin) / 2;
    const double first = SquareDistance(nodes_[2 * node], point);
    const double second = SquareDistance(nodes_[2 * node + 1], point);
    const bool isFirstNearer = first <= second;
    for (const bool takesFirst : {isFirstNearer, !isFirstNearer}) {
      if (!((takesFirst ? first : second) <= limit)) return;
      if (takesFirst) {
        Walk(point, 2 * node, begin, middle, limit, visit);
      } else {
        Walk(point, 2 * node + 1, middle, end, limit, visit);
      }
    }
  }

  std::size_t count_ = 0;
  std::vector<Rect> nodes_;  // the halves of n are 2 n and 2 n + 1
};

}  // namespace Model

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Tells each triangle of a network its neighbours.
///
/// The rule, which also settles what comes of triangles that are no network in the plane: point by
/// point from number 1 (each edge has a second end), the triangles at the point in ascending order
/// are each compared with all later ones there, as long as the first of the two lacks a neighbour.
/// If they share an edge, each becomes the neighbour of the other across it.
///
/// In a network in the plane no order matters: an edge has at most two triangles, and two triangles
/// share at most one edge. There the edges are just matched, in linear time.
template <class T>
class TriangleLinks {
 public:
  /// @param triangles with vertices below `pointCount`
  TriangleLinks(std::vector<T>& triangles, std::size_t pointCount)
      : triangles_(triangles), pointCount_(pointCount) {}

  /// False, without any neighbours, if comparing gets out of all proportion to the triangles.
  bool Link() {
    Clear();
    if (MatchEdges()) return true;
    Clear();
    if (CompareTriangles()) return true;
    Clear();
    return false;
  }

 private:
  static constexpr std::int64_t kComparisonsPerTriangle = 64;
  static constexpr std::int64_t kFreeComparisons = std::int64_t{1} << 24U;
  static constexpr std::ptrdiff_t kShortList = 16;

  // Edge at its end with the lower number.
  struct Edge {
    int other;           // end
    std::uint32_t side;  // 3 times triangle plus edge
  };

  // Lists by point, one behind the other; that of point p ends where that of p + 1 begins.
  template <class Entry>
  struct Lists {
    std::vector<std::size_t> starts;
    std::vector<Entry> entries;
  };

  static std::size_t Next(std::size_t i) { return (i + 1) % 3; }

  void Clear() {
    for (T& triangle : triangles_) triangle.neighbour.fill(T::kNone);
  }

  // Lists of what `forEach` hands with its point to the function that it is given.
  template <class Entry, class ForEach>
  Lists<Entry> MakeLists(ForEach forEach) const {
    Lists<Entry> lists;
    lists.starts.resize(pointCount_ + 2);
    forEach([&](int point, const Entry&) { ++lists.starts[static_cast<std::size_t>(point) + 2]; });
    for (std::size_t i = 2; i < lists.starts.size(); ++i) lists.starts[i] += lists.starts[i - 1];
    lists.entries.resize(lists.starts.back());
    forEach([&](int point, const Entry& entry) {
      lists.entries[lists.starts[static_cast<std::size_t>(point) + 1]++] = entry;
    });
    return lists;
  }

  template <class Use>
  void ForEachEdge(Use use) const {
    std::uint32_t side = 0;
    for (const T& triangle : triangles_) {
      for (std::size_t i = 0; i < 3; ++i) {
        const auto [low, high] = std::minmax(triangle.vertex[i], triangle.vertex[Next(i)]);
        use(low, Edge{high, side++});
      }
    }
  }

  // False if the triangles are no network in the plane.
  bool MatchEdges() {
    Lists<Edge> lists = MakeLists<Edge>([this](auto use) { this->ForEachEdge(use); });
    for (std::size_t p = 0; p < pointCount_; ++p) {
      Edge* const begin = lists.entries.data() + lists.starts[p];
      Edge* const end = lists.entries.data() + lists.starts[p + 1];
      if (!(end - begin <= kShortList ? MatchShortList(begin, end) : MatchLongList(begin, end)))
        return false;
    }
    return std::all_of(triangles_.begin(), triangles_.end(), &IsPlain);
  }

  bool MatchShortList(const Edge* begin, const Edge* end) {
    for (const Edge* a = begin; a != end; ++a)
      for (const Edge* b = a + 1; b != end; ++b)
        if (a->other == b->other && !Match(a->side, b->side)) return false;
    return true;
  }

  bool MatchLongList(Edge* begin, Edge* end) {
    std::sort(begin, end, [](const Edge& a, const Edge& b) { return a.other < b.other; });
    for (const Edge* b = begin + 1; b != end; ++b)
      if (b[-1].other == b->other && !Match(b[-1].side, b->side)) return false;
    return true;
  }

  bool Match(std::uint32_t side, std::uint32_t otherSide) {
    int& neighbour = triangles_[side / 3].neighbour[side % 3];
    int& otherNeighbour = triangles_[otherSide / 3].neighbour[otherSide % 3];
    if (neighbour != T::kNone || otherNeighbour != T::kNone) return false;
    neighbour = static_cast<int>(otherSide / 3);
    otherNeighbour = static_cast<int>(side / 3);
    return true;
  }

  // No vertex twice, and no neighbour twice.
  static bool IsPlain(const T& triangle) {
    for (std::size_t i = 0; i < 3; ++i) {
      if (triangle.vertex[i] == triangle.vertex[Next(i)]) return false;
      const int neighbour = triangle.neighbour[i];
      if (neighbour != T::kNone && neighbour == triangle.neighbour[Next(i)]) return false;
    }
    return true;
  }

  bool CompareTriangles() {
    const Lists<int> lists = MakeLists<int>([this](auto use) {
      for (std::size_t t = 0; t < triangles_.size(); ++t)
        for (const int point : triangles_[t].vertex) use(point, static_cast<int>(t));
    });
    std::int64_t room = kFreeComparisons + kComparisonsPerTriangle * std::ssize(triangles_);
    for (std::size_t p = 1; p < pointCount_; ++p) {
      const int* const end = lists.entries.data() + lists.starts[p + 1];
      for (const int* a = lists.entries.data() + lists.starts[p]; a != end; ++a)
        if (!CompareWithLater(*a, a + 1, end, room)) return false;
    }
    return true;
  }

  // False once `room`, the number of comparisons that are still allowed, is used up.
  bool CompareWithLater(int triangle, const int* later, const int* end, std::int64_t& room) {
    const T& first = triangles_[static_cast<std::size_t>(triangle)];
    for (; later != end && HasOpenSide(first); ++later) {
      if (--room < 0) return false;
      JoinAtCommonEdge(triangle, *later);
    }
    return true;
  }

  static bool HasOpenSide(const T& triangle) {
    return std::find(triangle.neighbour.begin(), triangle.neighbour.end(), T::kNone) !=
           triangle.neighbour.end();
  }

  void JoinAtCommonEdge(int t1, int t2) {
    T& first = triangles_[static_cast<std::size_t>(t1)];
    T& second = triangles_[static_cast<std::size_t>(t2)];
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) {
        if (!common_edge(first.vertex[i], first.vertex[Next(i)], second.vertex[j],
                         second.vertex[Next(j)]))
          continue;
        first.neighbour[i] = t2;
        second.neighbour[j] = t1;
        return;
      }
    }
  }

  // True if the edges (a, b) and (c, d) are the same, whichever way they run.
  static bool common_edge(int a, int b, int c, int d) {
    return (a == c && b == d) || (a == d && b == c);
  }

  std::vector<T>& triangles_;
  std::size_t pointCount_;
};

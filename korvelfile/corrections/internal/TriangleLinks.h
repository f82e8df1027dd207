#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "korvelfile/corrections/internal/CornerLists.h"
#include "korvelfile/corrections/internal/Prefetch.h"

/// Tells each triangle of a network its neighbours.
///
/// The rule, which also settles what comes of triangles that are no network in the plane: point by
/// point from number 1 (each edge has a second end), the triangles at the point in ascending order
/// are each compared with all later ones there, as long as the first of the two lacks a neighbour.
/// If they share an edge, each becomes the neighbour of the other across it.
///
/// In a network in the plane no order matters, as long as all triangles run the same way round: an
/// edge has one triangle that it runs forwards in and one that it runs backwards in, or lacks one
/// of them. There the edges are just matched, in linear time.
template <class T>
class TriangleLinks {
 public:
  /// @param triangles without neighbours
  /// @param corners   of the `triangles`
  TriangleLinks(std::vector<T>& triangles, const CornerLists& corners, std::size_t points)
      : triangles_(triangles), corners_(corners), points_(points) {}

  /// False, without any neighbours, if comparing gets out of all proportion to the triangles.
  bool Link() {
    if (MatchEdges()) return true;
    Clear();
    if (CompareTriangles()) return true;
    Clear();
    return false;
  }

 private:
  static constexpr std::size_t kPointsAhead = 4;  // for their triangles to be fetched from memory
  static constexpr std::int64_t kComparisonsPerTriangle = 64;
  static constexpr std::int64_t kFreeComparisons = std::int64_t{1} << 24U;

  // Vertices of one triangle. By tables of two bits: which vertex it is can't be foretold, and a
  // wrong guess of the processor costs more than all the rest.
  static std::size_t Next(std::size_t vertex) { return (0b00'10'01U >> (2 * vertex)) & 3U; }
  static std::size_t Prior(std::size_t vertex) { return (0b01'00'10U >> (2 * vertex)) & 3U; }

  T& At(int triangle) const { return triangles_[static_cast<std::size_t>(triangle)]; }

  void Clear() {
    for (T& triangle : triangles_) triangle.neighbour.fill(T::kNone);
  }

  // What the edges that end at a point come from: by their begin, the last point whose edges were
  // looked at, plus 1, and the triangle of the edge.
  struct Arrival {
    std::uint32_t at = 0;
    int triangle = 0;
  };

  // False if the triangles are no network in the plane.
  bool MatchEdges() {
    std::vector<Arrival> arrivals(points_);
    bool isPlane = true;
    for (std::uint32_t p = 0; p < points_; ++p) {
      if (p + kPointsAhead < points_)
        for (const Corner corner : corners_.At(p + kPointsAhead))
          Prefetch(&At(corner.Triangle()).vertex);
      isPlane &= MatchEdgesAt(p, arrivals);
    }
    return isPlane && std::all_of(triangles_.begin(), triangles_.end(), &IsPlain);
  }

  // Each edge that leaves `point` meets the one that arrives there from its end. False if two
  // arrive from the same point.
  bool MatchEdgesAt(std::uint32_t point, std::vector<Arrival>& arrivals) {
    const std::uint32_t mark = point + 1;
    bool isPlane = true;
    for (const Corner corner : corners_.At(point)) {
      const T& triangle = At(corner.Triangle());
      const int from = triangle.vertex[Prior(corner.Vertex())];
      Arrival& arrival = arrivals[static_cast<std::size_t>(from)];
      isPlane &= arrival.at != mark;
      arrival = {mark, corner.Triangle()};
    }
    for (const Corner corner : corners_.At(point)) {
      T& triangle = At(corner.Triangle());
      const int to = triangle.vertex[Next(corner.Vertex())];
      const Arrival& arrival = arrivals[static_cast<std::size_t>(to)];
      triangle.neighbour[corner.Vertex()] = arrival.at == mark ? arrival.triangle : T::kNone;
    }
    return isPlane;
  }

  // No neighbour twice. A triangle with a vertex twice would be its own, two times.
  static bool IsPlain(const T& triangle) {
    const auto& [i, j, k] = triangle.neighbour;
    const auto isTwice = [](int s, int t) { return s == t && s != T::kNone; };
    return !isTwice(i, j) && !isTwice(j, k) && !isTwice(k, i);
  }

  bool CompareTriangles() {
    std::int64_t room = kFreeComparisons + kComparisonsPerTriangle * std::ssize(triangles_);
    for (std::size_t p = 1; p < points_; ++p) {
      std::span<const Corner> later = corners_.At(p);
      while (!later.empty()) {
        const int triangle = later.front().Triangle();
        later = later.subspan(1);
        if (!CompareWithLater(triangle, later, room)) return false;
      }
    }
    return true;
  }

  // False once `room`, the number of comparisons that are still allowed, is used up.
  bool CompareWithLater(int triangle, std::span<const Corner> later, std::int64_t& room) {
    for (const Corner corner : later) {
      if (!HasOpenSide(At(triangle))) break;
      if (--room < 0) return false;
      JoinAtCommonEdge(triangle, corner.Triangle());
    }
    return true;
  }

  static bool HasOpenSide(const T& triangle) {
    return std::find(triangle.neighbour.begin(), triangle.neighbour.end(), T::kNone) !=
           triangle.neighbour.end();
  }

  void JoinAtCommonEdge(int t1, int t2) {
    T& first = At(t1);
    T& second = At(t2);
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
  const CornerLists& corners_;
  std::size_t points_;
};

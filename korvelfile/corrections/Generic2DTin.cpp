#include "korvelfile/corrections/Generic2DTin.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "korvelfile/corrections/internal/CornerLists.h"
#include "korvelfile/corrections/internal/Prefetch.h"
#include "korvelfile/corrections/internal/TriangleIndex.h"
#include "korvelfile/corrections/internal/TriangleLinks.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/base/Thread.h"

namespace {

constexpr int kNeighbourDepth = 5;

bool IsShare(double value) { return value >= 0.0 && value <= 1.0; }

// Positive if `a`, `b`, `c` run clockwise.
double SignedArea(const Vector& a, const Vector& b, const Vector& c) {
  return ((c.x - a.x) * b.y + (b.x - c.x) * a.y + (a.x - b.x) * c.y) * 0.5;
}

// Some of `points`, evenly spread over them.
template <class P>
std::vector<Vector> Sample(const std::vector<P>& points) {
  constexpr std::size_t kMost = 1024;
  std::vector<Vector> sample;
  for (std::size_t i = 0; i < points.size(); i += points.size() / kMost + 1)
    sample.push_back(points[i]);
  return sample;
}

}  // namespace

// A section line on its way through a network.
template <class P, class T, class L, class V>
struct Generic2DTin<P, T, L, V>::Section {
  struct Crossing {
    double station;  // along the line, from the point it runs through, to the right
    P point;
  };

  Vector point;
  Vector along;  // unit vector to the right
  std::vector<bool> isReached;
  std::vector<int> pending;  // triangles reached that haven't been processed yet
  std::vector<Crossing> crossings;

  Section(const Vector& point_, double direction, std::size_t triangles)
      : point(point_),
        along(PolarVector(1.0, direction - kHalfPi).GetVector()),
        isReached(triangles) {}

  // Distance to the left of the line; 0 if `p` lies on it.
  double Offset(const Vector& p) const {
    const double offset = along.GetCrossProduct(p - point);
    return AreEqual(offset, 0.0) ? 0.0 : offset;
  }

  void Reach(int triangle) {
    if (triangle < 0 || isReached[static_cast<std::size_t>(triangle)]) return;
    isReached[static_cast<std::size_t>(triangle)] = true;
    pending.push_back(triangle);
  }

  // Passes over what coordinates beyond all bounds come to.
  void Add(const Vector& position, const V& value) {
    const double station = along.GetScalarProduct(position - point);
    if (std::isfinite(station)) crossings.push_back({station, P(position, value)});
  }

  // All crossings from left to right, each place once.
  std::vector<P> GetPoints() {
    std::stable_sort(crossings.begin(), crossings.end(),
                     [](const Crossing& a, const Crossing& b) { return a.station < b.station; });
    std::vector<P> points;
    for (const Crossing& crossing : crossings) {
      const P& p = crossing.point;
      if (points.empty() || !AreEqual(points.back().x, p.x) || !AreEqual(points.back().y, p.y))
        points.push_back(p);
    }
    return points;
  }
};

template <class P, class T, class L, class V>
Generic2DTin<P, T, L, V>::Generic2DTin() : index_(std::make_unique<TriangleIndex>()) {}

template <class P, class T, class L, class V>
Generic2DTin<P, T, L, V>::~Generic2DTin() = default;

template <class P, class T, class L, class V>
bool Generic2DTin<P, T, L, V>::AreEqual(double a, double b) {
  return std::fabs(a - b) < 1e-7;
}

template <class P, class T, class L, class V>
V Generic2DTin<P, T, L, V>::FindHeight(const P& a, const Vector& p, const P& b) {
  return a.value + a.GetDistance(p) / a.GetDistance(b) * (b.value - a.value);
}

// Triangles come in any order, so their corners are fetched from memory ahead.
template <class P, class T, class L, class V>
bool Generic2DTin<P, T, L, V>::set_triangles() {
  const auto at = [this](int point) -> const Vector& {
    return points_[static_cast<std::size_t>(point)];
  };
  *index_ = TriangleIndex(Sample(points_), triangles_.size());
  for (std::size_t t = 0; t < triangles_.size(); ++t) {
    if (t + kPrefetchDistance < triangles_.size())
      for (const int point : triangles_[t + kPrefetchDistance].vertex) Prefetch(&at(point));
    auto& [a, b, c] = triangles_[t].vertex;
    if (SignedArea(at(a), at(b), at(c)) < 0.0) std::swap(a, b);
    index_->Add(at(a), at(b), at(c));
  }
  index_->Close();
  const CornerLists corners(triangles_, points_.size());
  link_points_to_triangles(corners);
  return TriangleLinks<T>(triangles_, corners, points_.size()).Link();
}

template <class P, class T, class L, class V>
void Generic2DTin<P, T, L, V>::link_points_to_triangles(const CornerLists& corners) {
  for (std::size_t p = 0; p < points_.size(); ++p) {
    const std::span<const Corner> own = corners.At(p);
    points_[p].linked = !own.empty();
    points_[p].triangle = own.empty() ? 0 : own.back().Triangle();
  }
}

template <class P, class T, class L, class V>
bool Generic2DTin<P, T, L, V>::PointInsideTriangle(const Vector& p, const Vector& a,
                                                   const Vector& b, const Vector& c) const {
  const double d = (a.y - c.y) * (c.x - b.x) + (a.x - c.x) * (b.y - c.y);
  const double l1 = ((b.y - c.y) * (p.x - c.x) + (c.x - b.x) * (p.y - c.y)) / d;
  const double l2 = ((c.y - a.y) * (p.x - c.x) + (a.x - c.x) * (p.y - c.y)) / d;
  return IsShare(l1) && IsShare(l2) && IsShare(1.0 - l1 - l2);
}

template <class P, class T, class L, class V>
bool Generic2DTin<P, T, L, V>::IsInside(const Vector& p, int triangle) const {
  const auto& [a, b, c] = triangles_[static_cast<std::size_t>(triangle)].vertex;
  return PointInsideTriangle(p, points_[static_cast<std::size_t>(a)],
                             points_[static_cast<std::size_t>(b)],
                             points_[static_cast<std::size_t>(c)]);
}

template <class P, class T, class L, class V>
int Generic2DTin<P, T, L, V>::PointInsideNeighbourTriangle(const Vector& p, int triangle, int from,
                                                           int depth) const {
  if (triangle < 0) return T::kNone;
  if (depth > 0) {
    for (const int neighbour : triangles_[static_cast<std::size_t>(triangle)].neighbour) {
      if (neighbour == from) continue;
      const int found = PointInsideNeighbourTriangle(p, neighbour, triangle, depth - 1);
      if (found >= 0) return found;
    }
  }
  return IsInside(p, triangle) ? triangle : T::kNone;
}

template <class P, class T, class L, class V>
int* Generic2DTin<P, T, L, V>::LastTriangle() const {
  const std::uint32_t thread = _Thread::GetThreadID();
  int* const last = lastTriangle_.Find(thread);
  return last ? last : lastTriangle_.Insert(thread, std::make_unique<int>(T::kNone));
}

// The rule is: look into the triangle of last time, then among its neighbours, then through all
// triangles from number 0. The index gives all triangles that hold the point. Where it is one, the
// rule finds this one on whichever way, and where it is none, none.
template <class P, class T, class L, class V>
int Generic2DTin<P, T, L, V>::LocateTriangle(const Vector& p) const {
  int* const last = LastTriangle();
  const bool hasLast = *last >= 0 && *last < GetNumTriangles();
  if (hasLast && IsInside(p, *last)) return *last;

  int found = T::kNone;
  int count = 0;
  index_->ForEachAt(p, [&](int candidate) {
    if (!IsInside(p, candidate)) return;
    found = count == 0 ? candidate : std::min(found, candidate);
    ++count;
  });
  if (count > 1 && hasLast) {
    const int near = PointInsideNeighbourTriangle(p, *last, T::kNone, kNeighbourDepth);
    if (near >= 0) found = near;
  }
  if (found >= 0) *last = found;
  return found;
}

template <class P, class T, class L, class V>
std::vector<P> Generic2DTin<P, T, L, V>::GetCrossSection(const Vector& point,
                                                         double direction) const {
  const int start = LocateTriangle(point);
  if (start < 0) return {};
  Section section(point, direction, triangles_.size());
  section.Reach(start);
  while (!section.pending.empty()) {
    const int triangle = section.pending.back();
    section.pending.pop_back();
    ProcessTriangle(triangle, section);
  }
  return section.GetPoints();
}

// A vertex on the line belongs to both its edges, so the way goes on all round it.
template <class P, class T, class L, class V>
void Generic2DTin<P, T, L, V>::ProcessTriangle(int triangle, Section& section) const {
  const T& t = triangles_[static_cast<std::size_t>(triangle)];
  for (std::size_t i = 0; i < 3; ++i) {
    // Both triangles at an edge see it run the same way, and so cross it in the same place.
    const auto [low, high] = std::minmax(t.vertex[i], t.vertex[(i + 1) % 3]);
    const P& a = Point(static_cast<std::size_t>(low));
    const P& b = Point(static_cast<std::size_t>(high));
    const double offsetA = section.Offset(a);
    const double offsetB = section.Offset(b);
    if (offsetA == 0.0) section.Add(a, a.value);
    if (offsetB == 0.0) section.Add(b, b.value);
    if (offsetA * offsetB > 0.0 || std::isnan(offsetA * offsetB)) continue;
    section.Reach(t.neighbour[i]);
    if (offsetA == 0.0 || offsetB == 0.0) continue;
    const Vector position = a + offsetA / (offsetA - offsetB) * (b - a);
    section.Add(position, FindHeight(a, position, b));
  }
}

template class Generic2DTin<TinPointBase<FloatVector>,
                            TinTriangleBase<FloatVector, TinPointBase<FloatVector>>, TinLineNode,
                            FloatVector>;

#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/corrections/ThreadCacher.h"
#include "korvelfile/corrections/Tin.h"
#include "korvelfile/outside/base/FloatVector.h"
#include "korvelfile/outside/base/Vector.h"

class CornerLists;
class TriangleIndex;

/// Triangulated irregular network in the plane: finds the triangle under a point and draws
/// sections.
///
/// It doesn't triangulate. A derived class fills `points_`, then `triangles_` with vertices and no
/// neighbours, and calls `set_triangles`; it does so again when it replaces them. Triangles run
/// clockwise in the plane of x east and y north from then on.
///
/// Locating and sections may run in any number of threads at once, as long as nobody changes points
/// or triangles. They don't wait for each other: each thread begins with the triangle that it found
/// last. The library has the code for one set of types, `FloatVectorTin`.
///
/// @tparam P point, a `TinPointBase`
/// @tparam T triangle, a `TinTriangleBase`
/// @tparam L crossing of an edge, such as `TinLineNode`
/// @tparam V value of a point: sums, differences, and multiples by a `double`
template <class P, class T, class L, class V>
class Generic2DTin {
 public:
  Generic2DTin();  ///< Without points.
  virtual ~Generic2DTin();
  Generic2DTin(const Generic2DTin&) = delete;
  Generic2DTin& operator=(const Generic2DTin&) = delete;

  const std::vector<P>& GetPoints() const { return points_; }        ///< All points.
  const std::vector<T>& GetTriangles() const { return triangles_; }  ///< All triangles.
  const std::vector<L>& GetLines() const { return lines_; }          ///< Of the derived class.

  int GetNumPoints() const { return static_cast<int>(points_.size()); }        ///< How many.
  int GetNumTriangles() const { return static_cast<int>(triangles_.size()); }  ///< How many.
  int GetNumLines() const { return static_cast<int>(lines_.size()); }          ///< How many.

  /// @name One point or triangle
  /// `index` is below their number. Values may be changed through the reference; positions and
  /// vertices must stay.
  /// @{
  const P& Point(std::size_t index) const { return points_[index]; }
  P& Point(std::size_t index) { return points_[index]; }
  const T& Triangle(std::size_t index) const { return triangles_[index]; }
  T& Triangle(std::size_t index) { return triangles_[index]; }
  /// @}

  /// The section through `point`, square to `direction`.
  ///
  /// It goes both ways from the triangle at `point`, as far as triangles hang together by edges
  /// that the section line meets. A vertex within 1e-7 of the line lies on it, and so does an edge
  /// between two such.
  /// @param direction mathematical angle, radians: where one looks, with the section from the left
  ///   to the right
  /// @return where the section meets edges, each place once, from left to right, with the value
  ///   there; empty if `point` lies outside the network
  std::vector<P> GetCrossSection(const Vector& point, double direction) const;

 protected:
  std::vector<P> points_;                   ///< Filled by the derived class.
  std::vector<T> triangles_;                ///< Filled by the derived class.
  std::vector<L> lines_;                    ///< For the derived class; nothing here uses it.
  mutable ThreadCacher lastTriangle_{256};  ///< By thread; to be cleared with the triangles.

  /// Turns all triangles clockwise, tells each point a triangle and each triangle its neighbours.
  ///
  /// Vertices must be below the number of points, and triangles fewer than 2^30. A network in the
  /// plane takes linear time.
  /// @return false, without neighbours, for triangles that are no network: so many of them share
  ///   corners and edges that comparing them would take out of all proportion
  bool set_triangles();

  /// The triangle that `p` lies in or on, or -1.
  ///
  /// Where several do, the choice is: the triangle that this thread found last; what
  /// `PointInsideNeighbourTriangle` finds from there with a depth of 5; the lowest number.
  int LocateTriangle(const Vector& p) const;

  /// True if `p` lies in the triangle `a`, `b`, `c` or on its rim, without a tolerance.
  ///
  /// By barycentric coordinates. False for a triangle without an area, and where a number is NaN.
  bool PointInsideTriangle(const Vector& p, const Vector& a, const Vector& b,
                           const Vector& c) const;

  /// Looks for `p` in `triangle` and its neighbours, the farthest first.
  ///
  /// Goes to the neighbours 0, 1 and 2 other than `from` with a depth less by 1, each of which does
  /// the same, before it looks into `triangle` itself.
  /// @param triangle where to begin; may be -1
  /// @param from     triangle not to go back to, or -1
  /// @param depth    how far to go, 0 for `triangle` alone
  /// @return the first triangle found, or -1
  int PointInsideNeighbourTriangle(const Vector& p, int triangle, int from, int depth) const;

 private:
  struct Section;

  void link_points_to_triangles(const CornerLists& corners);

  bool IsInside(const Vector& p, int triangle) const;
  int* LastTriangle() const;

  static bool AreEqual(double a, double b);
  static V FindHeight(const P& a, const Vector& p, const P& b);
  void ProcessTriangle(int triangle, Section& section) const;

  std::unique_ptr<TriangleIndex> index_;
};

/// The network of corrections to north and east.
using FloatVectorTin =
    Generic2DTin<TinPointBase<FloatVector>, TinTriangleBase<FloatVector, TinPointBase<FloatVector>>,
                 TinLineNode, FloatVector>;

extern template class KORVELFILE_EXPORT
    Generic2DTin<TinPointBase<FloatVector>, TinTriangleBase<FloatVector, TinPointBase<FloatVector>>,
                 TinLineNode, FloatVector>;

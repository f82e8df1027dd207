/// @file
/// The records that a triangulated network is made of. Plain values, safe to copy between threads.
#pragma once

#include <array>

#include "korvelfile/outside/base/FloatVector.h"
#include "korvelfile/outside/base/Vector.h"

/// Point of a network: a position, x east and y north, that carries a value.
template <class V>
class TinPointBase : public Vector {
 public:
  V value{};            ///< What the network interpolates.
  bool linked = false;  ///< True once a triangle uses the point.
  int number = -1;      ///< The application's own; nothing here looks at it.
  int triangle = 0;     ///< If linked: the last triangle that uses the point.

  TinPointBase() = default;  ///< At the origin.

  /// At `position`, used by no triangle yet.
  TinPointBase(const Vector& position, const V& value_) : Vector(position), value(value_) {}
};

/// Triangle of a network of points of the type `P`.
///
/// Edge i runs from vertex i to vertex (i + 1) modulo 3.
template <class V, class P>
class TinTriangleBase {
 public:
  static constexpr int kNone = -1;  ///< Where there is no neighbour.

  std::array<int, 3> neighbour{kNone, kNone, kNone};  ///< Triangle across edge i, or -1.
  std::array<int, 3> vertex{};                        ///< Points, counted from 0.

  TinTriangleBase() = default;  ///< Of the first point alone.

  /// With the vertices `a`, `b` and `c` and no neighbours.
  TinTriangleBase(int a, int b, int c) : vertex{a, b, c} {}
};

/// Where a section line crosses a network of pairs of floats.
class TinLineNode {
 public:
  Vector position;    ///< x east, y north.
  int triangle = -1;  ///< Beyond the edge that is crossed; -1 if there is none.
  FloatVector value;  ///< Of the network, at the position.
};

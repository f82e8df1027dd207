#pragma once

#include <memory>
#include <vector>

#include "korvelfile/outside/base/Export.h"
#include "korvelfile/outside/base/GeometryInterface.h"

/// Operations on chains of lines and arcs.
class KORVELBASE_EXPORT Polyline {
 public:
  /// The chain that runs beside another at a constant distance.
  ///
  /// Neighbours that meet in a corner are lengthened or cut at the intersection of their parallels,
  /// at that which is nearest to the ends to be joined. A chain that ends where it began is joined
  /// there too. Every piece keeps its kind and its place in the list.
  ///
  /// @param list      pieces of the kinds `Line` and `CircleArc`, each beginning where the one
  ///                  before ends
  /// @param distance  in the unit of the coordinates; positive to the right of the pieces'
  ///                  direction, negative to the left
  /// @param ok        becomes false if the chain can't be built: a piece of another kind or without
  ///                  length, an arc whose radius would vanish, or which would grow beyond half a
  ///                  circle, neighbours that don't meet, a piece that corners would use up, or a
  ///                  number that isn't finite; else true
  /// @return the new pieces in order; none if `ok` becomes false
  static std::vector<std::shared_ptr<GeometryInterface>> GetParallel(
      std::vector<std::shared_ptr<GeometryInterface>> list, double distance, bool& ok);
};

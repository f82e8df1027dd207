#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/outside/model/ILine.h"

namespace Model {

/// A line of our own, with heights along it and a surface beside it.
///
/// Asking is safe from any number of threads at once, as long as nobody appends elements. The
/// offset is positive to the right.
///
/// The foot of a point is the nearest place of the line to which it stands square; of places
/// equally near, to 1e-9 m, the first one. A point in the outer angle of a corner, also of that
/// where a closed line meets its own start, has the corner for its foot and its distance for
/// offset; it isn't what `PointAt` gives there. Up to 1 cm of gap between two elements counts as a
/// joint, so that rounded figures lose no point. A point that stands square only to what would lie
/// more than 0.1 mm beyond the ends has no foot.
///
/// `PointAt` and `Station` are inverse to each other as long as the offset stays below the radius
/// and no other part of the line is nearer. Where elements overlap in their arcs, `PointAt` takes
/// the later one. Elements of 1e-6 m and less are kept but have no places of their own.
///
/// Without a profile the height is 0; with one it is undefined (`kUndefined`) where that gives
/// none.
class KORVELFILE_EXPORT IRoadLine : public ILine {
 public:
  ~IRoadLine() override;

  /// Crossfalls at `arc`, left and right of the line, linear between the chainages that they are
  /// given at.
  ///
  /// @param left   becomes what the surface rises by for each metre to the left, ratio: a roof
  ///               profile has both negative
  /// @param right  becomes what it rises by for each metre to the right
  /// @return false, with both unchanged, where none are given
  virtual bool CrossfallAt(double arc, double& left, double& right) const = 0;

  /// Height of the surface beside the line: that of the line, and the crossfall of that side times
  /// the distance. Undefined where the height or, away from the line, the crossfall is unknown.
  virtual double SurfaceHeightAt(double arc, double offset) const = 0;
};

}  // namespace Model

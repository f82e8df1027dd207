/// @file
/// Our own line model: straights, circular arcs and clothoids, with heights and crossfalls.
#pragma once

#include <memory>

#include "korvelfile/Export.h"
#include "korvelfile/outside/model/ILine.h"
#include "korvelfile/outside/model/Proxies.h"

namespace Model {

/// A line with a surface beside it.
///
/// Asking is safe from any number of threads at once, as long as nobody appends elements.
///
/// The foot of a point is the nearest place to which it stands square; of places equally near, to
/// 1e-9 m, the first one. A point in the outer angle of a corner has the corner for its foot, with
/// its distance for offset; `PointAt` isn't the inverse there. A point that stands square only to
/// what would lie beyond the ends, by more than 1e-6 m, has no foot.
///
/// `PointAt` and `Station` are inverse to each other as long as the offset stays below the radius.
/// Without a profile the height is 0; with one it is undefined (`kUndefined`) where that gives
/// none.
class KORVELFILE_EXPORT IRoadLine : public ILine {
 public:
  ~IRoadLine() override;

  /// Crossfalls at `arc`, left and right: what the surface rises by for each metre away from the
  /// line, linear between the chainages where they are given.
  /// @return false without them there
  virtual bool CrossfallAt(double arc, double& left, double& right) const = 0;

  /// Height of the surface beside the line: that of the line, and the crossfall of the side times
  /// the distance. Undefined without either.
  virtual double SurfaceHeightAt(double arc, double offset) const = 0;
};

/// Makes empty lines of our own, to be built element by element.
class KORVELFILE_EXPORT LineFactory : public ILineFactory {
 public:
  ~LineFactory() override;
  std::shared_ptr<ILine> CreateLine() override;
};

/// Builds a line of the elements that `line` gives, with heights and crossfalls if given.
///
/// The proxies are read once and not kept. An element is a clothoid if its parameter isn't 0, else
/// an arc if its radius isn't 0, else a straight; each goes from its own start, in its own
/// direction, over its own length, and begins at its own chainage.
/// @throws LineException for an element that is none: numbers that aren't finite, a negative
///   length, an arc of a turn or more, a clothoid of equal radii
KORVELFILE_EXPORT std::shared_ptr<IRoadLine> BuildLine(const ILineFileProxy& line,
                                                       const IProfileFileProxy* profile = nullptr,
                                                       const ICamberFileProxy* camber = nullptr);

}  // namespace Model

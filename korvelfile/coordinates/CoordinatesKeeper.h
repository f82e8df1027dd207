#pragma once

#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/CooData.h"
#include "korvelfile/outside/base/ThrowableErrorCode.h"

/// How a read moves a cursor.
enum KeeperMode : int {
  KeeperFirst = 0,
  KeeperLast = 1,
  KeeperNext = 2,
  KeeperPrevious = 3,
  KeeperByIndex = 4,  ///< to the index given
};

/// Which points a read walks.
enum KeeperKind : int {
  KeeperFreePoints = 0,
  KeeperLinePoints = 2,  ///< of the current line
};

/// A compact store of read-only coordinate data. Every result must be looked at.
class KORVELFILE_EXPORT CoordinatesKeeper {
 public:
  virtual ~CoordinatesKeeper();

  /// Moves the line cursor by a `KeeperMode` and gives the line.
  /// @return false, with nothing moved, if there is no such line
  virtual ThrowableErrorCode<bool> GetLine(CooLineData& line, int mode, int index) = 0;

  /// Moves the point cursor by a `KeeperMode` within the points of a `KeeperKind` and gives the
  /// point.
  /// @return false, with nothing moved, if there is no such point
  virtual ThrowableErrorCode<bool> GetPoint(CooPtData& point, int kind, int mode, int index) = 0;

  /// Gives point `index` of line `line`, or free point `index` if `line` is -1. Moves no cursor.
  virtual ThrowableErrorCode<bool> GetPointInLine(CooPtData& point, int line, int index) const = 0;

  /// Adds to `lines` the index of each line that passes within `distance` metres of the plane
  /// position of `point`, and sorts it.
  /// @return true if a line was hit
  virtual ThrowableErrorCode<bool> IsPointNearLine(const CooPtData& point, double distance,
                                                   std::vector<int>& lines) = 0;

  /// Adds to `lines` the index of each line that touches the plane rectangle between the corners
  /// `a` and `b`, and sorts it.
  /// @return true if a line was hit
  virtual ThrowableErrorCode<bool> LineIntersectsBox(const CooPtData& a, const CooPtData& b,
                                                     std::vector<int>& lines) = 0;

  virtual void CloseFile() = 0;

 protected:
  CoordinatesKeeper() = default;
  CoordinatesKeeper(const CoordinatesKeeper&) = default;
  CoordinatesKeeper& operator=(const CoordinatesKeeper&) = default;
};

#pragma once

#include "korvelfile/outside/base/Export.h"

/// A piece of a chain in the plane, of a kind that `GetType` tells.
///
/// Pieces are held through this by those who take several kinds; they are copied by their own
/// class only.
class KORVELBASE_EXPORT GeometryInterface {
 public:
  static constexpr int kLine = 1;       ///< `Line`
  static constexpr int kCircleArc = 5;  ///< `CircleArc`

  virtual ~GeometryInterface();

  /// `kLine`, `kCircleArc`, or another number for a kind of the caller's own.
  virtual int GetType() const = 0;

 protected:
  GeometryInterface() = default;
  GeometryInterface(const GeometryInterface&) = default;
  GeometryInterface& operator=(const GeometryInterface&) = default;
};

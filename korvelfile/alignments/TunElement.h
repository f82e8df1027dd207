#pragma once

#include "korvelfile/outside/base/Vector.h"

/// One element of a tunnel outline: a straight or a circular arc of at most half a circle.
///
/// In the plane of the cross-section, x to the side and y upwards, metres.
struct TunElement {
  Vector Start;         ///< first end
  Vector End;           ///< second end
  double Radius = 0.0;  ///< of an arc, positive if it turns right; 0 of a straight
};

#pragma once

#include "tools/korvel/PlotPen.h"

namespace korvel {

/// The colour of a value on a scale from dark blue over green to yellow. Its lightness grows all
/// along, so that it can be read in grey, too.
/// @param share 0 to 1; beyond it counts as the nearer end
Colour RampColour(double share);

}  // namespace korvel

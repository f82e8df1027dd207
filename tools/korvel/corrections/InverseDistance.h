#pragma once

#include <functional>
#include <vector>

#include "korvelfile/corrections/CcgInputGrid.h"
#include "tools/korvel/corrections/Residuals.h"

namespace korvel {

/// Sets each node of `grid` to the mean of the residuals within `radius`, weighted by 1/d^2 with
/// their distance d; at a residual the node has its value. Nodes without a residual within reach
/// stay as they are. (Shepard 1968, with a limited radius.)
///
/// On latitude and longitude distances are those on a sphere, in the small.
/// @param radius   metres
/// @param progress told how much is done, 0 to 1
void SpreadByInverseDistance(const std::vector<Residual>& residuals, double radius,
                             CcgInputGrid& grid, const std::function<void(double)>& progress);

}  // namespace korvel

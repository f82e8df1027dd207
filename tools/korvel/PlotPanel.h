#pragma once

#include "korvelfile/outside/base/Vector.h"

namespace korvel {

class PlotMap;
class PlotPen;
struct PlotScene;

/// The scales at which a plot shows errors, far larger than the ground; 0 where it shows none.
struct ErrorScales {
  double ellipse = 0.0;   ///< points per metre
  double residual = 0.0;  ///< points per metre

  explicit ErrorScales(const PlotScene& scene);
};

/// Draws what stands beside the map: title, figures, legend, scales and north arrow.
/// @param unnamed number of points whose names found no room
void DrawPanel(const PlotPen& pen, const PlotMap& map, const PlotScene& scene,
               const ErrorScales& scales, int unnamed);

}  // namespace korvel

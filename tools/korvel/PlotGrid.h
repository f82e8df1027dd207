#pragma once

#include <string>

namespace korvel {

class PlotMap;
class PlotPen;

/// One axis of a coordinate grid.
struct PlotAxis {
  std::string name;            ///< stands at its end
  double metresPerUnit = 1.0;  ///< of the map's ground, for one unit of its numbers
};

/// What the numbers at a map's frame count.
struct PlotAxes {
  PlotAxis east{"E m"};
  PlotAxis north{"N m"};
};

/// Draws the coordinate grid of a map at a round spacing, with its numbers outside of the frame.
void DrawGrid(const PlotPen& pen, const PlotMap& map, const PlotAxes& axes = {});

}  // namespace korvel

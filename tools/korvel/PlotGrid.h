#pragma once

namespace korvel {

class PlotMap;
class PlotPen;

/// Draws the coordinate grid of a map at a round spacing, with its numbers outside of the frame.
void DrawGrid(const PlotPen& pen, const PlotMap& map);

}  // namespace korvel

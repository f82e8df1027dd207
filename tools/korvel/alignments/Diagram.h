#pragma once

#include <string>
#include <vector>

#include "korvelfile/outside/base/Vector.h"
#include "tools/korvel/PlotPen.h"

namespace korvel {

/// Values along a road, to be drawn over its chainage.
struct Diagram {
  /// A curve with gaps.
  struct Curve {
    std::string name;  ///< stands above the diagram; may be empty
    Colour colour;
    std::vector<std::vector<Vector>> pieces;  ///< (chainage, value)
  };
  /// A text above a place.
  struct Note {
    double chainage;
    std::string text;
  };

  std::string title;  ///< with the unit
  std::vector<Curve> curves;
  std::vector<double> limits;  ///< chainages of element limits
  std::vector<Note> notes;     ///< by chainage
};

/// The chainages that diagrams reach over.
struct ChainageRange {
  double start;
  double end;
};

/// Height of a diagram with all that belongs to it, points.
inline constexpr double kDiagramHeight = 138.0;

/// Draws a diagram below `top`, over the width of the page.
/// @param top, width points; the page's margins are kept within
/// @param range      a range without a length gives an empty diagram
void DrawDiagram(const PlotPen& pen, double top, double width, const ChainageRange& range,
                 const Diagram& diagram);

}  // namespace korvel

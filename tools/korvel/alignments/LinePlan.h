#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "korvelfile/outside/base/Vector.h"
#include "tools/korvel/PlotGrid.h"
#include "tools/korvel/PlotPen.h"
#include "tools/korvel/alignments/Diagram.h"

namespace korvel {

class PlotColumn;
class PlotMap;

/// @name Colours of the kinds of elements
/// @{
inline constexpr Colour kStraightColour = kKnownColour;
inline constexpr Colour kArcColour = kStationColour;
inline constexpr Colour kClothoidColour = kNewColour;
/// @}

/// "R 250", "A 120": the figure of an element without its sign.
std::string FigureText(const char* name, double value);

/// An element of a line that is to be drawn.
struct PlanElement {
  double arc = 0.0;        ///< where it begins
  double length = 0.0;     ///< metres
  double curvature = 0.0;  ///< the largest, 1/metres
  Colour colour;
  std::string figure;  ///< stands beside its middle; may be empty
};

/// A place of a line, and its direction there as a mathematical angle.
struct PlanPlace {
  Vector at;
  double direction;
};

/// A line to be drawn in its plane: a road in plan, the outline of a tunnel in its section.
struct PlanLine {
  std::vector<PlanElement> elements;
  ChainageRange range;
  /// The place at an arc, or nothing.
  std::function<std::optional<PlanPlace>(double arc)> placeAt;
  PlotAxes axes;
};

/// Draws a line by kinds of elements, their limits and figures, and the arcs along it.
class LinePlan {
 public:
  /// @throws InputError for a line that has no place, or one too far away to be drawn
  explicit LinePlan(const PlanLine& line);

  /// Places of all that must be on the map, metres.
  std::vector<Vector> Places() const;

  /// @return number of texts that found no room
  int Draw(const PlotPen& pen, const PlotMap& map) const;

 private:
  class Drawing;

  const PlanLine& line_;
  std::vector<std::vector<Vector>> places_;  ///< along each element, its ends among them
};

/// Explains what a plan shows in the panel beside it: kinds, limits and arcs.
/// @param arcs what the arcs along the line are, "chainage"
void AddPlanLegend(PlotColumn& panel, const PlotPen& pen, const PlotMap& map, bool hasClothoids,
                   const std::string& arcs);

/// Scale of the map, and how many texts found no room on it.
void AddPlanScale(PlotColumn& panel, const PlotMap& map, int unlabelled);

}  // namespace korvel

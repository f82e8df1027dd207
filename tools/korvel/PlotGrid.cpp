#include "tools/korvel/PlotGrid.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/PlotMap.h"
#include "tools/korvel/PlotPen.h"

namespace {

using korvel::PlotMap;
using korvel::PlotPen;
using korvel::TextAlign;
using korvel::TextStyle;

constexpr double kLargestSpacing = 110.0;  // points between grid lines
constexpr double kAxisNameRoom = 22.0;     // points at the end of an axis, where its name stands
const TextStyle kStyle{7.0, korvel::kFaintInk, false, TextAlign::Centre};

struct Grid {
  double step;        ///< metres
  int count;          ///< lines that cross the map at most, in either direction
  int decimals;       ///< of its numbers
  Vector lowerLeft;   ///< page corner of the map's frame
  Vector upperRight;  ///< page corner of the map's frame
};

// The lines are counted, so that a step lost in the digits of a large coordinate can't make the
// walk over them endless.
Grid GridOf(const PlotMap& map) {
  const Vector corner = map.GetCorner();
  const Vector size = map.GetSize();
  Grid grid;
  grid.step = korvel::RoundLength(kLargestSpacing / map.GetPointsPerMetre());
  const double spacing = grid.step * map.GetPointsPerMetre();
  grid.count = static_cast<int>(std::ceil(std::max(size.x, size.y) / spacing));
  grid.decimals = std::max(0, -static_cast<int>(std::floor(std::log10(grid.step) + 1e-9)));
  grid.lowerLeft = corner + Vector(0.0, size.y);
  grid.upperRight = corner + Vector(size.x, 0.0);
  return grid;
}

// True if a number fits on its axis, of which so much lies before and behind it.
bool HasRoom(const PlotPen& pen, const std::string& number, double before, double behind) {
  const double half = pen.TextWidth(number, kStyle) / 2.0;
  return before >= half && behind >= half + kAxisNameRoom;
}

void DrawEastLine(const PlotPen& pen, const Grid& grid, double x, double east) {
  if (x >= grid.upperRight.x) return;
  pen.Line({x, grid.lowerLeft.y}, {x, grid.upperRight.y}, korvel::kGridColour, 0.7);
  const std::string number = korvel::NumberText(east, grid.decimals);
  if (HasRoom(pen, number, x - grid.lowerLeft.x, grid.upperRight.x - x))
    pen.Text(number, {x, grid.lowerLeft.y + 11.0}, kStyle);
}

void DrawNorthLine(const PlotPen& pen, const Grid& grid, double y, double north) {
  if (y <= grid.upperRight.y) return;
  pen.Line({grid.lowerLeft.x, y}, {grid.upperRight.x, y}, korvel::kGridColour, 0.7);
  const std::string number = korvel::NumberText(north, grid.decimals);
  if (HasRoom(pen, number, grid.lowerLeft.y - y, y - grid.upperRight.y))
    pen.UpwardText(number, {grid.lowerLeft.x - 5.0, y}, kStyle);
}

}  // namespace

void korvel::DrawGrid(const PlotPen& pen, const PlotMap& map) {
  const Grid grid = GridOf(map);
  const Vector ground = map.ToGround(grid.lowerLeft);
  const Vector first(std::ceil(ground.x / grid.step), std::ceil(ground.y / grid.step));
  for (int i = 0; i <= grid.count; ++i) {
    const Vector crossing((first.x + i) * grid.step, (first.y + i) * grid.step);
    const Vector at = map.ToPage(crossing);
    DrawEastLine(pen, grid, at.x, crossing.x);
    DrawNorthLine(pen, grid, at.y, crossing.y);
  }
  pen.Text("E m", grid.upperRight + Vector(-10.0, map.GetSize().y + 11.0), kStyle);
  pen.UpwardText("N m", grid.lowerLeft + Vector(-5.0, 10.0 - map.GetSize().y), kStyle);
}

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

// The lines that cross one axis.
struct Lines {
  double step;   ///< units of the axis
  int count;     ///< that cross the map at most
  int decimals;  ///< of their numbers
  double first;  ///< number of the first one, in steps

  // The lines are counted, so that a step lost in the digits of a large coordinate can't make the
  // walk over them endless.
  Lines(double pointsPerUnit, double length, double start) {
    step = korvel::RoundLength(kLargestSpacing / pointsPerUnit);
    count = static_cast<int>(std::ceil(length / (step * pointsPerUnit)));
    decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
    first = std::ceil(start / step);
  }
  double NumberOf(int line) const { return (first + line) * step; }
};

// The map's frame on the page.
struct Frame {
  Vector lowerLeft;
  Vector upperRight;
};

// True if a number fits on its axis, of which so much lies before and behind it.
bool HasRoom(const PlotPen& pen, const std::string& number, double before, double behind) {
  const double half = pen.TextWidth(number, kStyle) / 2.0;
  return before >= half && behind >= half + kAxisNameRoom;
}

void DrawEastLine(const PlotPen& pen, const Frame& frame, double x, const std::string& number) {
  if (x >= frame.upperRight.x) return;
  pen.Line({x, frame.lowerLeft.y}, {x, frame.upperRight.y}, korvel::kGridColour, 0.7);
  if (HasRoom(pen, number, x - frame.lowerLeft.x, frame.upperRight.x - x))
    pen.Text(number, {x, frame.lowerLeft.y + 11.0}, kStyle);
}

void DrawNorthLine(const PlotPen& pen, const Frame& frame, double y, const std::string& number) {
  if (y <= frame.upperRight.y) return;
  pen.Line({frame.lowerLeft.x, y}, {frame.upperRight.x, y}, korvel::kGridColour, 0.7);
  if (HasRoom(pen, number, frame.lowerLeft.y - y, y - frame.upperRight.y))
    pen.UpwardText(number, {frame.lowerLeft.x - 5.0, y}, kStyle);
}

}  // namespace

void korvel::DrawGrid(const PlotPen& pen, const PlotMap& map, const PlotAxes& axes) {
  const Vector size = map.GetSize();
  const Frame frame{map.GetCorner() + Vector(0.0, size.y), map.GetCorner() + Vector(size.x, 0.0)};
  const Vector ground = map.ToGround(frame.lowerLeft);
  const auto linesOf = [&](const PlotAxis& axis, double length, double start) {
    return Lines(map.GetPointsPerMetre() * axis.metresPerUnit, length, start / axis.metresPerUnit);
  };
  const Lines east = linesOf(axes.east, size.x, ground.x);
  for (int i = 0; i <= east.count; ++i) {
    const double x = east.NumberOf(i);
    DrawEastLine(pen, frame, map.ToPage({x * axes.east.metresPerUnit, ground.y}).x,
                 NumberText(x, east.decimals));
  }
  const Lines north = linesOf(axes.north, size.y, ground.y);
  for (int i = 0; i <= north.count; ++i) {
    const double y = north.NumberOf(i);
    DrawNorthLine(pen, frame, map.ToPage({ground.x, y * axes.north.metresPerUnit}).y,
                  NumberText(y, north.decimals));
  }
  pen.Text(axes.east.name, frame.upperRight + Vector(-10.0, size.y + 11.0), kStyle);
  pen.UpwardText(axes.north.name, frame.lowerLeft + Vector(-5.0, 10.0 - size.y), kStyle);
}

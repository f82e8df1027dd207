#include "tools/korvel/PlotPanel.h"

#include <string>

#include "korvelfile/outside/base/NumberText.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/PlotMap.h"
#include "tools/korvel/PlotPen.h"
#include "tools/korvel/PlotScene.h"

namespace {

using korvel::Colour;
using korvel::ErrorScales;
using korvel::PlotMap;
using korvel::PlotPen;
using korvel::PlotScene;
using korvel::TextAlign;
using korvel::TextStyle;

constexpr double kEllipseSize = 30.0;    // points, larger semi-axis
constexpr double kResidualSize = 38.0;   // points, largest vector
constexpr double kSmallestError = 1e-9;  // metres; less can't be told from rounding
constexpr double kLineHeight = 13.5;
constexpr double kSignColumn = 34.0;
constexpr double kLongestBar = 90.0;

const TextStyle kTitleStyle{17.0, korvel::kInk, true};
const TextStyle kHeadStyle{8.5, korvel::kFaintInk, true};
const TextStyle kTextStyle{8.5, korvel::kInk};
const TextStyle kFigureStyle{8.5, korvel::kInk, false, TextAlign::Right};
const TextStyle kSmallStyle{7.0, korvel::kFaintInk};

// "250 m", "2 km", "0.5 mm".
std::string LengthText(double metres) {
  constexpr int kDigits = 6;
  if (metres >= 1000.0) return GeneralText(metres / 1000.0, kDigits) + " km";
  if (metres < 0.1) return GeneralText(metres * 1000.0, kDigits) + " mm";
  return GeneralText(metres, kDigits) + " m";
}

// The longest text that fits, with "..." where it is cut.
std::string Fitting(const PlotPen& pen, std::string text, const TextStyle& style, double width) {
  if (pen.TextWidth(text, style) <= width) return text;
  while (!text.empty() && pen.TextWidth(text + "...", style) > width) text.pop_back();
  return text + "...";
}

// Writes down the panel, line by line.
class Panel {
 public:
  Panel(const PlotPen& pen, const PlotMap& map)
      : pen_(pen), left_(map.GetPanelLeft()), width_(map.GetPanelWidth()), y_(map.GetCorner().y) {}

  void Title(const std::string& text) {
    y_ += kTitleStyle.size * 0.8;
    pen_.Text(Fitting(pen_, text, kTitleStyle, width_), {left_, y_}, kTitleStyle);
  }
  void Subtitle(const std::string& text) {
    y_ += kLineHeight;
    pen_.Text(Fitting(pen_, text, kTextStyle, width_), {left_, y_}, kTextStyle);
  }
  void Head(const std::string& text) {
    y_ += 1.9 * kLineHeight;
    pen_.Text(text, {left_, y_}, kHeadStyle);
    pen_.Line({left_, y_ + 3.5}, {left_ + width_, y_ + 3.5}, korvel::kGridColour, 1.0);
    y_ += 3.0;
  }
  void Fact(const PlotScene::Fact& fact) {
    y_ += kLineHeight;
    pen_.Text(fact.name, {left_, y_}, kTextStyle);
    const double room = width_ - pen_.TextWidth(fact.name, kTextStyle) - 6.0;
    pen_.Text(Fitting(pen_, fact.value, kFigureStyle, room), {left_ + width_, y_}, kFigureStyle);
  }
  // One row of the legend: `draw` gets the middle of the column of signs.
  void Sign(const std::string& text, const auto& draw) {
    y_ += kLineHeight * 1.1;
    draw(Vector(left_ + kSignColumn / 2.0, y_ - 3.0));
    pen_.Text(text, {left_ + kSignColumn + 6.0, y_}, kTextStyle);
  }
  // A length shown at a scale of points per metre, beside its name.
  void Bar(const std::string& text, double scale, const auto& draw) {
    const double length = korvel::RoundLength(kLongestBar / scale);
    y_ += 2.0 * kLineHeight;
    pen_.Text(text + ", " + LengthText(length), {left_, y_ - 8.0}, kTextStyle);
    draw(Vector(left_, y_ + 2.0), length * scale);
  }
  void Small(const std::string& text) {
    y_ += 1.4 * kLineHeight;
    pen_.Text(Fitting(pen_, text, kSmallStyle, width_), {left_, y_}, kSmallStyle);
  }

 private:
  const PlotPen& pen_;
  double left_;
  double width_;
  double y_;
};

void DrawLegend(Panel& panel, const PlotPen& pen, const PlotScene& scene,
                const ErrorScales& scales) {
  const Vector half(kSignColumn / 2.0 - 2.0, 0.0);
  panel.Head("Legend");
  panel.Sign("station", [&](const Vector& at) { pen.StationSign(at); });
  panel.Sign("known point, backsight", [&](const Vector& at) { pen.KnownSign(at); });
  if (!scene.newPoints.empty())
    panel.Sign("new point", [&](const Vector& at) { pen.NewSign(at, 2.0); });
  panel.Sign("line of sight", [&](const Vector& at) {
    pen.DashedLine(at - half, at + half, korvel::kSightColour, 0.9);
  });
  if (scales.ellipse > 0.0)
    panel.Sign("standard error ellipse",
               [&](const Vector& at) { pen.Ellipse(at, 12.0, 5.0, 1.2); });
  if (scales.residual > 0.0)
    panel.Sign("residual: given to sighted",
               [&](const Vector& at) { pen.Arrow(at - half, at + half, korvel::kResidualColour); });
}

void EndedLine(const PlotPen& pen, const Vector& left, double length, const Colour& colour) {
  const Vector right = left + Vector(length, 0.0);
  const Vector tick(0.0, 3.0);
  pen.Line(left, right, colour, 1.4);
  pen.Line(left - tick, left + tick, colour, 1.0);
  pen.Line(right - tick, right + tick, colour, 1.0);
}

void DrawScales(Panel& panel, const PlotPen& pen, const PlotMap& map, const ErrorScales& scales) {
  panel.Head("Scales");
  panel.Bar("map " + map.GetScaleText() + " on A4", map.GetPointsPerMetre(),
            [&](const Vector& left, double length) { pen.ScaleBar(left, length); });
  if (scales.ellipse > 0.0)
    panel.Bar("ellipse", scales.ellipse, [&](const Vector& left, double length) {
      EndedLine(pen, left, length, korvel::kEllipseColour);
    });
  if (scales.residual > 0.0)
    panel.Bar("residuals", scales.residual, [&](const Vector& left, double length) {
      EndedLine(pen, left, length, korvel::kResidualColour);
    });
}

}  // namespace

namespace korvel {

ErrorScales::ErrorScales(const PlotScene& scene) {
  const double displacement = scene.LargestDisplacement();
  if (scene.hasEllipse && scene.ellipseA > kSmallestError) ellipse = kEllipseSize / scene.ellipseA;
  if (displacement > kSmallestError) residual = kResidualSize / displacement;
}

void DrawPanel(const PlotPen& pen, const PlotMap& map, const PlotScene& scene,
               const ErrorScales& scales, int unnamed) {
  constexpr double kNorthArrowHeight = 52.0;
  Panel panel(pen, map);
  panel.Title("Free station " + scene.station.name);
  panel.Subtitle(scene.source);
  panel.Head("Result");
  for (const PlotScene::Fact& fact : scene.facts) panel.Fact(fact);
  DrawLegend(panel, pen, scene, scales);
  DrawScales(panel, pen, map, scales);
  if (unnamed > 0)
    panel.Small("no room for the names of " +
                CountText(static_cast<std::size_t>(unnamed), "point"));
  pen.NorthArrow(
      {map.GetPanelLeft() + map.GetPanelWidth() - 16.0, map.GetCorner().y + map.GetSize().y},
      kNorthArrowHeight);
}

}  // namespace korvel

#include "tools/korvel/PlotColumn.h"

#include "korvelfile/outside/base/NumberText.h"
#include "tools/korvel/PlotMap.h"

namespace {

using korvel::PlotPen;
using korvel::TextAlign;
using korvel::TextStyle;

constexpr double kLongestBar = 90.0;

const TextStyle kTitleStyle{17.0, korvel::kInk, true};
const TextStyle kHeadStyle{8.5, korvel::kFaintInk, true};
const TextStyle kTextStyle{8.5, korvel::kInk};
const TextStyle kFigureStyle{8.5, korvel::kInk, false, TextAlign::Right};
const TextStyle kSmallStyle{7.0, korvel::kFaintInk};

// The longest text that fits, with "..." where it is cut.
std::string Fitting(const PlotPen& pen, std::string text, const TextStyle& style, double width) {
  if (pen.TextWidth(text, style) <= width) return text;
  while (!text.empty() && pen.TextWidth(text + "...", style) > width) text.pop_back();
  return text + "...";
}

}  // namespace

namespace korvel {

std::string LengthText(double metres) {
  constexpr int kDigits = 6;
  if (metres >= 1000.0) return GeneralText(metres / 1000.0, kDigits) + " km";
  if (metres < 0.1) return GeneralText(metres * 1000.0, kDigits) + " mm";
  return GeneralText(metres, kDigits) + " m";
}

PlotColumn::PlotColumn(const PlotPen& pen, const PlotMap& map)
    : pen_(pen), left_(map.GetPanelLeft()), width_(map.GetPanelWidth()), y_(map.GetCorner().y) {}

void PlotColumn::Title(const std::string& text) {
  y_ += kTitleStyle.size * 0.8;
  pen_.Text(Fitting(pen_, text, kTitleStyle, width_), {left_, y_}, kTitleStyle);
}

void PlotColumn::Subtitle(const std::string& text) {
  y_ += kLineHeight;
  pen_.Text(Fitting(pen_, text, kTextStyle, width_), {left_, y_}, kTextStyle);
}

void PlotColumn::Head(const std::string& text) {
  y_ += 1.9 * kLineHeight;
  pen_.Text(text, {left_, y_}, kHeadStyle);
  pen_.Line({left_, y_ + 3.5}, {left_ + width_, y_ + 3.5}, kGridColour, 1.0);
  y_ += 3.0;
}

void PlotColumn::Fact(const std::string& name, const std::string& value) {
  y_ += kLineHeight;
  pen_.Text(name, {left_, y_}, kTextStyle);
  const double room = width_ - pen_.TextWidth(name, kTextStyle) - 6.0;
  pen_.Text(Fitting(pen_, value, kFigureStyle, room), {left_ + width_, y_}, kFigureStyle);
}

void PlotColumn::Small(const std::string& text) {
  y_ += 1.4 * kLineHeight;
  pen_.Text(Fitting(pen_, text, kSmallStyle, width_), {left_, y_}, kSmallStyle);
}

double PlotColumn::RoundBar(double scale) { return RoundLength(kLongestBar / scale); }

void PlotColumn::BarText(const std::string& text) {
  y_ += 2.0 * kLineHeight;
  pen_.Text(text, {left_, y_ - 8.0}, kTextStyle);
}

void PlotColumn::MapScale(const PlotMap& map) {
  Bar("map " + map.GetScaleText() + " on A4", map.GetPointsPerMetre(),
      [&](const Vector& left, double length) { pen_.ScaleBar(left, length); });
}

void PlotColumn::VectorScale(const std::string& text, double scale, const Colour& colour) {
  Bar(text, scale, [&](const Vector& left, double length) {
    const Vector right = left + Vector(length, 0.0);
    const Vector tick(0.0, 3.0);
    pen_.Line(left, right, colour, 1.4);
    pen_.Line(left - tick, left + tick, colour, 1.0);
    pen_.Line(right - tick, right + tick, colour, 1.0);
  });
}

void DrawNorthArrow(const PlotPen& pen, const PlotMap& map) {
  constexpr double kHeight = 52.0;
  pen.NorthArrow(
      {map.GetPanelLeft() + map.GetPanelWidth() - 16.0, map.GetCorner().y + map.GetSize().y},
      kHeight);
}

}  // namespace korvel

#include "tools/korvel/corrections/FieldPlot.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tools/korvel/ColourRamp.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/PlotCanvas.h"
#include "tools/korvel/PlotColumn.h"
#include "tools/korvel/PlotMap.h"
#include "tools/korvel/PlotPen.h"
#include "tools/korvel/corrections/FieldScene.h"

namespace {

using korvel::Colour;
using korvel::ColourField;
using korvel::FieldScene;
using korvel::PlotColumn;
using korvel::PlotMap;
using korvel::PlotPen;

constexpr double kShortestLongArrow = 14.0;  // points, for the longest correction
constexpr double kLongestArrow = 38.0;
constexpr double kSmallestCorrection = 1e-9;  // metres; less can't be told from rounding
constexpr Colour kNoColour{1.0, 1.0, 1.0, 0.0};

// Points per metre of correction; 0 if there is none.
double ArrowScale(const FieldScene& scene, const PlotMap& map) {
  const double longest = scene.LongestCorrection();
  if (!(longest > kSmallestCorrection)) return 0.0;
  const double room = scene.spacing * map.GetPointsPerMetre();
  return std::clamp(room, kShortestLongArrow, kLongestArrow) / longest;
}

double ShareOf(const ColourField& field, double value) {
  return field.most > field.least ? (value - field.least) / (field.most - field.least) : 0.5;
}

void DrawColours(const PlotPen& pen, const PlotMap& map, const ColourField& field) {
  std::vector<Colour> colours;
  colours.reserve(field.values.size());
  for (const float value : field.values)
    colours.push_back(std::isnan(value)
                          ? kNoColour
                          : korvel::RampColour(ShareOf(field, static_cast<double>(value))));
  const Vector corner = map.ToPage(field.northWest);
  pen.Picture(corner, map.ToPage(field.southEast) - corner, field.columns, field.rows, colours);
}

void DrawArrows(const PlotPen& pen, const PlotMap& map, const FieldScene& scene, double scale) {
  if (scale <= 0.0) return;
  for (const FieldScene::Arrow& arrow : scene.arrows) {
    const Vector from = map.ToPage(arrow.place);
    pen.Arrow(from, from + Vector(arrow.correction.x, -arrow.correction.y) * scale,
              korvel::kResidualColour);
  }
}

void DrawMap(const PlotPen& pen, const PlotMap& map, const FieldScene& scene, double scale) {
  pen.Clipped(map.GetCorner(), map.GetSize(), [&] {
    if (scene.colours) DrawColours(pen, map, *scene.colours);
  });
  DrawGrid(pen, map, scene.axes);
  pen.Clipped(map.GetCorner(), map.GetSize(), [&] {
    for (const auto& [from, to] : scene.edges)
      pen.Line(map.ToPage(from), map.ToPage(to), korvel::kSightColour, 0.4);
    DrawArrows(pen, map, scene, scale);
  });
  pen.Box(map.GetCorner(), map.GetSize(), korvel::kFaintInk, false);
}

void DrawColourScale(PlotColumn& panel, const PlotPen& pen, const ColourField& field) {
  constexpr int kSteps = 64;
  constexpr double kHeight = 9.0;
  constexpr double kRoom = 24.0;
  std::vector<Colour> colours;
  for (int i = 0; i < kSteps; ++i) colours.push_back(korvel::RampColour((i + 0.5) / kSteps));
  panel.Room(kRoom, [&](const Vector& corner, double width) {
    pen.Picture(corner, {width, kHeight}, kSteps, 1, colours);
    const auto label = [&](double share, korvel::TextAlign align) {
      const double value = field.least + (field.most - field.least) * share;
      pen.Text(korvel::NumberText(value, 3), corner + Vector(width * share, kHeight + 10.0),
               {8.0, korvel::kInk, false, align});
    };
    label(0.0, korvel::TextAlign::Left);
    label(0.5, korvel::TextAlign::Centre);
    label(1.0, korvel::TextAlign::Right);
  });
}

void DrawPanel(const PlotPen& pen, const PlotMap& map, const FieldScene& scene, double scale) {
  PlotColumn panel(pen, map);
  panel.Title(scene.title);
  panel.Subtitle(scene.source);
  panel.Head("Contents");
  for (const auto& [name, value] : scene.facts) panel.Fact(name, value);
  panel.Head("Scales");
  panel.MapScale(map);
  if (scale > 0.0)
    panel.Bar("correction", scale, [&](const Vector& left, double length) {
      pen.Arrow(left, left + Vector(length, 0.0), korvel::kResidualColour);
    });
  if (scene.colours) {
    panel.Head(scene.colours->name);
    DrawColourScale(panel, pen, *scene.colours);
  }
  if (!scene.note.empty()) panel.Small(scene.note);
  DrawNorthArrow(pen, map);
}

}  // namespace

void korvel::WriteFieldPlot(const std::string& path, const FieldScene& scene) {
  const PlotMap map(scene.corners);
  PlotCanvas canvas(ExtensionOf(path), map.GetPageWidth(), map.GetPageHeight());
  const PlotPen pen(canvas.Context());
  const double scale = ArrowScale(scene, map);
  DrawMap(pen, map, scene, scale);
  DrawPanel(pen, map, scene, scale);
  canvas.Write(path);
}

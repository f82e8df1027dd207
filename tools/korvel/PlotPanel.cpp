#include "tools/korvel/PlotPanel.h"

#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/PlotColumn.h"
#include "tools/korvel/PlotMap.h"
#include "tools/korvel/PlotPen.h"
#include "tools/korvel/PlotScene.h"

namespace {

using korvel::ErrorScales;
using korvel::PlotColumn;
using korvel::PlotMap;
using korvel::PlotPen;
using korvel::PlotScene;

constexpr double kEllipseSize = 30.0;    // points, larger semi-axis
constexpr double kResidualSize = 38.0;   // points, largest vector
constexpr double kSmallestError = 1e-9;  // metres; less can't be told from rounding

void DrawLegend(PlotColumn& panel, const PlotPen& pen, const PlotScene& scene,
                const ErrorScales& scales) {
  const Vector half(PlotColumn::kSignWidth / 2.0 - 2.0, 0.0);
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

void DrawScales(PlotColumn& panel, const PlotMap& map, const ErrorScales& scales) {
  panel.Head("Scales");
  panel.MapScale(map);
  if (scales.ellipse > 0.0) panel.VectorScale("ellipse", scales.ellipse, korvel::kEllipseColour);
  if (scales.residual > 0.0)
    panel.VectorScale("residuals", scales.residual, korvel::kResidualColour);
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
  PlotColumn panel(pen, map);
  panel.Title("Free station " + scene.station.name);
  panel.Subtitle(scene.source);
  panel.Head("Result");
  for (const PlotScene::Fact& fact : scene.facts) panel.Fact(fact.name, fact.value);
  DrawLegend(panel, pen, scene, scales);
  DrawScales(panel, map, scales);
  if (unnamed > 0)
    panel.Small("no room for the names of " +
                CountText(static_cast<std::size_t>(unnamed), "point"));
  DrawNorthArrow(pen, map);
}

}  // namespace korvel

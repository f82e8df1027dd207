#include "tools/korvel/StationPlot.h"

#include <cmath>
#include <cstddef>

#include "tools/korvel/FileFault.h"
#include "tools/korvel/PlotCanvas.h"
#include "tools/korvel/PlotGrid.h"
#include "tools/korvel/PlotLabels.h"
#include "tools/korvel/PlotMap.h"
#include "tools/korvel/PlotPanel.h"
#include "tools/korvel/PlotPen.h"
#include "tools/korvel/PlotScene.h"

namespace {

using korvel::ErrorScales;
using korvel::PlotLabels;
using korvel::PlotMap;
using korvel::PlotPen;
using korvel::PlotScene;
using korvel::PlotTarget;
using korvel::TextAlign;
using korvel::TextStyle;

constexpr std::size_t kMostSightsDrawn = 300;  // to new points; more would hide the map
constexpr double kSignRadius = 6.0;
constexpr std::size_t kFewPoints = 400;     // whose dots don't hide each other
constexpr std::size_t kFewBacksights = 40;  // all of which are named, come what may
constexpr double kDotRadius = 2.0;
constexpr double kSmallDotRadius = 1.1;
constexpr double kNameGap = 8.5;  // from the centre of a sign to its name
constexpr double kDotNameGap = 5.5;
const TextStyle kStationStyle{10.0, korvel::kStationColour, true, TextAlign::Left, true};
const TextStyle kKnownStyle{8.5, korvel::kKnownColour, true, TextAlign::Left, true};
const TextStyle kNewStyle{6.5, korvel::kNewColour, false, TextAlign::Left, true};

/// Draws one map.
class MapDrawing {
 public:
  MapDrawing(const PlotPen& pen, const PlotMap& map, const PlotScene& scene,
             const ErrorScales& scales)
      : pen_(pen),
        map_(map),
        scene_(scene),
        scales_(scales),
        station_(map.ToPage(scene.station.place)),
        dotRadius_(scene.newPoints.size() > kFewPoints ? kSmallDotRadius : kDotRadius),
        labels_(map.GetCorner(), map.GetSize()) {}

  /// @return number of points without a name
  int Draw() {
    DrawGrid(pen_, map_);
    pen_.Clipped(map_.GetCorner(), map_.GetSize(), [&] {
      DrawSights();
      DrawNewPoints();
      DrawEllipse();
      DrawBacksights();
      DrawStation();
      DrawNames();
    });
    pen_.Box(map_.GetCorner(), map_.GetSize(), korvel::kFaintInk, false);
    return unnamed_;
  }

 private:
  void DrawSights();
  void DrawNewPoints();
  void DrawEllipse();
  void DrawBacksights();
  void DrawStation();
  void DrawNames();
  void DrawName(const PlotTarget& target, const TextStyle& style, double gap, bool isMust);
  Vector ResidualEnd(const PlotTarget& target) const;

  const PlotPen& pen_;
  const PlotMap& map_;
  const PlotScene& scene_;
  const ErrorScales& scales_;
  const Vector station_;
  const double dotRadius_;
  PlotLabels labels_;
  int unnamed_ = 0;
};

void MapDrawing::DrawSights() {
  if (scene_.newPoints.size() <= kMostSightsDrawn)
    for (const PlotTarget& target : scene_.newPoints)
      pen_.Line(station_, map_.ToPage(target.place), korvel::kFaintSightColour, 0.4);
  const bool areFew = scene_.backsights.size() <= kMostSightsDrawn;
  for (const PlotTarget& target : scene_.backsights) {
    const Vector at = map_.ToPage(target.place);
    if (areFew)
      pen_.DashedLine(station_, at, korvel::kSightColour, 0.9);
    else
      pen_.Line(station_, at, korvel::kFaintSightColour, 0.3);
    labels_.AddLine(station_, at);
  }
}

Vector MapDrawing::ResidualEnd(const PlotTarget& target) const {
  const Vector way = target.displacement * scales_.residual;
  return map_.ToPage(target.place) + Vector(way.x, -way.y);
}

void MapDrawing::DrawEllipse() {
  if (scales_.ellipse <= 0.0) return;
  const double a = scene_.ellipseA * scales_.ellipse;
  pen_.Ellipse(station_, a, scene_.ellipseB * scales_.ellipse, scene_.ellipseBearing);
  const Vector along(a * std::sin(scene_.ellipseBearing), -a * std::cos(scene_.ellipseBearing));
  labels_.AddLine(station_ - along, station_ + along);
}

void MapDrawing::DrawNewPoints() {
  for (const PlotTarget& target : scene_.newPoints) {
    pen_.NewSign(map_.ToPage(target.place), dotRadius_);
    labels_.AddSign(map_.ToPage(target.place), dotRadius_);
  }
}

// The arrows come last, so that no sign hides them.
void MapDrawing::DrawBacksights() {
  for (const PlotTarget& target : scene_.backsights) {
    pen_.KnownSign(map_.ToPage(target.place));
    labels_.AddSign(map_.ToPage(target.place), kSignRadius);
  }
  if (scales_.residual > 0.0)
    for (const PlotTarget& target : scene_.backsights) {
      pen_.Arrow(map_.ToPage(target.place), ResidualEnd(target), korvel::kResidualColour);
      labels_.AddArrow(map_.ToPage(target.place), ResidualEnd(target));
    }
}

void MapDrawing::DrawStation() {
  pen_.StationSign(station_);
  labels_.AddSign(station_, kSignRadius);
}

void MapDrawing::DrawNames() {
  DrawName(scene_.station, kStationStyle, kNameGap, true);
  const bool areFew = scene_.backsights.size() <= kFewBacksights;
  for (const PlotTarget& target : scene_.backsights)
    DrawName(target, kKnownStyle, kNameGap, areFew);
  for (const PlotTarget& target : scene_.newPoints) DrawName(target, kNewStyle, kDotNameGap, false);
}

void MapDrawing::DrawName(const PlotTarget& target, const TextStyle& style, double gap,
                          bool isMust) {
  const Vector size(pen_.TextWidth(target.name, style), style.size * 0.75);
  const auto place = labels_.Place(map_.ToPage(target.place), size, gap, isMust);
  if (place) pen_.Text(target.name, *place, style);
  if (!place) ++unnamed_;
}

}  // namespace

void korvel::WriteStationPlot(const std::string& path, const StationOutcome& outcome,
                              const StationOptions& options) {
  const PlotScene scene(outcome, options);
  const PlotMap map(scene.Places());
  const ErrorScales scales(scene);
  PlotCanvas canvas(ExtensionOf(path), map.GetPageWidth(), map.GetPageHeight());
  const PlotPen pen(canvas.Context());
  const int unnamed = MapDrawing(pen, map, scene, scales).Draw();
  DrawPanel(pen, map, scene, scales, unnamed);
  canvas.Write(path);
}

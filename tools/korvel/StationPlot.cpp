#include "tools/korvel/StationPlot.h"

#include <cmath>
#include <cstddef>

#include "tools/korvel/FileFault.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/PlotCanvas.h"
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
constexpr double kGridSpacing = 110.0;         // points between grid lines, at most
constexpr double kSignRadius = 6.0;
constexpr double kDotRadius = 2.5;
const TextStyle kGridStyle{7.0, korvel::kFaintInk, false, TextAlign::Centre};
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
        labels_(map.GetCorner(), map.GetSize()) {}

  /// @return number of new points without a name
  int Draw() {
    DrawGrid();
    pen_.Clipped(map_.GetCorner(), map_.GetSize(), [&] {
      DrawSights();
      DrawErrors();
      DrawSigns();
      DrawNames();
    });
    pen_.Box(map_.GetCorner(), map_.GetSize(), korvel::kFaintInk, false);
    return unnamed_;
  }

 private:
  void DrawGrid() const;
  void DrawSights();
  void DrawErrors();
  void DrawSigns();
  void DrawNames();
  bool DrawName(const PlotTarget& target, const TextStyle& style, bool isMust);
  Vector ResidualEnd(const PlotTarget& target) const;

  const PlotPen& pen_;
  const PlotMap& map_;
  const PlotScene& scene_;
  const ErrorScales& scales_;
  const Vector station_;
  PlotLabels labels_;
  int unnamed_ = 0;
};

void MapDrawing::DrawGrid() const {
  const Vector corner = map_.GetCorner();
  const Vector far = corner + map_.GetSize();
  const Vector upperLeft = map_.ToGround(corner);
  const Vector lowerRight = map_.ToGround(far);
  const double step = korvel::RoundLength(kGridSpacing / map_.GetPointsPerMetre());
  const int decimals = std::max(0, static_cast<int>(-std::floor(std::log10(step) + 1e-9)));
  // Counted, so that a step lost in the digits of a large coordinate can't make it endless.
  const int most =
      static_cast<int>(std::ceil(map_.GetSize().GetLength() / (step * map_.GetPointsPerMetre())));
  const double east = std::ceil(upperLeft.x / step) * step;
  const double north = std::ceil(lowerRight.y / step) * step;
  for (int i = 0; i <= most; ++i) {
    const Vector ground(east + i * step, north + i * step);
    const Vector at = map_.ToPage(ground);
    if (at.x < far.x) {
      pen_.Line({at.x, corner.y}, {at.x, far.y}, korvel::kGridColour, 0.7);
      pen_.Text(korvel::NumberText(ground.x, decimals), {at.x, far.y + 11.0}, kGridStyle);
    }
    if (at.y > corner.y) {
      pen_.Line({corner.x, at.y}, {far.x, at.y}, korvel::kGridColour, 0.7);
      pen_.UpwardText(korvel::NumberText(ground.y, decimals), {corner.x - 5.0, at.y}, kGridStyle);
    }
  }
  pen_.Text("E m", {far.x - 10.0, far.y + 20.0}, kGridStyle);
  pen_.UpwardText("N m", {corner.x - 14.0, corner.y + 10.0}, kGridStyle);
}

void MapDrawing::DrawSights() {
  if (scene_.newPoints.size() <= kMostSightsDrawn)
    for (const PlotTarget& target : scene_.newPoints)
      pen_.Line(station_, map_.ToPage(target.place), korvel::kFaintSightColour, 0.4);
  for (const PlotTarget& target : scene_.backsights) {
    const Vector at = map_.ToPage(target.place);
    pen_.DashedLine(station_, at, korvel::kSightColour, 0.9);
    labels_.AddLine(station_, at);
  }
}

Vector MapDrawing::ResidualEnd(const PlotTarget& target) const {
  const Vector way = target.displacement * scales_.residual;
  return map_.ToPage(target.place) + Vector(way.x, -way.y);
}

void MapDrawing::DrawErrors() {
  if (scales_.ellipse > 0.0) {
    const double a = scene_.ellipseA * scales_.ellipse;
    pen_.Ellipse(station_, a, scene_.ellipseB * scales_.ellipse, scene_.ellipseBearing);
    const Vector along(a * std::sin(scene_.ellipseBearing), -a * std::cos(scene_.ellipseBearing));
    labels_.AddLine(station_ - along, station_ + along);
  }
}

void MapDrawing::DrawSigns() {
  for (const PlotTarget& target : scene_.newPoints) {
    pen_.NewSign(map_.ToPage(target.place));
    labels_.AddSign(map_.ToPage(target.place), kDotRadius);
  }
  for (const PlotTarget& target : scene_.backsights) {
    pen_.KnownSign(map_.ToPage(target.place));
    labels_.AddSign(map_.ToPage(target.place), kSignRadius);
  }
  if (scales_.residual > 0.0)
    for (const PlotTarget& target : scene_.backsights) {
      pen_.Arrow(map_.ToPage(target.place), ResidualEnd(target), korvel::kResidualColour);
      labels_.AddLine(map_.ToPage(target.place), ResidualEnd(target));
    }
  pen_.StationSign(station_);
  labels_.AddSign(station_, kSignRadius);
}

void MapDrawing::DrawNames() {
  DrawName(scene_.station, kStationStyle, true);
  for (const PlotTarget& target : scene_.backsights) DrawName(target, kKnownStyle, true);
  for (const PlotTarget& target : scene_.newPoints)
    if (!DrawName(target, kNewStyle, false)) ++unnamed_;
}

// False if the name found no room.
bool MapDrawing::DrawName(const PlotTarget& target, const TextStyle& style, bool isMust) {
  const Vector size(pen_.TextWidth(target.name, style), style.size * 0.75);
  const auto place = labels_.Place(map_.ToPage(target.place), size, isMust);
  if (place) pen_.Text(target.name, *place, style);
  return place.has_value();
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

#include "tools/korvel/PlotScene.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/StationOptions.h"
#include "tools/korvel/StationOutcome.h"

namespace {

using korvel::IsKnown;
using korvel::MetreText;
using korvel::MillimetreText;
using korvel::NumberText;
using korvel::PlotScene;

constexpr double kFarthest = 1e8;  // metres from the station; no sight on earth is as long
constexpr const char* kPlusMinus = " \u00B1 ";

std::string WithError(const std::string& value, const std::string& error) {
  return error == "-" ? value : value + kPlusMinus + error;
}

std::string LengthWithError(double value, double error) {
  return WithError(MetreText(value) + " m", MillimetreText(error)) + (IsKnown(error) ? " mm" : "");
}

std::vector<PlotScene::Fact> Facts(const korvel::StationOutcome& outcome,
                                   const korvel::AngleUnit& unit) {
  const FreeStnResult& r = outcome.result;
  const std::string smallName = ' ' + std::string(unit.smallName);
  std::vector<PlotScene::Fact> facts{{"E", LengthWithError(r.Position.x, r.PositionError.x)},
                                     {"N", LengthWithError(r.Position.y, r.PositionError.y)}};
  if (IsKnown(r.Position.z))
    facts.push_back({"H", LengthWithError(r.Position.z, r.PositionError.z)});
  facts.push_back(
      {"Orientation", unit.DirectionText(r.Orientation) + ' ' + std::string(unit.name)});
  if (IsKnown(r.OrientationError))
    facts.push_back({"", "\u00B1 " + unit.SmallText(r.OrientationError) + smallName});
  facts.push_back({"Degrees of freedom", std::to_string(outcome.DegreesOfFreedom())});
  facts.push_back({"Unit weight deviation", NumberText(r.StdDev, 3)});
  if (!r.MaxPlaneName.empty())
    facts.push_back({"Largest plane residual",
                     MillimetreText(r.MaxPlaneResidual) + " mm at " + r.MaxPlaneName});
  return facts;
}

}  // namespace

namespace korvel {

PlotScene::PlotScene(const StationOutcome& outcome, const StationOptions& options)
    : station{outcome.station->NameText(), outcome.result.Position.GetXY(), {}},
      hasEllipse(IsKnown(outcome.result.EllipseA)),
      ellipseA(outcome.result.EllipseA),
      ellipseB(outcome.result.EllipseB),
      ellipseBearing(outcome.result.EllipseBearing),
      facts(Facts(outcome, options.angles)),
      source(std::filesystem::path(options.job).filename().string()) {
  for (std::size_t i = 0; i < outcome.points.size(); ++i)
    backsights.push_back({outcome.adjustment.Backsights[i].Name, outcome.points[i].position.GetXY(),
                          outcome.residuals[i].displacement});
  for (const NewPoint& p : outcome.newPoints)
    newPoints.push_back({p.point->NameText(), p.point->GetXY(), {}});
  const auto isFar = [&](const PlotTarget& target) {
    return !(station.place.GetDistance(target.place) < kFarthest);
  };
  std::erase_if(backsights, isFar);
  std::erase_if(newPoints, isFar);
}

std::vector<Vector> PlotScene::Places() const {
  std::vector<Vector> places{station.place};
  for (const PlotTarget& target : backsights) places.push_back(target.place);
  for (const PlotTarget& target : newPoints) places.push_back(target.place);
  return places;
}

double PlotScene::LargestDisplacement() const {
  double largest = 0.0;
  for (const PlotTarget& target : backsights)
    largest = std::max(largest, target.displacement.GetLength());
  return largest;
}

}  // namespace korvel

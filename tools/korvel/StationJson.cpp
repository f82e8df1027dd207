#include "tools/korvel/StationJson.h"

#include <cstddef>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Angles.h"
#include "tools/korvel/JsonText.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/StationRun.h"

namespace {

using korvel::AdjustmentSettings;
using korvel::AngleUnit;
using korvel::Json;
using korvel::JsonNumber;
using korvel::JsonText;
using korvel::StationOutcome;

Json Texts(const std::vector<std::string>& texts) {
  Json array = Json::array();
  for (const std::string& text : texts) array.push_back(JsonText(text));
  return array;
}

Json Angle(const AngleUnit& unit, double radians) {
  return JsonNumber(korvel::IsKnown(radians) ? unit.FromRadians(radians) : radians);
}

// Within one turn.
Json Direction(const AngleUnit& unit, double radians) {
  return Angle(unit, korvel::IsKnown(radians) ? NormalizeAngle(radians, kTwoPi, 0.0) : radians);
}

Json Position(const Vector3d& p) {
  return {{"E", JsonNumber(p.x)}, {"N", JsonNumber(p.y)}, {"H", JsonNumber(p.z)}};
}

Json Settings(const AdjustmentSettings& s, const AngleUnit& unit) {
  return {
      {"angle_error", Angle(unit, s.angleError)}, {"vertical_error", Angle(unit, s.verticalError)},
      {"distance_error", s.distanceError},        {"distance_ppm", s.distancePpm},
      {"centring_error", s.centringError},        {"sets", s.sets},
      {"height", HeightMethodName(s.height)}};
}

Json Ellipse(const FreeStnResult& r, const AngleUnit& unit) {
  return {{"a", JsonNumber(r.EllipseA)},
          {"b", JsonNumber(r.EllipseB)},
          {"bearing", Angle(unit, r.EllipseBearing)}};
}

Json Residuals(const korvel::SightResidual& v, const AngleUnit& unit) {
  return {{"distance", JsonNumber(v.distance)},
          {"direction", Angle(unit, v.direction)},
          {"plane", JsonNumber(v.plane)},
          {"height", JsonNumber(v.height)},
          {"spatial", JsonNumber(v.spatial)}};
}

Json Backsights(const StationOutcome& outcome, const AngleUnit& unit) {
  Json array = Json::array();
  for (std::size_t i = 0; i < outcome.points.size(); ++i) {
    const CBacksight& b = outcome.adjustment.Backsights[i];
    const korvel::KnownPoint& point = outcome.points[i];
    array.push_back({{"name", JsonText(b.Name)},
                     {"point", JsonText(point.name)},
                     {"file", JsonText(point.file)},
                     {"given", Position(point.position)},
                     {"distance", JsonNumber(b.Distance)},
                     {"direction", Direction(unit, b.Angle)},
                     {"height_difference", JsonNumber(b.HeightDiff)},
                     {"residuals", Residuals(outcome.residuals[i], unit)}});
  }
  return array;
}

Json Largest(const FreeStnResult& r, const AngleUnit& unit) {
  Json largest = Json::object();
  const auto add = [&](const char* what, const Json& value, const std::string& name) {
    if (!name.empty()) largest[what] = {{"value", value}, {"name", JsonText(name)}};
  };
  add("distance", JsonNumber(r.MaxDistanceResidual), r.MaxDistanceName);
  add("direction", Angle(unit, r.MaxAngleResidual), r.MaxAngleName);
  add("plane", JsonNumber(r.MaxPlaneResidual), r.MaxPlaneName);
  add("height", JsonNumber(r.MaxHeightResidual), r.MaxHeightName);
  add("spatial", JsonNumber(r.Max3DResidual), r.Max3DName);
  return largest;
}

Json WithoutOne(const StationOutcome& outcome, const AngleUnit& unit) {
  Json array = Json::array();
  for (const korvel::WithoutOne& w : outcome.withoutOne) {
    Json row = {{"name", JsonText(w.name)}};
    if (!w.failure.empty()) {
      row["error"] = w.failure;
    } else {
      row.update({{"dE", JsonNumber(w.dE)},
                  {"dN", JsonNumber(w.dN)},
                  {"dH", JsonNumber(w.dH)},
                  {"d_orientation", Angle(unit, w.dOrientation)},
                  {"unit_weight_deviation", JsonNumber(w.stdDev)},
                  {"largest_drop", w.dropsMost}});
    }
    array.push_back(std::move(row));
  }
  return array;
}

Json NewPoints(const StationOutcome& outcome) {
  Json array = Json::array();
  for (const korvel::NewPoint& p : outcome.newPoints) {
    Json row = {{"name", JsonText(p.point->NameText())},
                {"code", JsonText(p.point->GetPointCode())}};
    row["line"] = p.line ? JsonText(p.line->NameText()) : Json(nullptr);
    row.update(Position(*p.point));
    array.push_back(std::move(row));
  }
  return array;
}

Json LeftOut(const StationOutcome& outcome) {
  Json array = Json::array();
  for (const korvel::LeftOut& left : outcome.leftOut)
    array.push_back({{"name", JsonText(left.name)}, {"type", left.type}, {"reason", left.reason}});
  return array;
}

Json Result(const StationOutcome& outcome, const AngleUnit& unit) {
  const FreeStnResult& r = outcome.result;
  Json errors = Position(r.PositionError);
  errors["orientation"] = Angle(unit, r.OrientationError);
  return {{"position", Position(r.Position)},
          {"orientation", Direction(unit, r.Orientation)},
          {"standard_errors", errors},
          {"unit_weight_deviation", JsonNumber(r.StdDev)},
          {"degrees_of_freedom", outcome.DegreesOfFreedom()},
          {"converged", outcome.hasConverged},
          {"ellipse", Ellipse(r, unit)},
          {"backsights", Backsights(outcome, unit)},
          {"largest_residuals", Largest(r, unit)},
          {"points", NewPoints(outcome)}};
}

Json Station(const StationOutcome& outcome, const korvel::StationOptions& options) {
  Json station = {{"name", JsonText(outcome.station->NameText())},
                  {"computed", outcome.IsComputed()},
                  {"atmospheric_ppm", JsonNumber(outcome.ppm)}};
  station["left_out"] = LeftOut(outcome);
  if (!outcome.IsComputed()) {
    station["error"] = outcome.failure;
    return station;
  }
  station.update(Result(outcome, options.angles));
  if (!outcome.heightNote.empty()) station["no_height"] = outcome.heightNote;
  station["second_position"] = nullptr;
  if (outcome.second)
    station["second_position"] = {{"E", outcome.second->x}, {"N", outcome.second->y}};
  if (options.leaveOneOut) station["leave_one_out"] = WithoutOne(outcome, options.angles);
  return station;
}

}  // namespace

void korvel::PrintStationJson(const StationRun& run, std::ostream& out) {
  Json stations = Json::array();
  for (const StationOutcome& outcome : run.outcomes)
    stations.push_back(Station(outcome, run.options));
  const Json document = {
      {"program", run.program},
      {"date", run.date},
      {"job", JsonText(run.options.job)},
      {"description", JsonText(run.jobDescription)},
      {"known", Texts(run.options.known)},
      {"length_unit", "m"},
      {"angle_unit", run.options.angles.name},
      {"settings", Settings(run.options.settings, run.options.angles)},
      {"warnings", Texts(run.warnings)},
      {"stations", std::move(stations)},
      {"points_file", run.pointsFile.empty() ? Json(nullptr) : JsonText(run.pointsFile)},
      {"plots", Texts(run.plots)}};
  PrintJson(document, out);
}

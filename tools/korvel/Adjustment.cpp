#include "tools/korvel/Adjustment.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <newmat.h>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "tools/korvel/NumberFormat.h"

namespace {

using korvel::CountText;

constexpr double kRestDistance = 1e-5;   // metres: far above rounding, far below any error
constexpr double kRestDirection = 1e-7;  // radians

constexpr const char* kSingular =
    "the normal equations are singular: the backsights lie so that they don't determine the "
    "station";

Vector EastNorth(const Vector3d& northEast) { return {northEast.y, northEast.x}; }

std::string PlaneFailure(const FreeStn& free) {
  const std::string usable = CountText(static_cast<std::size_t>(free.BacksightCount), "backsight") +
                             ", " + std::to_string(free.DistanceCount) + " with a distance";
  if (free.BacksightCount < 2 || (free.BacksightCount == 2 && free.DistanceCount == 0))
    return "too few usable backsights (" + usable +
           "): it takes two, one of them with a distance, or three";
  return "no approximate position from " + usable +
         ": the points coincide, or distances and directions contradict each other";
}

std::string HeightFailure(const FreeStn& free) {
  return free.HeightCount == 0 ? "no backsight gives a height" : "the heights can't be adjusted";
}

// Newmat's exceptions have no base in the standard library, so they are caught where they arise.
template <class Calculation>
std::string FailureOf(const Calculation& calculation, const std::string& refusal) {
  try {
    return calculation() ? std::string() : refusal;
  } catch (const NEWMAT::SingularException&) {
    return kSingular;
  }
}

std::string CalcHeight(FreeStn& free, korvel::HeightMethod height, FreeStnResult& result) {
  if (height == korvel::HeightMethod::None) return "not asked for";
  const bool isWeighted = height == korvel::HeightMethod::Weighted;
  return FailureOf(
      [&] { return isWeighted ? free.CalcHeightWeighted(result) : free.CalcHeight(result); },
      HeightFailure(free));
}

// Leaves no number that looks like a height.
void ClearHeight(const FreeStn& free, FreeStnResult& result) {
  result.Position.z = result.PositionError.z = kUndefined;
  result.HeightResiduals.assign(free.Backsights.size(), kUndefined);
  result.Residuals3D.assign(free.Backsights.size(), kUndefined);
}

double Difference(double a, double b) {
  return IsUndefined(a) || IsUndefined(b) ? kUndefined : a - b;
}

FreeStn Without(FreeStn free, std::size_t index) {
  const auto place = free.Backsights.begin() + static_cast<std::ptrdiff_t>(index);
  free.DistanceCount -= place->HasDistance();
  free.HeightCount -= place->HasHeightDiff();
  --free.BacksightCount;
  free.Backsights.erase(place);
  return free;
}

korvel::WithoutOne Compare(const FreeStn& free, std::size_t index, const FreeStnResult& all,
                           korvel::HeightMethod height) {
  FreeStn rest = Without(free, index);
  const korvel::Adjusted adjusted = korvel::Adjust(rest, height);
  korvel::WithoutOne without{free.Backsights[index].Name, adjusted.failure};
  if (!adjusted.failure.empty()) return without;
  without.dE = adjusted.result.Position.x - all.Position.x;
  without.dN = adjusted.result.Position.y - all.Position.y;
  without.dH = Difference(adjusted.result.Position.z, all.Position.z);
  without.dOrientation =
      NormalizeAngle(adjusted.result.Orientation - all.Orientation, kTwoPi, -kPi);
  without.stdDev = adjusted.result.StdDev;
  return without;
}

void MarkLargestDrop(std::vector<korvel::WithoutOne>& withoutOne, double stdDev) {
  const auto deviation = [](const korvel::WithoutOne& w) {
    return IsUndefined(w.stdDev) ? HUGE_VAL : w.stdDev;
  };
  const auto least =
      std::min_element(withoutOne.begin(), withoutOne.end(),
                       [&](const auto& a, const auto& b) { return deviation(a) < deviation(b); });
  if (least != withoutOne.end() && !IsUndefined(stdDev) && deviation(*least) < stdDev)
    least->dropsMost = true;
}

}  // namespace

namespace korvel {

void ApplySettings(const AdjustmentSettings& settings, FreeStn& free) {
  free.SetAprioriErrors(settings.distanceError, settings.distancePpm, settings.angleError,
                        settings.verticalError, settings.centringError, settings.sets);
}

Adjusted Adjust(FreeStn& free, HeightMethod height) {
  Adjusted adjusted;
  FreeStnResult& result = adjusted.result;
  adjusted.failure = FailureOf([&] { return free.CalcPlane(result); }, PlaneFailure(free));
  if (!adjusted.failure.empty()) return adjusted;
  if (IsUndefined(result.PositionError.x)) result.OrientationError = kUndefined;
  adjusted.heightNote = CalcHeight(free, height, result);
  if (!adjusted.heightNote.empty()) ClearHeight(free, result);
  return adjusted;
}

std::vector<SightResidual> ResidualsOf(const FreeStn& free, const FreeStnResult& result) {
  const Vector station = EastNorth(free.Station);
  std::vector<SightResidual> residuals;
  for (std::size_t i = 0; i < free.Backsights.size(); ++i) {
    const CBacksight& b = free.Backsights[i];
    const Vector point = EastNorth(b.Given);
    const double distance = station.GetDistance(point);
    const double azimuth = SwapAngleDirection(station.GetDirection(point));
    SightResidual& v = residuals.emplace_back();
    if (b.HasDistance()) v.distance = distance - b.Distance;
    v.direction = NormalizeAngle(azimuth - free.Orientation - b.Angle, kTwoPi, -kPi);
    v.plane = result.PlaneResiduals[i];
    v.height = result.HeightResiduals[i];
    v.spatial = result.Residuals3D[i];
    Vector sighted;
    sighted.MeasPolar(station, {b.HasDistance() ? b.Distance : distance,
                                SwapAngleDirection(b.Angle + free.Orientation)});
    v.displacement = sighted - point;
  }
  return residuals;
}

bool HasConverged(const std::vector<SightResidual>& residuals, const FreeStnResult& result) {
  double distance = 0.0;
  double direction = 0.0;
  for (const SightResidual& v : residuals) {
    if (!IsUndefined(v.distance)) distance = std::max(distance, std::abs(v.distance));
    direction = std::max(direction, std::abs(v.direction));
  }
  return std::abs(distance - std::abs(result.MaxDistanceResidual)) < kRestDistance &&
         std::abs(direction - std::abs(result.MaxAngleResidual)) < kRestDirection;
}

std::vector<WithoutOne> LeaveOneOut(const FreeStn& free, const FreeStnResult& result,
                                    HeightMethod height) {
  std::vector<WithoutOne> withoutOne;
  for (std::size_t i = 0; i < free.Backsights.size(); ++i)
    withoutOne.push_back(Compare(free, i, result, height));
  MarkLargestDrop(withoutOne, result.StdDev);
  return withoutOne;
}

const char* NewmatVersion() { return PACKAGE_VERSION; }

}  // namespace korvel

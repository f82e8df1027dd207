// The order of operations below is part of the results: they are reproduced to the last bit.

#include "korvelfile/measurements/PolarReductions.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/SpCode.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

constexpr double kMissingDistance = 1e-7;  // metres
constexpr double kMapRadius = 6389000.0;   // metres; of the map, not of a station

bool IsMissing(double distance) { return kMissingDistance > std::fabs(distance); }

bool HasNoValue(double value) { return value == 0.0 || IsUndefined(value); }

double FactorOf(double ppm) { return 1.0 + ppm * 1e-6; }

SpCodeId CodeOf(const RecordDataItem& record) {
  if (record.SpecialCode.empty()) return SpCodeUnknown;  // as nearly every record's
  SpCode code;
  code = record.SpecialCode.c_str();
  return code;
}

double RemarkValue(const RecordDataItem& record) {
  return ParseDouble(FirstCommaToPoint(record.Remark));
}

// `offset` of the station as it acts on `record`.
double OffsetFor(const RecordDataItem& record, SpCodeId code, double offset) {
  if (record.Type == PlmTypes::RecordKnownBacksight) return 0.0;
  return code == SpCodeRF ? -offset : offset;
}

// OffsetSideways as it acts on `record`.
double SidewaysFor(const StationDataItem& station, const RecordDataItem& record, SpCodeId code) {
  const double es = OffsetFor(record, code, station.OffsetSideways);
  return code == SpCodeSM ? es + RemarkValue(record) : es;
}

bool HasCurvature(const StationDataItem& station) {
  return station.CurvatureOn != 0 && !HasNoValue(station.EarthRadius);
}

// The leg of the right-angled triangle of a slope distance and its height difference.
double LevelLeg(double slope, double heightDiff) {
  return std::sqrt(slope * slope - heightDiff * heightDiff);
}

// The horizontal distance of the slope distance `s` by its zenith angle.
double LevelByAngle(const StationDataItem& station, const RecordDataItem& record, double s,
                    double ev) {
  const double z = NormalizeVAngle(record.Vertical);
  double h = s * std::sin(z);
  if (HasCurvature(station)) h = s * std::sin(z + h / (-2.0 * station.EarthRadius));
  return ev == 0.0 ? h : h - std::cos(record.Vertical) * ev;
}

double LevelDistance(const StationDataItem& station, const RecordDataItem& record, double d,
                     double ev) {
  if (station.SlopeDistance == 0) return d;
  const double s = d + record.DistanceOffset;
  if (station.VerticalIsHeightDiff != 0) return LevelLeg(s, record.Vertical);
  return LevelByAngle(station, record, s, ev);
}

// The distance by which a sideways offset turns the direction. Coarser than `GetHorDist`: the
// offset is small.
double DistanceOfTurn(const StationDataItem& station, const RecordDataItem& record, double ppm) {
  const double d = FactorOf(ppm) * record.Distance * FactorOf(station.ScalePpm);
  if (IsMissing(d)) return 0.0;
  if (station.SlopeDistance == 0) return d;
  const double s = d + record.DistanceOffset;
  if (station.VerticalIsHeightDiff != 0) return LevelLeg(s, record.Vertical);
  return std::fabs(std::sin(record.Vertical) * s);
}

}  // namespace

double GetAtmPPM(const StationDataItem& station) {
  if (HasNoValue(station.InstrumentN) || HasNoValue(station.InstrumentA) ||
      HasNoValue(station.Pressure) || HasNoValue(station.Temperature)) {
    return 0.0;
  }
  return station.InstrumentN -
         (station.Pressure * station.InstrumentA / 100.0) / station.Temperature;
}

double GetAtmPPMIfNotApplied(const StationDataItem& station) {
  return station.AtmApplied == 0 ? GetAtmPPM(station) : 0.0;
}

void CalculateInstrNandA(double wavelength, double temperature, double pressure, double& n,
                         double& a) {
  const double lambda = wavelength * 1e6;  // micrometres
  const double lambda2 = lambda * lambda;
  a = (287.604 + 4.8864 / lambda2 + 0.068 / (lambda2 * lambda2)) / 3.709;
  n = (pressure / 100.0) * a / temperature;
}

double GetGeomPPM(double scale, double offset, double height) {
  constexpr double R = kMapRadius;
  return ((1.0 - height / R) * scale * (1.0 + offset * offset / (2.0 * R * R)) - 1.0) * 1000000.0;
}

double GetHorDist(const StationDataItem& station, const RecordDataItem& record, double ppm) {
  const SpCodeId code = CodeOf(record);
  double d = FactorOf(ppm) * record.Distance;
  if (IsMissing(d)) return 0.0;
  if (code == SpCodeLL) d = d + RemarkValue(record);
  double h = LevelDistance(station, record, d, OffsetFor(record, code, station.OffsetVertical));
  h = h * FactorOf(station.ScalePpm);
  if (code == SpCodeLH) h = h + RemarkValue(record);
  const double es = SidewaysFor(station, record, code);
  return std::sqrt(h * h + es * es);
}

double GetHorAngle(const StationDataItem& station, const RecordDataItem& record, double ppm) {
  double a = record.HorAngle;
  if (record.Vertical > kPi && station.VerticalIsHeightDiff == 0) a = a + kPi;
  const double d = DistanceOfTurn(station, record, ppm);
  if (a > kTwoPi) a = a - kTwoPi;
  if (IsMissing(d)) return a;
  const double es = SidewaysFor(station, record, CodeOf(record));
  return es == 0.0 && !std::isnan(d) ? a : a + std::atan(es / d);
}

double GetHeightDiff(const StationDataItem& station, const RecordDataItem& record, double ppm) {
  if (station.HeightsMeasured == 0) return kUndefined;
  if (station.VerticalIsHeightDiff != 0) return record.Vertical;
  const SpCodeId code = CodeOf(record);
  double d = FactorOf(ppm) * record.Distance;
  if (IsMissing(d)) return kUndefined;
  if (code == SpCodeLL) d = d + RemarkValue(record);
  const double x = NormalizeVAngle(record.Vertical);
  const double s = d + record.DistanceOffset;
  double r = std::sin(x) * OffsetFor(record, code, station.OffsetVertical);
  r = station.SlopeDistance != 0 ? r + std::cos(x) * s : r + s / std::tan(x);
  if (!HasCurvature(station)) return r;
  const double D = GetHorDist(station, record, ppm);
  return r + (1.0 - station.RefractionK) * (D * D) / (2.0 * station.EarthRadius);
}

double GetHeightDiffPoints(const StationDataItem& station, const RecordDataItem& record,
                           double ppm) {
  const double axes = GetHeightDiff(station, record, ppm);
  if (IsUndefined(axes)) return kUndefined;
  const double points = axes + station.InstrumentHeight - record.TargetHeight;
  return CodeOf(record) == SpCodeZPlus ? points + RemarkValue(record) : points;
}

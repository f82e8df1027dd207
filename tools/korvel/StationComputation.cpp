#include "tools/korvel/StationComputation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/measurements/InmCalculator.h"
#include "korvelfile/measurements/PolarReductions.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "tools/korvel/Adjustment.h"
#include "tools/korvel/KnownPoints.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/SightedRecords.h"
#include "tools/korvel/StationOptions.h"

namespace {

using korvel::CountText;
using korvel::IsKnown;
using korvel::KnownPoint;
using korvel::SightedRecord;
using korvel::StationOutcome;

constexpr double kMissingDistance = 1e-7;  // metres; the reductions take less for none

bool IsFreeBacksight(const RecordDataItem& record) {
  return record.Type == PlmTypes::RecordFreeBacksight;
}

bool IsSwitchedOff(const RecordDataItem& record) {
  return record.IsBacksightUsageInitialized() &&
         !record.IsUsingBacksight(RecordDataItem::AnyBacksightUsage);
}

// Why the record is no backsight; empty if it is one.
std::string Unusable(const RecordDataItem& record, const std::optional<KnownPoint>& point) {
  if (IsSwitchedOff(record)) return "switched off: its attribute FSBU has none of the bits 1, 2, 4";
  if (!point) return "no backsight: not among the known points";
  if (!IsKnown(point->position.x) || !IsKnown(point->position.y))
    return "no backsight: its known point has no plane coordinates";
  return {};
}

void LeaveOut(const RecordDataItem& record, const std::string& reason, StationOutcome& outcome) {
  outcome.leftOut.push_back({record.NameText(), record.Type, reason});
}

void AddSight(const RecordDataItem& record, KnownPoint point, StationOutcome& outcome) {
  if (!IsKnown(point.position.z)) point.position.z = kUndefined;
  outcome.adjustment.AddBacksight(*outcome.station, record, point.position, outcome.ppm);
  outcome.points.push_back(std::move(point));
}

void AddBacksights(const std::vector<SightedRecord>& records, const korvel::KnownPoints& known,
                   StationOutcome& outcome) {
  for (const SightedRecord& sighted : records) {
    const RecordDataItem& record = *sighted.record;
    if (!IsFreeBacksight(record)) continue;
    std::optional<KnownPoint> point = known.Find(record.NameText(), sighted.LineName());
    const std::string reason = Unusable(record, point);
    if (reason.empty()) {
      AddSight(record, std::move(*point), outcome);
    } else {
      LeaveOut(record, reason, outcome);
    }
  }
}

// True for what the adjustment doesn't take: any other record, and a backsight of type 7 that is
// switched on but names no point with a known position.
bool SightsNewPoint(const SightedRecord& sighted, const korvel::KnownPoints& known) {
  const RecordDataItem& record = *sighted.record;
  if (!IsFreeBacksight(record)) return true;
  return !IsSwitchedOff(record) &&
         !Unusable(record, known.Find(record.NameText(), sighted.LineName())).empty();
}

std::size_t CountOfType(const std::vector<SightedRecord>& records, PlmTypes::inm_rec_t type) {
  return static_cast<std::size_t>(
      std::count_if(records.begin(), records.end(),
                    [&](const SightedRecord& sighted) { return sighted.record->Type == type; }));
}

// Why the station can't be tried at all; empty if it can.
std::string NotAFreeStation(const std::vector<SightedRecord>& records) {
  if (CountOfType(records, PlmTypes::RecordFreeBacksight) > 0) return {};
  const std::size_t known = CountOfType(records, PlmTypes::RecordKnownBacksight);
  return "no record of type 7 (backsight of a free station)" +
         (known > 0 ? "; " + CountText(known, "record") +
                          " of type 4: it was set up on a known point or a control line"
                    : std::string());
}

void StoreAccuracy(StationDataItem& station, const FreeStnResult& result) {
  constexpr int kAllDigits = 0;
  const auto put = [&](const char* name, double value) {
    GeoAttrib::PutOrDeleteDoubleAttribute(&station, name, value, kAllDigits);
  };
  put("sE", result.PositionError.x);
  put("sN", result.PositionError.y);
  put("sZ", result.PositionError.z);
  put("s0", result.StdDev);
}

void ComputeNewPoint(const SightedRecord& sighted, StationOutcome& outcome) {
  const RecordDataItem& record = *sighted.record;
  if (IsUndefined(record.Distance) || std::abs(record.Distance) < kMissingDistance)
    return LeaveOut(record, "no distance: no new point", outcome);
  auto point = std::make_shared<PointDataItem>();
  InmCalculator().CalcPoint(*outcome.station, record, *point, nullptr);
  if (!std::isfinite(point->x) || !std::isfinite(point->y))
    return LeaveOut(record, "its numbers give no position", outcome);
  if (!std::isfinite(point->z)) point->z = kUndefined;
  outcome.newPoints.push_back({std::move(point), sighted.line});
}

void Evaluate(StationOutcome& outcome, const korvel::StationOptions& options) {
  const FreeStn& free = outcome.adjustment;
  outcome.residuals = korvel::ResidualsOf(free, outcome.result);
  outcome.hasConverged = korvel::HasConverged(outcome.residuals, outcome.result);
  outcome.second = free.GetSecondPosition();
  if (options.leaveOneOut)
    outcome.withoutOne = korvel::LeaveOneOut(free, outcome.result, options.settings.height);
}

}  // namespace

korvel::StationOutcome korvel::ComputeStation(StationDataItem& station, const KnownPoints& known,
                                              const StationOptions& options) {
  StationOutcome outcome;
  outcome.station = &station;
  outcome.ppm = GetAtmPPMIfNotApplied(station);
  ApplySettings(options.settings, outcome.adjustment);
  const std::vector<SightedRecord> records = RecordsOf(station);
  AddBacksights(records, known, outcome);
  outcome.failure = NotAFreeStation(records);
  if (!outcome.IsComputed()) return outcome;

  const Adjusted adjusted = Adjust(outcome.adjustment, options.settings.height);
  outcome.failure = adjusted.failure;
  if (!outcome.IsComputed()) return outcome;
  outcome.result = adjusted.result;
  outcome.heightNote = adjusted.heightNote;
  Evaluate(outcome, options);

  station.Establish(outcome.result.Position, outcome.result.Orientation);
  StoreAccuracy(station, outcome.result);
  for (const SightedRecord& sighted : records)
    if (SightsNewPoint(sighted, known)) ComputeNewPoint(sighted, outcome);
  return outcome;
}

// Reads a measurement file, writes it back, and computes its points.
// Seeds: fuzz/seeds/plm tests/golden/plm

#include "fuzz/support/Harness.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/InmCalculator.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/measurements/PrecisionDataItem.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"

namespace {

void ComputePoints(StationDataItem& station) {
  PrecisionDataItem precision;
  station.GetFreeStationAPriori(precision);
  station.GetDateText();
  station.GetStationPoint();
  station.Establish({0.0, 0.0, 0.0}, 0.0);
  TypedItemCursor<RecordDataItem> records(station);
  RecordDataItem* record = nullptr;
  while (records.Next(record) == 0) {
    PointDataItem point;
    double heightDifference = 0.0;
    InmCalculator().CalcPoint(station, *record, point, &heightDifference);
    record->IsUsingBacksight(RecordDataItem::AnyBacksightUsage);
  }
}

void ComputeFile(MeasurementFile& file) {
  TypedItemCursor<StationDataItem> stations(file);
  StationDataItem* station = nullptr;
  while (stations.Next(station) == 0) ComputePoints(*station);
  file.GenerateLines();
  fuzz::WalkItems(file);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::CheckReader<MeasurementFile>(fuzz::Input(data, size), "job.plm", ComputeFile);
  return 0;
}

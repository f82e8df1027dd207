// A free station in code: the example of the README.
//
// Usage: example_free_station JOB.plm KNOWN.geo

#include <cstdio>

#include "korvelfile/coordinates/CoordinateFilesMap.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/measurements/PolarReductions.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"

namespace {

bool PrintStation(const char* jobPath, const char* knownPath) {
  // README begins
  CoordinateFilesMap known({knownPath}, L"");
  MeasurementFile job;
  job.ChooseFile(jobPath);
  if (job.UseCollector() != 0) return false;

  StationDataItem* station = FindFirst<StationDataItem>(job);
  FreeStn free;
  PointInfo point;
  for (int i = 0; station && i < station->GetRecordCount(PlmTypes::RecordFreeBacksight); ++i) {
    const RecordDataItem& sight = *station->GetRecord(PlmTypes::RecordFreeBacksight, i);
    if (known.GetPoint(sight.GetName(), point))
      free.AddBacksight(*station, sight, point.GetENH(), GetAtmPPMIfNotApplied(*station));
  }
  FreeStnResult result;
  if (!free.CalcPlane(result) || !free.CalcHeight(result)) return false;
  std::printf("E %.4f N %.4f H %.4f\n", result.Position.x, result.Position.y, result.Position.z);
  return true;
  // README ends
}

}  // namespace

int main(int argc, char** argv) { return argc == 3 && PrintStation(argv[1], argv[2]) ? 0 : 1; }

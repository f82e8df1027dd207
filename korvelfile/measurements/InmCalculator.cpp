#include "korvelfile/measurements/InmCalculator.h"

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/measurements/PolarReductions.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/SpCode.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

double SumOrUndefined(double a, double b) {
  return IsUndefined(a) || IsUndefined(b) ? kUndefined : a + b;
}

void TakeTexts(const RecordDataItem& record, PointDataItem& point) {
  point.SetName(record.NameText());
  point.SetPointCode(record.PointCode);
  SpCode code;
  const bool isInstruction = (code = record.SpecialCode.c_str());
  if (!isInstruction) point.SetSpecialCode(record.SpecialCode).AndRemark(record.Remark);
}

void TakeAttributes(const RecordDataItem& record, PointDataItem& point) {
  point.ClearListObject();
  if (!record.empty()) point.push_back(record.front());
}

}  // namespace

InmCalculator::~InmCalculator() = default;

void InmCalculator::CalcPoint(const StationDataItem& station, const RecordDataItem& record,
                              PointDataItem& point, double* heightDiff) const {
  const double ppm = GetAtmPPMIfNotApplied(station);
  const double distance = GetHorDist(station, record, ppm);
  const double azimuth = GetHorAngle(station, record, ppm) + station.ZeroAngle;
  Vector position;
  position.MeasPolar(station.Coordinates.GetXY(),
                     PolarVector(distance, SwapAngleDirection(azimuth)));
  const double dh = GetHeightDiffPoints(station, record, ppm);
  if (heightDiff) *heightDiff = dh;
  TakeTexts(record, point);
  point = Vector3d(position.x, position.y, SumOrUndefined(station.Coordinates.z, dh));
  TakeAttributes(record, point);
}

// The plane is solved by Gauss-Newton steps: the observation equations are linearised at the last
// position and solved by their normal equations, until the corrections vanish. The normal matrix is
// inverted in full, for its inverse holds the errors that the report tells.

#include "korvelfile/measurements/FreeStn.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

#include <newmat.h>

#include "korvelfile/measurements/FreeStnResult.h"
#include "korvelfile/measurements/PolarReductions.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/internal/ApproximatePosition.h"
#include "korvelfile/measurements/internal/FreeStnParts.h"
#include "korvelfile/measurements/internal/FreeStnWeights.h"
#include "korvelfile/measurements/internal/GaussMarkov.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/base/PtErrMatrix.h"
#include "korvelfile/outside/base/Undefined.h"

using namespace FreeStnParts;

namespace {

constexpr int kMaxIterations = 10;
constexpr std::size_t kUsualBacksights = 8;
constexpr double kConverged = 1e-9;  // metres and radians alike

// The columns of the plane: N, E, orientation, then N and E of each satellite point.
constexpr int kN = 0;
constexpr int kE = 1;
constexpr int kOrientation = 2;
constexpr int kFirstGps = 3;

// (E, N, H) of (N, E, H), and the other way round.
Vector3d SwapFrame(const Vector3d& v) { return {v.y, v.x, v.z}; }

// Steps of full turns, but a remainder for a diverged angle, which steps would take forever. Both
// are exact.
double WithinHalfTurn(double angle) {
  if (std::fabs(angle) > 3.0 * kPi) return std::remainder(angle, kTwoPi);
  return std::fabs(angle) > kPi ? angle - std::copysign(kTwoPi, angle) : angle;
}

bool IsPlaneFinite(const CBacksight& b) {
  return std::isfinite(b.Distance) && std::isfinite(b.Angle) && std::isfinite(b.Given.x) &&
         std::isfinite(b.Given.y);
}

// Nobody sights the point he stands on, and lengths beyond the range of numbers have no direction.
bool HasSights(const FreeStn& station) {
  return std::all_of(station.Backsights.begin(), station.Backsights.end(),
                     [&](const CBacksight& b) {
                       const double D = SightLength(station, b);
                       return D > 0.0 && std::isfinite(D);
                     });
}

bool HasEnoughSights(const FreeStn& station) {
  return (station.BacksightCount >= 2 && station.DistanceCount >= 1) || station.BacksightCount >= 3;
}

bool CanCalcPlane(const FreeStn& station) {
  return HasEnoughSights(station) && CountersFit(station) &&
         std::all_of(station.Backsights.begin(), station.Backsights.end(), IsPlaneFinite);
}

// Puts the derivatives of one observation by the point, and by the station against it, into a row.
void FillSight(double* row, const Vector& byPoint, int gpsColumn) {
  row[kN] = -byPoint.x;
  row[kE] = -byPoint.y;
  if (gpsColumn == 0) return;
  row[gpsColumn] = byPoint.x;
  row[gpsColumn + 1] = byPoint.y;
}

void StartPlaneReport(FreeStnResult& result) {
  result.PlaneResiduals.clear();
  result.MaxAngleResidual = result.MaxDistanceResidual = 0.0;
  result.MaxPlaneResidual = result.Max3DResidual = 0.0;
  for (std::string* name :
       {&result.MaxAngleName, &result.MaxDistanceName, &result.MaxPlaneName, &result.Max3DName})
    name->clear();
}

void ReportErrors(const GaussMarkov& plane, FreeStnResult& result) {
  const double sigma = result.StdDev;
  const double sN = result.PositionError.y = plane.StandardError(kN, sigma);
  const double sE = result.PositionError.x = plane.StandardError(kE, sigma);
  if (!plane.IsRedundant()) {
    result.EllipseA = result.EllipseB = result.EllipseBearing = kUndefined;
    return;
  }
  result.OrientationError = plane.StandardError(kOrientation, sigma);
  PtErrMatrix(sN, sE, sigma * sigma * plane.Q.element(kE, kN))
      .Mat2Ell(result.EllipseA, result.EllipseB, result.EllipseBearing);
}

}  // namespace

void FreeStn::SetAprioriErrors(double distanceError, double distancePpm, double angleError,
                               double verticalError, double centringError, int sets) {
  DistanceError = distanceError;
  DistancePpm = distancePpm;
  AngleError = angleError;
  VerticalError = verticalError;
  CentringError = centringError;
  Sets = sets;
}

void FreeStn::AddBacksight(const StationDataItem& station, const RecordDataItem& record,
                           const Vector3d& point, double ppm) {
  CBacksight backsight;
  backsight.Name = record.NameText();
  if (record.Distance != 0.0 && !IsUndefined(record.Distance)) {
    backsight.Distance = GetHorDist(station, record, ppm);
    if (!IsUndefined(point.z)) backsight.HeightDiff = GetHeightDiffPoints(station, record, ppm);
  }
  backsight.Angle = GetHorAngle(station, record, ppm);
  backsight.Given = backsight.Adjusted = SwapFrame(point);
  if (Backsights.capacity() == 0) Backsights.reserve(kUsualBacksights);
  Backsights.push_back(std::move(backsight));
  ++BacksightCount;
  DistanceCount += Backsights.back().HasDistance();
  HeightCount += Backsights.back().HasHeightDiff();
}

void FreeStn::AddBacksightGPS(const StationDataItem& station, const RecordDataItem& record,
                              const Vector3d& point, const Vector3d& errors, double ppm) {
  AddBacksight(station, record, point, ppm);
  Backsights.back().IsGps = true;
  Backsights.back().GpsErrors = SwapFrame(errors);
  ++GpsCount;
}

std::optional<Vector> FreeStn::GetSecondPosition() const {
  const auto found = ApproximatePosition::Find(*this);
  if (!found || !found->second) return {};
  return Vector(found->second->y, found->second->x);
}

bool FreeStn::CalcApproxData() {
  const auto found = ApproximatePosition::Find(*this);
  if (!found) return false;
  Station.x = found->position.x;
  Station.y = found->position.y;
  const CBacksight& first = Backsights.front();
  Orientation = found->position.GetDirection(first.Given.GetXY()) - first.Angle;
  if (Orientation < 0.0) Orientation += kTwoPi;
  return true;
}

bool FreeStn::CalcPlane(FreeStnResult& result) {
  if (!CanCalcPlane(*this)) return false;
  const int m = DistanceCount + BacksightCount + 2 * GpsCount;
  const int u = kFirstGps + 2 * GpsCount;
  if (!FitsNewmat(m, u) || !CalcApproxData()) return false;
  for (CBacksight& backsight : Backsights) {
    backsight.Adjusted.x = backsight.Given.x;
    backsight.Adjusted.y = backsight.Given.y;
  }
  if (!HasSights(*this)) return false;

  GaussMarkov plane(m, u);
  SetupWeightMatrix(plane.P);
  if (!plane.HasFiniteWeights()) return false;
  result.PlaneResiduals.clear();  // no residuals stay behind where Newmat throws
  for (int i = 0; i < kMaxIterations; ++i) {
    if (i > 0 && !(plane.x.MaximumAbsoluteValue() > kConverged)) break;
    SetupObsVector(plane.l);
    SetupDesignMatrix(plane.A);
    if (!plane.Solve()) return false;
    Correct(plane.x);
  }

  const NEWMAT::ColumnVector v = plane.Residuals();
  result.StdDev = plane.UnitWeightDeviation(v);
  ReportPlane(v, result);
  ReportErrors(plane, result);
  result.Position.x = Station.y;
  result.Position.y = Station.x;
  result.Orientation = Orientation;
  return true;
}

void FreeStn::SetupObsVector(NEWMAT::ColumnVector& l) const {
  double* row = l.Store();
  for (const CBacksight& b : Backsights) {
    const Vector sight = Sight(*this, b);
    if (b.HasDistance()) *row++ = b.Distance - LengthOf(sight);
    *row++ = WithinHalfTurn(b.Angle - (std::atan2(sight.y, sight.x) - Orientation));
    if (!b.IsGps) continue;
    *row++ = b.Given.x - b.Adjusted.x;
    *row++ = b.Given.y - b.Adjusted.y;
  }
}

void FreeStn::SetupDesignMatrix(NEWMAT::Matrix& A) const {
  A = 0.0;
  double* row = A.Store();
  const auto nextRow = [&] { return std::exchange(row, row + A.Ncols()); };
  int gpsColumn = kFirstGps;
  for (const CBacksight& b : Backsights) {
    const Vector sight = Sight(*this, b);
    const double perLength = 1.0 / LengthOf(sight);
    const Vector along = sight * perLength;
    const int column = b.IsGps ? gpsColumn : 0;
    if (b.HasDistance()) FillSight(nextRow(), along, column);
    row[kOrientation] = -1.0;
    FillSight(nextRow(), Vector(-along.y, along.x) * perLength, column);
    if (!b.IsGps) continue;
    nextRow()[gpsColumn++] = 1.0;
    nextRow()[gpsColumn++] = 1.0;
  }
}

void FreeStn::SetupWeightMatrix(NEWMAT::SymmetricBandMatrix& P) const {
  P = 0.0;
  int row = 0;
  const auto put = [&](double weight) {
    P.element(row, row) = weight;
    ++row;
  };
  for (const CBacksight& b : Backsights) {
    const double D = SightLength(*this, b);
    if (b.HasDistance()) put(FreeStnWeights::OfDistance(*this, D));
    put(FreeStnWeights::OfDirection(*this, D));
    if (!b.IsGps) continue;
    put(FreeStnWeights::OfError(b.GpsErrors.x));
    put(FreeStnWeights::OfError(b.GpsErrors.y));
  }
}

void FreeStn::Correct(const NEWMAT::ColumnVector& x) {
  Station.x += x.element(kN);
  Station.y += x.element(kE);
  Orientation += x.element(kOrientation);
  int gpsColumn = kFirstGps;
  for (CBacksight& b : Backsights) {
    if (!b.IsGps) continue;
    b.Adjusted.x += x.element(gpsColumn++);
    b.Adjusted.y += x.element(gpsColumn++);
  }
}

void FreeStn::ReportPlane(const NEWMAT::ColumnVector& v, FreeStnResult& result) const {
  StartPlaneReport(result);
  result.PlaneResiduals.reserve(Backsights.size());
  int row = 0;
  for (const CBacksight& b : Backsights) {
    if (b.HasDistance())
      KeepLargest(v.element(row++), b.Name, result.MaxDistanceResidual, result.MaxDistanceName);
    KeepLargest(v.element(row++), b.Name, result.MaxAngleResidual, result.MaxAngleName);
    if (b.IsGps) row += 2;

    Vector computed;
    computed.MeasPolar(Station.GetXY(), {b.HasDistance() ? b.Distance : SightLength(*this, b),
                                         b.Angle + Orientation});
    const double residual = LengthOf(b.Given.GetXY() - computed);
    result.PlaneResiduals.push_back(residual);
    KeepLargest(residual, b.Name, result.MaxPlaneResidual, result.MaxPlaneName);
  }
}

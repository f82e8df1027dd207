// The heights of a free station. Their equations are linear: one step solves them.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include <newmat.h>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "korvelfile/measurements/internal/FreeStnParts.h"
#include "korvelfile/measurements/internal/FreeStnWeights.h"
#include "korvelfile/measurements/internal/GaussMarkov.h"
#include "korvelfile/outside/base/Undefined.h"

using namespace FreeStnParts;

namespace {

bool IsHeightFinite(const CBacksight& b) {
  return std::isfinite(b.Given.z) && std::isfinite(b.HeightDiff);
}

bool CanCalcHeight(const FreeStn& station) {
  return station.HeightCount >= 1 && CountersFit(station) &&
         std::all_of(station.Backsights.begin(), station.Backsights.end(), IsHeightFinite);
}

// The height of the station that one backsight gives.
double HeightFrom(const CBacksight& backsight) { return backsight.Given.z - backsight.HeightDiff; }

}  // namespace

bool FreeStn::CalcHeight(FreeStnResult& result) {
  if (!CanCalcHeight(*this)) return false;
  double sum = 0.0;
  for (const CBacksight& b : Backsights)
    if (b.HasHeightDiff()) sum += HeightFrom(b);
  const double mean = sum / HeightCount;
  if (!std::isfinite(mean)) return false;
  Station.z = result.Position.z = mean;

  ReportHeights(result);
  double squares = 0.0;
  for (const double r : result.HeightResiduals)
    if (!IsUndefined(r)) squares += r * r;
  result.PositionError.z =
      HeightCount >= 2 ? std::sqrt(squares / (HeightCount - 1) / HeightCount) : kUndefined;
  Calc3DResiduals(result);
  return true;
}

bool FreeStn::CalcHeightWeighted(FreeStnResult& result) {
  if (!CanCalcHeight(*this)) return false;
  const int m = HeightCount + GpsCount;
  const int u = 1 + GpsCount;
  if (!FitsNewmat(m, u)) return false;
  GaussMarkov height(m, u);
  SetupWeightMatrixH(height.P);
  if (!height.HasFiniteWeights()) return false;
  SetupDesignMatrixH(height.A);
  SetupObsVectorH(height.l);
  if (!height.Solve()) return false;

  TakeHeights(height.x);
  ReportHeights(result);
  const double sigma = height.UnitWeightDeviation(height.Residuals());
  result.PositionError.z = height.StandardError(0, sigma);
  result.Position.z = Station.z;
  Calc3DResiduals(result);
  return true;
}

void FreeStn::SetupDesignMatrixH(NEWMAT::Matrix& A) const {
  A = 0.0;
  int row = 0;
  int gpsColumn = 1;
  for (const CBacksight& b : Backsights) {
    if (b.HasHeightDiff()) {
      if (b.IsGps) A.element(row, gpsColumn) = 1.0;
      A.element(row++, 0) = -1.0;
    }
    if (b.IsGps) A.element(row++, gpsColumn++) = 1.0;
  }
}

void FreeStn::SetupObsVectorH(NEWMAT::ColumnVector& l) const {
  int row = 0;
  for (const CBacksight& b : Backsights) {
    if (b.HasHeightDiff()) l.element(row++) = b.HeightDiff - (b.IsGps ? 0.0 : b.Given.z);
    if (b.IsGps) l.element(row++) = b.Given.z;
  }
}

void FreeStn::SetupWeightMatrixH(NEWMAT::SymmetricBandMatrix& P) const {
  P = 0.0;
  int row = 0;
  const auto put = [&](double weight) {
    P.element(row, row) = weight;
    ++row;
  };
  for (const CBacksight& b : Backsights) {
    if (b.HasHeightDiff()) put(FreeStnWeights::OfHeightDiff(*this, SightLength(*this, b)));
    if (b.IsGps) put(FreeStnWeights::OfError(b.GpsErrors.z));
  }
}

void FreeStn::TakeHeights(const NEWMAT::ColumnVector& x) {
  Station.z = x.element(0);
  int gpsColumn = 1;
  for (CBacksight& b : Backsights) {
    if (!b.IsGps) continue;
    const double height = x.element(gpsColumn++);
    if (!IsUndefined(b.Given.z)) b.Adjusted.z = height;
  }
}

void FreeStn::ReportHeights(FreeStnResult& result) const {
  result.HeightResiduals.clear();
  result.MaxHeightResidual = 0.0;
  result.MaxHeightName.clear();
  for (const CBacksight& b : Backsights) {
    result.HeightResiduals.push_back(b.HasHeightDiff() ? Station.z - HeightFrom(b) : kUndefined);
    if (b.HasHeightDiff())
      KeepLargest(result.HeightResiduals.back(), b.Name, result.MaxHeightResidual,
                  result.MaxHeightName);
  }
}

void FreeStn::Calc3DResiduals(FreeStnResult& result) const {
  result.Residuals3D.clear();
  result.Max3DResidual = 0.0;
  result.Max3DName.clear();
  const std::size_t n = Backsights.size();
  if (result.PlaneResiduals.size() != n || result.HeightResiduals.size() != n) return;
  for (std::size_t i = 0; i < n; ++i) {
    const double height = result.HeightResiduals[i];
    const double r = std::hypot(IsUndefined(height) ? 0.0 : height, result.PlaneResiduals[i]);
    result.Residuals3D.push_back(r);
    KeepLargest(r, Backsights[i].Name, result.Max3DResidual, result.Max3DName);
  }
}

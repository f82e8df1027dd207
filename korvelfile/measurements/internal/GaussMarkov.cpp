#include "korvelfile/measurements/internal/GaussMarkov.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/outside/base/Undefined.h"

namespace {

bool IsFinite(const NEWMAT::GeneralMatrix& matrix) {
  return std::all_of(matrix.Store(), matrix.Store() + matrix.Storage(),
                     [](double value) { return std::isfinite(value); });
}

}  // namespace

bool GaussMarkov::HasFiniteWeights() const { return IsFinite(P); }

bool GaussMarkov::Solve() {
  if (!IsFinite(l)) return false;
  const NEWMAT::Matrix AtP = A.t() * P;
  Q = (AtP * A).i();
  x = Q * (AtP * l);
  return IsFinite(x);
}

NEWMAT::ColumnVector GaussMarkov::Residuals() const { return A * x - l; }

double GaussMarkov::UnitWeightDeviation(const NEWMAT::ColumnVector& v) const {
  if (!IsRedundant()) return kUndefined;
  return std::sqrt((v.t() * P * v).AsScalar() / (A.Nrows() - A.Ncols()));
}

double GaussMarkov::StandardError(int i, double sigma) const {
  return IsUndefined(sigma) ? kUndefined : std::sqrt(Q.element(i, i)) * sigma;
}

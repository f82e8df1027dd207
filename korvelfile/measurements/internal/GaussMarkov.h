#pragma once

#include <newmat.h>

#include "korvelfile/outside/internal/NewmatLock.h"

/// One weighted least-squares problem in the Gauss-Markov model, l + v = A x with weights P.
///
/// The letters are those of the textbooks. The caller fills `A`, `l` and the diagonal of `P`, all
/// of them uninitialised at first, and calls `Solve`. Newmat's exceptions pass through.
class GaussMarkov {
 private:
  NewmatLock lock_;  // before the matrices, which it guards

 public:
  /// @param m  observations, > 0
  /// @param u  unknowns, > 0, at most m
  GaussMarkov(int m, int u) : A(m, u), l(m), P(m, 1) {}

  NEWMAT::Matrix A;               ///< m x u, derivatives of the observations by the unknowns
  NEWMAT::ColumnVector l;         ///< m, observed minus computed
  NEWMAT::SymmetricBandMatrix P;  ///< m x m, diagonal: weights, 1/sigma^2
  NEWMAT::Matrix Q;               ///< u x u, cofactors of the unknowns
  NEWMAT::ColumnVector x;         ///< u, the unknowns

  /// True if no weight is infinite or NaN.
  bool HasFiniteWeights() const;

  /// Computes `Q` and `x`.
  /// @return false if an observation or an unknown is infinite or NaN
  /// @throws NEWMAT::SingularException if the normal matrix cannot be inverted
  bool Solve();

  /// v = A x - l: computed minus observed, m.
  NEWMAT::ColumnVector Residuals() const;

  /// True if there are more observations than unknowns.
  bool IsRedundant() const { return A.Nrows() > A.Ncols(); }

  /// Standard deviation of unit weight, sqrt(v' P v / (m - u)), from the residuals `v`; the
  /// undefined number if nothing is redundant.
  double UnitWeightDeviation(const NEWMAT::ColumnVector& v) const;

  /// Standard error of unknown number `i`, from 0; the undefined number if `sigma` is.
  double StandardError(int i, double sigma) const;
};

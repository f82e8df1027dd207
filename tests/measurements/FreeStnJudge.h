/// @file
/// A second least-squares adjustment, to judge the first.
///
/// It shares nothing with it: observations are functions of the unknowns, derived numerically, in
/// long double, and the equations are solved by an elimination of its own. It is slow and general.
#pragma once

#include <cmath>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace judge {

using Real = long double;
using Values = std::vector<Real>;
using Square = std::vector<Values>;

/// One observation: its value computed from the unknowns less the observed one, and its weight.
struct Observation {
  std::function<Real(const Values&)> misclosure;
  Real weight;
};

struct Solution {
  Values unknowns;
  Square cofactors;
  Values residuals;  ///< adjusted minus observed
  Real unitWeight = 0;
};

/// Inverse by Gauss-Jordan elimination with row pivots.
inline Square Inverse(Square a) {
  const std::size_t n = a.size();
  Square inverse(n, Values(n, 0));
  for (std::size_t i = 0; i < n; ++i) inverse[i][i] = 1;
  for (std::size_t column = 0; column < n; ++column) {
    std::size_t pivot = column;
    for (std::size_t row = column; row < n; ++row)
      if (std::fabs(a[row][column]) > std::fabs(a[pivot][column])) pivot = row;
    std::swap(a[column], a[pivot]);
    std::swap(inverse[column], inverse[pivot]);
    const Real scale = a[column][column];
    for (std::size_t k = 0; k < n; ++k) {
      a[column][k] /= scale;
      inverse[column][k] /= scale;
    }
    for (std::size_t row = 0; row < n; ++row) {
      const Real factor = row == column ? 0 : a[row][column];
      for (std::size_t k = 0; k < n; ++k) {
        a[row][k] -= factor * a[column][k];
        inverse[row][k] -= factor * inverse[column][k];
      }
    }
  }
  return inverse;
}

inline Real Derivative(const Observation& observation, Values unknowns, std::size_t k) {
  constexpr Real kStep = 1e-4L;
  const Real at = unknowns[k];
  unknowns[k] = at + kStep;
  const Real above = observation.misclosure(unknowns);
  unknowns[k] = at - kStep;
  return (above - observation.misclosure(unknowns)) / (2 * kStep);
}

/// One step from `unknowns`: improves them and gives the cofactors there.
inline Square Step(const std::vector<Observation>& observations, Values& unknowns) {
  const std::size_t u = unknowns.size();
  Square normals(u, Values(u, 0));
  Values right(u, 0);
  for (const Observation& observation : observations) {
    Values row(u);
    for (std::size_t k = 0; k < u; ++k) row[k] = Derivative(observation, unknowns, k);
    const Real misclosure = observation.misclosure(unknowns);
    for (std::size_t i = 0; i < u; ++i) {
      right[i] -= observation.weight * row[i] * misclosure;
      for (std::size_t k = 0; k < u; ++k) normals[i][k] += observation.weight * row[i] * row[k];
    }
  }
  const Square cofactors = Inverse(normals);
  for (std::size_t i = 0; i < u; ++i)
    for (std::size_t k = 0; k < u; ++k) unknowns[i] += cofactors[i][k] * right[k];
  return cofactors;
}

inline Solution Adjust(const std::vector<Observation>& observations, Values start) {
  Solution solution;
  for (int i = 0; i < 15; ++i) solution.cofactors = Step(observations, start);
  Real sum = 0;
  for (const Observation& observation : observations) {
    solution.residuals.push_back(observation.misclosure(start));
    sum += observation.weight * solution.residuals.back() * solution.residuals.back();
  }
  const std::size_t redundant = observations.size() - start.size();
  if (redundant > 0) solution.unitWeight = std::sqrt(sum / static_cast<Real>(redundant));
  solution.unknowns = std::move(start);
  return solution;
}

}  // namespace judge

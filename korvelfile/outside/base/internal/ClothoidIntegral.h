#pragma once

#include <complex>

namespace clothoid {

/// Integral of exp(i (k t + c t^2 / 2)) over t from 0 to `s`: where a curve leads whose tangent
/// starts along the real axis and whose curvature is k + c t, positive to the left.
///
/// Good to some 1e-16 of the largest of |s|, and of 1/|k| and 1/sqrt|c| where the curve turns by
/// more than about a radian. Takes the same time for any number of turns. NaN or infinite where a
/// number on the way is.
///
/// @param k  curvature at the start
/// @param c  change of curvature per length
/// @param s  length, of either sign
std::complex<double> Integrate(double k, double c, double s);

}  // namespace clothoid

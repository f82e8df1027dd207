#pragma once

#include "korvelfile/measurements/FreeStn.h"

/// Weights of the observations of a free station, 1/sigma^2, over the plane distance D from the
/// station to the point. The centring error counts half, for it lies at both ends of the sight.
namespace FreeStnWeights {

/// 1/m^2.
double OfDistance(const FreeStn& errors, double D);

/// 1/rad^2.
double OfDirection(const FreeStn& errors, double D);

/// Of a height difference, 1/m^2.
double OfHeightDiff(const FreeStn& errors, double D);

/// Of an observation with the standard error `sigma`.
constexpr double OfError(double sigma) { return 1.0 / (sigma * sigma); }

}  // namespace FreeStnWeights

#include "korvelfile/measurements/internal/FreeStnWeights.h"

#include <cmath>

namespace {

double Square(double value) { return value * value; }

// Square root of the number of sets: an unknown number counts as half a set.
double RootOfSets(const FreeStn& errors) {
  return std::sqrt(errors.Sets == 0 ? 0.5 : static_cast<double>(errors.Sets));
}

}  // namespace

double FreeStnWeights::OfDistance(const FreeStn& errors, double D) {
  return 1.0 / (Square(errors.DistancePpm * 1e-6 * D + errors.DistanceError) +
                0.5 * Square(errors.CentringError));
}

double FreeStnWeights::OfDirection(const FreeStn& errors, double D) {
  return 1.0 /
         (Square(errors.AngleError / RootOfSets(errors)) + 0.5 * Square(errors.CentringError / D));
}

double FreeStnWeights::OfHeightDiff(const FreeStn& errors, double D) {
  return OfError(D * errors.VerticalError / RootOfSets(errors));
}

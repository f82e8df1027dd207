#include "korvelfile/outside/base/PtErrMatrix.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Undefined.h"

void PtErrMatrix::Mat2Ell(double& a, double& b, double& bearing) const {
  const double difference = (sN_ - sE_) * (sN_ + sE_);
  const double spread = std::hypot(difference, 2.0 * covariance_);
  const double major = std::sqrt(0.5 * (sN_ * sN_ + sE_ * sE_ + spread));
  if (!std::isfinite(major)) {
    a = b = bearing = kUndefined;
    return;
  }
  // The product of the axes is the root of the determinant. Taking it from there keeps the digits
  // of a flat ellipse, which the difference of the sum and the spread would lose.
  const double product = sN_ * sE_;
  const double determinant = (product - covariance_) * (product + covariance_);
  a = major;
  b = major > 0.0 ? std::min(major, std::sqrt(std::max(determinant, 0.0)) / major) : 0.0;
  bearing = NormalizeAngle(0.5 * std::atan2(2.0 * covariance_, difference), kPi, 0.0);
}

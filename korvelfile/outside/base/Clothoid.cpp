#include "korvelfile/outside/base/Clothoid.h"

#include <cmath>
#include <complex>

#include "korvelfile/outside/base/internal/ClothoidFoot.h"
#include "korvelfile/outside/base/internal/ClothoidIntegral.h"

namespace {

double Curvature(double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; }

// End less start; of two radii by their difference, which near radii leave more digits.
double CurvatureChange(double startRadius, double endRadius) {
  if (startRadius == 0.0 || endRadius == 0.0) return Curvature(endRadius) - Curvature(startRadius);
  return (startRadius - endRadius) / startRadius / endRadius;
}

}  // namespace

void Clothoid::SetWithParameter(const Vector& start, double direction, double parameter,
                                double startRadius, double endRadius) {
  Set(start, direction, parameter * parameter, Curvature(startRadius),
      CurvatureChange(startRadius, endRadius));
}

void Clothoid::SetWithLength(const Vector& start, double direction, double length,
                             double startRadius, double endRadius) {
  const double change = CurvatureChange(startRadius, endRadius);
  Set(start, direction, length / std::fabs(change), Curvature(startRadius), change);
}

void Clothoid::Set(const Vector& start, double direction, double parameterSquare,
                   double startCurvature, double change) {
  *this = {};
  start_ = start;
  direction_ = direction;
  const double length = parameterSquare * std::fabs(change);
  const double rate = std::copysign(1.0 / parameterSquare, change);
  const bool isFinite = std::isfinite(start.x) && std::isfinite(start.y) &&
                        std::isfinite(direction) && std::isfinite(length) && std::isfinite(rate);
  if (!isFinite || !(length > 0.0) || rate == 0.0) return;
  parameter_ = std::sqrt(parameterSquare);
  length_ = length;
  along_ = {std::cos(direction), std::sin(direction)};
  curvature_ = startCurvature;
  rate_ = rate;
}

// The integral turns left for a positive curvature, the curve right.
Vector Clothoid::GetPlace(double length) const {
  const std::complex<double> mirrored = clothoid::Integrate(curvature_, rate_, length);
  const Vector across(along_.y, -along_.x);
  return along_ * mirrored.real() + across * mirrored.imag();
}

Vector Clothoid::TangentPoint(double* direction, double* second, double length) const {
  const double turn = length * (curvature_ + 0.5 * rate_ * length);
  const Vector point = rate_ == 0.0 ? start_ : start_ + GetPlace(length);
  const bool isFinite = std::isfinite(turn) && std::isfinite(point.x) && std::isfinite(point.y);
  if (direction) *direction = isFinite ? direction_ - turn : direction_;
  if (second) *second = isFinite ? curvature_ + rate_ * length : curvature_;
  return isFinite ? point : start_;
}

bool Clothoid::OrthoOut(const Vector& point, Vector& result, double) const {
  if (rate_ == 0.0) return false;
  const Vector from = point - start_;
  // Mirrored, so that right is left as in the integral.
  const std::complex<double> seen(along_.GetScalarProduct(from), from.GetCrossProduct(along_));
  const auto foot = clothoid::FindFoot(curvature_, rate_, length_, seen);
  if (!foot) return false;
  result = {foot->length, foot->left};
  return true;
}

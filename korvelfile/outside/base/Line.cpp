#include "korvelfile/outside/base/Line.h"

#include <cmath>

#include "korvelfile/outside/base/PolarVector.h"

Line::Line(const Vector& start, double direction, double length)
    : Line(start, start + PolarVector(length, direction).GetVector()) {}

double Line::GetShare(const Vector& point) const {
  const Vector along = GetVector();
  const double square = along.GetScalarProduct(along);
  return square == 0.0 ? 0.0 : along.GetScalarProduct(point - start_) / square;
}

Vector Line::GetFoot(const Vector& point) const { return start_ + GetVector() * GetShare(point); }

Vector Line::OrthoOut(const Vector& point) const {
  const double length = GetLength();
  if (length == 0.0) return {};
  const Vector along = GetVector() * (1.0 / length);
  const Vector from = point - start_;
  return {along.GetScalarProduct(from), from.GetCrossProduct(along)};
}

double Line::GetDistance(const Vector& point) const {
  const double share = GetShare(point);
  if (share <= 0.0) return start_.GetDistance(point);
  if (share >= 1.0) return end_.GetDistance(point);
  return std::fabs(GetVector().GetCrossProduct(point - start_)) / GetLength();
}

bool Line::IsPointNear(const Vector& point, double distance) const {
  return GetDistance(point) <= distance;
}

#include "korvelfile/outside/base/Line.h"

#include <cmath>

#include "korvelfile/outside/base/Circle.h"
#include "korvelfile/outside/base/PolarVector.h"

Line::Line(const Vector& start, double direction, double length)
    : Line(start, start + PolarVector(length, direction).GetVector()) {}

// From the foot of the centre half the chord each way.
bool Line::GetIntersection(const Circle& circle, Vector& first, Vector& second) const {
  const double length = GetLength();
  const Vector foot = GetFoot(circle.GetCenter());
  const double radius = std::fabs(circle.GetRadius());
  const double distance = foot.GetDistance(circle.GetCenter());
  const double half = std::sqrt((radius - distance) * (radius + distance));
  const Vector along = GetVector() * (half / length);
  if (!std::isfinite(along.x) || !std::isfinite(along.y)) return false;
  first = foot - along;
  second = foot + along;
  return true;
}

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

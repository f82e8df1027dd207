#include "korvelfile/outside/model/internal/ArcShape.h"

#include <cmath>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/model/LineException.h"

namespace Model {

ArcShape::ArcShape(const Place& start, double radius, double length)
    : Shape(start, length), radius_(radius) {
  if (!(length < kTwoPi * std::fabs(radius)) || !std::isfinite(radius))
    throw LineException("An arc needs a radius and a length of less than a turn");
  MeasureEnd();
}

// From the start and its tangent instead of the centre: a large radius then costs no digits.
Place ArcShape::PlaceAt(double length) const {
  const Vector& along = GetStart().along;
  const double turn = length / radius_;
  const double half = std::sin(0.5 * turn);
  const Vector right(along.y, -along.x);
  const Vector from = radius_ * std::sin(turn) * along + 2.0 * radius_ * half * half * right;
  return {GetStart().point + from, GetStartDirection() - turn};
}

// With x along the tangent at the start and y towards the side that the arc turns to, the centre is
// (0, R). Of the periods of the angle there, the one nearest to the middle of the arc counts.
bool ArcShape::FindFootFrom(const Vector& from, Foot& foot) const {
  const double side = std::copysign(1.0, radius_);
  const double R = std::fabs(radius_);
  const double x = GetStart().along.GetScalarProduct(from);
  const double y = side * from.GetCrossProduct(GetStart().along);
  double turn = std::atan2(x, R - y);
  const double fromMiddle = turn - 0.5 * GetLength() / R;
  if (std::fabs(fromMiddle) > kPi) turn -= std::copysign(kTwoPi, fromMiddle);
  foot = {R * turn, side * (2.0 * R * y - x * x - y * y) / (R + std::hypot(x, R - y))};
  return true;
}

}  // namespace Model

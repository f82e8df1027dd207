#include "korvelfile/outside/base/CircleArc.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Circle.h"
#include "korvelfile/outside/base/PolarVector.h"

namespace {

bool IsFinite(const Vector& v) { return std::isfinite(v.x) && std::isfinite(v.y); }

// By how much the distance of two points may be off because their coordinates are rounded.
double Rounding(const Vector& a, const Vector& b) {
  const double largest = std::max({std::fabs(a.x), std::fabs(a.y), std::fabs(b.x), std::fabs(b.y)});
  return 4.0 * std::numeric_limits<double>::epsilon() * largest;
}

}  // namespace

CircleArc::CircleArc(const Vector& start, const Vector& end, double radius, int, int) {
  if (Set(start, end, radius, 0, 0)) return;
  start_ = start;
  end_ = end;
  bearing_ = start.GetDirection(end);
  length_ = start.GetDistance(end);
}

CircleArc::CircleArc(const Vector& start, double radius, double direction, double length, int, int)
    : start_(start), end_(start) {
  if (!std::isfinite(radius) || !std::isfinite(direction) || !std::isfinite(length)) return;
  radius_ = radius;
  bearing_ = direction;
  length_ = length;
  end_ = GetPoint(length);
}

bool CircleArc::Set(const Vector& start, const Vector& end, double radius, int, int) {
  const double chord = start.GetDistance(end);
  const double diameter = 2.0 * std::fabs(radius);
  if (!IsFinite(start) || !IsFinite(end) || !std::isfinite(diameter) || radius == 0.0) return false;
  if (chord == 0.0 || !(chord <= diameter + Rounding(start, end))) return false;

  const double half = std::asin(std::min(chord / diameter, 1.0));
  start_ = start;
  end_ = end;
  radius_ = radius;
  bearing_ = std::remainder(start.GetDirection(end) + std::copysign(half, radius), kTwoPi);
  length_ = diameter * half;
  return true;
}

Vector CircleArc::GetMidPoint() const { return GetPoint(0.5 * length_); }

Vector CircleArc::GetCenter() const { return Circle(start_, bearing_, radius_, 0).GetCenter(); }

// By the chord, whose direction is that of the tangent halfway: flat arcs lose no digits over a
// far-away centre.
Vector CircleArc::GetPoint(double length) const {
  const double half = 0.5 * GetTurn(length);
  const double chord = radius_ == 0.0 ? length : 2.0 * radius_ * std::sin(half);
  const Vector point = start_ + PolarVector(chord, bearing_ - half).GetVector();
  return IsFinite(point) ? point : start_;
}

#include "korvelfile/outside/model/internal/Shape.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/model/LineException.h"

namespace Model {

namespace {

void Check(bool isSound, const char* fault) {
  if (!isSound) throw LineException(fault);
}

bool IsFinite(const Vector& v) { return std::isfinite(v.x) && std::isfinite(v.y); }

}  // namespace

bool Shape::FindFoot(const Vector& point, Foot& foot) const {
  Foot found;
  if (!FindFootAnywhere(point, found) || !std::isfinite(found.offset)) return false;
  if (!(found.length >= -kEndTolerance && found.length <= length_ + kEndTolerance)) return false;
  found.length = std::clamp(found.length, 0.0, length_);
  foot = found;
  return true;
}

// A curve leaves its chord by at most an eighth of its length's square times its curvature, and by
// no more than its length.
void Shape::MeasureExtent(double curvature) {
  constexpr int kPieces = 16;
  for (int i = 0; i <= kPieces; ++i) extent_.Widen(PlaceAt(length_ * i / kPieces).point);
  const double piece = length_ / kPieces;
  const double margin = std::min(0.125 * piece * piece * curvature, piece) + kEndTolerance;
  extent_ = Rect(extent_.left - margin, extent_.top + margin, extent_.right + margin,
                 extent_.bottom - margin);
}

StraightShape::StraightShape(const Vector& start, double direction, double length)
    : Shape(length), start_{start, direction}, along_(PolarVector(1.0, direction).GetVector()) {
  Check(IsFinite(PlaceAt(length).point) && length >= 0.0,
        "A straight needs finite numbers and a length");
  MeasureExtent(0.0);
}

Place StraightShape::PlaceAt(double length) const {
  return {start_.point + length * along_, start_.direction};
}

bool StraightShape::FindFootAnywhere(const Vector& point, Foot& foot) const {
  const Vector from = point - start_.point;
  foot = {along_.GetScalarProduct(from), from.GetCrossProduct(along_)};
  return true;
}

ArcShape::ArcShape(const Vector& start, double direction, double radius, double length)
    : Shape(length),
      start_{start, direction},
      along_(PolarVector(1.0, direction).GetVector()),
      radius_(radius) {
  Check(radius != 0.0 && IsFinite(PlaceAt(length).point) && length >= 0.0 &&
            length < kTwoPi * std::fabs(radius),
        "An arc needs finite numbers, a radius and a length of less than a turn");
  MeasureExtent(1.0 / std::fabs(radius));
}

// From the start and its tangent instead of the centre: a large radius then costs no digits.
Place ArcShape::PlaceAt(double length) const {
  const double turn = length / radius_;
  const double half = std::sin(0.5 * turn);
  const Vector right(along_.y, -along_.x);
  return {start_.point + radius_ * std::sin(turn) * along_ + 2.0 * radius_ * half * half * right,
          start_.direction - turn};
}

// With x along the tangent at the start and y towards the side that the arc turns to, the centre is
// (0, R). Of the periods of the angle there, the one nearest to the middle of the arc counts.
bool ArcShape::FindFootAnywhere(const Vector& point, Foot& foot) const {
  const double side = std::copysign(1.0, radius_);
  const double R = std::fabs(radius_);
  const Vector from = point - start_.point;
  const double x = along_.GetScalarProduct(from);
  const double y = side * from.GetCrossProduct(along_);
  const double middle = 0.5 * GetLength() / R;
  const double turn = middle + std::remainder(std::atan2(x, R - y) - middle, kTwoPi);
  foot = {R * turn, side * (2.0 * R * y - x * x - y * y) / (R + std::hypot(x, R - y))};
  return true;
}

ClothoidShape::ClothoidShape(const Clothoid& curve, double length) : Shape(length), curve_(curve) {
  Check(curve.CalcArcLength() > 0.0 && std::isfinite(length) && length >= 0.0 &&
            IsFinite(PlaceAt(length).point),
        "A clothoid needs finite numbers, two radii and a parameter");
  double atStart = 0.0;
  double atEnd = 0.0;
  curve.TangentPoint(nullptr, &atStart, 0.0);
  curve.TangentPoint(nullptr, &atEnd, length);
  MeasureExtent(std::max(std::fabs(atStart), std::fabs(atEnd)));
}

Place ClothoidShape::PlaceAt(double length) const {
  Place place;
  place.point = curve_.TangentPoint(&place.direction, nullptr, length);
  return place;
}

bool ClothoidShape::FindFootAnywhere(const Vector& point, Foot& foot) const {
  constexpr double kFinest = 0.0;
  Vector found;
  if (!curve_.OrthoOut(point, found, kFinest)) return false;
  foot = {found.x, found.y};
  return true;
}

}  // namespace Model

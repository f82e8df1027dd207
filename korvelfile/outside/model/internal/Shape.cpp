#include "korvelfile/outside/model/internal/Shape.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/model/LineException.h"

namespace Model {

namespace {

bool IsFinite(const Place& place) {
  return std::isfinite(place.point.x) && std::isfinite(place.point.y) &&
         std::isfinite(place.direction);
}

double Square(const Vector& v) { return v.GetScalarProduct(v); }

}  // namespace

Shape::Shape(const Place& start, double length)
    : length_(length),
      direction_(start.direction),
      start_{start.point, PolarVector(1.0, start.direction).GetVector()} {
  if (!IsFinite(start) || !std::isfinite(length) || length < 0.0)
    throw LineException("An element needs finite numbers and a length that isn't negative");
}

// Both ends are the foci of an ellipse that holds all curves of this length between them; half its
// minor axis is the sag. What rounding of the chord may take off is added.
void Shape::MeasureEnd() {
  constexpr double kRounding = 1e-14;
  const Place end = PlaceAt(length_);
  end_ = {end.point, PolarVector(1.0, end.direction).GetVector()};
  chord_ = end_.point - start_.point;
  const double rounding = kRounding * length_ * (length_ + start_.point.GetLength());
  const double square = length_ * length_ - Square(chord_);
  sag_ = 0.5 * std::sqrt(std::max(square, 0.0) + rounding) + kEndTolerance;
  if (!IsFinite(end) || !std::isfinite(square))
    throw LineException("An element lies beyond all numbers");
}

bool Shape::FindFoot(const Vector& point, Foot& foot) const {
  Foot found;
  if (!FindFootFrom(point - start_.point, found) || !std::isfinite(found.offset)) return false;
  if (!(found.length >= -kEndTolerance && found.length <= length_ + kEndTolerance)) return false;
  found.length = std::clamp(found.length, 0.0, length_);
  foot = found;
  return true;
}

Rect Shape::GetExtent() const {
  const Rect chord(start_.point, end_.point);
  return {chord.left - sag_, chord.top + sag_, chord.right + sag_, chord.bottom - sag_};
}

double Shape::GetLeastSquare(const Vector& point) const {
  const Vector from = point - start_.point;
  const double square = Square(chord_);
  const double along = chord_.GetScalarProduct(from);
  const double share = square > 0.0 ? std::clamp(along / square, 0.0, 1.0) : 0.0;
  const double distance = std::max(std::sqrt(Square(from - share * chord_)) - sag_, 0.0);
  return distance * distance;
}

}  // namespace Model

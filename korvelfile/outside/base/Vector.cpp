#include "korvelfile/outside/base/Vector.h"

#include <algorithm>
#include <cmath>

#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/base/Undefined.h"

// All intersections put one given point into the origin and the longest length to 1, so that
// neither large coordinates nor extreme lengths cost digits, and solve with vectors instead of
// tangents and cotangents, which have poles at ordinary set-ups.

namespace {

// What counts as nothing beside 1. Coordinates of seven digits before the point carry 1e-9 m of
// rounding, which sights of some metres must still be seen to touch.
constexpr double kTolerance = 1e-9;

bool IsFinite(const Vector& v) { return std::isfinite(v.x) && std::isfinite(v.y); }

// Refuses 0, negative numbers, NaN and the undefined number.
bool IsDistance(double r) { return r > kUndefined && std::isfinite(r); }

Vector UnitVector(double angle) { return {std::cos(angle), std::sin(angle)}; }

// Complex product: `v` turned by the angle of `unit`, and stretched by its length.
Vector Turn(const Vector& v, const Vector& unit) {
  return {v.x * unit.x - v.y * unit.y, v.x * unit.y + v.y * unit.x};
}

Vector TurnBack(const Vector& v, const Vector& unit) { return Turn(v, {unit.x, -unit.y}); }

bool Take(const Vector& found, Vector& target) {
  if (!IsFinite(found)) return false;
  target = found;
  return true;
}

// Lengths of a triangle, the longest 1.
struct Lengths {
  Lengths(const Vector& from, const Vector& to, double longestSight)
      : scale(std::max(from.GetDistance(to), longestSight)),
        base(from.GetDistance(to) / scale),
        direction((to - from) * (1.0 / (base * scale))) {}

  // False for coincident points as well as for coordinates that are not finite.
  bool HasBase() const { return base > kTolerance && std::isfinite(scale); }

  double scale;
  double base;
  Vector direction;  // unit vector along the base
};

// One sight of a resection: the point, seen from the first point, and the direction to it, counted
// from that to the first point.
struct Sight {
  Vector point;
  Vector direction;
};

}  // namespace

void Vector::MeasPolar(const Vector& from, const PolarVector& polar) {
  *this = from + polar.GetVector();
}

bool Vector::MeasBinding(const Vector& a, double rA, const Vector& b, double rB) {
  if (!IsDistance(rA) || !IsDistance(rB)) return false;
  const Lengths triangle(a, b, std::max(rA, rB));
  if (!triangle.HasBase()) return false;
  const double base = triangle.base;
  const double ra = rA / triangle.scale;
  const double rb = rB / triangle.scale;
  if (std::min(ra + rb - base, base - std::fabs(ra - rb)) < -kTolerance) return false;

  const double along = std::clamp(0.5 * (base + (ra - rb) * (ra + rb) / base), -ra, ra);
  const double left = std::sqrt((ra - along) * (ra + along));
  return Take(a + Turn(triangle.direction, {along, left}) * triangle.scale, *this);
}

SkBindingPoints Vector::SkBindingSolutions(const Vector& a, const Vector& b, double rB, double t) {
  SkBindingPoints found;
  if (!IsDistance(rB)) return found;
  const Lengths triangle(a, b, rB);
  if (!triangle.HasBase()) return found;

  // Seen from the station, in a frame whose x axis is the line of sight to a: b stands at
  // r (cos t, sin t), and a at (s, 0), at the distance `base` from b.
  const double r = rB / triangle.scale;
  const Vector toB = UnitVector(t) * r;
  const double excess = triangle.base - std::fabs(toB.y);
  if (!(excess >= -kTolerance)) return found;
  const double half = std::sqrt(std::max(excess, 0.0) * (triangle.base + std::fabs(toB.y)));

  for (const double root : {half, -half}) {
    if (!(toB.x + root > kTolerance)) break;
    const Vector baseInFrame(-root, toB.y);
    const Vector frame =
        TurnBack(triangle.direction, baseInFrame * (1.0 / baseInFrame.GetLength()));
    if (Take(b - Turn(toB, frame) * triangle.scale, found.point[found.count])) ++found.count;
    if (half == 0.0) break;
  }
  return found;
}

bool Vector::MeasSkBinding(const Vector& a, const Vector& b, double rB, double t) {
  const SkBindingPoints found = SkBindingSolutions(a, b, rB, t);
  if (found.count == 0) return false;
  *this = found.point[0];
  return true;
}

// With p1 in the origin, the station at -s1 o, o the unit vector towards p1, and e the unit vectors
// of `Sight::direction`, that a point p is seen in its direction says
//   (TurnBack(p, o) + (s1, 0)) x e = 0,
// which is linear in (o.x, o.y, s1). Two points make two equations, and their common solution, up
// to its length, is the cross product of their coefficients. It vanishes on the danger circle.
bool Vector::MeasResec(const Vector& p1, double a1, const Vector& p2, double a2, const Vector& p3,
                       double a3) {
  const double scale = std::max(p1.GetDistance(p2), p1.GetDistance(p3));
  if (!IsDistance(scale)) return false;
  const Sight s2{(p2 - p1) * (1.0 / scale), UnitVector(a2 - a1)};
  const Sight s3{(p3 - p1) * (1.0 / scale), UnitVector(a3 - a1)};

  const double cross2 = s2.point.GetCrossProduct(s2.direction);
  const double cross3 = s3.point.GetCrossProduct(s3.direction);
  const double dot2 = s2.point.GetScalarProduct(s2.direction);
  const double dot3 = s3.point.GetScalarProduct(s3.direction);
  const Vector towards(dot2 * s3.direction.y - dot3 * s2.direction.y,
                       cross3 * s2.direction.y - cross2 * s3.direction.y);
  const double product = cross2 * dot3 - cross3 * dot2;
  const double length = towards.GetLength();
  if (!(length > kTolerance)) return false;

  // Of the two signs, the one that puts p1 before the instrument; the others must follow.
  const double distance1 = std::fabs(product) / length;
  const Vector o = towards * (std::copysign(1.0, product) / length);
  const Vector station = o * -distance1;
  const auto isBefore = [&](const Sight& sight) {
    return TurnBack(sight.point - station, o).GetScalarProduct(sight.direction) > kTolerance;
  };
  if (!(distance1 > kTolerance) || !isBefore(s2) || !isBefore(s3)) return false;
  return Take(p1 + station * scale, *this);
}

#include "korvelfile/outside/base/Rect.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace {

// Beyond this, products of coordinates overflow.
constexpr double kLimit = 1e150;

bool IsWithinLimit(const Vector& v) { return std::fabs(v.x) <= kLimit && std::fabs(v.y) <= kLimit; }

bool Overlap(double a, double b, double low, double high) {
  return std::min(a, b) <= high && std::max(a, b) >= low;
}

// True if the corners of `rect` do not all lie strictly on one side of the line.
bool Straddles(const Rect& rect, const Line& line) {
  const Vector corners[] = {{rect.left, rect.top},
                            {rect.right, rect.top},
                            {rect.right, rect.bottom},
                            {rect.left, rect.bottom}};
  bool left = false;
  bool right = false;
  for (const Vector& corner : corners) {
    const double side = line.GetVector().GetCrossProduct(corner - line.GetStart());
    left = left || side >= 0.0;
    right = right || side <= 0.0;
  }
  return left && right;
}

}  // namespace

Rect::Rect(const Vector& a, const Vector& b)
    : left(std::min(a.x, b.x)),
      top(std::max(a.y, b.y)),
      right(std::max(a.x, b.x)),
      bottom(std::min(a.y, b.y)) {}

Rect Rect::Nothing() { return {DBL_MAX, -DBL_MAX, -DBL_MAX, DBL_MAX}; }

void Rect::Widen(const Vector& point) {
  left = std::min(left, point.x);
  top = std::max(top, point.y);
  right = std::max(right, point.x);
  bottom = std::min(bottom, point.y);
}

// Two convex shapes are apart if and only if a line along an edge of one of them parts them.
bool Rect::Intersects(const Line& line) const {
  const Vector& start = line.GetStart();
  const Vector& end = line.GetEnd();
  if (!IsWithinLimit(start) || !IsWithinLimit(end)) return false;
  return Overlap(start.x, end.x, left, right) && Overlap(start.y, end.y, bottom, top) &&
         Straddles(*this, line);
}

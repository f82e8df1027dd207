#include "korvelfile/outside/base/Intersection.h"

#include <cmath>

bool Intersection::Calculate(const Line& a, const Line& b, Vector& crossing) {
  const Vector along = a.GetVector();
  const Vector across = b.GetVector();
  const double share =
      (b.GetStart() - a.GetStart()).GetCrossProduct(across) / along.GetCrossProduct(across);
  const Vector found = a.GetStart() + share * along;
  if (!std::isfinite(found.x) || !std::isfinite(found.y)) return false;
  crossing = found;
  return true;
}

#include "korvelfile/outside/model/internal/StraightShape.h"

namespace Model {

Place StraightShape::PlaceAt(double length) const {
  return {GetStart().point + length * GetStart().along, GetStartDirection()};
}

bool StraightShape::FindFootFrom(const Vector& from, Foot& foot) const {
  const Vector& along = GetStart().along;
  foot = {along.GetScalarProduct(from), from.GetCrossProduct(along)};
  return true;
}

}  // namespace Model

#include "korvelfile/alignments/internal/SpanInterpolator.h"

#include <algorithm>

#include "korvelfile/outside/base/MatFunc.h"
#include "korvelfile/outside/base/Undefined.h"

namespace File::detail {

StationedPoint SpanInterpolator::Interpolate(const Span& span) const {
  StationedPoint point = geometry_.Interpolate(span);
  AdjustAcross(point);
  return point;
}

void SpanInterpolator::AdjustAcross(StationedPoint& point) const {
  if (state_.HasOwnHeight()) return;
  const StationedPoint q1 = geometry_.Interpolate(state_.GetLeft(point));
  const StationedPoint q2 = geometry_.Interpolate(state_.GetRight(point));
  const auto [low, high] = std::minmax({q1.station.Offset, q2.station.Offset});
  const double offset = point.station.Offset;
  if (!(high - low > maxDeviation_ && low <= offset && offset <= high)) return;

  const double z1 = q1.Position().z;
  const double z2 = q2.Position().z;
  Vector3d position = point.Position();
  if (IsUndefined(position.z) || IsUndefined(z1) || IsUndefined(z2)) return;
  position.z = MatFunc::FirstDegree::Value(q1.station.Offset, z1, q2.station.Offset, z2, offset);
  point.point->SetPosition(position);
}

Vector3d SpanInterpolator::DeviationOf(const Span& span, const StationedPoint& predicted) const {
  const double nextToStart = span.a.station.Arc + geometry_.GetTolerance();
  const double radius = geometry_.RadiusAt(nextToStart, span.a.station.Offset);
  Vector3d longest = predicted.Position() - span.m.Position();
  const auto take = [&](const Span& half) {
    const Vector3d deviation = Interpolate(half).Position() - half.m.Position();
    if (deviation.GetLength() > longest.GetLength()) longest = deviation;
  };
  take(geometry_.MakeSpan(span.a, span.m, radius));
  take(geometry_.MakeSpan(span.m, span.b, radius));
  return longest;
}

}  // namespace File::detail

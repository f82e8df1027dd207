#pragma once

#include "korvelfile/alignments/internal/RefinementSettings.h"
#include "korvelfile/alignments/internal/SectionState.h"
#include "korvelfile/alignments/internal/SpanGeometry.h"

namespace File::detail {

/// What the centre line and the break lines beside it predict within one segment of a line.
///
/// Operations throw `Model::LineException` for places that the centre line doesn't have.
class SpanInterpolator {
 public:
  /// @param state of the segment; must outlive the object
  SpanInterpolator(const RefinementSettings& settings, const SectionState& state)
      : maxDeviation_(settings.maxDeviation), geometry_(settings), state_(state) {}

  const SpanGeometry& GetGeometry() const { return geometry_; }

  /// As `SpanGeometry::Interpolate`; between two break lines the height lies straight across.
  StationedPoint Interpolate(const Span& span) const;

  /// By how far the prediction leaves the span: that of `predicted`, the prediction at its `m`, or
  /// that halfway along one of its halves, whichever is the longest.
  Vector3d DeviationOf(const Span& span, const StationedPoint& predicted) const;

 private:
  void AdjustAcross(StationedPoint& point) const;

  double maxDeviation_;
  SpanGeometry geometry_;
  const SectionState& state_;
};

}  // namespace File::detail

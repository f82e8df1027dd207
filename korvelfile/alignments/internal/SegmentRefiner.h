#pragma once

#include <string>

#include "korvelfile/alignments/CenterLineInterpolator.h"
#include "korvelfile/alignments/internal/RefinementSettings.h"
#include "korvelfile/alignments/internal/SpanInterpolator.h"

namespace File::detail {

/// Halves one segment of a line until it follows the centre line.
class SegmentRefiner {
 public:
  using Value = CenterLineInterpolator::Value;

  /// All arguments must outlive the object.
  /// @param index number of the segment's end in `line`; kept there while points are inserted
  SegmentRefiner(const RefinementSettings& settings, const SpanInterpolator& interpolator,
                 Korvel::ICoordinateLine& line, int& index)
      : settings_(settings), interpolator_(interpolator), line_(line), index_(index) {}

  /// Refines the segment and tells how that ended.
  Value Refine(const Span& segment) { return Refine(segment, {}, 0); }

 private:
  Value Refine(const Span& span, const Vector3d& former, int depth);
  Value RefineDeeper(const Span& span, const Vector3d& former, int depth);
  Value RefineHalves(const Span& span, const Vector3d& deviation, int depth);
  bool IsTooShort(const Span& span) const;
  bool IsWanted(const Vector3d& former, const Vector3d& deviation) const;
  void Insert(StationedPoint& point, const std::string& pointCode);

  const RefinementSettings& settings_;
  const SpanInterpolator& interpolator_;
  Korvel::ICoordinateLine& line_;
  int& index_;
  int inserted_ = 0;
};

}  // namespace File::detail

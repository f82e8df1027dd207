#pragma once

#include "korvelfile/alignments/internal/SectionHandler.h"

namespace File::detail {

/// How the heights of a segment of a line hang on the break lines beside it.
class SectionState {
 public:
  /// True if the heights of the segment's line hang on nothing but its own points.
  bool HasOwnHeight() const { return ownHeight_; }

  /// The breaks beside the segment, from its start to its end. Only without own height.
  Span GetLeft(const StationedPoint& between) const { return {*a_.left, between, *b_.left}; }
  Span GetRight(const StationedPoint& between) const { return {*a_.right, between, *b_.right}; }

  /// Looks the segment from `a` to `b` up in the sections, which have to stay as they are.
  void Update(const SectionHandler& sections, const SectionRecord& a, const SectionRecord& b);

 private:
  // The breaks beside an end of the segment.
  struct End {
    const SectionRecord* left = nullptr;
    const SectionRecord* right = nullptr;
  };

  // How an end of a segment takes part in its section.
  enum Class : int { kAlone = 0, kBetweenBreaks = 1, kLeftmost = 2, kRightmost = 3 };

  static Class Look(const SectionHandler& sections, const SectionRecord& point, End& end);

  bool ownHeight_ = true;
  End a_;
  End b_;
};

}  // namespace File::detail

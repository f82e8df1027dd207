#pragma once

#include "korvelfile/alignments/internal/StationedPoint.h"

namespace File::detail {

/// A point of a cross-section.
struct SectionRecord : StationedPoint {
  int line = 0;            ///< number of its line in the file
  double tolerance = 0.0;  ///< metres
  bool isBreak = false;    ///< the surface breaks there
};

/// Where `record` stands beside the centre line.
inline double OffsetOf(const SectionRecord& record) { return record.station.Offset; }

/// True if the offsets agree within the tolerance.
bool HaveSameOffset(const SectionRecord& a, const SectionRecord& b);

/// True if offsets and heights agree within the tolerance.
bool Coincide(const SectionRecord& a, const SectionRecord& b);

}  // namespace File::detail

#include "korvelfile/alignments/internal/SectionRecord.h"

#include <cmath>

namespace File::detail {

bool HaveSameOffset(const SectionRecord& a, const SectionRecord& b) {
  return std::fabs(OffsetOf(a) - OffsetOf(b)) <= a.tolerance;
}

bool Coincide(const SectionRecord& a, const SectionRecord& b) {
  return HaveSameOffset(a, b) && std::fabs(a.Position().z - b.Position().z) < a.tolerance;
}

}  // namespace File::detail

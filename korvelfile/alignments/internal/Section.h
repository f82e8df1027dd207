#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "korvelfile/alignments/internal/SectionRecord.h"

namespace File::detail {

/// The points of all lines at one chainage, from left to right.
///
/// Points are added, then arranged, then asked for. Those whose offsets agree with the least one of
/// their cluster, within the tolerance, stand in the order in which they were added.
class Section {
 public:
  void Add(const SectionRecord& record);

  /// Brings the records into order, if some were added.
  void Arrange();

  /// Tells for each record whether the surface breaks there: at both sides, and where the slopes to
  /// the neighbours of other lines differ by more than the tolerance.
  void MarkBreaks();

  const std::vector<SectionRecord>& GetRecords() const { return records_; }

  /// The record at the offset of `point`; of several one of line number `line` at the same height.
  /// Takes logarithmic time.
  /// @return null if there is none
  const SectionRecord* Find(const SectionRecord& point) const;

  /// The next break left of all records at the offset of `record`, which is one of this section;
  /// at the worst the first record.
  const SectionRecord& LeftOf(const SectionRecord& record) const;

  /// The same on the right; at the worst the last record.
  const SectionRecord& RightOf(const SectionRecord& record) const;

 private:
  using Index = std::uint32_t;

  // What saves walking, for the record of the same number.
  struct Guide {
    double clusterOffset = 0.0;  // the least offset of its cluster
    Index clusterStart = 0;
    Index clusterEnd = 0;  // behind the last one
    Index breakLeft = 0;   // the nearest break at or before it, else the first record
    Index breakRight = 0;  // the nearest break at or behind it, else the last record
    Index byLine = 0;      // all records, sorted by line and place
  };

  std::vector<Index> InOrder() const;
  void GuideClusters();
  void GuideLines();
  void GuideBreaks();
  bool IsBreak(std::size_t place, const std::vector<Index>& runStart,
               const std::vector<Index>& runEnd) const;
  const SectionRecord* FindOnLine(const SectionRecord& point, Index first, Index last) const;

  std::vector<SectionRecord> records_;
  std::vector<Guide> guides_;  ///< as many as were arranged
};

}  // namespace File::detail

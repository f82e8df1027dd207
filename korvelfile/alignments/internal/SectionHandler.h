#pragma once

#include <map>

#include "korvelfile/alignments/internal/Section.h"

namespace File::detail {

/// The cross-sections of a file, by chainage.
///
/// A section holds all points whose arcs agree with that of its first point within the tolerance.
/// Its keys are farther apart than that.
class SectionHandler {
 public:
  /// Thrown by `Find`.
  struct NotInSectionMap {};

  /// A record and the section that holds it.
  struct Found {
    const Section& section;
    const SectionRecord& record;
  };

  explicit SectionHandler(double tolerance) : tolerance_(tolerance) {}

  /// Adds `record` to its section, or to a new one. `ArrangeSections` is to follow.
  /// @throws std::runtime_error if it can't be found again: its height isn't finite, or the
  ///         tolerance isn't above 0
  void PopulateSectionMap(const SectionRecord& record);

  void ArrangeSections();

  /// Tells for each record whether the surface breaks there.
  void MarkBreaks();

  bool HasSectionAt(double arc) const;

  /// The record of a point of line number `point.line`; see `Section::Find`.
  /// @throws NotInSectionMap if there is none
  Found Find(const SectionRecord& point) const;

  const std::map<double, Section>& GetSections() const { return sections_; }

 private:
  double tolerance_;
  std::map<double, Section> sections_;
};

}  // namespace File::detail

#include "korvelfile/alignments/internal/SectionHandler.h"

#include <stdexcept>

namespace File::detail {

namespace {

// The section at `arc` or null: the first key at or above the lower end of the tolerance decides.
template <class Sections>
auto* SectionAt(Sections& sections, double arc, double tolerance) {
  const auto found = sections.lower_bound(arc - tolerance);
  const bool isMiss = found == sections.end() || found->first - tolerance > arc;
  return isMiss ? nullptr : &found->second;
}

}  // namespace

void SectionHandler::PopulateSectionMap(const SectionRecord& record) {
  const double arc = record.station.Arc;
  Section* const known = SectionAt(sections_, arc, tolerance_);
  Section& section = known ? *known : sections_[arc];
  section.Add(record);
  const SectionRecord& stored = section.GetRecords().back();
  if (!Coincide(stored, record) || stored.Position() != record.Position())
    throw std::runtime_error("SectionHandler::PopulateSectionMap: Error! Insert failed.");
}

bool SectionHandler::HasSectionAt(double arc) const {
  return SectionAt(sections_, arc, tolerance_) != nullptr;
}

void SectionHandler::ArrangeSections() {
  for (auto& [arc, section] : sections_) section.Arrange();
}

void SectionHandler::MarkBreaks() {
  for (auto& [arc, section] : sections_) section.MarkBreaks();
}

SectionHandler::Found SectionHandler::Find(const SectionRecord& point) const {
  const Section* const section = SectionAt(sections_, point.station.Arc, tolerance_);
  const SectionRecord* const record = section ? section->Find(point) : nullptr;
  if (!record) throw NotInSectionMap();
  return {*section, *record};
}

}  // namespace File::detail

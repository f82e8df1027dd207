// The passes of a refinement. Points go into the lines while these are walked: the running index
// stands at the end of the segment at work, behind all points that were inserted before.

#include "korvelfile/alignments/internal/Refinement.h"

#include <algorithm>
#include <string>

#include "korvelfile/alignments/internal/EndOfLine.h"
#include "korvelfile/alignments/internal/SegmentRefiner.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/services/Translations.h"
#include "korvelfile/outside/services/internal/Translated.h"

namespace File::detail {

namespace {

constexpr int kNameDigits = 16;

std::string NumberName(double value) { return GeneralText(value, kNameDigits); }

void WriteSection(const Section& section, Korvel::ICoordinateLine& line) {
  int index = 0;
  for (const SectionRecord& record : section.GetRecords()) {
    const auto point = line.InsertPoint(index++, record.Position(), NumberName(OffsetOf(record)));
    if (record.isBreak) point->SetRemark("Break");
  }
}

}  // namespace

Refinement::Refinement(const RefinementSettings& settings, Korvel::ICoordinateFile& file)
    : settings_(settings), sections_(settings.tolerance), interpolator_(settings, state_) {
  for (int i = 0; i < file.GetLineCount(); ++i) lines_.push_back(file.GetLine(i));
}

void Refinement::Begin(const std::type_info& key, const wchar_t* text) const {
  int total = 0;
  for (const auto& line : lines_) total += line->GetPointCount();
  settings_.progress.Begin(internal::Translated(key, text), total);
}

SectionRecord Refinement::MakeRecord(const StationedPoint& point, int line, bool isBreak) const {
  return {point, line, settings_.tolerance, isBreak};
}

void Refinement::AnalyzeSections() {
  using Translations::LandXmlImport::AnalyzingSections;
  if (!settings_.useSections) return;
  Begin(typeid(AnalyzingSections), L"Analyzing Sections...");
  for (int i = 0; i < static_cast<int>(lines_.size()); ++i) AddSectionsOf(i);
  sections_.MarkBreaks();
}

void Refinement::AddSectionsOf(int line) {
  Korvel::ICoordinateLine& points = *lines_[static_cast<std::size_t>(line)];
  for (int i = 0; i < points.GetPointCount(); ++i) {
    settings_.progress.Step();
    try {
      const StationedPoint point = StationPoint(settings_.line, points, i);
      sections_.PopulateSectionMap(MakeRecord(point, line, true));
    } catch (const Model::LineException&) {
      // A point beside the ends of the centre line is in no section.
    }
  }
}

// Calls `work` with each segment of a line and the number of its end, which `work` keeps there. The
// walk ends at a point that has no place on the centre line.
template <class Work>
void Refinement::ForEachSegment(int line, Work work) {
  Korvel::ICoordinateLine& points = *lines_[static_cast<std::size_t>(line)];
  const SpanGeometry& geometry = interpolator_.GetGeometry();
  const auto at = [&](int i) { return StationPoint(settings_.line, points, i); };
  try {
    StationedPoint a = at(0);
    for (int index = 1;; ++index) {
      const Span segment = geometry.MakeSpan(a, at(index));
      settings_.progress.Step();
      work(segment, index);
      a = segment.b;
    }
  } catch (const EndOfLine&) {
  } catch (const Model::LineException&) {
  }
}

void Refinement::UpdateState(const Span& segment, int line) {
  if (!settings_.useSections) return;
  state_.Update(sections_, MakeRecord(segment.a, line, false), MakeRecord(segment.b, line, false));
}

void Refinement::InsertElementPoints() {
  using Translations::LandXmlImport::InsertingElementPoints;
  Begin(typeid(InsertingElementPoints), L"Inserting Element Points...");
  for (int line = 0; line < static_cast<int>(lines_.size()); ++line) {
    ForEachSegment(line, [&](const Span& segment, int& index) {
      InsertElementPointsIn(segment, line, index);
    });
  }
  // Only now, so that every line got its point before the chainage counts as a section.
  for (const SectionRecord& record : elementPoints_) sections_.PopulateSectionMap(record);
  sections_.ArrangeSections();
  elementPoints_.clear();
}

void Refinement::InsertElementPointsIn(const Span& segment, int line, int& index) {
  const auto elements = settings_.line.GetHorizontalAlignment()->GetElements();
  const int first = elements->IndexAt(segment.a.station.Arc + settings_.tolerance) + 1;
  const int last = elements->IndexAt(segment.b.station.Arc - settings_.tolerance);
  if (first > last) return;
  UpdateState(segment, line);
  for (int i = first; i <= last; ++i)
    InsertElementPoint(segment, elements->GetElement(i)->GetStartArc(), line, index);
}

void Refinement::InsertElementPoint(Span segment, double arc, int line, int& index) {
  if (sections_.HasSectionAt(arc)) return;
  segment.m.station.Arc = arc;
  StationedPoint added = interpolator_.Interpolate(segment);
  added.point = lines_[static_cast<std::size_t>(line)]->InsertPoint(index, added.Position(), "");
  added.point->SetPointCode(segment.a.Information().pointCode);
  ++index;
  elementPoints_.push_back(MakeRecord(added, line, state_.HasOwnHeight()));
}

void Refinement::WriteSections(Korvel::ICoordinateFile& sectionFile) const {
  int index = 0;
  for (const auto& [arc, section] : sections_.GetSections())
    WriteSection(section, *sectionFile.InsertLine(index++, NumberName(arc)));
  sectionFile.Finish();
}

Refinement::Value Refinement::Interpolate() {
  using Translations::LandXmlImport::Interpolating;
  Begin(typeid(Interpolating), L"Interpolating...");
  Value worst = Value::Complete;
  for (int line = 0; line < static_cast<int>(lines_.size()); ++line) {
    ForEachSegment(line, [&](const Span& segment, int& index) {
      worst = std::max(worst, RefineSegment(segment, line, index));
    });
  }
  return worst;
}

Refinement::Value Refinement::RefineSegment(const Span& segment, int line, int& index) {
  if (!SpanGeometry::RunsAlong(segment.a, segment.b)) return Value::Complete;
  UpdateState(segment, line);
  SegmentRefiner refiner(settings_, interpolator_, *lines_[static_cast<std::size_t>(line)], index);
  return refiner.Refine(segment);
}

}  // namespace File::detail

#pragma once

#include <memory>
#include <typeinfo>
#include <vector>

#include "korvelfile/alignments/CenterLineInterpolator.h"
#include "korvelfile/alignments/internal/RefinementSettings.h"
#include "korvelfile/alignments/internal/SectionHandler.h"
#include "korvelfile/alignments/internal/SectionState.h"
#include "korvelfile/alignments/internal/SpanInterpolator.h"

namespace File::detail {

/// One refinement of the lines of a file, pass by pass in this order.
class Refinement {
 public:
  using Value = CenterLineInterpolator::Value;

  Refinement(const RefinementSettings& settings, Korvel::ICoordinateFile& file);

  /// Finds the sections and marks their breaks.
  /// @throws std::runtime_error as `SectionHandler::PopulateSectionMap`
  void AnalyzeSections();

  /// Inserts a point wherever an element of the centre line begins and no section is.
  /// @throws std::runtime_error as `SectionHandler::PopulateSectionMap`
  void InsertElementPoints();

  /// Writes all sections as lines.
  void WriteSections(Korvel::ICoordinateFile& sectionFile) const;

  /// Refines all segments.
  Value Interpolate();

 private:
  void Begin(const std::type_info& key, const wchar_t* text) const;
  SectionRecord MakeRecord(const StationedPoint& point, int line, bool isBreak) const;
  template <class Work>
  void ForEachSegment(int line, Work work);
  void UpdateState(const Span& segment, int line);
  void AddSectionsOf(int line);
  void InsertElementPointsIn(const Span& segment, int line, int& index);
  void InsertElementPoint(Span segment, double arc, int line, int& index);
  Value RefineSegment(const Span& segment, int line, int& index);

  const RefinementSettings& settings_;
  std::vector<std::shared_ptr<Korvel::ICoordinateLine>> lines_;
  SectionHandler sections_;
  std::vector<SectionRecord> elementPoints_;  ///< not in the sections yet
  SectionState state_;
  SpanInterpolator interpolator_;
};

}  // namespace File::detail

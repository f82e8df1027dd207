#include "korvelfile/alignments/CenterLineInterpolator.h"

#include <stdexcept>
#include <utility>

#include "korvelfile/alignments/internal/Refinement.h"

namespace File {

CenterLineInterpolator::CenterLineInterpolator(
    const Model::ILine& line_, double maxDeviation_, double maxHeightDeviation_, double tolerance_,
    bool useSections_, int maxPoints_, std::shared_ptr<Korvel::IProgressIndicator> progress_)
    : line(line_),
      maxDeviation(maxDeviation_),
      maxHeightDeviation(maxHeightDeviation_),
      tolerance(tolerance_),
      useSections(useSections_),
      maxPoints(maxPoints_),
      progress(std::move(progress_)) {
  if (!progress) throw std::invalid_argument("A progress indicator is needed");
}

CenterLineInterpolator::~CenterLineInterpolator() = default;

ThrowableErrorCode<CenterLineInterpolator::Value> CenterLineInterpolator::ApplyTo(
    std::shared_ptr<Korvel::ICoordinateFile> file,
    std::shared_ptr<Korvel::ICoordinateFile> sectionFile) const {
  if (!file) throw std::invalid_argument("A coordinate file is needed");
  const detail::RefinementSettings settings{
      line, maxDeviation, maxHeightDeviation, tolerance, useSections, maxPoints, *progress};
  detail::Refinement refinement(settings, *file);
  refinement.AnalyzeSections();
  refinement.InsertElementPoints();
  if (sectionFile) refinement.WriteSections(*sectionFile);
  return refinement.Interpolate();
}

ThrowableErrorCode<CenterLineInterpolator::Value> CenterLineInterpolator::ApplyTo(
    std::shared_ptr<Korvel::ICoordinateFile> file) const {
  return ApplyTo(std::move(file), nullptr);
}

}  // namespace File

#pragma once

#include <memory>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/ThrowableErrorCode.h"
#include "korvelfile/outside/model/ILine.h"
#include "korvelfile/outside/services/ICoordinateFile.h"
#include "korvelfile/outside/services/IProgressIndicator.h"

namespace File {

/// Adds points to the lines of a road design, so that they follow the curves of its centre line.
///
/// Every line gets a point at each chainage where an element of the centre line begins, and each
/// segment is halved until its shape agrees with what its neighbours and the centre line predict.
/// Between two points a line keeps its distance from the centre line and its height above it, both
/// growing evenly; with sections, a line between two break lines lies in the plane across them.
/// Points are added, never moved or removed, but special code and remark of a line's points are
/// set: "R" and the radius of the arc to the next point, or both empty.
///
/// The object itself doesn't change: it may be used from several threads, each with files of its
/// own, if the line and the indicator may. The file's lines are nobody else's meanwhile.
class KORVELFILE_EXPORT CenterLineInterpolator {
 public:
  /// How a refinement ended: the highest value of all segments.
  enum class Value : int {
    Complete = 0,      ///< no segment stopped at a limit
    SpanTooShort = 1,  ///< at least one span was too short to be halved further
    TooManyPoints = 2  ///< at least one segment reached its limit of points
  };

  /// @param line               the centre line; must outlive the object
  /// @param maxDeviation       metres in the plane: a deviation of as much asks for more points,
  ///                           and no shorter span is halved
  /// @param maxHeightDeviation metres of height
  /// @param tolerance          metres, above 0: chainages, offsets and heights within it are one,
  ///                           and a change of slope by more is a break
  /// @param useSections        true: heights between break lines are taken across the section
  /// @param maxPoints          limit on the points inserted into one segment, which may pass it by
  ///                           one
  /// @param progress           told of each pass and point
  /// @throws std::invalid_argument without `progress`
  CenterLineInterpolator(const Model::ILine& line, double maxDeviation, double maxHeightDeviation,
                         double tolerance, bool useSections, int maxPoints,
                         std::shared_ptr<Korvel::IProgressIndicator> progress);
  CenterLineInterpolator(const CenterLineInterpolator&) = default;
  CenterLineInterpolator(CenterLineInterpolator&&) = default;
  CenterLineInterpolator& operator=(const CenterLineInterpolator&) = delete;
  CenterLineInterpolator& operator=(CenterLineInterpolator&&) = delete;
  ~CenterLineInterpolator();

  /// Refines `file` in place, and writes the cross-sections found on the way: a line for each
  /// chainage, named for it, with a point for each line that passes there, named for its offset.
  /// Points at which the surface breaks have the remark "Break".
  ///
  /// A line is left alone from its first point on that has no foot on the centre line.
  /// @param sectionFile receives the sections, and `Finish` at the end; may be empty
  /// @throws std::runtime_error for a tolerance that isn't above 0 or a height that isn't finite,
  ///         where sections are looked at
  /// @throws std::invalid_argument without `file`
  ThrowableErrorCode<Value> ApplyTo(std::shared_ptr<Korvel::ICoordinateFile> file,
                                    std::shared_ptr<Korvel::ICoordinateFile> sectionFile) const;

  /// The same without a section file.
  ThrowableErrorCode<Value> ApplyTo(std::shared_ptr<Korvel::ICoordinateFile> file) const;

 private:
  const Model::ILine& line;
  double maxDeviation;
  double maxHeightDeviation;
  double tolerance;
  bool useSections;
  int maxPoints;
  std::shared_ptr<Korvel::IProgressIndicator> progress;
};

}  // namespace File

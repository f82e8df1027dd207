#pragma once

#include <string>
#include <vector>

#include "korvelfile/outside/base/Vector3d.h"
#include "tools/korvel/QueryPoints.h"
#include "tools/korvel/corrections/ModelUnits.h"

namespace korvel {

class CorrectionModel;

/// What came out for a point, in the units of the command line.
struct CorrectedPoint {
  std::string fault;    ///< why there is no correction; empty if there is one
  Vector3d correction;  ///< x for north, y for east, z for the height; as the model has it
  double north, east;   ///< corrected; undefined if there is no correction
  double height;        ///< corrected; undefined also if none was given
};

/// Corrects points by a model, or takes its correction off again.
class CorrectionQuery {
 public:
  /// @param model must outlive the query
  /// @throws InputError if `isInverse` and the model has no inverse
  CorrectionQuery(const CorrectionModel& model, const ModelUnits& units, bool isInverse);

  /// The point corrected; if the query is an inverse one, as it was before the correction.
  CorrectedPoint Correct(const QueryPoint& point) const;

 private:
  std::string Fault(double north, double east) const;

  const CorrectionModel& model_;
  ModelUnits units_;
  bool isInverse_;
};

}  // namespace korvel

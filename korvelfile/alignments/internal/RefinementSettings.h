#pragma once

#include "korvelfile/outside/model/ILine.h"
#include "korvelfile/outside/services/IProgressIndicator.h"

namespace File::detail {

/// What a refinement was asked for. See `CenterLineInterpolator`.
struct RefinementSettings {
  const Model::ILine& line;
  double maxDeviation;
  double maxHeightDeviation;
  double tolerance;
  bool useSections;
  int maxPoints;
  Korvel::IProgressIndicator& progress;
};

}  // namespace File::detail

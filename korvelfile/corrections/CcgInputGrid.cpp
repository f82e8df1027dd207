#include "korvelfile/corrections/CcgInputGrid.h"

#include <cstdint>
#include <stdexcept>

#include "korvelfile/corrections/internal/CcgHeader.h"
#include "korvelfile/corrections/internal/CcgRaster.h"

CcgInputGrid::CcgInputGrid(const CcgFileInfo& info)
    : CcgFileInfo(info), residuals(CountOfFloats(info), kMissing) {}

CcgInputGrid::CcgInputGrid(double northMax_, double eastMin_, double northSpacing_,
                           double eastSpacing_, int rows_, int columns_,
                           const std::string& fileName_, CorrectionTypes correctionType_,
                           InterpolationTypes planeInterpolation_,
                           InterpolationTypes heightInterpolation_,
                           const std::vector<float>& residuals_)
    : CcgFileInfo(northMax_, eastMin_, northSpacing_, eastSpacing_, rows_, columns_),
      residuals(residuals_) {
  fileName = fileName_;
  correctionType = correctionType_;
  planeInterpolation = planeInterpolation_;
  heightInterpolation = heightInterpolation_;
  SetCcgVersion(*this, kCcgVersion);
  if (CountOfFloats(*this) != residuals.size()) {
    throw std::logic_error("SubGrid dimensions does not match residuals");
  }
}

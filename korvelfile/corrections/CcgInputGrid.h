#pragma once

#include <string>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/corrections/CcgFileInfo.h"

/// A correction grid in memory: what `CcgFile` writes, a whole file or a part of one.
class KORVELFILE_EXPORT CcgInputGrid : public CcgFileInfo {
 public:
  /// In each float of a node without a value. Readers take 9998 and more for missing.
  static constexpr float kMissing = 9999.0F;

  /// The values of the nodes: row after row from the north, each from west to east, each node with
  /// its floats X, Y, Z, as far as its type has them. rows * columns * GetNumberOfValues() floats.
  std::vector<float> residuals;

  /// A grid with the header `info` and without a value at any node.
  ///
  /// @throw std::bad_alloc or std::length_error if there is no memory for the nodes
  explicit CcgInputGrid(const CcgFileInfo& info);

  /// A grid of the current format version from its north-west node.
  ///
  /// @throw std::logic_error "SubGrid dimensions does not match residuals" if `residuals_` has
  ///   another size than rows, columns and type make
  CcgInputGrid(double northMax_, double eastMin_, double northSpacing_, double eastSpacing_,
               int rows_, int columns_, const std::string& fileName_,
               CorrectionTypes correctionType_, InterpolationTypes planeInterpolation_,
               InterpolationTypes heightInterpolation_, const std::vector<float>& residuals_);
};

/// @file
/// Small functions of mathematics.
#pragma once

#include "korvelfile/outside/base/Export.h"

namespace MatFunc {

/// Functions of the first degree.
namespace FirstDegree {

/// The value at `x` of the straight line through (`x1`, `y1`) and (`x2`, `y2`).
///
/// Gives `y1` and `y2` exactly at their places. Where `x1` equals `x2` there is no such line: the
/// value is the mean of `y1` and `y2`.
KORVELBASE_EXPORT double Value(double x1, double y1, double x2, double y2, double x);

}  // namespace FirstDegree
}  // namespace MatFunc

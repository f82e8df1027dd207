/// @file
/// Elements of the files of a road, in the terms of an engineer.
#pragma once

#include <string>
#include <vector>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/alignments/PrfFile.h"
#include "korvelfile/alignments/SkvFile.h"
#include "korvelfile/alignments/TPrf.h"

namespace korvel {

/// One record of a camber file.
struct CamberPoint {
  std::string number;
  double chainage = 0.0;
  double slope1 = 0.0;  ///< ratio, as `slope2`
  double slope2 = 0.0;
};

/// @name All elements of a file
/// @{
std::vector<TLin> ElementsOf(const LinFile& file);
std::vector<TPrf> ElementsOf(const PrfFile& file);
std::vector<CamberPoint> ElementsOf(const SkvFile& file);
/// @}

bool IsClothoid(const TLin& element);
bool IsArc(const TLin& element);

/// "straight", "arc right", "clothoid left", "clothoid S" where the radii have opposite signs, or
/// "end" of the point that closes an alignment.
std::string KindOf(const TLin& element);

/// "grade", "crest", "sag", or "end".
std::string KindOf(const TPrf& element);

/// A radius as people see it: undefined, that is blank, where it is infinite.
double FiniteRadius(double radius);

/// Metres per 100 metres.
inline constexpr double kPercent = 100.0;

}  // namespace korvel

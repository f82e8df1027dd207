/// @file
/// The types of correction grids by name, as on the command line and in reports.
#pragma once

#include <string>
#include <vector>

#include "korvelfile/corrections/CcgFileInfo.h"

namespace korvel {

/// "xy", "latlong-xyz", ...; the number of a type that there isn't.
std::string CorrectionTypeName(int type);

/// The type of one of `CorrectionTypeNames`.
CorrectionTypes FindCorrectionType(const std::string& name);

std::vector<std::string> CorrectionTypeNames();

/// "bilinear", "bicubic", "overhausen", "biquadratic"; the number of a method that there isn't.
std::string InterpolationName(int type);

/// The method of one of `InterpolationNames`.
InterpolationTypes FindInterpolation(const std::string& name);

std::vector<std::string> InterpolationNames();

}  // namespace korvel

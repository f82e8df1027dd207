/// @file
/// Numbers in reports. A number that isn't there is undefined, as in the library.
#pragma once

#include <cstddef>
#include <string>

namespace korvel {

/// True for a number that something can be computed with: finite, neither undefined nor the
/// DBL_MAX that files write as "?".
bool IsKnown(double value);

/// `value` with so many decimals, never "-0.0"; "-" if it isn't known.
std::string NumberText(double value, int decimals);

/// Metres, to 0.1 mm.
std::string MetreText(double metres);

/// Metres as millimetres, to 0.1 mm.
std::string MillimetreText(double metres);

/// The number that `value` was most likely meant as: the shortest decimal that reads as this float.
double DecimalOf(float value);

/// "1 point", "2 points".
std::string CountText(std::size_t count, const std::string& noun);

}  // namespace korvel

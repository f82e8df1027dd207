/// @file
/// The values that mean "no value", in memory and in files.
#pragma once

#include <climits>
#include <limits>

/// "No value" in every number field: DBL_MIN, 2.2250738585072014e-308, compared exactly.
inline constexpr double kUndefined = std::numeric_limits<double>::min();

/// "No value" in integer attributes.
inline constexpr int kUndefinedInt = INT_MAX;

/// True if `value` is exactly the undefined number.
constexpr bool IsUndefined(double value) { return value == kUndefined; }

/// @file
/// The one place that knows how numbers look as text, in both directions.
///
/// Nothing here looks at the process locale: the decimal mark is always a point and there are no
/// thousands separators. All functions are safe from any thread.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "korvelfile/outside/base/Export.h"

/// Room that `PutObjectNumber` may use, in bytes.
inline constexpr std::size_t kObjectNumberSize = 32;

/// Room that `PutFixed` may use at up to 20 decimals, in bytes (309 digits before the point).
inline constexpr std::size_t kFixedNumberSize = 340;

/// The number at the start of `text`, as `atof` gives it in the C locale.
///
/// Leading white space and one sign are taken; reading stops at the first foreign character.
/// @return 0.0 where no number stands; an infinity beyond the range of `double`
KORVELBASE_EXPORT double ParseDouble(std::string_view text);

/// As `ParseDouble`, and moves `text` to what follows the number.
///
/// Where no number stands, `text` only loses its leading white space.
KORVELBASE_EXPORT double TakeDouble(std::string_view& text);

/// The whole number at the start of `text`, as `atoi` gives it, but brought into `lowest` to
/// `highest` where it lies outside.
///
/// @return 0 (brought into the range) where no number stands
KORVELBASE_EXPORT long long ParseInteger(std::string_view text, long long lowest,
                                         long long highest);

/// `ParseInteger` for the range of `int`.
inline int ParseInt(std::string_view text) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(ParseInteger(text, Limits::min(), Limits::max()));
}

/// Writes `value` as object text does and gives the end of what was written.
///
/// Undefined is nothing at all, DBL_MAX is "?", 0 < |value| < 1 is "%.15e", the rest "%.15g".
/// @param out room for `kObjectNumberSize` bytes; no terminator is written
KORVELBASE_EXPORT char* PutObjectNumber(char* out, double value);

/// Writes "%.*f" and gives the end of what was written.
///
/// @param out room for `kFixedNumberSize` bytes; no terminator is written
/// @param decimals 0 to 20
KORVELBASE_EXPORT char* PutFixed(char* out, double value, int decimals);

/// Writes "%i" and gives the end; needs 20 bytes.
KORVELBASE_EXPORT char* PutInteger(char* out, long long value);

/// "%.*f" of `value`; `decimals` beyond 0 to 20 count as the nearer limit.
KORVELBASE_EXPORT std::string FixedText(double value, int decimals);

/// "%.15e" of `value`.
KORVELBASE_EXPORT std::string ScientificText(double value);

/// "%.*g" of `value` with `digits` significant digits; beyond 1 to 17 they count as the nearer
/// limit.
KORVELBASE_EXPORT std::string GeneralText(double value, int digits);

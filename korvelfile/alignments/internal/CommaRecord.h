/// @file
/// The records of line and profile files: 128 bytes each, with fields between commas.
///
/// Record 0 holds the number of elements plus one. Every further record is one element: its number
/// as text, then numbers. A record is padded with blanks to 125 characters and closed by a comma,
/// CR and LF.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>

class GeoFile;

namespace commarecord {

/// Bytes of a record.
inline constexpr std::size_t kSize = 128;
/// Characters of an element number in the file.
inline constexpr std::size_t kElemNoSize = 12;

/// How a number stands in its field: "%<width>.<decimals>lf".
struct NumberFormat {
  int width;
  int decimals;
};

/// What may follow the last number of a record before the padding.
enum class End { kNothing, kComma };

/// The header record of a file with `elements` elements.
std::string HeaderRecord(std::size_t elements);

/// The record of one element.
///
/// Text beyond 129 characters is cut, before the padding and after it, so that a record whose
/// numbers are too wide is longer than others, and one that is wider still lacks its end.
/// @param numbers as many as `formats`
std::string ElementRecord(std::string_view elemNo, std::span<const NumberFormat> formats,
                          std::span<const double> numbers, End end);

/// Whether the last record may be cut short by the end of the file.
enum class LastRecord { kWhole, kMayBeShort };

/// Receives the element number and the numbers of one record.
using Take = std::function<void(std::string elemNo, std::span<const double> numbers)>;

/// Reads all records of an open file and hands each element to `take`, in order.
///
/// Columns don't count, only commas; the one that closes the record counts too. A NUL ends a
/// record. Memory doesn't grow with the count that the header tells.
/// @param fields how many numbers follow the element number
/// @return false if the file is corrupt: a record cut short, an element number of more than 12
///   characters, a comma missing; the elements before it have been handed over
bool ReadAll(GeoFile& file, std::size_t fields, LastRecord last, const Take& take);

}  // namespace commarecord

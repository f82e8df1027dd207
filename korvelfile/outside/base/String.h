#pragma once

#include <string>
#include <string_view>

#include "korvelfile/outside/base/Export.h"

/// 8-bit text with the quoting of object text.
///
/// A `std::string` with nothing added to its state; bytes pass through untouched.
class String : public std::string {
 public:
  using std::string::string;
  String() = default;
  String(std::string text) : std::string(std::move(text)) {}

  /// `text` between double quotes, with backslash, double quote, line feed, carriage return and
  /// tab spelled `\\`, `\"`, `\n`, `\r` and `\t`.
  ///
  /// Text without these five characters comes out as it is, between plain double quotes.
  KORVELBASE_EXPORT static String QuoteString(std::string_view text);

  /// Appends what `QuoteString` gives to `out`.
  KORVELBASE_EXPORT static void AppendQuoted(std::string& out, std::string_view text);

  /// The inverse of `QuoteString` on the text between the quotes.
  ///
  /// A backslash before any other character, or at the end, stands for itself.
  KORVELBASE_EXPORT static String Unquote(std::string_view quoted);

  /// True if `text` holds one of the five characters that need spelling out.
  KORVELBASE_EXPORT static bool NeedsQuoting(std::string_view text);
};

/// printf-style formatting into a `std::string`.
namespace SF {

/// The text that `format` and its arguments give, always with the number marks of the C locale.
///
/// @throws std::invalid_argument if the C library refuses the format
KORVELBASE_EXPORT std::string dformat(const char* format, ...)
    __attribute__((format(printf, 1, 2)));

}  // namespace SF

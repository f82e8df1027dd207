/// @file
/// Small services on 8-bit and wide text. All are independent of the process locale and safe from
/// any thread.
#pragma once

#include <string>
#include <string_view>

#include "korvelfile/outside/base/Export.h"

/// True for blank, tab, line feed, vertical tab, form feed and carriage return.
constexpr bool IsWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// `c` in lower case if it is one of the letters A to Z, else `c`.
constexpr char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// `text` without the white space at its start.
constexpr std::string_view TrimLeft(std::string_view text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  return text;
}

/// `text` without the white space at its end.
constexpr std::string_view TrimRight(std::string_view text) {
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// `text` without the white space at both ends.
constexpr std::string_view Trim(std::string_view text) { return TrimLeft(TrimRight(text)); }

/// `text` without the blanks at its end; other white space stays.
constexpr std::string_view TrimBlanksRight(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

/// True if the texts are equal but for the case of the letters A to Z.
KORVELBASE_EXPORT bool EqualNoCase(std::string_view a, std::string_view b);

/// `text` with the first comma, if any, replaced by a point.
KORVELBASE_EXPORT std::string FirstCommaToPoint(std::string text);

/// UTF-8 to wide text.
///
/// A byte b that is no valid UTF-8 becomes the code point U+DC00 + b, so that `Narrow` gives the
/// same bytes again, whatever they were.
KORVELBASE_EXPORT std::wstring Widen(std::string_view text);

/// Wide text to UTF-8, the inverse of `Widen`.
///
/// Code points U+DC80 to U+DCFF become the single byte they stand for; a value beyond U+10FFFF
/// becomes U+FFFD.
KORVELBASE_EXPORT std::string Narrow(std::wstring_view text);

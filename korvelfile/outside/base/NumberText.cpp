#include "korvelfile/outside/base/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

#include <locale.h>
#include <stdlib.h>

#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

constexpr int kMaxDecimals = 20;
constexpr int kMaxDigits = 17;
constexpr std::string_view kUnlimitedText = "?";

bool IsHexPrefix(const char* digits, const char* end) {
  return end - digits > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X');
}

bool StartsHexNumber(char c) {
  return (c >= '0' && c <= '9') || (LowerCase(c) >= 'a' && LowerCase(c) <= 'f') || c == '.';
}

bool StartsNumber(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == 'i' || c == 'I' || c == 'n' || c == 'N';
}

// std::from_chars leaves the value alone beyond the range of double, where atof tells apart too
// large and too small.
double ParseBeyondRange(const char* first, const char* last) {
  static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(std::string(first, last).c_str(), nullptr, cLocale);
}

struct Number {
  double value;
  const char* end;  // null where no number stands
};

Number FromChars(const char* first, const char* last, std::chars_format format) {
  Number number{0.0, nullptr};
  const auto [end, error] = std::from_chars(first, last, number.value, format);
  if (error == std::errc::invalid_argument) return {0.0, nullptr};
  if (error == std::errc::result_out_of_range) {
    const std::ptrdiff_t prefix = format == std::chars_format::hex ? 2 : 0;
    number.value = ParseBeyondRange(first - prefix, end);
  }
  number.end = end;
  return number;
}

// A number in hexadecimal digits; without any, the 0 before the x is a number of its own. Left to
// itself std::from_chars would also take a sign or "inf" behind the x.
Number HexFromChars(const char* digits, const char* last, bool isNegative) {
  Number number{0.0, nullptr};
  if (StartsHexNumber(digits[2])) number = FromChars(digits + 2, last, std::chars_format::hex);
  if (!number.end) return {isNegative ? -0.0 : 0.0, digits + 1};
  if (isNegative) number.value = -number.value;
  return number;
}

}  // namespace

double TakeDouble(std::string_view& text) {
  text = TrimLeft(text);
  const char* first = text.data();
  const char* const last = first + text.size();
  if (first == last) return 0.0;
  const bool isNegative = *first == '-';
  const char* const digits = first + (isNegative || *first == '+' ? 1 : 0);
  if (digits == last || !StartsNumber(*digits)) return 0.0;
  const Number number = IsHexPrefix(digits, last) ? HexFromChars(digits, last, isNegative)
                                                  : FromChars(isNegative ? first : digits, last,
                                                              std::chars_format::general);
  if (number.end) text.remove_prefix(static_cast<std::size_t>(number.end - first));
  return number.value;
}

double ParseDouble(std::string_view text) { return TakeDouble(text); }

long long ParseInteger(std::string_view text, long long lowest, long long highest) {
  text = TrimLeft(text);
  if (!text.empty() && text.front() == '+') {
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '-') text = {};
  }
  long long value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) return text.front() == '-' ? lowest : highest;
  return std::clamp(value, lowest, highest);
}

char* PutObjectNumber(char* out, double value) {
  if (IsUndefined(value)) return out;
  const double size = std::fabs(value);
  char* const limit = out + kObjectNumberSize;
  if (size > 0.0 && size < 1.0) {
    return std::to_chars(out, limit, value, std::chars_format::scientific, 15).ptr;
  }
  if (value == std::numeric_limits<double>::max()) {
    return std::copy(kUnlimitedText.begin(), kUnlimitedText.end(), out);
  }
  return std::to_chars(out, limit, value, std::chars_format::general, 15).ptr;
}

char* PutFixed(char* out, double value, int decimals) {
  return std::to_chars(out, out + kFixedNumberSize, value, std::chars_format::fixed, decimals).ptr;
}

char* PutInteger(char* out, long long value) { return std::to_chars(out, out + 20, value).ptr; }

std::string FixedText(double value, int decimals) {
  std::array<char, kFixedNumberSize> buffer;
  return {buffer.data(), PutFixed(buffer.data(), value, std::clamp(decimals, 0, kMaxDecimals))};
}

std::string ScientificText(double value) {
  std::array<char, kObjectNumberSize> buffer;
  const auto format = std::chars_format::scientific;
  return {buffer.data(),
          std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, 15).ptr};
}

std::string GeneralText(double value, int digits) {
  std::array<char, kObjectNumberSize> buffer;
  const auto format = std::chars_format::general;
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format,
                                       std::clamp(digits, 1, kMaxDigits))
                             .ptr};
}

#include "korvelfile/outside/base/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include <locale.h>
#include <stdlib.h>

#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

constexpr int kMaxDecimals = 20;
constexpr std::string_view kUnlimitedText = "?";

bool IsHexPrefix(std::string_view text) {
  return text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

// std::from_chars leaves the value alone beyond the range of double, where atof tells apart too
// large and too small.
double ParseBeyondRange(const char* first, const char* last) {
  static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(std::string(first, last).c_str(), nullptr, cLocale);
}

// What from_chars made of the characters behind the sign; moves `digits` past the number.
double TakeUnsigned(std::string_view& digits) {
  const bool hex = IsHexPrefix(digits);
  const char* first = digits.data() + (hex ? 2 : 0);
  const char* last = digits.data() + digits.size();
  double value = 0.0;
  const auto format = hex ? std::chars_format::hex : std::chars_format::general;
  auto [end, error] = std::from_chars(first, last, value, format);
  if (error == std::errc::result_out_of_range) value = ParseBeyondRange(digits.data(), end);
  if (error == std::errc::invalid_argument) {
    value = 0.0;
    if (hex) end = digits.data() + 1;  // the 0 before the x is a number of its own
  }
  digits.remove_prefix(static_cast<std::size_t>(end - digits.data()));
  return value;
}

bool StartsNumber(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == 'i' || c == 'I' || c == 'n' || c == 'N';
}

}  // namespace

double TakeDouble(std::string_view& text) {
  text = TrimLeft(text);
  if (text.empty()) return 0.0;
  const bool negative = text.front() == '-';
  const bool hasSign = negative || text.front() == '+';
  std::string_view digits = text.substr(hasSign ? 1 : 0);
  if (digits.empty() || !StartsNumber(digits.front())) return 0.0;
  const std::size_t before = digits.size();
  const double value = TakeUnsigned(digits);
  if (digits.size() != before) text = digits;
  return negative ? -value : value;
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
  return {buffer.data(),
          std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, digits).ptr};
}

#include "tools/korvel/NumberFormat.h"

#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>

#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Undefined.h"

namespace korvel {

bool IsKnown(double value) {
  return std::isfinite(value) && !IsUndefined(value) && std::abs(value) < DBL_MAX;
}

std::string NumberText(double value, int decimals) {
  if (!IsKnown(value)) return "-";
  const std::string text = FixedText(value, decimals);
  const bool isZero = text.find_first_not_of("-0.") == std::string::npos;
  return isZero && text.front() == '-' ? text.substr(1) : text;
}

std::string MetreText(double metres) { return NumberText(metres, 4); }

std::string MillimetreText(double metres) {
  return NumberText(IsKnown(metres) ? metres * 1000.0 : metres, 1);
}

double DecimalOf(float value) {
  std::array<char, 32> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return ParseDouble({text.data(), static_cast<std::size_t>(end - text.data())});
}

std::string CountText(std::size_t count, const std::string& noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

}  // namespace korvel

#include "tools/korvel/NumberArgument.h"

#include <charconv>
#include <cmath>
#include <sstream>

#include <CLI/CLI.hpp>

#include "korvelfile/outside/base/Text.h"

namespace {

std::string NumberFault(const std::string& text, bool mayBeZero) {
  const std::optional<double> value = korvel::ReadNumber(text);
  if (!value) return text + " is no number";
  if (*value < 0.0 || (*value == 0.0 && !mayBeZero))
    return text + (mayBeZero ? " is negative" : " is not above 0");
  return {};
}

}  // namespace

namespace korvel {

std::optional<double> ReadNumber(std::string_view text) {
  text = Trim(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double value = 0.0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || rest != end || !std::isfinite(value)) return {};
  return value;
}

std::optional<std::vector<double>> ReadNumbers(const std::string& text) {
  std::istringstream fields(text);
  std::vector<double> numbers;
  for (std::string field; std::getline(fields, field, ',');) {
    const std::optional<double> number = ReadNumber(field);
    if (!number) return std::nullopt;
    numbers.push_back(*number);
  }
  return numbers;
}

CLI::Validator AnyNumber() {
  return CLI::Validator(
      [](std::string& text) { return ReadNumber(text) ? std::string() : text + " is no number"; },
      "");
}

CLI::Validator Positive() {
  return CLI::Validator([](std::string& text) { return NumberFault(text, false); }, "");
}

CLI::Validator NotNegative() {
  return CLI::Validator([](std::string& text) { return NumberFault(text, true); }, "");
}

}  // namespace korvel

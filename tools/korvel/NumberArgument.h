/// @file
/// Numbers of the command line and of CSV files, with a decimal point in any locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class Validator;
}

namespace korvel {

/// The number that `text` is, but for white space around it; nothing if it is none, or not finite.
std::optional<double> ReadNumber(std::string_view text);

/// The numbers between the commas of `text`; nothing if one is none, or not finite.
std::optional<std::vector<double>> ReadNumbers(const std::string& text);

/// Takes all numbers.
CLI::Validator AnyNumber();

/// Takes numbers above 0.
CLI::Validator Positive();

/// Takes numbers from 0 on.
CLI::Validator NotNegative();

}  // namespace korvel

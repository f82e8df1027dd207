#pragma once

/// `value` truncated towards zero; `otherwise` if it is not a number or doesn't fit an `int`.
constexpr int TruncateOr(double value, int otherwise) {
  return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int>(value) : otherwise;
}

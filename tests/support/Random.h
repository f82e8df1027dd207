/// @file
/// Random input with a fixed seed, so that a failure comes again.
#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

/// A random number generator whose seed stands in the message of every failure in its scope.
class PrintedRandom {
 public:
  explicit PrintedRandom(std::uint64_t seed)
      : trace_(__FILE__, __LINE__, "seed " + std::to_string(seed)), engine_(seed) {}

  std::uint64_t Bits() { return engine_(); }

  /// 0 to `limit` - 1.
  std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }

  /// Uniform in [lower, upper), the same with every standard library.
  double Between(double lower, double upper) {
    return lower + (upper - lower) * std::ldexp(static_cast<double>(engine_() >> 11U), -53);
  }

  /// Any `double`: each exponent is as likely as the others, infinities and NaN are among them.
  double AnyDouble() { return std::bit_cast<double>(Bits()); }

  /// Up to `longest` characters out of `alphabet`.
  std::string Text(std::size_t longest, std::string_view alphabet) {
    std::string text(Below(longest + 1), '\0');
    for (char& c : text) c = alphabet[Below(alphabet.size())];
    return text;
  }

  /// `bytes` with one to four of them changed to any value.
  std::string Mangled(std::string bytes) {
    for (std::size_t hits = 1 + Below(4); hits > 0; --hits)
      bytes[Below(bytes.size())] = static_cast<char>(Below(256));
    return bytes;
  }

  /// Up to `longest` bytes of any value.
  std::string Bytes(std::size_t longest) {
    std::string bytes(Below(longest + 1), '\0');
    for (char& c : bytes) c = static_cast<char>(Below(256));
    return bytes;
  }

 private:
  testing::ScopedTrace trace_;
  std::mt19937_64 engine_;
};

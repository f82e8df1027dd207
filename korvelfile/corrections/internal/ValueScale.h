#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

/// A way to count floats by whole numbers and back, without loss.
///
/// Either all floats in their order, or the multiples of a decimal step: figures with few decimals
/// lie millions of floats apart, but few steps.
class ValueScale {
 public:
  /// Of all floats.
  ValueScale() = default;

  /// Of multiples of the coarsest step of 1 to 1e-6 that holds all `values`; of all floats if none
  /// does.
  static ValueScale DecimalsOf(std::span<const float> values);

  bool IsDecimal() const { return decimals_ >= 0; }

  /// Whole numbers in the order of the values, modulo 2^32; the same for the same bits. A value
  /// that this doesn't hold gets some number, too.
  std::uint32_t CountOf(float value) const { return IsDecimal() ? Steps(value) : Ordered(value); }

  /// The inverse, bit for bit, for values that this holds.
  float ValueOf(std::uint32_t count) const {
    return IsDecimal() ? ValueOfSteps(count) : FloatOf(count);
  }

 private:
  static constexpr std::uint32_t kSign = 0x80000000U;

  explicit ValueScale(int decimals) : decimals_(static_cast<std::int8_t>(decimals)) {}

  // Multiplying is faster than dividing; what that rounds otherwise isn't held.
  static constexpr std::array<double, 7> kSteps = {1.0, 1e-1, 1e-2, 1e-3, 1e-4, 1e-5, 1e-6};
  static constexpr std::array<double, 7> kPowers = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
  static constexpr double kMostSteps = 1 << 30;

  bool Holds(float value) const;

  std::size_t Index() const { return static_cast<std::size_t>(decimals_); }

  // The nearest whole number; of two the farther from 0.
  std::uint32_t Steps(float value) const {
    const double steps = static_cast<double>(value) * kPowers[Index()];
    if (!(std::fabs(steps) <= kMostSteps)) return 0;
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(steps + std::copysign(0.5, steps)));
  }
  float ValueOfSteps(std::uint32_t count) const {
    return static_cast<float>(static_cast<std::int32_t>(count) * kSteps[Index()]);
  }

  // Floats as whole numbers in the same order: neighbouring floats have neighbouring numbers.
  static std::uint32_t Ordered(float value) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
  }
  static float FloatOf(std::uint32_t ordered) {
    return std::bit_cast<float>((ordered & kSign) != 0 ? ordered ^ kSign : ~ordered);
  }

  std::int8_t decimals_ = -1;  ///< -1 of all floats
};

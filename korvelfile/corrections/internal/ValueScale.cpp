#include "korvelfile/corrections/internal/ValueScale.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr double kPowers[] = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
constexpr double kMostSteps = 1 << 30;

}  // namespace

ValueScale ValueScale::DecimalsOf(std::span<const float> values) {
  for (int decimals = 0; decimals < static_cast<int>(std::size(kPowers)); ++decimals) {
    const ValueScale scale(decimals);
    if (std::all_of(values.begin(), values.end(), [&](float v) { return scale.Holds(v); }))
      return scale;
  }
  return {};
}

// Zeros differ by their sign, and numbers that aren't finite have no step.
bool ValueScale::Holds(float value) const {
  return std::bit_cast<std::uint32_t>(ValueOf(CountOf(value))) ==
         std::bit_cast<std::uint32_t>(value);
}

std::uint32_t ValueScale::Steps(float value) const {
  const double steps = static_cast<double>(value) * kPowers[decimals_];
  if (!(std::fabs(steps) <= kMostSteps)) return 0;
  return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lrint(steps)));
}

float ValueScale::ValueOfSteps(std::uint32_t count) const {
  return static_cast<float>(static_cast<std::int32_t>(count) / kPowers[decimals_]);
}

#include "korvelfile/corrections/internal/ValueScale.h"

#include <algorithm>

ValueScale ValueScale::DecimalsOf(std::span<const float> values) {
  for (int decimals = 0; decimals < static_cast<int>(kPowers.size()); ++decimals) {
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

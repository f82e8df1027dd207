#include "tools/korvel/ColourRamp.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr std::array kStops{
    korvel::Colour{0.16, 0.17, 0.40}, korvel::Colour{0.17, 0.36, 0.56},
    korvel::Colour{0.15, 0.54, 0.56}, korvel::Colour{0.36, 0.71, 0.45},
    korvel::Colour{0.72, 0.83, 0.37}, korvel::Colour{0.98, 0.93, 0.55},
};

double Between(double a, double b, double share) { return a + (b - a) * share; }

}  // namespace

korvel::Colour korvel::RampColour(double share) {
  const double at = std::clamp(share, 0.0, 1.0) * (kStops.size() - 1.0);
  const auto i = std::min(static_cast<std::size_t>(at), kStops.size() - 2);
  const double part = at - static_cast<double>(i);
  const Colour& a = kStops[i];
  const Colour& b = kStops[i + 1];
  return {Between(a.red, b.red, part), Between(a.green, b.green, part),
          Between(a.blue, b.blue, part)};
}

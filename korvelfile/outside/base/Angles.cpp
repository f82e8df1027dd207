#include "korvelfile/outside/base/Angles.h"

#include <algorithm>
#include <cmath>
#include <limits>

double NormalizeAngle(double a, double period, double base) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  if (!std::isfinite(a) || !std::isfinite(base) || !std::isfinite(period)) return kNaN;
  if (period <= 0.0) return kNaN;
  const double end = base + period;
  if (a >= base && a < end) return a;
  double above = std::fmod(a - base, period);
  if (above < 0.0) above += period;
  // Rounding can lift a value from just below base, or from just below the end, to the end itself.
  const double normalized = base + above;
  return normalized < end ? normalized : base;
}

double HAngleJustifyToFirst(double first, double a) {
  if (std::fabs(a - first) <= kPi) return a;
  return first + std::remainder(a - first, kTwoPi);
}

double BearingToGon(double b) { return NormalizeAngle(100.0 - b / kPi * 200.0, 400.0, 0.0); }

int RoundInt(double value) {
  using Limits = std::numeric_limits<int>;
  if (std::isnan(value)) return 0;
  const double rounded = std::round(value);
  return static_cast<int>(std::clamp<double>(rounded, Limits::min(), Limits::max()));
}

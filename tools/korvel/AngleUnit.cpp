#include "tools/korvel/AngleUnit.h"

#include <algorithm>
#include <array>

#include "korvelfile/outside/base/Angles.h"
#include "tools/korvel/NumberFormat.h"

namespace {

constexpr std::array kUnits{
    korvel::AngleUnit{"gon", kRadiansPerGon, 5, "mgon", kRadiansPerGon / 1000, 2},
    korvel::AngleUnit{"deg", kRadiansPerDegree, 6, "arcsec", kRadiansPerDegree / 3600, 1},
    korvel::AngleUnit{"rad", 1.0, 7, "mrad", 1e-3, 4},
};

// A direction in a unit of `radians`, within one turn; a full turn that rounding makes is 0.
std::string TurnText(double value, double radians, int decimals) {
  if (!korvel::IsKnown(value)) return korvel::NumberText(value, decimals);
  const std::string text =
      korvel::NumberText(NormalizeAngle(value, kTwoPi, 0.0) / radians, decimals);
  return text == korvel::NumberText(kTwoPi / radians, decimals) ? korvel::NumberText(0.0, decimals)
                                                                : text;
}

}  // namespace

namespace korvel {

std::string AngleUnit::DirectionText(double value) const {
  return TurnText(value, radians, decimals);
}

std::string AngleUnit::BearingText(double value) const {
  return TurnText(value, radians, decimals - 4);
}

std::string AngleUnit::SmallText(double value) const {
  return NumberText(IsKnown(value) ? value / smallRadians : value, smallDecimals);
}

const AngleUnit& FindAngleUnit(std::string_view name) {
  return *std::find_if(kUnits.begin(), kUnits.end(),
                       [&](const AngleUnit& unit) { return unit.name == name; });
}

std::vector<std::string> AngleUnitNames() {
  std::vector<std::string> names;
  for (const AngleUnit& unit : kUnits) names.emplace_back(unit.name);
  return names;
}

}  // namespace korvel

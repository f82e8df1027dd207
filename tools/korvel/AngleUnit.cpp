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

}  // namespace

namespace korvel {

std::string AngleUnit::DirectionText(double value) const {
  if (!IsKnown(value)) return NumberText(value, decimals);
  const double turn = kTwoPi / radians;
  const std::string text = NumberText(NormalizeAngle(value, kTwoPi, 0.0) / radians, decimals);
  return text == NumberText(turn, decimals) ? NumberText(0.0, decimals) : text;
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

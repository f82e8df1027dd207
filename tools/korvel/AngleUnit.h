#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// The unit in which angles go in and out, and a smaller one for errors and residuals.
struct AngleUnit {
  std::string_view name;       ///< as on the command line
  double radians;              ///< of one unit
  int decimals;                ///< for a direction, to about 0.01 mm at 100 m
  std::string_view smallName;  ///< unit of errors and residuals in reports
  double smallRadians;         ///< of one small unit
  int smallDecimals;

  /// "182.93345"; a direction is brought into one turn first. "-" if undefined.
  std::string DirectionText(double radians) const;

  /// As `DirectionText`, as coarse as the bearing of an ellipse needs it.
  std::string BearingText(double radians) const;

  /// An angle difference in the small unit, without its name; "-" if undefined.
  std::string SmallText(double radians) const;

  double FromRadians(double value) const { return value / radians; }
  double ToRadians(double value) const { return value * radians; }
};

/// The unit of this name.
/// @param name one of `AngleUnitNames`
const AngleUnit& FindAngleUnit(std::string_view name);

/// gon, deg, rad.
std::vector<std::string> AngleUnitNames();

}  // namespace korvel

#pragma once

#include <string>

#include "tools/korvel/AngleUnit.h"

namespace korvel {

/// The units in which coordinates and plane corrections of a model go in and out.
///
/// A model works in metres, or in latitude and longitude, radians, which the user sees in a unit of
/// angles. Heights are metres everywhere.
class ModelUnits {
 public:
  ModelUnits(bool isGeographic, const AngleUnit& angles)
      : isGeographic_(isGeographic), angles_(angles) {}

  bool IsGeographic() const { return isGeographic_; }

  /// From and to the unit of the model; an undefined number stays one.
  double ToModel(double shown) const;
  double FromModel(double own) const;

  /// "m", or the unit of angles.
  std::string Name() const;

  /// Decimals for a position, to about 0.1 mm.
  int Decimals() const;

  /// In tables corrections stand in a smaller unit: its name, how many of it make one of `Name`,
  /// and the decimals to about 0.1 mm.
  std::string CorrectionName() const;
  double CorrectionScale() const;
  int CorrectionDecimals() const;

 private:
  bool isGeographic_;
  AngleUnit angles_;
};

}  // namespace korvel

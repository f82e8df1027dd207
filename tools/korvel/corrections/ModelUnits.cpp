#include "tools/korvel/corrections/ModelUnits.h"

#include "korvelfile/outside/base/Undefined.h"

namespace {

constexpr int kMetreDecimals = 4;

// Units of angles have decimals for a direction; a place on the earth needs more.
constexpr int kMoreForPosition = 4;
constexpr int kMoreForCorrection = 4;

}  // namespace

namespace korvel {

double ModelUnits::ToModel(double shown) const {
  return isGeographic_ && !IsUndefined(shown) ? angles_.ToRadians(shown) : shown;
}

double ModelUnits::FromModel(double own) const {
  return isGeographic_ && !IsUndefined(own) ? angles_.FromRadians(own) : own;
}

std::string ModelUnits::Name() const { return isGeographic_ ? std::string(angles_.name) : "m"; }

int ModelUnits::Decimals() const {
  return isGeographic_ ? angles_.decimals + kMoreForPosition : kMetreDecimals;
}

std::string ModelUnits::CorrectionName() const {
  return isGeographic_ ? std::string(angles_.smallName) : "m";
}

double ModelUnits::CorrectionScale() const {
  return isGeographic_ ? angles_.radians / angles_.smallRadians : 1.0;
}

int ModelUnits::CorrectionDecimals() const {
  return isGeographic_ ? angles_.smallDecimals + kMoreForCorrection : kMetreDecimals;
}

}  // namespace korvel

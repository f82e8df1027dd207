#include "tools/korvel/corrections/CcgNames.h"

#include <algorithm>
#include <array>

namespace {

template <class Type>
struct Named {
  Type type;
  const char* name;
};

constexpr std::array kTypes{
    Named<CorrectionTypes>{CorrectionZ, "z"},
    Named<CorrectionTypes>{CorrectionXY, "xy"},
    Named<CorrectionTypes>{CorrectionXYZ, "xyz"},
    Named<CorrectionTypes>{CorrectionLatLongForward, "latlong-forward"},
    Named<CorrectionTypes>{CorrectionLatLongZ, "latlong-z"},
    Named<CorrectionTypes>{CorrectionLatLongXY, "latlong-xy"},
    Named<CorrectionTypes>{CorrectionLatLongXYZ, "latlong-xyz"},
};

constexpr std::array kInterpolations{
    Named<InterpolationTypes>{Bilinear, "bilinear"},
    Named<InterpolationTypes>{Bicubic, "bicubic"},
    Named<InterpolationTypes>{Overhausen, "overhausen"},
    Named<InterpolationTypes>{Biquadratic, "biquadratic"},
};

std::string NameOf(const auto& table, int type) {
  const auto found = std::find_if(table.begin(), table.end(),
                                  [&](const auto& entry) { return entry.type == type; });
  return found == table.end() ? std::to_string(type) : found->name;
}

auto Find(const auto& table, const std::string& name) {
  return std::find_if(table.begin(), table.end(),
                      [&](const auto& entry) { return name == entry.name; })
      ->type;
}

std::vector<std::string> Names(const auto& table) {
  std::vector<std::string> names;
  for (const auto& entry : table) names.emplace_back(entry.name);
  return names;
}

}  // namespace

std::string korvel::CorrectionTypeName(int type) { return NameOf(kTypes, type); }

CorrectionTypes korvel::FindCorrectionType(const std::string& name) { return Find(kTypes, name); }

std::vector<std::string> korvel::CorrectionTypeNames() { return Names(kTypes); }

std::string korvel::InterpolationName(int type) { return NameOf(kInterpolations, type); }

InterpolationTypes korvel::FindInterpolation(const std::string& name) {
  return Find(kInterpolations, name);
}

std::vector<std::string> korvel::InterpolationNames() { return Names(kInterpolations); }

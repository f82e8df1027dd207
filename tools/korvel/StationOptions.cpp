#include "tools/korvel/StationOptions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

using korvel::HeightMethod;

constexpr std::array<std::pair<HeightMethod, const char*>, 3> kHeightMethods{
    {{HeightMethod::Mean, "mean"},
     {HeightMethod::Weighted, "weighted"},
     {HeightMethod::None, "none"}}};

}  // namespace

std::string korvel::HeightMethodName(HeightMethod method) {
  return std::find_if(kHeightMethods.begin(), kHeightMethods.end(),
                      [&](const auto& entry) { return entry.first == method; })
      ->second;
}

korvel::HeightMethod korvel::FindHeightMethod(const std::string& name) {
  return std::find_if(kHeightMethods.begin(), kHeightMethods.end(),
                      [&](const auto& entry) { return name == entry.second; })
      ->first;
}

#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "korvelfile/coordinates/SharedCodes.h"

namespace internal {

/// The code triples that a file used last, so that a triple that comes again needs neither the lock
/// nor the table of all shared ones.
class CodesCache {
 public:
  const detail::SharedCodes& Get(std::string_view pointCode, std::string_view specialCode,
                                 std::string_view remark) {
    detail::SharedCodes& codes = places_[PlaceOf(pointCode, specialCode, remark)];
    const detail::CodesAndRemark& texts = codes.Get();
    if (texts.GetPointCode() != pointCode || texts.GetSpecialCode() != specialCode ||
        texts.GetRemark() != remark) {
      codes = detail::CodesAndRemark(std::string(pointCode), std::string(specialCode),
                                     std::string(remark));
    }
    return codes;
  }

 private:
  static constexpr std::size_t kPlaces = 256;

  template <class... Texts>
  static std::size_t PlaceOf(Texts... texts) {
    std::size_t seed = 0;
    const auto add = [&](std::string_view text) {
      for (const char c : text) seed = seed * 31 + static_cast<unsigned char>(c);
    };
    (add(texts), ...);
    return seed % kPlaces;
  }

  std::array<detail::SharedCodes, kPlaces> places_;
};

}  // namespace internal

#include "korvelfile/coordinates/SharedCodes.h"

#include <functional>
#include <string>
#include <utility>

#include "korvelfile/data/internal/Flyweight.h"

namespace detail {

namespace {

struct CodesHash {
  std::size_t operator()(const CodesAndRemark& codes) const {
    constexpr std::size_t kSpread = 0x9E3779B97F4A7C15U;  // 2^64 over the golden ratio
    const std::hash<std::string> hash;
    std::size_t seed = hash(codes.GetPointCode());
    seed = seed * kSpread + hash(codes.GetSpecialCode());
    return seed * kSpread + hash(codes.GetRemark());
  }
};

using Shared = internal::Flyweight<CodesAndRemark, CodesHash>;
using Opaque = internal::OpaqueFlyweight<Shared>;

}  // namespace

SharedCodes::SharedCodes() { Opaque::Clear(storage_); }

SharedCodes::SharedCodes(const CodesAndRemark& codes) { Opaque::Make(storage_, codes); }

SharedCodes::SharedCodes(const SharedCodes& other) { Opaque::MakeCopy(storage_, other.storage_); }

SharedCodes& SharedCodes::operator=(const SharedCodes& other) {
  SharedCodes copy(other);
  Swap(copy);
  return *this;
}

SharedCodes& SharedCodes::operator=(const CodesAndRemark& codes) {
  SharedCodes shared(codes);
  Swap(shared);
  return *this;
}

SharedCodes::~SharedCodes() { Opaque::Destroy(storage_); }

void SharedCodes::Swap(SharedCodes& other) { std::swap(storage_, other.storage_); }

const CodesAndRemark& SharedCodes::Get() const { return Opaque::Get(storage_); }

}  // namespace detail

#include "korvelfile/data/SharedText.h"

#include <functional>

#include "korvelfile/data/internal/Flyweight.h"

namespace {

using Shared = internal::Flyweight<std::string, std::hash<std::string>>;
using Opaque = internal::OpaqueFlyweight<Shared, sizeof(void*)>;

}  // namespace

SharedText::SharedText() { Opaque::Make(storage_, internal::DefaultFlyweight<Shared>()); }

SharedText::SharedText(const std::string& text) {
  Opaque::Make(storage_, text.empty() ? internal::DefaultFlyweight<Shared>() : Shared(text));
}

SharedText::SharedText(const SharedText& other) {
  Opaque::Make(storage_, Opaque::At(other.storage_));
}

SharedText& SharedText::operator=(const SharedText& other) {
  Opaque::At(storage_) = Opaque::At(other.storage_);
  return *this;
}

SharedText& SharedText::operator=(const std::string& text) { return *this = SharedText(text); }

SharedText::~SharedText() { Opaque::Destroy(storage_); }

const std::string& SharedText::Get() const { return Opaque::At(storage_).get(); }

#include "korvelfile/data/SharedText.h"

#include <functional>
#include <utility>

#include "korvelfile/data/internal/Flyweight.h"

namespace {

using TextHash = std::hash<std::string>;
using Shared = internal::Flyweight<std::string, TextHash>;
using Opaque = internal::OpaqueFlyweight<Shared>;

}  // namespace

SharedText::SharedText() { Opaque::Clear(storage_); }

SharedText::SharedText(const std::string& text) { Opaque::Make(storage_, text); }

SharedText::SharedText(const SharedText& other) { Opaque::MakeCopy(storage_, other.storage_); }

SharedText& SharedText::operator=(const SharedText& other) {
  SharedText copy(other);
  Swap(copy);
  return *this;
}

SharedText& SharedText::operator=(const std::string& text) {
  SharedText shared(text);
  Swap(shared);
  return *this;
}

SharedText::~SharedText() { Opaque::Destroy(storage_); }

void SharedText::Swap(SharedText& other) { std::swap(storage_, other.storage_); }

const std::string& SharedText::Get() const { return Opaque::Get(storage_); }

void SharedText::Expect(const std::string& text) {
  internal::DenseTableHint<std::string, TextHash>::Prefetch(text);
}

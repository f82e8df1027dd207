#pragma once

#include <cstddef>
#include <cstring>
#include <new>
#include <utility>

#include <boost/flyweight.hpp>
#include <boost/flyweight/holder_tag.hpp>
#include <boost/flyweight/refcounted.hpp>
#include <boost/flyweight/simple_locking.hpp>

#include "korvelfile/data/internal/DenseFactory.h"

namespace internal {

/// Keeps a factory alive until the process is gone, so that items of static life may still let go
/// of their texts at exit.
struct UndyingHolder : boost::flyweights::holder_marker {
  template <class Factory>
  struct apply {
    struct type {
      static Factory& get() {
        static auto* const factory = new Factory;
        return *factory;
      }
    };
  };
};

/// A shared immutable value: hashed, reference counted, safe from any thread.
template <class Value, class Hash>
using Flyweight =
    boost::flyweights::flyweight<Value, DenseHashedFactory<Hash>, boost::flyweights::simple_locking,
                                 boost::flyweights::refcounted, UndyingHolder>;

/// Keeps a flyweight within the opaque bytes of a public class; no flyweight at all stands for the
/// default value, which then costs no reference counting.
template <class Shared>
class OpaqueFlyweight {
 public:
  using Value = typename Shared::value_type;
  using Storage = std::byte[sizeof(void*)];
  static_assert(sizeof(Shared) == sizeof(void*));

  static void Clear(Storage& storage) { std::memset(storage, 0, sizeof storage); }

  static void Make(Storage& storage, const Value& value) {
    Clear(storage);
    if (!(value == DefaultValue())) new (storage) Shared(value);
  }

  static void MakeCopy(Storage& storage, const Storage& other) {
    Clear(storage);
    if (HoldsOne(other)) new (storage) Shared(At(other));
  }

  static void Destroy(Storage& storage) {
    if (HoldsOne(storage)) At(storage).~Shared();
  }

  static const Value& Get(const Storage& storage) {
    return HoldsOne(storage) ? At(storage).get() : DefaultValue();
  }

 private:
  // A flyweight is a pointer to its value, and so never all zeros.
  static bool HoldsOne(const Storage& storage) {
    void* bits;
    std::memcpy(&bits, storage, sizeof bits);
    return bits != nullptr;
  }

  static const Value& DefaultValue() {
    static const auto* const value = new Value;
    return *value;
  }

  static const Shared& At(const Storage& storage) {
    return *std::launder(reinterpret_cast<const Shared*>(storage));
  }
};

}  // namespace internal

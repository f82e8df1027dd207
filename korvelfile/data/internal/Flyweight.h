#pragma once

#include <cstddef>
#include <new>
#include <utility>

#include <boost/flyweight.hpp>
#include <boost/flyweight/hashed_factory.hpp>
#include <boost/flyweight/holder_tag.hpp>
#include <boost/flyweight/refcounted.hpp>
#include <boost/flyweight/simple_locking.hpp>

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
using Flyweight = boost::flyweights::flyweight<Value, boost::flyweights::hashed_factory<Hash>,
                                               boost::flyweights::simple_locking,
                                               boost::flyweights::refcounted, UndyingHolder>;

/// The default value's flyweight: copying it spares the look-up.
template <class Shared>
const Shared& DefaultFlyweight() {
  static const auto* const shared = new Shared;
  return *shared;
}

/// Keeps a flyweight within the opaque bytes of a public class.
template <class Shared, std::size_t Size>
struct OpaqueFlyweight {
  static_assert(sizeof(Shared) == Size);

  static void Make(std::byte (&storage)[Size], const Shared& value) { new (storage) Shared(value); }
  static void Destroy(std::byte (&storage)[Size]) { At(storage).~Shared(); }
  static Shared& At(std::byte (&storage)[Size]) {
    return *std::launder(reinterpret_cast<Shared*>(storage));
  }
  static const Shared& At(const std::byte (&storage)[Size]) {
    return *std::launder(reinterpret_cast<const Shared*>(storage));
  }
};

}  // namespace internal

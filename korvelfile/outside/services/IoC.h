/// @file
/// Where an application leaves the services that the library asks for by their type.
///
/// All functions are safe from any thread. Who calls `Register` or `Resolve` includes
/// <boost/any.hpp>; `Korvel::SetTranslationService` needs no Boost.
#pragma once

#include <stdexcept>
#include <typeinfo>

#include "korvelfile/Export.h"

namespace boost {
class any;
}  // namespace boost

namespace Quark {

/// Thrown where nothing is registered for a type.
class KORVELFILE_EXPORT UnregisteredTypeRequested : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~UnregisteredTypeRequested() override;
};

namespace IoC {

/// Leaves `service` for those who ask for `type`, in place of what was there.
/// @param service by custom a `std::shared_ptr` to the type
KORVELFILE_EXPORT void Register(const std::type_info& type, const boost::any& service);

/// Takes away what is there for `type`, if anything.
KORVELFILE_EXPORT void Unregister(const std::type_info& type);

/// What was left for `type`.
/// @throws UnregisteredTypeRequested if that is nothing
KORVELFILE_EXPORT boost::any Resolve(const std::type_info& type);

}  // namespace IoC
}  // namespace Quark

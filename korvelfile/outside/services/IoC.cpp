#include "korvelfile/outside/services/IoC.h"

#include <map>
#include <mutex>
#include <string>
#include <typeindex>

#include <boost/any.hpp>

namespace {

struct Services {
  std::mutex mutex;
  std::map<std::type_index, boost::any> byType;
};

// Never destroyed: services may be asked for until the very end of a process.
Services& AllServices() {
  static auto* const services = new Services;
  return *services;
}

}  // namespace

namespace Quark {

UnregisteredTypeRequested::~UnregisteredTypeRequested() = default;

namespace IoC {

void Register(const std::type_info& type, const boost::any& service) {
  Services& services = AllServices();
  const std::lock_guard lock(services.mutex);
  services.byType[type] = service;
}

void Unregister(const std::type_info& type) {
  Services& services = AllServices();
  const std::lock_guard lock(services.mutex);
  services.byType.erase(type);
}

boost::any Resolve(const std::type_info& type) {
  Services& services = AllServices();
  const std::lock_guard lock(services.mutex);
  const auto found = services.byType.find(type);
  if (found == services.byType.end())
    throw UnregisteredTypeRequested(std::string("No service is registered for ") + type.name());
  return found->second;
}

}  // namespace IoC
}  // namespace Quark

#include "korvelfile/outside/services/ITranslationService.h"

#include <boost/any.hpp>

#include "korvelfile/outside/services/IoC.h"

namespace Korvel {

NonexistentLiteralString::~NonexistentLiteralString() = default;

ITranslationService::~ITranslationService() = default;

void SetTranslationService(std::shared_ptr<ITranslationService> service) {
  const std::type_info& type = typeid(ITranslationService);
  if (service) {
    Quark::IoC::Register(type, service);
  } else {
    Quark::IoC::Unregister(type);
  }
}

}  // namespace Korvel

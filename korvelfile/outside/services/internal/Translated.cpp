#include "korvelfile/outside/services/internal/Translated.h"

#include <memory>

#include <boost/any.hpp>

#include "korvelfile/outside/services/ITranslationService.h"
#include "korvelfile/outside/services/IoC.h"
#include "korvelfile/outside/services/RegistryException.h"

std::wstring internal::Translated(const std::type_info& key, const wchar_t* defaultText) {
  using Service = std::shared_ptr<Korvel::ITranslationService>;
  try {
    const auto service =
        boost::any_cast<Service>(Quark::IoC::Resolve(typeid(Korvel::ITranslationService)));
    return service->GetText(key);
  } catch (const Korvel::NonexistentLiteralString&) {
  } catch (const Registry::Exception&) {
  } catch (const Quark::UnregisteredTypeRequested&) {
  }
  return defaultText;
}

#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include "korvelfile/Export.h"

namespace Korvel {

/// Thrown by a translation service that has no text under a key.
class KORVELFILE_EXPORT NonexistentLiteralString : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~NonexistentLiteralString() override;
};

/// Texts in the language of the user. An application brings it, see `SetTranslationService`.
class KORVELFILE_EXPORT ITranslationService {
 public:
  virtual ~ITranslationService();

  /// The text under `key`, one of the types in the namespace `Translations`. May be called from
  /// several threads.
  /// @throws NonexistentLiteralString if there is none
  /// @throws Registry::Exception if the texts can't be reached
  virtual std::wstring GetText(const std::type_info& key) const = 0;
};

/// Registers `service` with `Quark::IoC` as a `std::shared_ptr<ITranslationService>`; without one,
/// and after null, texts stay as they are in the library. Safe from any thread.
KORVELFILE_EXPORT void SetTranslationService(std::shared_ptr<ITranslationService> service);

}  // namespace Korvel

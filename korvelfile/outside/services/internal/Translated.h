#pragma once

#include <string>
#include <typeinfo>

namespace internal {

/// The text under `key` from the translation service; `defaultText` where there is no service, no
/// text, or the store behind it fails.
std::wstring Translated(const std::type_info& key, const wchar_t* defaultText);

}  // namespace internal

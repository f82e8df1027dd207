#include "korvelfile/outside/base/FilePath.h"

#include <cstddef>

namespace Korvel {

FilePathT::FilePathT(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  const std::size_t nameStart = slash == std::string_view::npos ? 0 : slash + 1;
  directory_ = path.substr(0, nameStart);
  const std::string_view name = path.substr(nameStart);
  std::size_t dot = name.rfind('.');
  if (dot == name.size() - 1) dot = std::string_view::npos;
  basename_ = name.substr(0, dot);
  if (dot != std::string_view::npos) extension_ = name.substr(dot + 1);
}

std::string FilePathT::GetFullpath() const {
  return directory_ + basename_ + (extension_.empty() ? "" : "." + extension_);
}

}  // namespace Korvel

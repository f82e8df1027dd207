#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "korvelfile/coordinates/AssociatedFiles.h"
#include "korvelfile/outside/base/FilePath.h"

namespace File::Association {

/// `path` with each of `extensions` in the place of its own.
inline std::vector<AssociatedFile> SameBasename(
    const std::string& path, std::initializer_list<std::string_view> extensions) {
  std::vector<AssociatedFile> files;
  Korvel::FilePathT other(path);
  for (const std::string_view extension : extensions) {
    other.SetExtension(extension);
    files.emplace_back(other.GetFullpath(), AssociationType::SameBasename);
  }
  return files;
}

}  // namespace File::Association

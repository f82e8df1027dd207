#pragma once

#include <string>
#include <string_view>

#include "korvelfile/outside/base/Export.h"

namespace Korvel {

/// The last component of `path`; only "/" separates components.
inline std::string FileNameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

/// A path taken apart into directory, base name and extension. Only "/" separates directories.
///
/// The extension is what follows the last "." of the last component, if anything does.
class KORVELBASE_EXPORT FilePathT {
 public:
  explicit FilePathT(std::string_view path);

  /// Without its dot; empty if there is none.
  const std::string& GetExtension() const { return extension_; }
  void SetExtension(std::string_view extension) { extension_ = extension; }

  /// The last component without its extension.
  const std::string& GetBasename() const { return basename_; }
  void SetBasename(std::string_view basename) { basename_ = basename; }

  /// The whole path, put together again.
  std::string GetFullpath() const;

 private:
  std::string directory_;  ///< with its closing "/"
  std::string basename_;
  std::string extension_;
};

}  // namespace Korvel

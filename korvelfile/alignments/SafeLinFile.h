#pragma once

#include <memory>
#include <string>

#include "korvelfile/Export.h"

class LinFile;

namespace File {

/// A handle of a line file that was read. Copies are handles of the same one, which lives as long
/// as one of them does. It isn't locked: one thread at a time.
class KORVELFILE_EXPORT SafeLinFile {
 public:
  /// Reads the file.
  /// @throws std::runtime_error "Could not load " and the path, if that fails
  /// @{
  explicit SafeLinFile(const std::string& path);
  explicit SafeLinFile(const std::wstring& path);
  /// @}

  LinFile& GetLinFile() { return *file_; }              ///< The file.
  const LinFile& GetLinFile() const { return *file_; }  ///< The file.

 private:
  std::shared_ptr<LinFile> file_;
};

}  // namespace File

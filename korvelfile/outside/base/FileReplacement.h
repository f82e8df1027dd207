#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "korvelfile/outside/base/Export.h"

/// Writes a file that takes the place of an old one only when it is whole.
///
/// The bytes go to a temporary file in the target's directory. `Commit` flushes and syncs it,
/// renames it over the target and syncs the directory, so that at every moment either the old file
/// or the new one is there whole, through a crash too. Without a successful `Commit` the old file
/// stays as it was and the temporary one is removed.
///
/// Permissions, owner and group of an old file are kept as far as the process may; a symbolic link
/// stays and its target is replaced. Other hard links of the old file keep the old contents. A
/// target that is no regular file (a device, a pipe) is written directly.
class KORVELBASE_EXPORT FileReplacement {
 public:
  FileReplacement() = default;
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  /// Prepares to replace or create `path`; false if its directory is missing, or it or its
  /// directory can't be written.
  bool Open(const std::string& path);

  /// Adds bytes at the end. A failure sticks.
  /// @return false after this or an earlier failure
  bool Write(const void* bytes, std::size_t size);

  bool HasFailed() const { return hasFailed_; }

  /// Puts the new file in place; false, with the old one untouched, after any failure.
  bool Commit();

 private:
  bool OpenDirectly(const std::string& path);
  bool OpenTemporary(int permissions);
  bool WriteOut(const char* bytes, std::size_t size);
  bool Flush();
  bool CloseDescriptor();
  bool MoveIntoPlace();

  std::string target_;     ///< with links resolved
  std::string temporary_;  ///< empty if the target is written directly
  int descriptor_ = -1;
  bool hasFailed_ = false;
  std::vector<char> buffer_;
};

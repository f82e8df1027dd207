#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "korvelfile/outside/base/Export.h"

/// When a file was changed: time since 1970.
struct FileTime {
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;  ///< 0 to 999,999,999

  friend bool operator==(const FileTime&, const FileTime&) = default;
};

/// What tells one state of a file on disk from another: which file it is, its size, and when it
/// was last changed.
struct FileState {
  std::uint64_t device = 0;
  std::uint64_t number = 0;  ///< of the file on its device
  std::int64_t size = -1;    ///< bytes; -1 if there is no file to read
  FileTime modified;         ///< last change of the content
  FileTime changed;          ///< last change of content, name or rights

  friend bool operator==(const FileState&, const FileState&) = default;

  /// True if any change from now on gives another state.
  ///
  /// File systems stamp changes in steps of some milliseconds: a file changed twice within one
  /// step looks the same after both. So a file whose stamps are younger than 50 ms isn't settled.
  KORVELBASE_EXPORT bool IsSettled() const;

  /// State of the regular file at `path` now; the size is -1 if there is none.
  KORVELBASE_EXPORT static FileState Of(const std::string& path);
};

/// A regular file open for reading at any position, without a buffer.
///
/// Reading is safe from several threads at once.
class KORVELBASE_EXPORT PositionedFile {
 public:
  /// Opens `path`; see `IsOpen`.
  explicit PositionedFile(const std::string& path);
  ~PositionedFile();
  PositionedFile(const PositionedFile&) = delete;
  PositionedFile& operator=(const PositionedFile&) = delete;

  /// False if there is no such file, it can't be read, or it is no regular file.
  bool IsOpen() const { return state_.size >= 0; }

  /// State of the file when it was opened.
  const FileState& GetState() const { return state_; }

  /// Reads `size` bytes from `offset`; false unless all of them are there.
  bool Read(std::int64_t offset, void* bytes, std::size_t size) const;

 private:
  int descriptor_;
  FileState state_;
};

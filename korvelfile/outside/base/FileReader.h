#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "korvelfile/outside/base/Export.h"

/// Reads a file through one buffer, by lines or by bytes.
///
/// Memory stays at the buffer's size, or at the longest line. A failed read of the system sticks:
/// everything after it counts as the end of the file, and `HasFailed` tells.
class KORVELBASE_EXPORT FileReader {
 public:
  /// A line that is longer counts as a failed read, in bytes.
  static constexpr std::size_t kLongestLine = std::size_t{64} << 20U;

  FileReader() = default;
  ~FileReader();
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;

  /// Opens `path`; false if that can't be done, or if it is a directory.
  bool Open(const std::string& path);

  /// Gives the next line without its line feed and the carriage return before that.
  ///
  /// The text stays valid until the next call. A last line without a line feed counts.
  /// @return false at the end of the file
  bool ReadLine(std::string_view& line);

  /// Gives the next run of characters between white space, across lines.
  ///
  /// The text stays valid until the next call.
  /// @return false at the end of the file
  bool ReadWord(std::string_view& word);

  /// Reads up to `size` bytes.
  /// @return how many there were; fewer than `size` only at the end of the file
  std::size_t Read(void* bytes, std::size_t size);

  /// Goes to `offset` bytes from the start; false if that can't be done.
  bool Seek(std::int64_t offset);

  /// Size of the file in bytes, or -1 if it has none.
  std::int64_t Size() const;

  bool HasFailed() const { return hasFailed_; }

 private:
  bool Fill();
  bool SkipWhiteSpace();
  void MakeRoom();

  int descriptor_ = -1;
  bool hasFailed_ = false;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  ///< of the unread bytes in the buffer
  std::size_t end_ = 0;
};

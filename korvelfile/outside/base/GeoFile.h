#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "korvelfile/outside/base/Export.h"

class FileReader;
class FileReplacement;

/// A file open for reading, or being written to replace another. Used through `_FileIO`.
///
/// Destroyed before it is closed, a file being written leaves the old one as it was.
/// One thread at a time.
class KORVELBASE_EXPORT GeoFile {
 public:
  GeoFile();
  ~GeoFile();
  GeoFile(const GeoFile&) = delete;
  GeoFile& operator=(const GeoFile&) = delete;

  /// The next line as by `FileReader::ReadLine`; false at the end or without a file to read.
  bool ReadLine(std::string_view& line);

 private:
  friend class _FileIO;

  std::unique_ptr<FileReader> reader_;
  std::unique_ptr<FileReplacement> writer_;
};

/// All services on files. A path is narrow text, passed to the system as it is.
class KORVELBASE_EXPORT _FileIO {
 public:
  static constexpr int kRead = 0;     ///< open an existing file to read it
  static constexpr int kReplace = 3;  ///< create a file, or replace one when it is closed

  /// Opens `path` in the mode `kRead` or `kReplace`; a file open before is given up.
  ///
  /// @param text carried for the caller's own record; bytes are the same either way
  /// @return 0, or -1 if the file can't be opened so
  static int OpenFile(GeoFile& file, const std::string& path, int mode, bool text);

  /// Reads one line into `buffer`, without its ending and with a terminator.
  ///
  /// @param limit size of `buffer` in bytes, > 0; what doesn't fit of a line is passed over
  /// @return 0, or -1 at the end of the file
  static int ReadALine(GeoFile& file, char* buffer, int limit);

  /// Reads the next number of a text, between white space.
  /// @return 0; -1 at the end of the file, or where something else than a number stands
  static int ReadADouble(GeoFile& file, double& value);

  /// Reads exactly `size` bytes.
  /// @return 0; -2 if the file ends before; -1 if it can't be read
  static int ReadFile(GeoFile& file, void* buffer, std::size_t size);

  /// Adds bytes to the end of a file being written.
  /// @return 0, or -1 after this or an earlier failure
  static int WriteFile(GeoFile& file, const void* bytes, std::size_t size);
  static int WriteFile(GeoFile& file, std::string_view bytes);

  /// True if a write has failed.
  static bool HasFailed(const GeoFile& file);

  /// Goes to `offset` bytes from the start of a file being read; 0 or -1.
  static int SeekFile(GeoFile& file, std::int64_t offset);

  /// Size in bytes of a file being read, or -1.
  static std::int64_t FileSize(const GeoFile& file);

  /// Size in bytes of the file `path`, or -1 if there is none.
  static std::int64_t FileSize(const std::string& path);

  /// True if something stands at `path`.
  static bool Exists(const std::string& path);

  /// Closes a file. What was written takes the place of the old file now.
  /// @return 0; -1 if no file is open, a read or a write has failed, or the new file could not be
  ///   put in place, in which case the old one stays
  static int CloseFile(GeoFile& file);

  /// Gives up a file being written: the old one stays as it was.
  static void AbandonFile(GeoFile& file);

  /// Deletes a file; 0 or -1.
  static int DeleteGeoFile(const std::string& path);

  /// Renames a file, over an existing one too; 0 or -1.
  static int MoveGeoFile(const std::string& from, const std::string& to);

  /// Finds the file or folder that `path` names but for upper and lower case.
  ///
  /// An exact match of a component wins over others.
  /// @param resolved the path as it stands on disk; may be `path` itself
  /// @return 1 if it was found; else 0, with `resolved` unchanged
  static int GetCIFileName(const std::string& path, std::string& resolved);
};

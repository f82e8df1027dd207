/// @file
/// Files of tests: a folder of their own, and whole files as bytes.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <stdlib.h>

/// A folder of its own for the life of a test.
class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "korvelfile-XXXXXX").string();
    if (!mkdtemp(name.data())) ADD_FAILURE() << "no folder " << name;
    path_ = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  /// The path of the file `name` in the folder.
  std::string Path(std::string_view name) const { return (path_ / name).string(); }

  /// What lies in the folder now.
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

 private:
  std::filesystem::path path_;
};

/// All bytes of a file; a failure of the test if it can't be read.
inline std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) ADD_FAILURE() << "can't read " << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteBytes(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) ADD_FAILURE() << "can't write " << path;
}

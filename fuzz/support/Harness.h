/// @file
/// What the fuzz targets share: the input as a file in memory, a walk over what was read, and the
/// check that what is written reads and writes back the same.
///
/// System messages are silent and the identity is fixed in every target.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "korvelfile/outside/base/Text.h"

class DataItemListObject;

namespace fuzz {

/// The input of one run.
inline std::string_view Input(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Path of the file `name` in a folder of this process's own, which goes when the process ends.
std::string PathInMemory(const std::string& name);

void WriteBytes(const std::string& path, std::string_view bytes);
std::string ReadBytes(const std::string& path);

/// Ends the process with `fault` unless `holds`, which counts as a find.
void Require(bool holds, const char* fault);

/// Looks at every item in `list` and below, and copies the whole tree.
void WalkItems(const DataItemListObject& list);

template <class File>
void Choose(File& file, const std::string& path) {
  if constexpr (requires { file.ChooseFile(path.c_str()); }) {
    file.ChooseFile(path.c_str());
  } else {
    file.SetFile(Widen(path));
  }
}

/// What the loaded `file` writes to `path`.
template <class File>
std::string Written(File& file, const std::string& path) {
  Choose(file, path);
  Require(file.AutoSave() == 0, "a loaded file can't be written");
  return ReadBytes(path);
}

/// Writes the loaded `file`, reads that with `again` and writes it again.
///
/// @param path of a file for it, with the extension of the format
/// @param isExact whether the bytes written first are such that they must come again
template <class File, class IsExact>
void CheckRewrite(File& file, File& again, const std::string& path, IsExact isExact) {
  const std::string once = Written(file, path);
  Choose(again, path);
  Require(again.UseCollector() == 0, "a written file can't be read");
  const std::string twice = Written(again, path);
  // The largest double has 15 digits that lie beyond it.
  if (once.find("1.79769313486232e+308") != std::string::npos || !isExact(once)) return;
  Require(once == twice, "a file changes when it is read and written");
}

/// Reads `input` as the file `name` with a collector of the class `File`; hands it to `walk` once
/// what it writes has been checked.
template <class File, class Walk>
void CheckReader(std::string_view input, const std::string& name, Walk walk) {
  const std::string path = PathInMemory(name);
  WriteBytes(path, input);
  File file;
  Choose(file, path);
  if (file.UseCollector() != 0) return;
  WalkItems(file);
  File again;
  CheckRewrite(file, again, path, [](const std::string&) { return true; });
  walk(file);
}

}  // namespace fuzz

#include "tools/korvel/FileFault.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include <unistd.h>

#include "korvelfile/data/DataCollectionInterface.h"
#include "korvelfile/outside/base/Text.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"

namespace fs = std::filesystem;

namespace {

// Why the system won't let us read the file; empty if it does.
std::string OpenFault(const std::string& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) return "is a folder";
  if (access(path.c_str(), R_OK) == 0) return {};
  return std::string("can't be opened: ") + std::strerror(errno);
}

}  // namespace

namespace korvel {

std::string ExtensionOf(const std::string& path) {
  std::string extension = fs::path(path).extension().string();
  for (char& c : extension) c = LowerCase(c);
  return extension;
}

void RequireExtension(const std::string& path, const std::vector<std::string>& extensions) {
  if (path.empty()) return;
  const std::string extension = ExtensionOf(path);
  if (std::find(extensions.begin(), extensions.end(), extension) != extensions.end()) return;
  std::string wanted;
  for (const std::string& e : extensions) wanted += ' ' + e;
  throw InputError(path + ": unknown extension; there are" + wanted);
}

void RequireReadable(const std::string& path) {
  const std::string fault = OpenFault(path);
  if (!fault.empty()) throw InputError(path + ": " + fault);
}

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  if (fs::equivalent(a, b, error)) return true;
  const fs::path place = fs::weakly_canonical(a, error);
  return !error && place == fs::weakly_canonical(b, error);
}

std::string DescribeReadFault(const std::string& path, const DataCollectionInterface& file,
                              const std::string& kind, const LibraryMessages& messages) {
  const std::string fault = OpenFault(path);
  if (!fault.empty()) return path + ": " + fault;
  const std::string line =
      file.GetFaultLine() > 0 ? ':' + std::to_string(file.GetFaultLine()) : std::string();
  return path + line + ": can't be read as " + kind + messages.Explanation(path);
}

}  // namespace korvel

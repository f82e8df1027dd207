#include "tools/korvel/WorkFolder.h"

#include <cstdlib>
#include <filesystem>

#include "tools/korvel/InputError.h"

namespace fs = std::filesystem;

namespace korvel {

WorkFolder::WorkFolder(const std::string& target) {
  std::error_code error;
  const fs::path place = fs::weakly_canonical(target, error);
  target_ = error ? target : place.string();
  path_ = (fs::path(target_).parent_path() / ".korvel-XXXXXX").string();
  if (!mkdtemp(path_.data())) throw InputError(target + ": can't be written in its folder");
}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string WorkFolder::Path(const std::string& name) const {
  return (fs::path(path_) / name).string();
}

std::string WorkFolder::Link(const std::string& source, const std::string& name) const {
  std::error_code error;
  fs::create_symlink(fs::absolute(source), Path(name), error);
  if (error) throw InputError(Path(name) + ": can't be made: " + error.message());
  return Path(name);
}

void WorkFolder::MoveToTarget(const std::string& name) const {
  std::error_code error;
  if (fs::exists(target_, error) && !fs::is_regular_file(target_, error))
    throw InputError(target_ + ": can't be written: is no regular file");
  fs::rename(Path(name), target_, error);
  if (error) throw InputError(target_ + ": can't be written: " + error.message());
}

}  // namespace korvel

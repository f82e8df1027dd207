#include "korvelfile/outside/base/FileReplacement.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = std::size_t{256} << 10U;
constexpr int kMostLinks = 40;          // as the kernel follows them
constexpr std::size_t kNameRoom = 200;  // of the old name within the temporary one

// Where `path` leads once its last component's links are followed, existing or not.
std::string FollowLinks(const std::string& path) {
  fs::path target = path;
  std::error_code error;
  for (int i = 0; i < kMostLinks && fs::is_symlink(fs::symlink_status(target, error)); ++i) {
    const fs::path next = fs::read_symlink(target, error);
    target = next.is_absolute() ? next : target.parent_path() / next;
  }
  return target.string();
}

std::string DirectoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// Hidden, and unique among the processes and objects that may write beside each other.
std::string TemporaryName(const std::string& target) {
  static std::atomic<unsigned> counter{0};
  const std::size_t slash = target.rfind('/');
  const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
  return target.substr(0, nameStart) + '.' + target.substr(nameStart, kNameRoom) + '.' +
         std::to_string(getpid()) + '-' + std::to_string(counter++) + ".tmp";
}

// Some file systems can't sync a directory, and say so; that is no failure of the file.
bool SyncDirectory(const std::string& directory) {
  const int descriptor = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return errno == EACCES;
  const bool synced = fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
  close(descriptor);
  return synced;
}

void TakeOver(int descriptor, const struct stat& old) {
  const bool owned = fchown(descriptor, old.st_uid, old.st_gid) == 0;
  // Without the owner's right the set-id bits would pass to somebody else.
  fchmod(descriptor, old.st_mode & (owned ? 07777U : 0777U));
}

}  // namespace

FileReplacement::~FileReplacement() {
  if (descriptor_ >= 0) close(descriptor_);
  if (!temporary_.empty()) unlink(temporary_.c_str());
}

bool FileReplacement::OpenTemporary(int permissions) {
  do {
    temporary_ = TemporaryName(target_);
    descriptor_ = open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
  } while (descriptor_ < 0 && errno == EEXIST);
  if (descriptor_ < 0) temporary_.clear();
  return descriptor_ >= 0;
}

bool FileReplacement::OpenDirectly(const std::string& path) {
  descriptor_ = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  return descriptor_ >= 0;
}

// What stands at the path is asked for before its links are followed: a link in /proc may lead to
// a pipe, which has no name to follow it to.
bool FileReplacement::Open(const std::string& path) {
  buffer_.reserve(kBufferSize);
  struct stat old {};
  const bool exists = stat(path.c_str(), &old) == 0;
  if (path.empty() || (!exists && errno != ENOENT)) return false;
  if (exists && S_ISDIR(old.st_mode)) return false;
  if (exists && !S_ISREG(old.st_mode)) return OpenDirectly(path);
  target_ = FollowLinks(path);
  if (!exists) return OpenTemporary(0666);
  if (faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) return false;
  if (!OpenTemporary(0600)) return false;
  TakeOver(descriptor_, old);
  return true;
}

bool FileReplacement::WriteOut(const char* bytes, std::size_t size) {
  while (size > 0 && !hasFailed_) {
    const ssize_t count = write(descriptor_, bytes, size);
    if (count < 0 && errno == EINTR) continue;
    hasFailed_ = count <= 0;
    if (hasFailed_) break;
    bytes += count;
    size -= static_cast<std::size_t>(count);
  }
  return !hasFailed_;
}

bool FileReplacement::Flush() {
  const bool written = WriteOut(buffer_.data(), buffer_.size());
  buffer_.clear();
  return written;
}

bool FileReplacement::Write(const void* bytes, std::size_t size) {
  if (hasFailed_) return false;
  if (buffer_.size() + size > kBufferSize && !Flush()) return false;
  const auto* first = static_cast<const char*>(bytes);
  if (size > kBufferSize) return WriteOut(first, size);
  buffer_.insert(buffer_.end(), first, first + size);
  return true;
}

bool FileReplacement::CloseDescriptor() {
  const int descriptor = descriptor_;
  descriptor_ = -1;
  return close(descriptor) == 0;
}

bool FileReplacement::MoveIntoPlace() {
  if (rename(temporary_.c_str(), target_.c_str()) != 0) return false;
  temporary_.clear();
  return SyncDirectory(DirectoryOf(target_));
}

bool FileReplacement::Commit() {
  if (descriptor_ < 0 || !Flush()) return false;
  if (temporary_.empty()) return CloseDescriptor();
  if (fsync(descriptor_) != 0) return false;
  return CloseDescriptor() && MoveIntoPlace();
}

#include "korvelfile/outside/base/PositionedFile.h"

#include <cerrno>
#include <chrono>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr double kSettlingTime = 0.05;  // seconds

// Stamps may lie as far off as a file system can tell, beyond what a count of nanoseconds holds.
double SecondsSince(const FileTime& time) {
  const std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
  return now.count() - static_cast<double>(time.seconds) -
         1e-9 * static_cast<double>(time.nanoseconds);
}

FileTime TimeFrom(const timespec& time) { return {time.tv_sec, time.tv_nsec}; }

FileState StateFrom(const struct stat& status) {
  if (!S_ISREG(status.st_mode)) return {};
  return {status.st_dev, status.st_ino, status.st_size, TimeFrom(status.st_mtim),
          TimeFrom(status.st_ctim)};
}

}  // namespace

bool FileState::IsSettled() const {
  return SecondsSince(modified) >= kSettlingTime && SecondsSince(changed) >= kSettlingTime;
}

FileState FileState::Of(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? StateFrom(status) : FileState{};
}

// Opening must not wait for the other end of a pipe.
PositionedFile::PositionedFile(const std::string& path)
    : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
  struct stat status {};
  if (descriptor_ >= 0 && fstat(descriptor_, &status) == 0) state_ = StateFrom(status);
}

PositionedFile::~PositionedFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool PositionedFile::Read(std::int64_t offset, void* bytes, std::size_t size) const {
  auto* out = static_cast<char*>(bytes);
  while (size > 0) {
    const ssize_t count = pread(descriptor_, out, size, offset);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    out += count;
    offset += count;
    size -= static_cast<std::size_t>(count);
  }
  return true;
}

#include "korvelfile/outside/base/FileReader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "korvelfile/outside/base/Text.h"

namespace {

constexpr std::size_t kBufferSize = std::size_t{256} << 10U;

ssize_t ReadThroughInterrupts(int descriptor, char* bytes, std::size_t size) {
  ssize_t count;
  do {
    count = read(descriptor, bytes, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

}  // namespace

FileReader::~FileReader() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool FileReader::Open(const std::string& path) {
  descriptor_ = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  return descriptor_ >= 0 && fstat(descriptor_, &status) == 0 && !S_ISDIR(status.st_mode);
}

bool FileReader::ReadLine(std::string_view& line) {
  std::size_t searched = 0;
  for (;;) {
    const std::size_t available = end_ - begin_;
    const char* start = buffer_.data() + begin_;
    const void* feed =
        available > searched ? std::memchr(start + searched, '\n', available - searched) : nullptr;
    if (feed) {
      const auto length = static_cast<std::size_t>(static_cast<const char*>(feed) - start);
      line = {start, length};
      begin_ += length + 1;
      break;
    }
    searched = available;
    if (Fill()) continue;
    if (available == 0 || hasFailed_) return false;
    line = {buffer_.data() + begin_, available};
    begin_ = end_;
    break;
  }
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return true;
}

bool FileReader::SkipWhiteSpace() {
  do {
    while (begin_ < end_ && IsWhiteSpace(buffer_[begin_])) ++begin_;
  } while (begin_ == end_ && Fill());
  return begin_ < end_;
}

bool FileReader::ReadWord(std::string_view& word) {
  if (!SkipWhiteSpace()) return false;
  std::size_t length = 0;
  do {
    while (begin_ + length < end_ && !IsWhiteSpace(buffer_[begin_ + length])) ++length;
  } while (begin_ + length == end_ && Fill());
  if (hasFailed_) return false;
  word = {buffer_.data() + begin_, length};
  begin_ += length;
  return true;
}

std::size_t FileReader::Read(void* bytes, std::size_t size) {
  auto* out = static_cast<char*>(bytes);
  std::size_t done = 0;
  while (done < size) {
    if (begin_ == end_ && !Fill()) break;
    const std::size_t part = std::min(size - done, end_ - begin_);
    std::memcpy(out + done, buffer_.data() + begin_, part);
    begin_ += part;
    done += part;
  }
  return done;
}

bool FileReader::Seek(std::int64_t offset) {
  begin_ = end_ = 0;
  return offset >= 0 && lseek(descriptor_, offset, SEEK_SET) == offset;
}

std::int64_t FileReader::Size() const {
  struct stat status {};
  return fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

void FileReader::MakeRoom() {
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
  }
  if (end_ == buffer_.size()) buffer_.resize(std::max(kBufferSize, 2 * buffer_.size()));
}

// Adds bytes behind the unread ones; false if there are none to be had.
bool FileReader::Fill() {
  if (hasFailed_) return false;
  if (end_ - begin_ >= kLongestLine) {
    hasFailed_ = true;
    return false;
  }
  MakeRoom();
  const ssize_t count =
      ReadThroughInterrupts(descriptor_, buffer_.data() + end_, buffer_.size() - end_);
  hasFailed_ = count < 0;
  if (count <= 0) return false;
  end_ += static_cast<std::size_t>(count);
  return true;
}

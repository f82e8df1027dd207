#include "korvelfile/outside/base/GeoFile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "korvelfile/outside/base/FileReader.h"
#include "korvelfile/outside/base/FileReplacement.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Text.h"

namespace fs = std::filesystem;

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = -1;
constexpr int kEndWithin = -2;

int Result(bool success) { return success ? kSuccess : kFailure; }

// The entry of `folder` that `name` means; empty if there is none.
fs::path FindEntry(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return folder / name;
  fs::directory_iterator entry(folder.empty() ? "." : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const fs::path found = entry->path().filename();
    if (EqualNoCase(found.native(), name.native())) return folder / found;
  }
  return {};
}

}  // namespace

GeoFile::GeoFile() = default;
GeoFile::~GeoFile() = default;

bool GeoFile::ReadLine(std::string_view& line) { return reader_ && reader_->ReadLine(line); }

int _FileIO::OpenFile(GeoFile& file, const std::string& path, int mode, bool /*text*/) {
  AbandonFile(file);
  if (mode == kRead) {
    auto reader = std::make_unique<FileReader>();
    if (!reader->Open(path)) return kFailure;
    file.reader_ = std::move(reader);
    return kSuccess;
  }
  auto writer = std::make_unique<FileReplacement>();
  if (mode != kReplace || !writer->Open(path)) return kFailure;
  file.writer_ = std::move(writer);
  return kSuccess;
}

int _FileIO::ReadALine(GeoFile& file, char* buffer, int limit) {
  std::string_view line;
  if (limit <= 0 || !file.ReadLine(line)) return kFailure;
  const std::size_t length = line.copy(buffer, static_cast<std::size_t>(limit) - 1);
  buffer[length] = '\0';
  return kSuccess;
}

int _FileIO::ReadADouble(GeoFile& file, double& value) {
  std::string_view word;
  if (!file.reader_ || !file.reader_->ReadWord(word)) return kFailure;
  const double number = TakeDouble(word);
  if (!word.empty()) return kFailure;
  value = number;
  return kSuccess;
}

int _FileIO::ReadFile(GeoFile& file, void* buffer, std::size_t size) {
  if (!file.reader_) return kFailure;
  if (file.reader_->Read(buffer, size) == size) return kSuccess;
  return file.reader_->HasFailed() ? kFailure : kEndWithin;
}

int _FileIO::WriteFile(GeoFile& file, const void* bytes, std::size_t size) {
  return Result(file.writer_ && file.writer_->Write(bytes, size));
}

int _FileIO::WriteFile(GeoFile& file, std::string_view bytes) {
  return WriteFile(file, bytes.data(), bytes.size());
}

bool _FileIO::HasFailed(const GeoFile& file) { return file.writer_ && file.writer_->HasFailed(); }

int _FileIO::SeekFile(GeoFile& file, std::int64_t offset) {
  return Result(file.reader_ && file.reader_->Seek(offset));
}

std::int64_t _FileIO::FileSize(const GeoFile& file) {
  return file.reader_ ? file.reader_->Size() : kFailure;
}

std::int64_t _FileIO::FileSize(const std::string& path) {
  std::error_code error;
  const auto size = fs::file_size(path, error);
  return error ? kFailure : static_cast<std::int64_t>(size);
}

bool _FileIO::Exists(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

int _FileIO::CloseFile(GeoFile& file) {
  const bool success =
      (file.reader_ && !file.reader_->HasFailed()) || (file.writer_ && file.writer_->Commit());
  AbandonFile(file);
  return Result(success);
}

void _FileIO::AbandonFile(GeoFile& file) {
  file.reader_.reset();
  file.writer_.reset();
}

int _FileIO::DeleteGeoFile(const std::string& path) {
  std::error_code error;
  return Result(fs::remove(path, error) && !error);
}

int _FileIO::MoveGeoFile(const std::string& from, const std::string& to) {
  return Result(std::rename(from.c_str(), to.c_str()) == 0);
}

int _FileIO::GetCIFileName(const std::string& path, std::string& resolved) {
  const fs::path wanted = path;
  fs::path found = wanted.root_path();
  for (const fs::path& component : wanted.relative_path()) {
    found = FindEntry(found, component);
    if (found.empty()) return 0;
  }
  if (found.empty()) return 0;
  resolved = found.string();
  return 1;
}

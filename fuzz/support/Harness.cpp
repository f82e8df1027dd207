#include "fuzz/support/Harness.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include <unistd.h>

#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/outside/base/Ghal.h"

namespace fs = std::filesystem;

namespace {

class MemoryFolder {
 public:
  MemoryFolder() : path_(Parent() / ("korvelfile-fuzz-" + std::to_string(getpid()))) {
    fs::create_directories(path_);
  }
  ~MemoryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  MemoryFolder(const MemoryFolder&) = delete;
  MemoryFolder& operator=(const MemoryFolder&) = delete;

  const fs::path& Path() const { return path_; }

 private:
  static fs::path Parent() {
    return fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
  }

  fs::path path_;
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  _GHAL::SetMessageSink([](Korvel::LogLevel, std::string_view) {});
  _GHAL::SetIdentity({L"Fuzz", L"1.0", L"4711", L"Surveyor", L"Company"});
  return 0;
}

namespace fuzz {

std::string PathInMemory(const std::string& name) {
  static const MemoryFolder folder;
  return folder.Path() / name;
}

void WriteBytes(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadBytes(const std::string& path) {
  std::string bytes(fs::file_size(path), '\0');
  std::ifstream(path, std::ios::binary)
      .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

void Require(bool holds, const char* fault) {
  if (holds) return;
  std::fprintf(stderr, "fault: %s\n", fault);
  std::abort();
}

void WalkItems(const DataItemListObject& list) {
  for (const DataItemInterface& item : list) {
    const std::unique_ptr<DataItemInterface> copy(item.CreateCopy());
    Require(copy->GetName() == item.GetName(), "a copy has another name");
    const DataItemListObject* children = copy->GetItemListObject();
    if (children) WalkItems(*children);
  }
}

}  // namespace fuzz

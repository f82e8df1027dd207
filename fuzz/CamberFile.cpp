// Reads a `.skv` file, and writes and reads it again.
// Seeds: fuzz/seeds/skv

#include <string>

#include "fuzz/support/Harness.h"
#include "korvelfile/alignments/SkvFile.h"

namespace {

std::string Saved(SkvFile& file, const std::string& path) {
  fuzz::Require(file.Save(path.c_str()) == 0, "a camber file can't be written");
  return fuzz::ReadBytes(path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kRecord = 77;
  const std::string path = fuzz::PathInMemory("road.skv");
  fuzz::WriteBytes(path, fuzz::Input(data, size));
  SkvFile file;
  const bool isWhole = file.Open(path.c_str()) == 0;
  fuzz::Require(isWhole == (size >= 2 * kRecord), "headers miscounted");
  int count = 0;
  file.GetTotalElements(count);
  const std::size_t records = static_cast<std::size_t>(count) + 2;
  fuzz::Require(!isWhole || records == size / kRecord, "elements miscounted");
  const std::string once = Saved(file, path);
  if (once.size() != records * kRecord) return 0;
  SkvFile again;
  fuzz::Require(again.Open(path.c_str()) == 0, "a written camber file can't be read");
  fuzz::Require(Saved(again, path).size() == once.size(), "elements got lost");
  return 0;
}

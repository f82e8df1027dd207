// Reads a levelling file and writes it back.
// Seeds: fuzz/seeds/lvt tests/golden/lvt

#include "fuzz/support/Harness.h"
#include "korvelfile/measurements/LevFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::CheckReader<LevFile>(fuzz::Input(data, size), "job.lvt", [](LevFile&) {});
  return 0;
}

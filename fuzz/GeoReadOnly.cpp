// Reads `.geo` into the compact store.
// Seeds: fuzz/seeds/geo tests/golden/geo

#include "fuzz/support/Points.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::CheckStoreReader(fuzz::Input(data, size), "job.geo");
  return 0;
}

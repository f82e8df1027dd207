// Reads fixed columns as `.pxy` and as `.tun` into the compact store.
// Seeds: fuzz/seeds/pxy tests/golden/pxy

#include "fuzz/support/Points.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::CheckStoreReader(fuzz::Input(data, size), "job.pxy");
  fuzz::CheckStoreReader(fuzz::Input(data, size), "job.tun");
  return 0;
}

// Reads fixed columns as `.pxy` and as `.tun` into the compact store.
// Seeds: fuzz/seeds/pxy tests/golden/pxy

#include <algorithm>

#include "fuzz/support/Points.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = fuzz::Input(data, std::min(size, fuzz::kEnoughColumns));
  fuzz::CheckStoreReader(input, "job.pxy");
  fuzz::CheckStoreReader(input, "job.tun");
  return 0;
}

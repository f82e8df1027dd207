// Reads fixed columns as `.pxy` and as `.tun` and writes them back.
// Seeds: fuzz/seeds/pxy tests/golden/pxy

#include <algorithm>

#include "fuzz/support/Points.h"

namespace {

constexpr std::size_t kLineSize = 77;

// "...": its own line name, and so written with one more point each time.
bool NamesDotsOnly(std::string_view line) {
  const std::size_t end = line.find_first_not_of('.');
  return end > 0 && line[end] == ' ';
}

// A number wider than its column moves what follows it.
bool IsRegular(const std::string& bytes) {
  const std::string_view rest = bytes;
  for (std::size_t begin = 0; begin < bytes.size(); begin += kLineSize) {
    const std::string_view line = rest.substr(begin, kLineSize);
    if (line.size() < kLineSize || line.back() != '\n' || NamesDotsOnly(line)) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = fuzz::Input(data, std::min(size, fuzz::kEnoughColumns));
  fuzz::CheckPointReader(input, "job.pxy", IsRegular);
  fuzz::CheckPointReader(input, "job.tun", IsRegular);
  return 0;
}

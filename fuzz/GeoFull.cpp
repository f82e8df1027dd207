// Reads `.geo` and writes it back.
// Seeds: fuzz/seeds/geo tests/golden/geo

#include "fuzz/support/Points.h"

namespace {

// Each reading turns one more comma of the remark of a radius ("R") or a "C" into a point.
bool IsSettled(const std::string& bytes) {
  for (const char* code : {",\"R\",\"", ",\"C\",\""}) {
    std::size_t remark = bytes.find(code);
    for (; remark != std::string::npos; remark = bytes.find(code, remark + 1)) {
      if (bytes.find(',', remark + 5) < bytes.find('\n', remark)) return false;
    }
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::CheckPointReader(fuzz::Input(data, size), "job.geo", IsSettled);
  return 0;
}

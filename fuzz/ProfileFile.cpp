// Reads a `.prf` file, checks and corrects it, and writes and reads it again.
// Seeds: fuzz/seeds/prf

#include <cmath>
#include <string>
#include <vector>

#include "fuzz/support/Harness.h"
#include "korvelfile/alignments/PrfFile.h"

namespace {

int Count(const PrfFile& file) {
  int count = 0;
  file.GetTotalElements(count);
  return count;
}

std::string Saved(PrfFile& file, const std::string& path) {
  fuzz::Require(file.Save(path.c_str()) == 0, "a profile can't be written");
  return fuzz::ReadBytes(path);
}

void CheckReport(PrfFile& file) {
  std::vector<TPrfCtrl> report;
  file.PrfDataCheck(report);
  for (const TPrfCtrl& line : report) {
    fuzz::Require(std::isfinite(line.GetElement().GetSlope()), "a slope that is no number");
    fuzz::Require(line.GetElement().GetLength() >= 0.0, "a length that is none");
  }
  file.PrfDataCorrect(report);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::PathInMemory("road.prf");
  fuzz::WriteBytes(path, fuzz::Input(data, size));
  PrfFile file;
  const bool isWhole = file.Open(path.c_str()) == 0;
  const auto count = static_cast<std::size_t>(Count(file));
  fuzz::Require(count <= size / 128, "elements out of nothing");
  const std::string once = Saved(file, path);
  PrfFile again(file);
  if (isWhole && once.size() == 128 * (count + 1)) {
    again.Delete();
    fuzz::Require(again.Open(path.c_str()) == 0, "a written profile can't be read");
    fuzz::Require(Saved(again, path) == once, "a profile changes when it is read and written");
  }
  CheckReport(file);
  Saved(file, path);
  return 0;
}

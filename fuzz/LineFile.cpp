// Reads a `.lin` file, checks and corrects it, asks for the ends of its elements, and writes and
// reads it again.
// Seeds: fuzz/seeds/lin

#include <cmath>
#include <string>
#include <vector>

#include "fuzz/support/Harness.h"
#include "korvelfile/alignments/LinFile.h"

namespace {

bool IsFinite(const Vector& v) { return std::isfinite(v.x) && std::isfinite(v.y); }

void CheckEnds(LinFile& file) {
  for (std::size_t i = 0; i < file.GetTotalElements(); ++i) {
    const auto element = file.GetElement(i);
    const Vector end = file.FindEndPosOfElement(static_cast<int>(i));
    if (IsFinite({element->GetX(), element->GetY()}))
      fuzz::Require(IsFinite(end), "an end that is no point");
  }
}

// What is computed is finite unless the start of the road has no chainage.
void CheckReport(LinFile& file) {
  std::vector<TLinCtrl> report;
  file.LinDataCheck(report);
  for (const TLinCtrl& line : report) {
    const TLin& element = line.GetElement();
    const bool isClosing = line.GetPos() + 1 == static_cast<int>(file.GetTotalElements());
    fuzz::Require(std::isfinite(element.GetBearing()), "a computed bearing that is no number");
    fuzz::Require(isClosing || std::isfinite(element.GetLength()), "a length that is no number");
  }
  file.LinDataCorrect(report);
}

std::string Saved(LinFile& file, const std::string& path) {
  fuzz::Require(file.Save(path.c_str()) == 0, "a line file can't be written");
  return fuzz::ReadBytes(path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::PathInMemory("road.lin");
  fuzz::WriteBytes(path, fuzz::Input(data, size));
  LinFile file;
  const bool isWhole = file.Open(path.c_str()) == 0;
  fuzz::Require(file.GetTotalElements() <= size / 100 + 1, "elements out of nothing");
  const std::string once = Saved(file, path);
  LinFile again;
  if (isWhole && once.size() == 128 * (file.GetTotalElements() + 1)) {
    fuzz::Require(again.Open(path.c_str()) == 0, "a written line file can't be read");
    fuzz::Require(again.GetTotalElements() == file.GetTotalElements(), "elements got lost");
  }
  CheckEnds(file);
  CheckReport(file);
  CheckEnds(file);
  Saved(file, path);
  return 0;
}

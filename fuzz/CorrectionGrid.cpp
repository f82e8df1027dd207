// Reads a correction grid, asks it for corrections with every method, forwards and inverse, and
// widens it.
// Seeds: fuzz/seeds/ccg tests/golden/ccg

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "fuzz/support/Harness.h"
#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/corrections/CcgInputGrid.h"

namespace {

constexpr std::size_t kTypePlace = 31;
constexpr std::size_t kPlanePlace = 32;
constexpr int kLinesAsked = 7;

bool IsFinite(const Vector3d& v) {
  return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

void Ask(const CcgFile& file, double north, double east) {
  Vector3d correction;
  if (file.GetCorrections(north, east, correction)) {
    fuzz::Require(IsFinite(correction), "a correction is not finite");
  }
  if (file.GetInverseCorrections(north, east, correction)) {
    fuzz::Require(IsFinite(correction), "an inverse correction is not finite");
  }
}

// Places on the limits, on nodes, between them and beyond.
void AskEverywhere(const CcgFile& file) {
  const CcgFileInfo& info = file.GetFileInfo();
  for (int i = -1; i <= kLinesAsked; ++i) {
    for (int j = -1; j <= kLinesAsked; ++j) {
      Ask(file, info.northMax - i * 0.7 * info.northSpacing,
          info.eastMin + j * 0.7 * info.eastSpacing);
      Ask(file, info.GetNorthFromRow(i), info.GetEastFromCol(j));
      Ask(file, info.northMin + i * info.northSpacing, info.eastMax - j * info.eastSpacing);
    }
  }
  for (const double odd : {std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300, 0.0}) {
    Ask(file, odd, info.eastMin);
    Ask(file, info.northMax, odd);
  }
}

// Copies a part of the grid to the inside and beyond its limits.
void Update(const CcgFile& opened, double linesNorth) {
  CcgFileInfo part = opened.GetFileInfo();
  part.rows = std::min(part.rows, 3);
  part.columns = std::min(part.columns, 2);
  part.northMax += linesNorth * part.northSpacing;
  part.northMin = part.northMax - (part.rows - 1.0) * part.northSpacing;
  part.eastMax = part.eastMin + (part.columns - 1.0) * part.eastSpacing;
  CcgInputGrid grid(part);
  std::fill(grid.residuals.begin(), grid.residuals.end(), 0.5F);
  CcgFile file;
  if (file.CreateOrUpdateFile(grid) != GeoSuccess) return;
  const int rows = file.GetFileInfo().rows;
  fuzz::Require(file.OpenFile(Widen(part.fileName)), "a widened grid can't be opened");
  fuzz::Require(file.GetFileInfo().rows == rows, "a widened grid has other rows");
  AskEverywhere(file);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::PathInMemory("grid.ccg");
  std::string bytes(fuzz::Input(data, size));
  fuzz::WriteBytes(path, bytes);
  CcgFile file;
  if (!file.OpenFile(Widen(path)) || size <= kPlanePlace) return 0;
  AskEverywhere(file);
  for (char method = 1; method <= 4; ++method) {
    bytes[kPlanePlace] = method;
    bytes[kTypePlace] = static_cast<char>((bytes[kTypePlace] + 1) & 7);
    fuzz::WriteBytes(path, bytes);
    if (file.OpenFile(Widen(path))) AskEverywhere(file);
  }
  Update(file, -1.0);
  Update(file, 3.6);
  return 0;
}

// Opens a `.grd` file and asks for heights: on and around its limits, within, and where the last
// bytes of the input say.
// Seeds: fuzz/seeds/grd

#include <cmath>
#include <cstddef>

#include "fuzz/support/Harness.h"
#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/outside/base/Types.h"

namespace {

constexpr std::size_t kLimits = 4;  // offsets of the four limits, in bytes
constexpr double kRadiansPerDegree = 0.017453292519943295;

double NumberAt(const std::uint8_t* data, std::size_t index) {
  return _Types::LittleEndianBytesToDouble(data + kLimits + 8 * index);
}

void Ask(GrdFile& grid, double east, double north) {
  double height = 0.0;
  if (grid.GetHeight(east, north, &height))
    fuzz::Require(std::isfinite(height), "a height that is no number");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = fuzz::PathInMemory("grid.grd");
  fuzz::WriteBytes(path, fuzz::Input(data, size));
  GrdFile grid;
  if (!grid.OpenFile(path.c_str()) || size < 64) return 0;
  const double unit = grid.GetCoordType() == GrdFile::kGeographic ? kRadiansPerDegree : 1.0;
  const double south = NumberAt(data, 0) * unit;
  const double north = NumberAt(data, 1) * unit;
  const double west = NumberAt(data, 2) * unit;
  const double east = NumberAt(data, 3) * unit;
  for (const double v : {0.0, 1e-9, 0.3, 0.77, 1.0, 1.0001}) {
    for (const double u : {0.0, 1e-9, 0.2, 0.51, 1.0, -0.1})
      Ask(grid, west + u * (east - west), south + v * (north - south));
  }
  if (size >= 80)
    Ask(grid, _Types::LittleEndianBytesToDouble(data + size - 16),
        _Types::LittleEndianBytesToDouble(data + size - 8));
  return 0;
}

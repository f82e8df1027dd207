#include "tools/korvel/corrections/BynSource.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>

#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/corrections/internal/BynHeader.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"

namespace {

using korvel::InputError;

constexpr std::int64_t kMostPairs = 1000000;  // of neighbours, more than enough to tell
constexpr double kMuchRougher = 4.0;          // real surfaces differ by a factor of hundreds

[[noreturn]] void Fail(const std::string& path, const std::string& what) {
  throw InputError(path + ": " + what);
}

BynHeader ReadHeader(const std::string& path, GeoFile& file) {
  BynHeader::Bytes bytes{};
  if (_FileIO::OpenFile(file, path, _FileIO::kRead, false) != 0 ||
      _FileIO::ReadFile(file, bytes.data(), bytes.size()) != 0)
    Fail(path, "is no BYN file: it ends within its header");
  return BynHeader(bytes);
}

double Count(double least, double most, double spacing) {
  return spacing > 0.0 && most >= least ? std::floor((most - least) / spacing + 1.5) : 0.0;
}

void CheckHeader(const std::string& path, const BynHeader& header) {
  if (header.valueSize != 2 && header.valueSize != 4)
    Fail(path, "has heights of " + std::to_string(header.valueSize) + " bytes; there are 2 and 4");
  if (!std::isfinite(header.factor) || header.factor == 0.0)
    Fail(path, "has no usable factor of its heights");
  const GrdHeader& grid = header.grid;
  const double nodes = Count(grid.south, grid.north, grid.rowSpacing) *
                       Count(grid.west, grid.east, grid.columnSpacing);
  if (nodes < 1.0) Fail(path, "has limits and spacings that make no grid");
  const std::int64_t bytes = _FileIO::FileSize(path) - static_cast<std::int64_t>(BynHeader::kSize);
  if (nodes * header.valueSize != static_cast<double>(bytes))
    Fail(path, "holds " + std::to_string(bytes / header.valueSize) +
                   " heights; its limits and spacings make " +
                   std::to_string(static_cast<std::int64_t>(nodes)));
}

std::int32_t ValueOf(std::array<unsigned char, 4> bytes, int size, std::endian order) {
  if (order == std::endian::big) std::reverse(bytes.begin(), bytes.begin() + size);
  return size == 2 ? _Types::LittleEndianBytesToInt16(bytes.data())
                   : _Types::LittleEndianBytesToInt32(bytes.data());
}

// Sums of the differences between heights that stand beside each other, for both orders of bytes.
struct Roughness {
  double little = 0.0;
  double big = 0.0;

  double Of(std::endian order) const { return order == std::endian::little ? little : big; }
};

Roughness MeasureRoughness(GeoFile& file, int size) {
  Roughness sums;
  std::array<unsigned char, 4> before{};
  std::array<unsigned char, 4> value{};
  for (std::int64_t i = 0; i <= kMostPairs; ++i) {
    if (_FileIO::ReadFile(file, value.data(), static_cast<std::size_t>(size)) != 0) break;
    const auto difference = [&](std::endian order) {
      return std::fabs(static_cast<double>(ValueOf(value, size, order)) -
                       ValueOf(before, size, order));
    };
    if (i > 0) sums.little += difference(std::endian::little);
    if (i > 0) sums.big += difference(std::endian::big);
    before = value;
  }
  return sums;
}

}  // namespace

std::endian korvel::CheckByn(const std::string& path) {
  RequireReadable(path);
  GeoFile file;
  const BynHeader header = ReadHeader(path, file);
  CheckHeader(path, header);
  const std::optional<std::endian> order = GrdFile::BynHeightOrder(path.c_str());
  if (!order) Fail(path, "doesn't tell the order of bytes of its heights");
  const Roughness roughness = MeasureRoughness(file, header.valueSize);
  const auto other = *order == std::endian::big ? std::endian::little : std::endian::big;
  if (roughness.Of(*order) > kMuchRougher * roughness.Of(other))
    Fail(path, "tells a wrong order of bytes: its heights make a surface in the other order only");
  return *order;
}

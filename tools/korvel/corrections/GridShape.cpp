#include "tools/korvel/corrections/GridShape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Types.h"
#include "tools/korvel/InputError.h"

namespace {

using korvel::GridShape;
using korvel::InputError;

constexpr int kFloatSize = 4;
constexpr float kMissing = 9998.0F;  // and above: a node without a value

// Nodes along an axis; 0 if that makes no sense.
int CountOf(double least, double most, double spacing) {
  const double count = (most - least) / spacing + 1.5;
  return spacing > 0.0 && count >= 1.0 && count < std::numeric_limits<int>::max()
             ? static_cast<int>(count)
             : 0;
}

// The header of a geoid grid: a magic, then south, north, west, east, spacing of rows and columns.
GridShape ReadGrdShape(const std::string& path) {
  constexpr std::size_t kMagicSize = 4;
  constexpr std::int64_t kHeaderSize = 64;
  constexpr int kPaddedTo = 16;  // columns
  std::array<unsigned char, kHeaderSize> bytes{};
  GeoFile file;
  if (_FileIO::OpenFile(file, path, _FileIO::kRead, false) != 0 ||
      _FileIO::ReadFile(file, bytes.data(), bytes.size()) != 0)
    throw InputError(path + ": ends within its header");
  GridShape shape;
  shape.path = path;
  shape.isGeographic = _Types::LittleEndianBytesToUInt32(bytes.data()) == GrdFile::kGeographicMagic;
  std::array<double, 6> n{};
  for (std::size_t i = 0; i < n.size(); ++i)
    n[i] = _Types::LittleEndianBytesToDouble(&bytes[kMagicSize + i * sizeof(double)]) *
           (shape.isGeographic ? kRadiansPerDegree : 1.0);
  shape.northMax = n[1];
  shape.eastMin = n[2];
  shape.northSpacing = n[4];
  shape.eastSpacing = n[5];
  shape.rows = CountOf(n[0], n[1], n[4]);
  shape.columns = CountOf(n[2], n[3], n[5]);
  shape.values = 1;
  shape.start = kHeaderSize;
  shape.stride = (std::int64_t{shape.columns} + kPaddedTo - 1) / kPaddedTo * kPaddedTo * kFloatSize;
  return shape;
}

bool IsUsable(const GridShape& shape) {
  return shape.rows > 0 && shape.columns > 0 && shape.values > 0 && shape.northSpacing > 0.0 &&
         shape.eastSpacing > 0.0 && std::isfinite(shape.northMax) && std::isfinite(shape.eastMin);
}

GridShape ReadShape(const std::string& path) {
  if (korvel::FindModelKind(path) == korvel::ModelKind::GeoidGrid) return ReadGrdShape(path);
  CcgFile file;
  if (!file.OpenFile(Widen(path))) throw InputError(path + ": can't be read as a correction grid");
  return korvel::ShapeOf(file.GetFileInfo());
}

std::vector<float> Decode(const std::vector<unsigned char>& bytes, std::size_t count) {
  std::vector<float> values(count);
  for (std::size_t i = 0; i < count; ++i) {
    const float value = _Types::LittleEndianBytesToFloat(&bytes[i * kFloatSize]);
    values[i] = value < kMissing ? value : std::numeric_limits<float>::quiet_NaN();
  }
  return values;
}

}  // namespace

namespace korvel {

ModelExtent GridShape::Extent() const {
  return {NorthOf(rows - 1), northMax, eastMin, EastOf(columns - 1)};
}

GridShape ShapeOf(const CcgFileInfo& info) {
  GridShape shape;
  shape.path = info.fileName;
  shape.isGeographic = info.IsLatLongType();
  shape.isPlaneFirst = info.HasXYComponents();
  shape.northMax = info.northMax;
  shape.eastMin = info.eastMin;
  shape.northSpacing = info.northSpacing;
  shape.eastSpacing = info.eastSpacing;
  shape.rows = info.rows;
  shape.columns = info.columns;
  shape.values = info.GetNumberOfValues();
  shape.start = info.dataOffset;
  shape.stride = std::int64_t{info.columns} * shape.values * kFloatSize;
  return shape;
}

GridShape ReadGridShape(const std::string& path) {
  const GridShape shape = ReadShape(path);
  if (!IsUsable(shape)) throw InputError(path + ": its header makes no grid");
  return shape;
}

int VisitRows(const GridShape& shape,
              const std::function<void(int row, const std::vector<float>& values)>& visit) {
  const std::int64_t inFile = (_FileIO::FileSize(shape.path) - shape.start) / shape.stride;
  const int rows = static_cast<int>(std::clamp<std::int64_t>(inFile, 0, shape.rows));
  GeoFile file;
  if (rows == 0 || _FileIO::OpenFile(file, shape.path, _FileIO::kRead, false) != 0 ||
      _FileIO::SeekFile(file, shape.start) != 0)
    return 0;
  std::vector<unsigned char> bytes(static_cast<std::size_t>(shape.stride));
  const auto count =
      static_cast<std::size_t>(shape.columns) * static_cast<std::size_t>(shape.values);
  for (int row = 0; row < rows; ++row) {
    if (_FileIO::ReadFile(file, bytes.data(), bytes.size()) != 0) return row;
    visit(row, Decode(bytes, count));
  }
  return rows;
}

}  // namespace korvel

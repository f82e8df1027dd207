#include "tools/korvel/corrections/GridShape.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/corrections/GrdFile.h"
#include "korvelfile/corrections/internal/GrdHeader.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Types.h"
#include "tools/korvel/InputError.h"

namespace {

using korvel::GridShape;
using korvel::InputError;

constexpr int kFloatSize = 4;
constexpr float kMissing = 9998.0F;  // and above: a node without a value

GridShape ShapeOf(const GrdFile& file, const std::string& path) {
  GridShape shape;
  shape.path = path;
  shape.isGeographic = file.GetCoordType() == GrdFile::kGeographic;
  shape.northMax = file.GetNorthLimit();
  shape.eastMin = file.GetWestLimit();
  shape.northSpacing = file.GetRowSpacing();
  shape.eastSpacing = file.GetColumnSpacing();
  shape.rows = file.GetRows();
  shape.columns = file.GetColumns();
  shape.values = 1;
  shape.start = GrdHeader::kSize;
  shape.stride = GrdStride(shape.columns) * kFloatSize;
  return shape;
}

bool IsUsable(const GridShape& shape) {
  const double numbers[] = {shape.northMax, shape.eastMin, shape.northSpacing, shape.eastSpacing};
  return shape.rows > 0 && shape.columns > 0 && shape.values > 0 && shape.northSpacing > 0.0 &&
         shape.eastSpacing > 0.0 &&
         std::all_of(std::begin(numbers), std::end(numbers),
                     [](double n) { return std::isfinite(n); });
}

GridShape ReadShape(const std::string& path) {
  if (korvel::FindModelKind(path) == korvel::ModelKind::GeoidGrid) {
    GrdFile file;
    file.OpenFile(path.c_str());
    return ShapeOf(file, path);
  }
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

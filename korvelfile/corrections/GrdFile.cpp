#include "korvelfile/corrections/GrdFile.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "korvelfile/corrections/internal/GrdHeader.h"
#include "korvelfile/corrections/internal/GridReader.h"
#include "korvelfile/outside/base/GeoFile.h"

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

constexpr double kTolerance = 1e-10;  // radians, or the unit of the file
constexpr double kNoValue = 9998.0;   // and all above

// A tenth of a nanometre is lost in coordinates of some thousand kilometres: there the next number
// that a double can tell from `value` is the step.
double StepTowards(double value, double side) {
  const double step = std::max(kTolerance, std::fabs(std::nextafter(value, side) - value));
  return side > value ? value + step : value - step;
}

// Moves a position on or within the tolerance beyond a limit by one step to `inner`.
bool MoveFromLimit(double& value, double limit, double inner) {
  if (!(std::fabs(value - limit) < kTolerance)) return false;
  value = StepTowards(value, inner);
  return true;
}

// Finds the cell that `distance` from the first node lies in; false where a grid is smaller than
// the step that moved the position inside. A distance within the grid can come out at the last node
// when it is divided by the spacing.
bool FindCell(double distance, double spacing, std::int32_t nodes, std::int32_t& cell) {
  const double exact = distance / spacing;
  if (!(exact >= 0.0)) return false;
  cell = static_cast<std::int32_t>(std::min(exact, nodes - 2.0));
  return true;
}

}  // namespace

GrdFile::GrdFile() : reader_(std::make_unique<GridReader>()) {}
GrdFile::~GrdFile() = default;

GrdFile::GrdFile(const GrdFile& other) : GrdFile() { *this = other; }

GrdFile& GrdFile::operator=(const GrdFile& other) {
  isOpen_ = other.isOpen_;
  name_ = other.name_;
  rows_ = other.rows_;
  columns_ = other.columns_;
  northLimit_ = other.northLimit_;
  westLimit_ = other.westLimit_;
  rowSpacing_ = other.rowSpacing_;
  columnSpacing_ = other.columnSpacing_;
  southLimit_ = other.southLimit_;
  eastLimit_ = other.eastLimit_;
  cellColumn_ = other.cellColumn_;
  cellRow_ = other.cellRow_;
  corners_ = other.corners_;
  coordType_ = other.coordType_;
  *reader_ = *other.reader_;
  return *this;
}

bool GrdFile::OpenFile(const char* path) {
  if (isOpen_) return true;
  if (!path) return false;
  name_ = String(path);
  GeoFile file;
  GrdHeader::Bytes bytes{};
  if (_FileIO::OpenFile(file, name_, _FileIO::kRead, false) != 0) return false;
  _FileIO::ReadFile(file, bytes.data(), bytes.size());  // what is missing counts as 0
  GrdHeader header = GrdHeader::FromBytes(bytes);
  if (header.magic != kGeographicMagic && header.magic != kPlainMagic) return false;
  coordType_ = header.magic == kGeographicMagic ? kGeographic : kPlain;
  if (coordType_ == kGeographic) header = header.Scaled(kRadiansPerDegree);
  rows_ = header.GetRows();
  columns_ = header.GetColumns();
  northLimit_ = header.north;
  westLimit_ = header.west;
  rowSpacing_ = header.rowSpacing;
  columnSpacing_ = header.columnSpacing;
  southLimit_ = northLimit_ - (rows_ - 1) * rowSpacing_;
  eastLimit_ = (columns_ - 1) * columnSpacing_ + westLimit_;
  ForgetCell();
  reader_->Forget();
  isOpen_ = true;
  return true;
}

void GrdFile::CloseFile() { isOpen_ = false; }

void GrdFile::ForgetCell() { cellRow_ = cellColumn_ = -1; }

bool GrdFile::MoveInside(Position& position) const {
  auto& [east, north] = position;
  if (north >= northLimit_ && !MoveFromLimit(north, northLimit_, southLimit_)) return false;
  if (east <= westLimit_ && !MoveFromLimit(east, westLimit_, eastLimit_)) return false;
  if (north <= southLimit_ && !MoveFromLimit(north, southLimit_, northLimit_)) return false;
  return east < eastLimit_ || MoveFromLimit(east, eastLimit_, westLimit_);
}

bool GrdFile::ReadCell(std::int32_t row, std::int32_t column) {
  if (row == cellRow_ && column == cellColumn_) return true;
  const GridLayout layout{GrdHeader::kSize, 4 * GrdStride(columns_), 1};
  std::array<float, 4> nodes;
  ForgetCell();
  if (!reader_->Read(name_, layout, {row, column, 2, 2}, nodes.data())) return false;
  corners_ = {nodes[1], nodes[0], nodes[3], nodes[2]};
  cellRow_ = row;
  cellColumn_ = column;
  return true;
}

bool GrdFile::GetHeight(double east, double north, double* height) {
  if (!isOpen_ || !std::isfinite(east) || !std::isfinite(north)) return false;
  const bool reachesRound = coordType_ == kGeographic && westLimit_ >= 0.0 && eastLimit_ >= kPi;
  if (reachesRound && east < 0.0) east += kTwoPi;
  Position position{east, north};
  if (rows_ < 2 || columns_ < 2 || !MoveInside(position)) return false;
  const double fromNorth = northLimit_ - position.north;
  const double fromWest = position.east - westLimit_;
  std::int32_t i = 0;
  std::int32_t j = 0;
  if (!FindCell(fromNorth, rowSpacing_, rows_, i)) return false;
  if (!FindCell(fromWest, columnSpacing_, columns_, j) || !ReadCell(i, j)) return false;

  const auto& [NE, NW, SE, SW] = corners_;
  for (const double corner : corners_)
    if (!std::isfinite(corner) || corner >= kNoValue) return false;
  const double t = 1.0 - (fromNorth - i * rowSpacing_) / rowSpacing_;
  const double u = (fromWest - j * columnSpacing_) / columnSpacing_;
  const double found = SW + (NW - SW) * t + (SE - SW) * u + (SW - SE - NW + NE) * t * u;
  if (!std::isfinite(found)) return false;  // limits and spacings without sense can make that
  *height = found;
  return true;
}

#include "tools/korvel/corrections/QueryRows.h"

#include "korvelfile/outside/base/Undefined.h"
#include "tools/korvel/NumberFormat.h"

namespace {

constexpr int kHeightDecimals = 4;

}  // namespace

namespace korvel {

void AddPositionColumns(std::vector<ResultColumn>& columns, const ModelUnits& units,
                        const std::string& key, const std::string& head) {
  const bool isGeographic = units.IsGeographic();
  const std::string unit = ' ' + units.Name();
  columns.push_back(
      {key + "north", head + (isGeographic ? "latitude" : "north") + unit, units.Decimals()});
  columns.push_back(
      {key + "east", head + (isGeographic ? "longitude" : "east") + unit, units.Decimals()});
}

void AddPlaneCorrectionColumns(std::vector<ResultColumn>& columns, const ModelUnits& units) {
  const std::string unit = ' ' + units.CorrectionName();
  const int decimals = units.CorrectionDecimals();
  columns.push_back({"d_north", "dN" + unit, decimals, units.CorrectionScale()});
  columns.push_back({"d_east", "dE" + unit, decimals, units.CorrectionScale()});
}

void QueryRows::AddCorrection(std::vector<ResultColumn>& columns) const {
  if (traits_.hasPlane) AddPlaneCorrectionColumns(columns, units_);
  if (!traits_.hasHeight) return;
  columns.push_back(IsGeoid() ? ResultColumn{"geoid_height", "geoid height m", kHeightDecimals}
                              : ResultColumn{"d_height", "dH m", kHeightDecimals});
}

void QueryRows::AddCorrected(std::vector<ResultColumn>& columns) const {
  std::string state = isInverse_ ? "original" : "corrected";
  if (traits_.hasPlane) AddPositionColumns(columns, units_, state + '_', state + ' ');
  if (!traits_.hasHeight) return;
  if (IsGeoid()) state = isInverse_ ? "ellipsoidal" : "orthometric";
  columns.push_back({state + "_height", state + " height m", kHeightDecimals});
}

std::vector<ResultColumn> QueryRows::Columns() const {
  std::vector<ResultColumn> columns{{"name", "point"}};
  AddPositionColumns(columns, units_, "", "");
  columns.push_back({"height", "height m", kHeightDecimals});
  AddCorrection(columns);
  AddCorrected(columns);
  columns.push_back({"fault", ""});
  return columns;
}

// The height of the geoid is what has to be taken off.
double QueryRows::HeightCorrection(const CorrectedPoint& result) const {
  const double z = result.correction.z;
  return IsGeoid() && IsKnown(z) ? -z : z;
}

std::vector<ResultCell> QueryRows::Cells(const QueryPoint& point,
                                         const CorrectedPoint& result) const {
  std::vector<ResultCell> cells{point.name, point.north, point.east, point.height};
  if (traits_.hasPlane) cells.insert(cells.end(), {result.correction.x, result.correction.y});
  if (traits_.hasHeight) cells.emplace_back(HeightCorrection(result));
  if (traits_.hasPlane) cells.insert(cells.end(), {result.north, result.east});
  if (traits_.hasHeight) cells.emplace_back(result.height);
  result.fault.empty() ? cells.emplace_back(kUndefined) : cells.emplace_back(result.fault);
  return cells;
}

}  // namespace korvel

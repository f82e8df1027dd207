#include "korvelfile/corrections/CcgFileInfo.h"

#include <algorithm>

#include "korvelfile/corrections/internal/Truncate.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

constexpr int kNone = -1;

// False for a value that is not a number.
bool IsWithin(double value, double lowest, double highest) {
  return value >= lowest && value <= highest;
}

int CountOfLines(double extent, double spacing) {
  return std::max(0, TruncateOr(extent / spacing + 1.5, 0));
}

}  // namespace

CcgFileInfo::CcgFileInfo(double northMax_, double eastMin_, double northSpacing_,
                         double eastSpacing_, int rows_, int columns_)
    : northMax(northMax_),
      northMin(northMax_ - (rows_ - 1.0) * northSpacing_),
      eastMin(eastMin_),
      eastMax((columns_ - 1.0) * eastSpacing_ + eastMin_),
      northSpacing(northSpacing_),
      eastSpacing(eastSpacing_),
      rows(rows_),
      columns(columns_) {}

int CcgFileInfo::GetRowFromNorth(double north) const {
  if (IsUndefined(north) || !IsWithin(north, northMin, northMax)) return kNone;
  return TruncateOr((northMax - north) / northSpacing + 0.5, kNone);
}

int CcgFileInfo::GetColFromEast(double east) const {
  if (IsUndefined(east) || !IsWithin(east, eastMin, eastMax)) return kNone;
  return TruncateOr((east - eastMin) / eastSpacing + 0.5, kNone);
}

// Rows and columns are counted from the far end, so that rounding in the spacing is carried by row
// 0 and column 0.
double CcgFileInfo::GetNorthFromRow(int row) const {
  if (row < 0 || row >= rows) return kUndefined;
  return (rows - row - 1) * northSpacing + northMin;
}

double CcgFileInfo::GetEastFromCol(int column) const {
  if (column < 0 || column >= columns) return kUndefined;
  return eastMax - (columns - column - 1) * eastSpacing;
}

bool CcgFileInfo::CanExpandWith(const CcgFileInfo& other) const {
  constexpr int kHeightInterpolationSince = 5;
  return fileName == other.fileName && correctionType == other.correctionType &&
         planeInterpolation == other.planeInterpolation &&
         (formatVersion < kHeightInterpolationSince ||
          heightInterpolation == other.heightInterpolation) &&
         northSpacing == other.northSpacing && eastSpacing == other.eastSpacing;
}

bool CcgFileInfo::CanUpdateWithoutExpansionWith(const CcgFileInfo& other) const {
  return other.northMax <= northMax && other.northMin >= northMin && other.eastMin >= eastMin &&
         other.eastMax <= eastMax && northSpacing == other.northSpacing &&
         eastSpacing == other.eastSpacing;
}

bool CcgFileInfo::ExpandHeaderWith(const CcgFileInfo& other) {
  if (!CanExpandWith(other)) return false;
  northMax = std::max(northMax, other.northMax);
  northMin = std::min(northMin, other.northMin);
  eastMin = std::min(eastMin, other.eastMin);
  eastMax = std::max(eastMax, other.eastMax);
  DeriveRowsAndColumns();
  return true;
}

void CcgFileInfo::DeriveRowsAndColumns() {
  rows = CountOfLines(northMax - northMin, northSpacing);
  columns = CountOfLines(eastMax - eastMin, eastSpacing);
}

#pragma once

#include <string>
#include <vector>

#include "tools/korvel/ResultWriter.h"
#include "tools/korvel/corrections/CorrectionModel.h"
#include "tools/korvel/corrections/CorrectionQuery.h"

namespace korvel {

/// Columns and cells of the result of a query: the point, its correction, the corrected position
/// and height as far as the model corrects them, and why there is none.
class QueryRows {
 public:
  QueryRows(const CorrectionModel::Traits& traits, const ModelUnits& units, bool isInverse)
      : traits_(traits), units_(units), isInverse_(isInverse) {}

  std::vector<ResultColumn> Columns() const;

  /// One cell for each column.
  std::vector<ResultCell> Cells(const QueryPoint& point, const CorrectedPoint& result) const;

 private:
  bool IsGeoid() const { return traits_.kind == ModelKind::GeoidGrid; }
  void AddCorrection(std::vector<ResultColumn>& columns) const;
  void AddCorrected(std::vector<ResultColumn>& columns) const;
  double HeightCorrection(const CorrectedPoint& result) const;

  CorrectionModel::Traits traits_;
  ModelUnits units_;
  bool isInverse_;
};

/// Adds the columns for north and east, or latitude and longitude.
/// @param key, head prefixes of the columns' keys and heads
void AddPositionColumns(std::vector<ResultColumn>& columns, const ModelUnits& units,
                        const std::string& key, const std::string& head);

/// Adds the columns for the plane correction.
void AddPlaneCorrectionColumns(std::vector<ResultColumn>& columns, const ModelUnits& units);

}  // namespace korvel

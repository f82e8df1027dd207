#include "tools/korvel/corrections/Residuals.h"

#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

#include "korvelfile/outside/base/NumberText.h"
#include "tools/korvel/CsvNumbers.h"
#include "tools/korvel/InputError.h"

namespace {

using korvel::InputError;
using korvel::Residual;

constexpr double kLargestValue = 9998.0;  // from here on a node counts as one without a value

std::vector<korvel::CsvColumn> Columns(const CcgFileInfo& grid) {
  std::vector<korvel::CsvColumn> columns{korvel::NorthColumn(), korvel::EastColumn()};
  if (grid.HasXYComponents()) {
    columns.push_back({{"dn", "d_north"}});
    columns.push_back({{"de", "d_east"}});
  }
  if (grid.HasZComponent()) columns.push_back({{"dh", "d_height"}});
  return columns;
}

float NodeValue(double value, const std::string& source) {
  if (value < kLargestValue && std::isfinite(static_cast<float>(value)))
    return static_cast<float>(value);
  throw InputError(source + ": a grid can't hold a correction of 9998 and more");
}

Residual ResidualOf(const korvel::CsvRow& row, const std::string& source, const CcgFileInfo& grid,
                    const korvel::ModelUnits& units) {
  Residual residual{source, units.ToModel(row.numbers[0]), units.ToModel(row.numbers[1]), {}};
  for (std::size_t i = 2; i < row.numbers.size(); ++i) {
    const bool isPlane = grid.HasXYComponents() && i < 4;
    residual.values.at(i - 2) =
        NodeValue(isPlane ? units.ToModel(row.numbers[i]) : row.numbers[i], source);
  }
  return residual;
}

// The nearest node along one axis, and how far that is, both in spacings.
std::pair<double, double> Nearest(double distance, double spacing) {
  const double node = std::round(distance / spacing);
  return {node, std::fabs(distance / spacing - node)};
}

}  // namespace

namespace korvel {

const char* const kResidualsHelp =
    "Residuals are the corrections to be added. Their CSV text has the columns north, east, then\n"
    "dN and dE if the grid has plane corrections, dH if it has height corrections, in any order "
    "if\n"
    "its first line names them; without that line the numbers stand in this order, and a line "
    "with\n"
    "one more field begins with a name. A grid of a latlong type has latitude, longitude, dN and "
    "dE\n"
    "in degrees or what --angles says; heights are metres.\n";

std::vector<Residual> ReadResiduals(const std::string& path, const CcgFileInfo& grid,
                                    const ModelUnits& units) {
  std::vector<Residual> residuals;
  WithCsvText(path, [&](std::istream& in, const std::string& source) {
    CsvNumbers csv(in, source, Columns(grid));
    for (CsvRow row; csv.Next(row);) residuals.push_back(ResidualOf(row, csv.Place(), grid, units));
  });
  if (residuals.empty()) throw InputError(path + ": holds no residuals");
  return residuals;
}

void PlaceAtNodes(const std::vector<Residual>& residuals, double snap, CcgInputGrid& grid) {
  std::map<std::size_t, std::string> taken;
  const auto values = static_cast<std::size_t>(grid.GetNumberOfValues());
  for (const Residual& residual : residuals) {
    const auto [row, south] = Nearest(grid.northMax - residual.north, grid.northSpacing);
    const auto [column, west] = Nearest(residual.east - grid.eastMin, grid.eastSpacing);
    if (!(south * grid.northSpacing <= snap && west * grid.eastSpacing <= snap))
      throw InputError(residual.source + ": lies at no node, but " + GeneralText(south, 3) +
                       " and " + GeneralText(west, 3) +
                       " spacings from the nearest in north and east");
    if (!(row >= 0.0 && row < grid.rows && column >= 0.0 && column < grid.columns))
      throw InputError(residual.source + ": lies outside of the grid");
    const std::size_t node =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(grid.columns) +
        static_cast<std::size_t>(column);
    const auto [place, isNew] = taken.emplace(node, residual.source);
    if (!isNew) throw InputError(residual.source + ": lies at the same node as " + place->second);
    for (std::size_t i = 0; i < values; ++i)
      grid.residuals[node * values + i] = residual.values.at(i);
  }
}

}  // namespace korvel

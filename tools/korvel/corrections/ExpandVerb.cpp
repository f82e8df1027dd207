#include "tools/korvel/corrections/ExpandVerb.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/outside/base/Text.h"
#include "tools/korvel/AngleOption.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/NumberArgument.h"
#include "tools/korvel/corrections/CcgNames.h"
#include "tools/korvel/corrections/CorrectionModel.h"
#include "tools/korvel/corrections/GridOutput.h"
#include "tools/korvel/corrections/GridShape.h"
#include "tools/korvel/corrections/Residuals.h"

namespace {

using korvel::GridShape;
using korvel::InputError;
using korvel::ModelUnits;
using korvel::Residual;

constexpr double kSnapShare = 1e-3;  // of the spacing

constexpr const char* kHelp =
    "SUBGRID is a correction grid of the same type, interpolation and spacing, or the CSV text of\n"
    "residuals at nodes of the grid, within it or beyond. New values win. Where SUBGRID has no "
    "value\n"
    "the grid keeps its own. A grid that SUBGRID reaches beyond is widened; nodes in neither have "
    "no\n"
    "value. The file changes whole or not at all.\n"
    "\n"
    "Exit status: 0; 2 for wrong use, a file that can't be read or written, or grids that don't "
    "fit.\n"
    "\n"
    "Examples:\n"
    "  korvel grid expand region.ccg north.ccg\n"
    "  korvel grid expand region.ccg new-residuals.csv\n";

struct ExpandOptions {
  std::string grid;
  std::string subGrid;
  std::optional<double> snap;
  korvel::AngleUnit angles = korvel::FindAngleUnit("deg");
};

CcgFileInfo ReadInfo(const std::string& path) {
  if (korvel::FindModelKind(path) != korvel::ModelKind::CorrectionGrid)
    throw InputError(path + ": is " + ModelKindName(korvel::FindModelKind(path)) +
                     ", not a correction grid");
  korvel::ReadGridShape(path);  // throws where the header makes no grid
  CcgFile file;
  file.OpenFile(Widen(path));
  return file.GetFileInfo();
}

// What a row of the file and one of a grid have in common.
struct RowOverlap {
  std::size_t from;   ///< first value in the row of the file
  std::size_t to;     ///< first value in `residuals`
  std::size_t count;  ///< of values
};

// Where row `row` of the file `old` lies in `grid`, whose raster is the same.
std::optional<RowOverlap> OverlapOf(const CcgFileInfo& old, int row, const CcgInputGrid& grid) {
  const int south =
      static_cast<int>(std::lround((grid.northMax - old.northMax) / old.northSpacing));
  const int west = static_cast<int>(std::lround((grid.eastMin - old.eastMin) / old.eastSpacing));
  const int target = row + south;
  const int first = std::max(0, west);
  const int end = std::min(old.columns, west + grid.columns);
  if (target < 0 || target >= grid.rows || first >= end) return {};
  const auto values = static_cast<std::size_t>(old.GetNumberOfValues());
  const auto at = [&](int column) { return static_cast<std::size_t>(column) * values; };
  return RowOverlap{at(first),
                    at(grid.columns) * static_cast<std::size_t>(target) + at(first - west),
                    at(end - first)};
}

// Gives nodes of `grid` that have no value those that the file has there.
void KeepValues(const GridShape& shape, const CcgFileInfo& old, CcgInputGrid& grid) {
  VisitRows(shape, [&](int row, const std::vector<float>& values) {
    const std::optional<RowOverlap> overlap = OverlapOf(old, row, grid);
    if (!overlap) return;
    for (std::size_t i = 0; i < overlap->count; ++i) {
      float& value = grid.residuals[overlap->to + i];
      const float former = values[overlap->from + i];
      if (value >= CcgInputGrid::kMissing && !std::isnan(former)) value = former;
    }
  });
}

CcgInputGrid ReadGrid(const CcgFileInfo& info) {
  CcgInputGrid grid(info);
  std::size_t at = 0;
  VisitRows(korvel::ShapeOf(info), [&](int, const std::vector<float>& values) {
    for (const float value : values)
      grid.residuals[at++] = std::isnan(value) ? CcgInputGrid::kMissing : value;
  });
  return grid;
}

void RequireSameType(const std::string& path, const CcgFileInfo& info, const CcgFileInfo& old) {
  const auto require = [&](const std::string& what, const std::string& own,
                           const std::string& wanted) {
    if (own != wanted)
      throw InputError(path + ": has the " + what + ' ' + own + ", the grid has " + wanted);
  };
  require("correction type", korvel::CorrectionTypeName(info.correctionType),
          korvel::CorrectionTypeName(old.correctionType));
  require("interpolation", korvel::InterpolationName(info.planeInterpolation),
          korvel::InterpolationName(old.planeInterpolation));
  if (info.northSpacing != old.northSpacing || info.eastSpacing != old.eastSpacing)
    throw InputError(path + ": has another spacing than the grid");
}

// The library would move nodes by up to half a spacing.
void RequireSameRaster(const std::string& path, const CcgFileInfo& info, const CcgFileInfo& old) {
  const auto offset = [](double distance, double spacing) {
    return std::fabs(distance / spacing - std::round(distance / spacing));
  };
  if (offset(info.northMax - old.northMax, old.northSpacing) > kSnapShare ||
      offset(info.eastMin - old.eastMin, old.eastSpacing) > kSnapShare)
    throw InputError(path + ": its nodes lie between those of the grid");
}

// The part of the raster of `old`, also beyond it, that holds all residuals.
CcgFileInfo RasterAround(const std::vector<Residual>& residuals, const CcgFileInfo& old,
                         const std::string& path) {
  double north = -HUGE_VAL, south = HUGE_VAL, west = HUGE_VAL, east = -HUGE_VAL;  // in spacings
  for (const Residual& r : residuals) {
    const double row = std::round((r.north - old.northMax) / old.northSpacing);
    const double column = std::round((r.east - old.eastMin) / old.eastSpacing);
    north = std::max(north, row);
    south = std::min(south, row);
    west = std::min(west, column);
    east = std::max(east, column);
  }
  const double rows = north - south + 1.0;
  const double columns = east - west + 1.0;
  korvel::RequireRoom(path, rows, columns, old.GetNumberOfValues());
  CcgFileInfo raster(old.northMax + north * old.northSpacing, old.eastMin + west * old.eastSpacing,
                     old.northSpacing, old.eastSpacing, static_cast<int>(rows),
                     static_cast<int>(columns));
  raster.correctionType = old.correctionType;
  raster.planeInterpolation = old.planeInterpolation;
  raster.heightInterpolation = old.heightInterpolation;
  return raster;
}

CcgInputGrid GridOfResiduals(const ExpandOptions& options, const CcgFileInfo& old) {
  const ModelUnits units(old.IsLatLongType(), options.angles);
  const std::vector<Residual> residuals = korvel::ReadResiduals(options.subGrid, old, units);
  CcgInputGrid grid(RasterAround(residuals, old, options.grid));
  const double snap = options.snap ? units.ToModel(*options.snap)
                                   : kSnapShare * std::min(old.northSpacing, old.eastSpacing);
  PlaceAtNodes(residuals, snap, grid);
  return grid;
}

CcgInputGrid SubGrid(const ExpandOptions& options, const CcgFileInfo& old) {
  if (options.subGrid == "-" || !korvel::IsModel(options.subGrid))
    return GridOfResiduals(options, old);
  const CcgFileInfo info = ReadInfo(options.subGrid);
  RequireSameType(options.subGrid, info, old);
  RequireSameRaster(options.subGrid, info, old);
  return ReadGrid(info);
}

int RunExpandVerb(const ExpandOptions& options) {
  const CcgFileInfo old = ReadInfo(options.grid);
  CcgInputGrid grid = SubGrid(options, old);
  KeepValues(korvel::ShapeOf(old), old, grid);
  korvel::WriteGrid(options.grid, std::move(grid), true);
  korvel::PrintGrid(options.grid);
  return korvel::kDone;
}

}  // namespace

void korvel::AddExpandVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("expand", "update and widen a correction grid");
  verb.footer(std::string(kResidualsHelp) + '\n' + kHelp);
  ExpandOptions& options = OptionsOf(verb, run, RunExpandVerb);
  verb.add_option("FILE", options.grid, "correction grid to change")->required()->type_name("");
  verb.add_option("SUBGRID", options.subGrid, "correction grid or CSV file; - is standard input")
      ->required()
      ->type_name("");
  verb.add_option("--snap", options.snap,
                  "how far a residual may lie from its node;\nelse a thousandth of the spacing")
      ->check(NotNegative())
      ->type_name("D");
  AddAnglesOption(verb, options.angles, "unit of latitude and longitude");
}

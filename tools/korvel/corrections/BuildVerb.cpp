#include "tools/korvel/corrections/BuildVerb.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/services/ProgressBar.h"
#include "tools/korvel/AngleOption.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/NumberArgument.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/corrections/CcgNames.h"
#include "tools/korvel/corrections/GridOutput.h"
#include "tools/korvel/corrections/InverseDistance.h"
#include "tools/korvel/corrections/Residuals.h"

namespace {

using korvel::InputError;
using korvel::ModelUnits;
using korvel::Residual;

constexpr double kSnapShare = 1e-3;  // of the spacing
constexpr double kManyNodes = 1e6;
constexpr double kMostGaps = 100.0;  // nodes for each residual

constexpr const char* kHelp =
    "Without --scattered each residual lies at a node: the first row and column are those of the\n"
    "northernmost and westernmost residual, or of --extent. A residual farther than --snap from "
    "its\n"
    "node is an error that names its line.\n"
    "\n"
    "With --scattered residuals lie anywhere: a node gets the mean of those within --radius, "
    "weighted\n"
    "by 1 through the square of the distance. The nodes lie at multiples of the spacing.\n"
    "\n"
    "Nodes without residuals have no value, and a query gets no correction there.\n"
    "\n"
    "Exit status: 0; 2 for wrong use, or a file that can't be read or written.\n"
    "\n"
    "Examples:\n"
    "  korvel grid build region.ccg residuals.csv --spacing 500 --type xy\n"
    "  korvel grid build region.ccg residuals.csv --spacing 500 --type z --scattered --radius "
    "2000\n";

struct BuildOptions {
  std::string out;
  std::string residuals;
  std::vector<double> spacing;  ///< north, east; or one for both
  std::vector<double> extent;   ///< south, north, west, east
  CorrectionTypes type = CorrectionXY;
  InterpolationTypes interpolation = Bilinear;
  std::optional<InterpolationTypes> heightInterpolation;
  std::optional<double> snap;
  bool scattered = false;
  std::optional<double> radius;
  bool force = false;
  korvel::AngleUnit angles = korvel::FindAngleUnit("deg");
};

struct Extent {
  double south, north, west, east;
};

Extent ExtentOf(const std::vector<Residual>& residuals) {
  Extent extent{residuals[0].north, residuals[0].north, residuals[0].east, residuals[0].east};
  for (const Residual& r : residuals)
    extent = {std::min(extent.south, r.north), std::max(extent.north, r.north),
              std::min(extent.west, r.east), std::max(extent.east, r.east)};
  return extent;
}

// The extent widened to multiples of the spacings.
Extent Rounded(const Extent& extent, double northSpacing, double eastSpacing) {
  return {std::floor(extent.south / northSpacing) * northSpacing,
          std::ceil(extent.north / northSpacing) * northSpacing,
          std::floor(extent.west / eastSpacing) * eastSpacing,
          std::ceil(extent.east / eastSpacing) * eastSpacing};
}

Extent GivenExtent(const BuildOptions& options, const ModelUnits& units) {
  const std::vector<double>& e = options.extent;
  if (e[0] > e[1] || e[2] > e[3])
    throw InputError("--extent is south, north, west, east, each pair in rising order");
  return {units.ToModel(e[0]), units.ToModel(e[1]), units.ToModel(e[2]), units.ToModel(e[3])};
}

// One wrong digit of a coordinate can make a grid of almost nothing but gaps.
void RequireProportion(const BuildOptions& options, double nodes, std::size_t residuals) {
  if (options.scattered || !options.extent.empty() || nodes <= kManyNodes ||
      nodes <= kMostGaps * static_cast<double>(residuals))
    return;
  throw InputError(options.residuals +
                   ": lie at less than one node of a hundred; --extent says that this is meant");
}

CcgInputGrid EmptyGrid(const BuildOptions& options, const std::vector<Residual>& residuals,
                       CcgFileInfo info) {
  const ModelUnits units(info.IsLatLongType(), options.angles);
  info.northSpacing = units.ToModel(options.spacing.front());
  info.eastSpacing = units.ToModel(options.spacing.back());
  Extent extent = ExtentOf(residuals);
  if (!options.extent.empty())
    extent = GivenExtent(options, units);
  else if (options.scattered)
    extent = Rounded(extent, info.northSpacing, info.eastSpacing);
  const double rows = std::round((extent.north - extent.south) / info.northSpacing) + 1.0;
  const double columns = std::round((extent.east - extent.west) / info.eastSpacing) + 1.0;
  korvel::RequireRoom(options.out, rows, columns, info.GetNumberOfValues());
  RequireProportion(options, rows * columns, residuals.size());
  CcgFileInfo raster(extent.north, extent.west, info.northSpacing, info.eastSpacing,
                     static_cast<int>(rows), static_cast<int>(columns));
  raster.correctionType = info.correctionType;
  raster.planeInterpolation = options.interpolation;
  raster.heightInterpolation = options.heightInterpolation.value_or(options.interpolation);
  return CcgInputGrid(raster);
}

void Fill(const BuildOptions& options, const std::vector<Residual>& residuals, CcgInputGrid& grid) {
  if (options.scattered) {
    Korvel::ProgressBar progress(korvel::Printable(options.out));
    SpreadByInverseDistance(residuals, *options.radius, grid,
                            [&](double done) { progress.Show(done); });
    return;
  }
  const ModelUnits units(grid.IsLatLongType(), options.angles);
  const double snap = options.snap ? units.ToModel(*options.snap)
                                   : kSnapShare * std::min(grid.northSpacing, grid.eastSpacing);
  PlaceAtNodes(residuals, snap, grid);
}

void CheckOptions(const BuildOptions& options) {
  if (options.scattered && !options.radius)
    throw InputError("--scattered needs --radius, metres within which residuals count");
  if (!options.force && _FileIO::Exists(options.out))
    throw InputError(options.out +
                     ": is there already; korvel grid expand adds to it, --force replaces it");
}

int RunBuildVerb(const BuildOptions& options) {
  CheckOptions(options);
  CcgFileInfo info;
  info.correctionType = options.type;
  const ModelUnits units(info.IsLatLongType(), options.angles);
  const std::vector<Residual> residuals = korvel::ReadResiduals(options.residuals, info, units);
  CcgInputGrid grid = EmptyGrid(options, residuals, info);
  Fill(options, residuals, grid);
  korvel::WriteGrid(options.out, std::move(grid), false);
  korvel::PrintGrid(options.out);
  return korvel::kDone;
}

// Adds an option that takes one of `names`; `set` gets it.
CLI::Option* AddChoice(CLI::App& verb, const char* flag, const std::vector<std::string>& names,
                       const std::function<void(const std::string&)>& set, const char* what) {
  std::string typeName;
  for (const std::string& name : names) typeName += (typeName.empty() ? "" : "|") + name;
  return verb.add_option_function<std::string>(flag, set, what)
      ->check(CLI::IsMember(names).description(""))
      ->type_name(typeName);
}

void AddTypes(CLI::App& verb, BuildOptions& options) {
  AddChoice(
      verb, "--type", korvel::CorrectionTypeNames(),
      [&](const std::string& name) { options.type = korvel::FindCorrectionType(name); },
      "what nodes hold: x for north, y for east, z for heights")
      ->required();
  AddChoice(
      verb, "--interpolation", korvel::InterpolationNames(),
      [&](const std::string& name) { options.interpolation = korvel::FindInterpolation(name); },
      "between nodes")
      ->default_str("bilinear");
  AddChoice(
      verb, "--height-interpolation", korvel::InterpolationNames(),
      [&](const std::string& name) {
        options.heightInterpolation = korvel::FindInterpolation(name);
      },
      "of heights, if it is another");
}

void AddRaster(CLI::App& verb, BuildOptions& options) {
  verb.add_option("--spacing", options.spacing, "between nodes, N,E or one for both")
      ->required()
      ->delimiter(',')
      ->expected(1, 2)
      ->allow_extra_args(false)
      ->check(korvel::Positive())
      ->type_name("D");
  verb.add_option("--extent", options.extent, "of the nodes; else that of the residuals")
      ->delimiter(',')
      ->expected(4)
      ->check(korvel::AnyNumber())
      ->type_name("S,N,W,E");
  verb.add_option("--snap", options.snap,
                  "how far a residual may lie from its node;\nelse a thousandth of the spacing")
      ->check(korvel::NotNegative())
      ->type_name("D");
  verb.add_flag("--scattered", options.scattered, "residuals lie anywhere");
  verb.add_option("--radius", options.radius, "within which residuals count for a node, metres")
      ->check(korvel::Positive())
      ->type_name("M");
}

}  // namespace

void korvel::AddBuildVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("build", "make a correction grid from residuals");
  verb.footer(std::string(kResidualsHelp) + '\n' + kHelp);
  BuildOptions& options = OptionsOf(verb, run, RunBuildVerb);
  verb.add_option("OUT", options.out, "grid to make")->required()->type_name("");
  verb.add_option("RESIDUALS", options.residuals, "CSV file; - is standard input")
      ->required()
      ->type_name("");
  AddTypes(verb, options);
  AddRaster(verb, options);
  verb.add_flag("--force", options.force, "replace OUT if it is there");
  AddAnglesOption(verb, options.angles, "unit of latitude and longitude");
}

#include "tools/korvel/alignments/LineStationVerb.h"

#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/services/ProgressBar.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/QueryPoints.h"
#include "tools/korvel/ResultWriter.h"
#include "tools/korvel/alignments/RoadColumns.h"
#include "tools/korvel/alignments/RoadFiles.h"

namespace {

using korvel::kMetreDecimals;
using korvel::QueryPoint;
using korvel::ResultCell;
using korvel::Road;

struct LineStationOptions {
  korvel::RoadPaths road;
  korvel::QueryInput input;
  korvel::ResultFormat format;
  bool verbose = false;
};

std::string Help() {
  return std::string(korvel::kQueryInputHelp) +
         "\n"
         "Offsets are positive to the right of the line. With a profile the rows tell the height "
         "of\n"
         "the line and how far the point lies above it, with crossfalls how far above the road's\n"
         "surface. A point has its foot where it stands square to the line, the nearest such "
         "place,\n"
         "or at a corner. One without a foot says so in its last column.\n"
         "\n"
         "Exit status: 0; 1 if a point has no foot; 2 for wrong use, or a file that can't be "
         "read.\n"
         "\n"
         "Examples:\n"
         "  korvel align station road.lin --prf road.prf 6783089.3,21531286.4,19.4\n"
         "  korvel align station road.lin --points points.geo --csv\n"
         "  korvel align station road.lin --points - --json <points.csv\n";
}

std::vector<korvel::ResultColumn> Columns(const Road& road) {
  std::vector<korvel::ResultColumn> columns{{"name", "point"},
                                            {"north", "north m", kMetreDecimals},
                                            {"east", "east m", kMetreDecimals},
                                            {"height", "height m", kMetreDecimals},
                                            {"chainage", "chainage m", kMetreDecimals},
                                            {"offset", "offset m", kMetreDecimals}};
  AddRoadColumns(road, columns);
  if (road.hasProfile) columns.push_back({"height_difference", "above line m", kMetreDecimals});
  if (road.hasProfile && road.hasCamber)
    columns.push_back({"surface_difference", "above surface m", kMetreDecimals});
  columns.push_back({"fault", ""});
  return columns;
}

std::optional<Model::LineStation> Station(const Road& road, const QueryPoint& point) {
  if (!korvel::IsKnown(point.north) || !korvel::IsKnown(point.east)) return std::nullopt;
  try {
    return road.line->Station({point.north, point.east, 0.0});
  } catch (const Model::LineException&) {
    return std::nullopt;
  }
}

std::vector<ResultCell> Cells(const Road& road, const QueryPoint& point,
                              const Model::LineStation& station) {
  std::vector<ResultCell> cells{point.name,  point.north,
                                point.east,  korvel::KnownOrUndefined(point.height),
                                station.Arc, station.Offset};
  AddRoadCells(road, station.Arc, station.Offset, cells);
  if (road.hasProfile) cells.emplace_back(korvel::HeightAbove(point.height, station.Height));
  if (road.hasProfile && road.hasCamber)
    cells.emplace_back(
        korvel::HeightAbove(point.height, road.line->SurfaceHeightAt(station.Arc, station.Offset)));
  cells.emplace_back(kUndefined);
  return cells;
}

std::vector<ResultCell> CellsWithoutFoot(const QueryPoint& point, std::size_t columns) {
  std::vector<ResultCell> cells(columns, kUndefined);
  cells[0] = point.name;
  cells[1] = korvel::KnownOrUndefined(point.north);
  cells[2] = korvel::KnownOrUndefined(point.east);
  cells[3] = korvel::KnownOrUndefined(point.height);
  cells.back() = "has no foot on the line";
  return cells;
}

int RunLineStationVerb(const LineStationOptions& options) {
  korvel::LibraryMessages messages(options.verbose);
  const Road road = korvel::ReadRoad(options.road, messages);
  const std::vector<QueryPoint> points = korvel::ReadQueryPoints(options.input, messages);
  const std::vector<korvel::ResultColumn> columns = Columns(road);
  const auto writer = korvel::ResultWriter::Make(
      options.format, columns, korvel::AboutRoad(options.road), "points", std::cout);
  auto progress = Korvel::ProgressBar::BesideOutput(korvel::Printable(options.road.line));
  std::vector<std::string> footless;
  for (std::size_t i = 0; i < points.size(); ++i) {
    progress.Show(static_cast<double>(i) / static_cast<double>(points.size()));
    const auto station = Station(road, points[i]);
    if (!station) footless.push_back(korvel::NameForMessage(points[i]));
    writer->Add(station ? Cells(road, points[i], *station)
                        : CellsWithoutFoot(points[i], columns.size()));
  }
  progress.End();
  writer->End();
  korvel::PrintPointsWithout("foot on the line", footless, points.size());
  return footless.empty() ? korvel::kDone : korvel::kComputationFailed;
}

}  // namespace

void korvel::AddLineStationVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("station", "turn points into chainages and offsets");
  verb.footer(Help());
  LineStationOptions& options = OptionsOf(verb, run, RunLineStationVerb);
  AddRoadPaths(verb, options.road);
  AddQueryInput(verb, options.input);
  AddResultFormat(verb, options.format);
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

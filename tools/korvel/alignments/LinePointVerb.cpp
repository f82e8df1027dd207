#include "tools/korvel/alignments/LinePointVerb.h"

#include <cmath>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"
#include "tools/korvel/CsvNumbers.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/NumberArgument.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/QueryPoints.h"
#include "tools/korvel/ResultWriter.h"
#include "tools/korvel/alignments/RoadColumns.h"
#include "tools/korvel/alignments/RoadFiles.h"

namespace {

using korvel::InputError;
using korvel::kMetreDecimals;
using korvel::ResultCell;
using korvel::Road;

constexpr int kGonDecimals = 6;

constexpr const char* kHelp =
    "Stations are S, S,OFFSET or S,OFFSET,DH on the command line, DH being the height above the\n"
    "line, or come from CSV files; - is standard input. A CSV text has the columns chainage, "
    "offset\n"
    "and, if need be, name and height_difference, in any order, if its first line names them;\n"
    "without that line a row is S,OFFSET or NAME,S,OFFSET or NAME,S,OFFSET,DH. So what korvel "
    "align\n"
    "station --csv writes can be read.\n"
    "\n"
    "Offsets are positive to the right of the line. The height is that of the line and DH; it is\n"
    "blank without a profile.\n"
    "\n"
    "Exit status: 0; 1 if the line doesn't reach a station; 2 for wrong use, or a file that can't\n"
    "be read.\n"
    "\n"
    "Examples:\n"
    "  korvel align point road.lin 120 120,-3.5 --prf road.prf\n"
    "  korvel align point road.lin --every 20 --csv\n"
    "  korvel align point road.lin --stations - --json <stations.csv\n";

struct LinePointOptions {
  korvel::RoadPaths road;
  std::vector<std::string> arguments;
  std::vector<std::string> files;
  std::optional<double> every;
  korvel::ResultFormat format;
  bool verbose = false;
};

struct Station {
  std::string name;
  double chainage = 0.0;
  double offset = 0.0;
  double heightDifference = kUndefined;
};

Station ReadArgument(const std::string& text) {
  const auto numbers = korvel::ReadNumbers(text);
  if (!numbers || numbers->empty() || numbers->size() > 3)
    throw InputError(text + ": no station; a station is S, S,OFFSET or S,OFFSET,DH");
  Station station{"", numbers->front(), 0.0, kUndefined};
  if (numbers->size() > 1) station.offset = (*numbers)[1];
  if (numbers->size() > 2) station.heightDifference = (*numbers)[2];
  return station;
}

void ReadCsv(const std::string& path, std::vector<Station>& stations) {
  korvel::WithCsvText(path, [&](std::istream& in, const std::string& source) {
    korvel::CsvNumbers csv(in, source,
                           {{{"chainage", "station", "section", "arc", "s"}},
                            {{"offset", "o"}},
                            {{"height_difference", "dh", "above line"}, false}});
    for (korvel::CsvRow row; csv.Next(row);)
      stations.push_back({row.name, row.numbers[0], row.numbers[1], row.numbers[2]});
  });
}

// From the start to the end of the line, which are there too.
void AddEvery(const Road& road, double step, std::vector<Station>& stations) {
  constexpr double kMost = 10e6;
  const double start = road.line->GetStartArc();
  const double end = road.line->GetEndArc();
  if ((end - start) / step > kMost) throw InputError("--every: too many stations");
  stations.push_back({"", start});
  for (double at = (std::floor(start / step) + 1.0) * step; at < end; at += step)
    stations.push_back({"", at});
  stations.push_back({"", end});
}

std::vector<Station> ReadStations(const LinePointOptions& options, const Road& road) {
  std::vector<Station> stations;
  for (const std::string& text : options.arguments) {
    if (korvel::NamesPointFile(text)) {
      ReadCsv(text, stations);
    } else {
      stations.push_back(ReadArgument(text));
    }
  }
  for (const std::string& path : options.files) ReadCsv(path, stations);
  if (options.every) AddEvery(road, *options.every, stations);
  if (stations.empty()) throw InputError("no stations; give S,OFFSET or --stations FILE");
  return stations;
}

std::vector<korvel::ResultColumn> Columns(const Road& road) {
  std::vector<korvel::ResultColumn> columns{{"name", "point"},
                                            {"chainage", "chainage m", kMetreDecimals},
                                            {"offset", "offset m", kMetreDecimals},
                                            {"height_difference", "above line m", kMetreDecimals},
                                            {"north", "north m", kMetreDecimals},
                                            {"east", "east m", kMetreDecimals},
                                            {"height", "height m", kMetreDecimals},
                                            {"bearing", "bearing gon", kGonDecimals}};
  AddRoadColumns(road, columns);
  columns.push_back({"fault", ""});
  return columns;
}

double HeightOf(const Road& road, const Model::Coordinate& place, const Station& station) {
  if (!road.hasProfile || !korvel::IsKnown(place.Z)) return kUndefined;
  return place.Z + (korvel::IsKnown(station.heightDifference) ? station.heightDifference : 0.0);
}

// Empty where the line doesn't reach.
std::vector<ResultCell> Cells(const Road& road, const Station& station) {
  std::vector<ResultCell> cells{station.name, station.chainage, station.offset,
                                korvel::KnownOrUndefined(station.heightDifference)};
  try {
    const Model::Coordinate place = road.line->PointAt(station.chainage, station.offset);
    const double bearing = BearingToGon(road.line->DirectionAt(station.chainage));
    cells.insert(cells.end(), {place.Y, place.X, HeightOf(road, place, station), bearing});
  } catch (const Model::LineException&) {
    return {};
  }
  AddRoadCells(road, station.chainage, station.offset, cells);
  cells.emplace_back(kUndefined);
  return cells;
}

std::vector<ResultCell> CellsBeyond(const Station& station, std::size_t columns) {
  std::vector<ResultCell> cells(columns, kUndefined);
  cells[0] = station.name;
  cells[1] = station.chainage;
  cells[2] = station.offset;
  cells.back() = "the line doesn't reach there";
  return cells;
}

int RunLinePointVerb(const LinePointOptions& options) {
  korvel::LibraryMessages messages(options.verbose);
  const Road road = korvel::ReadRoad(options.road, messages);
  const std::vector<Station> stations = ReadStations(options, road);
  const std::vector<korvel::ResultColumn> columns = Columns(road);
  const auto writer = korvel::ResultWriter::Make(
      options.format, columns, korvel::AboutRoad(options.road), "points", std::cout);
  std::vector<std::string> beyond;
  for (const Station& station : stations) {
    std::vector<ResultCell> cells = Cells(road, station);
    if (cells.empty()) {
      constexpr int kDigits = 12;
      beyond.push_back(station.name.empty() ? GeneralText(station.chainage, kDigits)
                                            : station.name);
      cells = CellsBeyond(station, columns.size());
    }
    writer->Add(cells);
  }
  writer->End();
  korvel::PrintPointsWithout("place on the line", beyond, stations.size());
  return beyond.empty() ? korvel::kDone : korvel::kComputationFailed;
}

}  // namespace

void korvel::AddLinePointVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("point", "turn chainages and offsets into points");
  verb.footer(kHelp);
  LinePointOptions& options = OptionsOf(verb, run, RunLinePointVerb);
  AddRoadPaths(verb, options.road);
  verb.add_option("STATION", options.arguments, "stations S, S,OFFSET or S,OFFSET,DH, or CSV files")
      ->type_name("");
  verb.add_option("-s,--stations", options.files, "CSV files; - is standard input")
      ->type_name("FILE")
      ->allow_extra_args(false);
  verb.add_option("--every", options.every, "a point at each multiple of so many metres")
      ->check(Positive())
      ->type_name("METRES");
  AddResultFormat(verb, options.format);
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

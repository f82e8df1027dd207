#include "tools/korvel/alignments/TunnelOffsetVerb.h"

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/LineFactory.h"
#include "tools/korvel/CoordinateFile.h"
#include "tools/korvel/CsvNumbers.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/NumberArgument.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/QueryPoints.h"
#include "tools/korvel/ResultWriter.h"
#include "tools/korvel/alignments/RoadColumns.h"
#include "tools/korvel/alignments/RoadFiles.h"
#include "tools/korvel/alignments/TunnelOutline.h"

namespace {

using korvel::InputError;
using korvel::kMetreDecimals;
using korvel::LibraryMessages;
using korvel::QueryPoint;
using korvel::ResultCell;
using korvel::TunnelOutline;

constexpr const char* kHelp =
    "Points are SIDE,HEIGHT in the section, on the command line, from coordinate files (x is the\n"
    "side, y the height) or from CSV files with the columns side, height and, if need be, name; - "
    "is\n"
    "standard input. With --line and --prf points are N,E,H in space, as korvel align station "
    "takes\n"
    "them: their side is the offset from the road, their height that above it.\n"
    "\n"
    "The offset is the distance from the outline, positive to the left of its direction, which is\n"
    "outside where it runs clockwise; the arc counts along it from the tunnel centre, or from its\n"
    "start if none is marked.\n"
    "\n"
    "--by makes the parallel outline at an offset.\n"
    "\n"
    "Exit status: 0; 1 if a point has no foot or there is no such parallel; 2 for wrong use, or a\n"
    "file that can't be read or written.\n"
    "\n"
    "Examples:\n"
    "  korvel tunnel offset outline.tun 1.5,3.2\n"
    "  korvel tunnel offset outline.tun --line road.lin --prf road.prf --points scan.geo --csv\n"
    "  korvel tunnel offset outline.tun --by -0.3 -o inner.tun\n";

struct TunnelOffsetOptions {
  std::string tunnel;
  korvel::QueryInput input;
  korvel::RoadPaths road;
  std::optional<double> by;
  std::string out;
  korvel::ResultFormat format;
  bool verbose = false;
};

/// A point in the section of the tunnel.
struct SectionPoint {
  std::string name;
  double chainage = kUndefined;  ///< of the section, if points lie in space
  double side = kUndefined;
  double height = kUndefined;
};

SectionPoint ReadArgument(const std::string& text) {
  const auto numbers = korvel::ReadNumbers(text);
  if (!numbers || numbers->size() != 2)
    throw InputError(text + ": no point; a point is SIDE,HEIGHT");
  return {"", kUndefined, (*numbers)[0], (*numbers)[1]};
}

void ReadFile(const std::string& path, LibraryMessages& messages,
              std::vector<SectionPoint>& points) {
  if (korvel::IsCoordinateFile(path)) {
    PxyCoordinateFile file(false);
    korvel::ReadCoordinateFile(path, file, messages);
    korvel::ForEachPoint(file, [&](const PointDataItem& p, const LineDataItem* line) {
      points.push_back({korvel::FullName(p, line), kUndefined, p.x, p.y});
    });
    return;
  }
  korvel::WithCsvText(path, [&](std::istream& in, const std::string& source) {
    korvel::CsvNumbers csv(in, source, {{{"side", "x"}}, {{"height", "h", "y"}}});
    for (korvel::CsvRow row; csv.Next(row);)
      points.push_back({row.name, kUndefined, row.numbers[0], row.numbers[1]});
  });
}

// A point without a foot on the road, or without a height, has no place in a section.
SectionPoint InSection(const korvel::Road& road, const QueryPoint& point) {
  SectionPoint in{korvel::NameForMessage(point)};
  if (!korvel::IsKnown(point.north) || !korvel::IsKnown(point.east)) return in;
  try {
    const Model::LineStation station = road.line->Station({point.north, point.east, 0.0});
    in.chainage = station.Arc;
    in.side = station.Offset;
    in.height = road.hasProfile ? korvel::HeightAbove(point.height, station.Height) : point.height;
  } catch (const Model::LineException&) {
    return in;
  }
  return in;
}

std::vector<SectionPoint> ReadPoints(const TunnelOffsetOptions& options,
                                     LibraryMessages& messages) {
  std::vector<SectionPoint> points;
  if (!options.road.line.empty()) {
    const korvel::Road road = korvel::ReadRoad(options.road, messages);
    for (const QueryPoint& point : korvel::ReadQueryPoints(options.input, messages))
      points.push_back(InSection(road, point));
    return points;
  }
  for (const std::string& text : options.input.arguments) {
    if (korvel::NamesPointFile(text)) {
      ReadFile(text, messages, points);
    } else {
      points.push_back(ReadArgument(text));
    }
  }
  for (const std::string& path : options.input.files) ReadFile(path, messages, points);
  if (points.empty()) throw InputError("no points; give SIDE,HEIGHT, --points FILE or --by");
  return points;
}

std::vector<korvel::ResultColumn> Columns(bool areInSpace) {
  std::vector<korvel::ResultColumn> columns{{"name", "point"}};
  if (areInSpace) columns.push_back({"chainage", "chainage m", kMetreDecimals});
  for (const char* const name : {"side", "height", "arc", "offset"})
    columns.push_back({name, name + std::string(" m"), kMetreDecimals});
  columns.push_back({"element", "element", 0});
  columns.push_back({"fault", ""});
  return columns;
}

std::vector<ResultCell> Cells(const TunnelOutline& outline, const SectionPoint& point,
                              bool areInSpace) {
  double offset = kUndefined;
  double arc = kUndefined;
  const bool isInSection = korvel::IsKnown(point.side) && korvel::IsKnown(point.height);
  const bool isFound =
      isInSection && outline.Get().GetTunOffsAndArcLen(point.side, point.height, offset, arc);
  std::vector<ResultCell> cells{point.name};
  if (areInSpace) cells.emplace_back(point.chainage);
  cells.insert(cells.end(),
               {korvel::KnownOrUndefined(point.side), korvel::KnownOrUndefined(point.height)});
  if (isFound) {
    const int element = outline.ElementAt(arc + outline.Get().GetTcArcLength());
    cells.insert(cells.end(), {arc, offset, static_cast<double>(element), kUndefined});
  } else {
    cells.insert(cells.end(), {kUndefined, kUndefined, kUndefined});
    cells.emplace_back(isInSection ? "has no foot on the outline" : "has no place in a section");
  }
  return cells;
}

int TellOffsets(const TunnelOffsetOptions& options, const TunnelOutline& outline,
                LibraryMessages& messages) {
  const std::vector<SectionPoint> points = ReadPoints(options, messages);
  const bool areInSpace = !options.road.line.empty();
  const auto writer = korvel::ResultWriter::Make(
      options.format, Columns(areInSpace),
      {{"tunnel", korvel::JsonText(options.tunnel)}, {"unit", "m"}}, "points", std::cout);
  std::vector<std::string> footless;
  for (const SectionPoint& point : points) {
    const std::vector<ResultCell> cells = Cells(outline, point, areInSpace);
    if (std::holds_alternative<std::string>(cells.back()))
      footless.push_back(point.name.empty()
                             ? korvel::MetreText(point.side) + ',' + korvel::MetreText(point.height)
                             : point.name);
    writer->Add(cells);
  }
  writer->End();
  korvel::PrintPointsWithout("offset", footless, points.size());
  return footless.empty() ? korvel::kDone : korvel::kComputationFailed;
}

int MakeParallel(const TunnelOffsetOptions& options, const TunnelOutline& outline,
                 LibraryMessages& messages) {
  if (options.out.empty()) throw InputError("--by: needs --output FILE");
  korvel::RequireExtension(options.out, {".tun", ".geo", ".pxy"});
  if (korvel::IsSameFile(options.tunnel, options.out))
    throw InputError(options.out + ": is read from, and not overwritten");
  TunFile parallel(std::make_shared<Model::LineFactory>());
  if (!outline.Get().GetOffsetSection(*options.by, parallel)) {
    korvel::PrintError("there is no parallel outline at this offset");
    return korvel::kComputationFailed;
  }
  messages.Clear();
  if (parallel.Save(options.out.c_str()) != 0)
    throw InputError(options.out + ": can't be written" + messages.Explanation(options.out));
  std::cout << korvel::CountText(static_cast<std::size_t>(parallel.GetNumNodes()), "element")
            << ", " << korvel::MetreText(parallel.GetTotalLength()) << " m, written to "
            << korvel::Printable(options.out) << '\n';
  return korvel::kDone;
}

int RunTunnelOffsetVerb(const TunnelOffsetOptions& options) {
  LibraryMessages messages(options.verbose);
  const TunnelOutline outline(options.tunnel, messages);
  return options.by ? MakeParallel(options, outline, messages)
                    : TellOffsets(options, outline, messages);
}

}  // namespace

void korvel::AddTunnelOffsetVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb =
      *group.add_subcommand("offset", "tell distances from an outline, or make a parallel one");
  verb.footer(kHelp);
  TunnelOffsetOptions& options = OptionsOf(verb, run, RunTunnelOffsetVerb);
  AddTunnelPath(verb, options.tunnel);
  AddQueryInput(verb, options.input);
  verb.add_option("--line", options.road.line, "road of the tunnel, .lin")->type_name("FILE");
  verb.add_option("--prf", options.road.profile, "its profile")->type_name("FILE");
  CLI::Option* by = verb.add_option("--by", options.by, "offset of a parallel outline")
                        ->check(AnyNumber())
                        ->type_name("METRES");
  verb.add_option("-o,--output", options.out, "parallel outline to write, .tun .geo .pxy")
      ->needs(by)
      ->type_name("FILE");
  AddResultFormat(verb, options.format);
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

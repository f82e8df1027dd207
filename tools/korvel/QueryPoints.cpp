#include "tools/korvel/QueryPoints.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <CLI/CLI.hpp>

#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/outside/base/NumberText.h"
#include "tools/korvel/CoordinateFile.h"
#include "tools/korvel/CsvNumbers.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/NumberArgument.h"
#include "tools/korvel/NumberFormat.h"

namespace {

using korvel::QueryPoint;

void ReadCsv(const std::string& path, std::vector<QueryPoint>& points) {
  korvel::WithCsvText(path, [&](std::istream& in, const std::string& source) {
    korvel::CsvNumbers csv(
        in, source, {korvel::NorthColumn(), korvel::EastColumn(), {{"height", "h", "z"}, false}});
    for (korvel::CsvRow row; csv.Next(row);)
      points.push_back({row.name, row.numbers[0], row.numbers[1], row.numbers[2]});
  });
}

void ReadCoordinates(const std::string& path, korvel::LibraryMessages& messages,
                     std::vector<QueryPoint>& points) {
  PxyCoordinateFile file(false);
  korvel::ReadCoordinateFile(path, file, messages);
  korvel::ForEachPoint(file, [&](const PointDataItem& p, const LineDataItem* line) {
    points.push_back({korvel::FullName(p, line), p.y, p.x, p.z});
  });
}

void ReadFile(const std::string& path, korvel::LibraryMessages& messages,
              std::vector<QueryPoint>& points) {
  korvel::IsCoordinateFile(path) ? ReadCoordinates(path, messages, points) : ReadCsv(path, points);
}

}  // namespace

namespace korvel {

const char* const kQueryInputHelp =
    "Points are N,E or N,E,H on the command line, or come from files: .geo, .pxy and .llc files;\n"
    "every other file is CSV, - is standard input. A CSV text has the columns north, east and, if\n"
    "need be, name and height, in any order, if its first line names them; without that line a "
    "row\n"
    "is N,E or NAME,N,E or NAME,N,E,H. Commas, semicolons or tabs separate them, the decimal sign\n"
    "is a point.\n";

const char* const kGeographicInputHelp =
    "North is latitude and east is longitude where a model works in these, in degrees or what\n"
    "--angles says.\n";

std::string NameForMessage(const QueryPoint& point) {
  constexpr int kDigits = 12;
  return point.name.empty()
             ? GeneralText(point.north, kDigits) + ',' + GeneralText(point.east, kDigits)
             : point.name;
}

void PrintPointsWithout(const std::string& what, const std::vector<std::string>& names,
                        std::size_t count, std::size_t shown) {
  if (names.empty()) return;
  std::string text = CountText(names.size(), "point") + " of " + std::to_string(count) +
                     (names.size() == 1 ? " has" : " have") + " no " + what + ':';
  for (std::size_t i = 0; i < std::min(names.size(), shown); ++i)
    text += (i ? ", " : " ") + names[i];
  PrintError(names.size() > shown ? text + ", ..." : text);
}

QueryPoint ReadPointArgument(const std::string& text) {
  const auto numbers = ReadNumbers(text);
  if (!numbers || numbers->size() < 2 || numbers->size() > 3)
    throw InputError(text + ": no point; a point is N,E or N,E,H");
  return {"", (*numbers)[0], (*numbers)[1], numbers->size() > 2 ? (*numbers)[2] : kUndefined};
}

bool NamesPointFile(const std::string& argument) {
  std::error_code ignored;
  return argument == "-" || (!ReadNumbers(argument) && std::filesystem::exists(argument, ignored));
}

void AddQueryInput(CLI::App& verb, QueryInput& input) {
  verb.add_option("POINT", input.arguments, "points N,E or N,E,H, or files of points")
      ->type_name("");
  verb.add_option("-p,--points", input.files, "coordinate or CSV files; - is standard input")
      ->type_name("FILE")
      ->allow_extra_args(false);
}

std::vector<QueryPoint> ReadQueryPoints(const QueryInput& input, LibraryMessages& messages) {
  std::vector<QueryPoint> points;
  for (const std::string& text : input.arguments) {
    if (NamesPointFile(text)) {
      ReadFile(text, messages, points);
    } else {
      points.push_back(ReadPointArgument(text));
    }
  }
  for (const std::string& path : input.files) ReadFile(path, messages, points);
  if (points.empty())
    throw InputError(input.files.empty() ? "no points; give N,E or --points FILE"
                                         : "the files hold no points");
  return points;
}

}  // namespace korvel

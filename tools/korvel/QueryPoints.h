#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "korvelfile/outside/base/Undefined.h"

namespace CLI {
class App;
}

namespace korvel {

class LibraryMessages;

/// A point that a model is asked for, in the units of the command line.
struct QueryPoint {
  std::string name;
  double north = kUndefined;
  double east = kUndefined;
  double height = kUndefined;  ///< metres
};

/// The point that an argument "N,E" or "N,E,H" names.
/// @throws InputError if it names none
QueryPoint ReadPointArgument(const std::string& text);

/// Name of a point in a message: its own or "N,E".
std::string NameForMessage(const QueryPoint& point);

/// Tells on standard error which points of `count` have no `what`, unless all have.
/// @param shown so many are named at most
void PrintPointsWithout(const std::string& what, const std::vector<std::string>& names,
                        std::size_t count, std::size_t shown = 20);

/// True if an argument is "-" or names a file: then points are read from there.
bool NamesPointFile(const std::string& argument);

/// Where the points of a query come from.
struct QueryInput {
  std::vector<std::string> arguments;  ///< "N,E" or "N,E,H", or files as below
  std::vector<std::string> files;      ///< coordinate files, CSV files, "-" for standard input
};

/// What the help of every verb with a `QueryInput` says of it.
extern const char* const kQueryInputHelp;

/// What the help of those adds that may work in latitude and longitude.
extern const char* const kGeographicInputHelp;

/// Adds the arguments and the option that fill `input`.
void AddQueryInput(CLI::App& verb, QueryInput& input);

/// All points of `input` in its order: the arguments first, then the files.
///
/// A point in a line is named "line.point". A point without a name gets none.
/// @throws InputError for a point or file that can't be read, and if there is no point at all
std::vector<QueryPoint> ReadQueryPoints(const QueryInput& input, LibraryMessages& messages);

}  // namespace korvel

/// @file
/// The files of a road, read by one way for all verbs, and the line that they make.
#pragma once

#include <memory>
#include <string>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/alignments/PrfFile.h"
#include "korvelfile/alignments/SkvFile.h"
#include "korvelfile/outside/model/IRoadLine.h"

namespace CLI {
class App;
}

namespace korvel {

class LibraryMessages;

/// @name Read one file; all throw InputError that says what is wrong with it
/// @{
LinFile ReadLine(const std::string& path, LibraryMessages& messages);
PrfFile ReadProfile(const std::string& path, LibraryMessages& messages);
SkvFile ReadCamber(const std::string& path, LibraryMessages& messages);
/// @}

/// The files that a verb is given for a road.
struct RoadPaths {
  std::string line;     ///< .lin
  std::string profile;  ///< .prf, or empty
  std::string camber;   ///< .skv, or empty
};

/// Adds the argument for the line and the options for the others.
void AddRoadPaths(CLI::App& verb, RoadPaths& paths);

/// What the files of a road hold, and the line that they make.
struct Road {
  LinFile lin;
  PrfFile prf;  ///< empty without a profile
  SkvFile skv;  ///< empty without crossfalls
  bool hasProfile = false;
  bool hasCamber = false;
  std::shared_ptr<Model::IRoadLine> line;
};

/// @throws InputError for a file that can't be read, and for a line without elements or one that
///   can't be built
Road ReadRoad(const RoadPaths& paths, LibraryMessages& messages);

}  // namespace korvel

#include "tools/korvel/alignments/RoadFiles.h"

#include <CLI/CLI.hpp>

#include "korvelfile/alignments/LinFileProxy.h"
#include "korvelfile/alignments/PrfFileProxy.h"
#include "korvelfile/alignments/SkvFileProxy.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/LineFactory.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"

namespace {

using korvel::InputError;
using korvel::LibraryMessages;

template <class File>
File Read(const std::string& path, const std::string& extension, const std::string& kind,
          LibraryMessages& messages) {
  korvel::RequireExtension(path, {extension});
  korvel::RequireReadable(path);
  messages.Clear();
  File file;
  if (file.Open(path.c_str()) != 0)
    throw InputError(path + ": can't be read as " + kind + messages.Explanation(path));
  return file;
}

std::shared_ptr<Model::IRoadLine> Build(korvel::Road& road, const std::string& path) {
  const File::LinFileProxy line(road.lin);
  const File::PrfFileProxy profile(road.prf);
  const File::SkvFileProxy camber(road.skv);
  try {
    return Model::BuildLine(line, road.hasProfile ? &profile : nullptr,
                            road.hasCamber ? &camber : nullptr);
  } catch (const Model::LineException& error) {
    throw InputError(path + ": makes no line: " + error.what() + "; korvel align check tells more");
  }
}

}  // namespace

namespace korvel {

LinFile ReadLine(const std::string& path, LibraryMessages& messages) {
  return Read<LinFile>(path, ".lin", "a line file", messages);
}

PrfFile ReadProfile(const std::string& path, LibraryMessages& messages) {
  return Read<PrfFile>(path, ".prf", "a profile", messages);
}

SkvFile ReadCamber(const std::string& path, LibraryMessages& messages) {
  return Read<SkvFile>(path, ".skv", "a camber file", messages);
}

void AddRoadPaths(CLI::App& verb, RoadPaths& paths) {
  verb.add_option("ROAD", paths.line, "line file, .lin")->required()->type_name("");
  verb.add_option("--prf", paths.profile, "profile, for heights")->type_name("FILE");
  verb.add_option("--skv", paths.camber, "camber file, for crossfalls")->type_name("FILE");
}

Road ReadRoad(const RoadPaths& paths, LibraryMessages& messages) {
  Road road;
  road.lin = ReadLine(paths.line, messages);
  if (road.lin.GetTotalElements() == 0) throw InputError(paths.line + ": holds no elements");
  road.hasProfile = !paths.profile.empty();
  if (road.hasProfile) road.prf = ReadProfile(paths.profile, messages);
  road.hasCamber = !paths.camber.empty();
  if (road.hasCamber) road.skv = ReadCamber(paths.camber, messages);
  road.line = Build(road, paths.line);
  return road;
}

}  // namespace korvel

#include "tools/korvel/alignments/RefineVerb.h"

#include <cstddef>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "korvelfile/alignments/CenterLineInterpolator.h"
#include "korvelfile/coordinates/CoordinateFileAdapter.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/outside/services/TerminalProgress.h"
#include "tools/korvel/CoordinateFile.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/NumberArgument.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/alignments/RoadFiles.h"

namespace {

using korvel::InputError;
using Ending = File::CenterLineInterpolator::Value;

constexpr const char* kHelp =
    "Every line of the design gets a point wherever an element of the road begins, and as many "
    "more\n"
    "as it takes to follow the road's curves within the deviations; each keeps its distance and "
    "its\n"
    "height above the road. Points get the radius of the arc behind them. Between break lines "
    "heights\n"
    "lie straight across the section, unless --own-heights is given.\n"
    "\n"
    "Points beyond the ends of the road, and what follows them in their line, stay as they are.\n"
    "\n"
    "Exit status: 0; 1 if a segment would take more points than --max-points (the file is written\n"
    "all the same); 2 for wrong use, or a file that can't be read or written.\n"
    "\n"
    "Example:\n"
    "  korvel align refine design.geo road.lin road.prf -o refined.geo --sections sections.geo\n";

struct RefineOptions {
  std::string lines;
  korvel::RoadPaths road;
  std::string out;
  std::string sections;
  double deviation = 0.01;
  double heightDeviation = 0.01;
  double tolerance = 0.001;
  int maxPoints = 1000;
  bool ownHeights = false;
  bool verbose = false;
};

void CheckFiles(const RefineOptions& options) {
  korvel::RequireExtension(options.lines, {".geo", ".llc"});
  for (const std::string& out : {options.out, options.sections}) {
    korvel::RequireExtension(out, {".geo"});
    for (const std::string& source : {options.lines, options.road.line, options.road.profile})
      if (!out.empty() && korvel::IsSameFile(out, source))
        throw InputError(out + ": is read from, and not overwritten");
  }
  if (korvel::IsSameFile(options.out, options.sections))
    throw InputError(options.out + ": can't be both outputs");
}

std::size_t CountLinePoints(const PxyCoordinateFile& file) {
  std::size_t count = 0;
  korvel::ForEachPoint(file, [&](const PointDataItem&, const LineDataItem* line) {
    if (line) ++count;
  });
  return count;
}

Ending Refine(const RefineOptions& options, const Model::ILine& road,
              const std::shared_ptr<PxyCoordinateFile>& file,
              const std::shared_ptr<PxyCoordinateFile>& sections) {
  const File::CenterLineInterpolator interpolator(
      road, options.deviation, options.heightDeviation, options.tolerance, !options.ownHeights,
      options.maxPoints, std::make_shared<Korvel::TerminalProgress>());
  try {
    return interpolator.ApplyTo(
        std::make_shared<CoordinateFileAdapter>(file),
        sections ? std::make_shared<CoordinateFileAdapter>(sections) : nullptr);
  } catch (const std::runtime_error& error) {
    throw InputError(options.lines + ": can't be refined: " + error.what());
  }
}

int RunRefineVerb(const RefineOptions& options) {
  CheckFiles(options);
  korvel::LibraryMessages messages(options.verbose);
  const korvel::Road road = korvel::ReadRoad(options.road, messages);
  const auto file = std::make_shared<PxyCoordinateFile>(false);
  korvel::ReadCoordinateFile(options.lines, *file, messages);
  std::shared_ptr<PxyCoordinateFile> sections;
  if (!options.sections.empty()) {
    sections = std::make_shared<PxyCoordinateFile>(false);
    sections->InitAndUseCollectorWithoutFuckingDisk();
  }
  const std::size_t before = CountLinePoints(*file);
  const Ending ending = Refine(options, *road.line, file, sections);
  const std::size_t after = CountLinePoints(*file);
  korvel::SaveCoordinateFile(options.out, *file, messages);
  if (sections) korvel::SaveCoordinateFile(options.sections, *sections, messages);
  std::cout << korvel::CountText(after - before, "point") << " added to "
            << korvel::CountText(before, "point") << ", written to "
            << korvel::Printable(options.out) << '\n';
  if (ending != Ending::TooManyPoints) return korvel::kDone;
  korvel::PrintError("a segment would take more than " +
                     korvel::CountText(static_cast<std::size_t>(options.maxPoints), "point") +
                     ", see --max-points");
  return korvel::kComputationFailed;
}

}  // namespace

void korvel::AddRefineVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("refine", "let design lines follow the curves of a road");
  verb.footer(kHelp);
  RefineOptions& options = OptionsOf(verb, run, RunRefineVerb);
  verb.add_option("LINES", options.lines, "coordinate file with lines, .geo .llc")
      ->required()
      ->type_name("");
  verb.add_option("ROAD", options.road.line, "line file, .lin")->required()->type_name("");
  verb.add_option("PROFILE", options.road.profile, "profile, .prf")->required()->type_name("");
  verb.add_option("-o,--output", options.out, "refined file to write, .geo")
      ->required()
      ->type_name("FILE");
  verb.add_option("--sections", options.sections, "file for the cross-sections, .geo")
      ->type_name("FILE");
  verb.add_option("--deviation", options.deviation, "largest deviation in plan, 0.01 unless given")
      ->check(NotNegative())
      ->type_name("METRES");
  verb.add_option("--height-deviation", options.heightDeviation,
                  "largest deviation in height, 0.01 unless given")
      ->check(NotNegative())
      ->type_name("METRES");
  verb.add_option("--tolerance", options.tolerance,
                  "within which chainages, offsets and heights are one, 0.001 unless given")
      ->check(Positive())
      ->type_name("METRES");
  verb.add_option("--max-points", options.maxPoints, "limit for each segment, 1000 unless given")
      ->check(CLI::Range(0, 1000000))
      ->type_name("COUNT");
  verb.add_flag("--own-heights", options.ownHeights, "take no heights across the section");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

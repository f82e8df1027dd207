#include "tools/korvel/App.h"

#include <exception>
#include <iostream>
#include <new>
#include <sstream>

#include <CLI/CLI.hpp>
#include <boost/version.hpp>
#include <cairo.h>
#include <nlohmann/json.hpp>

#include "korvelfile/Version.h"
#include "tools/korvel/Adjustment.h"
#include "tools/korvel/InfoVerb.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/StationVerb.h"
#include "tools/korvel/alignments/AlignmentVerbs.h"
#include "tools/korvel/corrections/CorrectionVerbs.h"

namespace {

std::string VersionText() {
  std::ostringstream text;
  text << "korvel " << KorvelFileVersion() << "\nwith Newmat " << korvel::NewmatVersion()
       << ", Boost " << BOOST_VERSION / 100000 << '.' << BOOST_VERSION / 100 % 1000 << '.'
       << BOOST_VERSION % 100 << ", cairo " << cairo_version_string() << ", CLI11 " << CLI11_VERSION
       << ", nlohmann json " << NLOHMANN_JSON_VERSION_MAJOR << '.' << NLOHMANN_JSON_VERSION_MINOR
       << '.' << NLOHMANN_JSON_VERSION_PATCH;
  return text.str();
}

// A full disk or a closed pipe must not look like success.
int Finish(int status) {
  if (std::cout.flush()) return status;
  korvel::PrintError("standard output can't be written");
  return korvel::kBadInput;
}

int Guarded(const korvel::VerbRun& run) {
  try {
    return Finish(run());
  } catch (const korvel::InputError& error) {
    korvel::PrintError(error.what());
  } catch (const std::bad_alloc&) {
    korvel::PrintError("out of memory");
  } catch (const std::exception& error) {
    korvel::PrintError(error.what());
    return korvel::kComputationFailed;
  }
  return korvel::kBadInput;
}

}  // namespace

int korvel::RunApp(int argc, char** argv) {
  CLI::App app(
      "Free stations, new points, corrections, roads and a look into the files of land survey.",
      "korvel");
  app.set_version_flag("--version", VersionText(), "print the versions of program and libraries");
  app.footer("korvel VERB --help tells more of each.");
  app.get_formatter()->label("SUBCOMMAND", "VERB");
  app.get_formatter()->column_width(32);
  app.require_subcommand(1);
  VerbRun run;
  AddStationVerb(app, run);
  AddInfoVerb(app, run);
  AddCorrectionVerbs(app, run);
  AddAlignmentVerbs(app, run);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kBadInput;
  }
  return Guarded(run);
}

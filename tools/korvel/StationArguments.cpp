// The command line of `korvel station`.

#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

#include "tools/korvel/AngleOption.h"
#include "tools/korvel/NumberArgument.h"
#include "tools/korvel/StationOptions.h"
#include "tools/korvel/StationVerb.h"

namespace {

using korvel::AdjustmentSettings;
using korvel::NotNegative;
using korvel::Positive;
using korvel::StationOptions;

constexpr const char* kSettingsGroup = "Adjustment: standard errors of the observations, height";

constexpr const char* kExamples =
    "A backsight is a record of type 7 that names a known point and isn't switched off by an\n"
    "attribute FSBU with none of the bits 1, 2, 4. A record in a line is looked for by its own\n"
    "name first, then as LINE.NAME. Every other record becomes a new point, if it has a distance,\n"
    "but for what is switched off. In coordinate files y stands before x; y is north, x is east.\n"
    "\n"
    "Residuals are computed less observed. With --leave-one-out, a blunder shows as the backsight\n"
    "without which the unit weight deviation drops most.\n"
    "\n"
    "Exit status: 0; 1 if a station can't be computed (the others are reported all the same);\n"
    "2 for wrong use, or a file that can't be read or written.\n"
    "\n"
    "Examples:\n"
    "  korvel station job.plm --known known.geo\n"
    "  korvel station job.plm --known a.geo b.pxy --station 8001 --points new.geo --plot 8001.pdf\n"
    "  korvel station job.plm --known known.geo --angles deg --angle-error 0.0003 --sets 2\n"
    "  korvel station job.plm --known known.geo --leave-one-out --json\n";

void AddFiles(CLI::App& verb, StationOptions& options) {
  verb.add_option("JOB", options.job, "measurement file, .plm")->required();
  verb.add_option("-k,--known", options.known, "coordinate files with known points, .geo .pxy .llc")
      ->required()
      ->type_name("FILE");
  verb.add_option("-s,--station", options.station, "do the stations of this name only")
      ->type_name("NAME");
  verb.add_option("-p,--points", options.points,
                  "write stations and new points to this file, .geo or .pxy")
      ->type_name("FILE");
  verb.add_option("--plot", options.plot,
                  "draw the station to this file, .svg .png .pdf;\nwith several stations each gets "
                  "its own, FILE-NAME.EXT")
      ->type_name("FILE");
}

void AddOutput(CLI::App& verb, StationOptions& options) {
  verb.add_flag("--json", options.json, "print the report as JSON");
  verb.add_flag("--leave-one-out", options.leaveOneOut,
                "adjust again without each backsight in turn");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
  korvel::AddAnglesOption(verb, options.angles, "unit of all angles, in and out");
}

// Angles wait for their unit, which may come behind them on the command line.
struct GivenAngles {
  std::optional<double> angleError;
  std::optional<double> verticalError;

  void PutInto(StationOptions& options) const {
    if (angleError) options.settings.angleError = options.angles.ToRadians(*angleError);
    if (verticalError) options.settings.verticalError = options.angles.ToRadians(*verticalError);
  }
};

CLI::Option* AddSetting(CLI::App& verb, const char* flag, auto& value, const char* what,
                        const CLI::Validator& check) {
  return verb.add_option(flag, value, what)->check(check)->group(kSettingsGroup);
}

void AddLengthSettings(CLI::App& verb, AdjustmentSettings& s) {
  AddSetting(verb, "--distance-error", s.distanceError, "of a distance, constant part, metres",
             Positive())
      ->type_name("M")
      ->capture_default_str();
  AddSetting(verb, "--distance-ppm", s.distancePpm, "of a distance, part that grows with it, ppm",
             NotNegative())
      ->type_name("PPM")
      ->capture_default_str();
  AddSetting(verb, "--centring-error", s.centringError, "of targets and instrument, metres",
             NotNegative())
      ->type_name("M")
      ->capture_default_str();
}

std::shared_ptr<const GivenAngles> AddAngleSettings(CLI::App& verb) {
  const auto given = std::make_shared<GivenAngles>();
  AddSetting(verb, "--angle-error", given->angleError, "of a direction, in the unit of --angles",
             Positive())
      ->type_name("ANGLE")
      ->default_str("0.0008 gon");
  AddSetting(verb, "--vertical-error", given->verticalError,
             "of a vertical angle, for --height weighted", Positive())
      ->type_name("ANGLE")
      ->default_str("0.0008 gon");
  return given;
}

void AddMethods(CLI::App& verb, AdjustmentSettings& s) {
  AddSetting(verb, "--sets", s.sets, "sets of directions measured; 0 counts as half a set",
             CLI::Range(0, 1000000).description(""))
      ->type_name("N")
      ->capture_default_str();
  verb.add_option_function<std::string>(
          "--height", [&s](const std::string& name) { s.height = korvel::FindHeightMethod(name); },
          "as the mean of what the backsights give, as their\nweighted adjustment, or none at all")
      ->check(CLI::IsMember({"mean", "weighted", "none"}).description(""))
      ->type_name("mean|weighted|none")
      ->default_str("mean")
      ->group(kSettingsGroup);
}

}  // namespace

void korvel::AddStationVerb(CLI::App& app, VerbRun& run) {
  CLI::App& verb = *app.add_subcommand(
      "station", "adjust the free stations of a measurement file and compute their new points");
  verb.footer(kExamples);
  const auto options = std::make_shared<StationOptions>();
  AddFiles(verb, *options);
  AddOutput(verb, *options);
  const auto given = AddAngleSettings(verb);
  AddLengthSettings(verb, options->settings);
  AddMethods(verb, options->settings);
  verb.callback([options, given, &run] {
    given->PutInto(*options);
    run = [options] { return RunStationVerb(*options); };
  });
}

#include "tools/korvel/corrections/SectionVerb.h"

#include <cmath>
#include <iostream>
#include <string>
#include <vector>

#include "korvelfile/corrections/LmvTriadFile.h"
#include "korvelfile/outside/base/Angles.h"
#include "tools/korvel/AngleOption.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/NumberArgument.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/QueryPoints.h"
#include "tools/korvel/ResultWriter.h"
#include "tools/korvel/corrections/CorrectionModel.h"
#include "tools/korvel/corrections/QueryRows.h"

namespace {

constexpr const char* kHelp =
    "A row stands for each place where the section meets an edge of a triangle; between two of "
    "them\n"
    "the corrections are linear. Distances count from the point, negative behind it; the rows go "
    "in\n"
    "the direction of the azimuth, clockwise from north.\n"
    "\n"
    "Exit status: 0; 1 if the point lies outside of the network; 2 for wrong use, or a file that\n"
    "can't be read.\n"
    "\n"
    "Example:\n"
    "  korvel triad section region.tri 6580000,1628000 --azimuth 50\n";

struct SectionOptions {
  std::string network;
  std::string point;
  double azimuth = 0.0;
  korvel::AngleUnit angles = korvel::FindAngleUnit("gon");
  korvel::ResultFormat format;
};

std::vector<korvel::ResultColumn> Columns() {
  const korvel::ModelUnits metres(false, korvel::FindAngleUnit("gon"));
  std::vector<korvel::ResultColumn> columns{{"distance", "distance m", metres.Decimals()}};
  AddPositionColumns(columns, metres, "", "");
  AddPlaneCorrectionColumns(columns, metres);
  return columns;
}

// Distance of `p` from `point` in the direction `angle`, a mathematical angle.
double Along(const Vector& point, const Vector& p, double angle) {
  const Vector way = p - point;
  return way.x * std::cos(angle) + way.y * std::sin(angle);
}

int RunSectionVerb(const SectionOptions& options) {
  const korvel::QueryPoint given = korvel::ReadPointArgument(options.point);
  const auto network = korvel::OpenTriad(options.network);
  const Vector point(given.east, given.north);
  const double angle = SwapAngleDirection(options.angles.ToRadians(options.azimuth));
  // The network draws sections from the left to the right of the direction in which one looks.
  const auto section = network->GetCrossSection(point, angle + kHalfPi);
  const auto writer = korvel::ResultWriter::Make(options.format, Columns(),
                                                 {{"network", korvel::JsonText(options.network)},
                                                  {"north", given.north},
                                                  {"east", given.east},
                                                  {"azimuth", options.azimuth},
                                                  {"angle_unit", options.angles.name},
                                                  {"unit", "m"}},
                                                 "points", std::cout);
  for (const auto& p : section)
    writer->Add({Along(point, p, angle), p.y, p.x, korvel::DecimalOf(p.value.y),
                 korvel::DecimalOf(p.value.x)});
  writer->End();
  if (!section.empty()) return korvel::kDone;
  korvel::PrintError(options.point + ": lies outside of the network");
  return korvel::kComputationFailed;
}

}  // namespace

void korvel::AddSectionVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("section", "list corrections along a line");
  verb.footer(kHelp);
  SectionOptions& options = OptionsOf(verb, run, RunSectionVerb);
  verb.add_option("NETWORK", options.network, "file of the network")->required()->type_name("");
  verb.add_option("POINT", options.point, "N,E that the section goes through")
      ->required()
      ->type_name("");
  verb.add_option("-a,--azimuth", options.azimuth, "direction of the section")
      ->required()
      ->check(AnyNumber())
      ->type_name("ANGLE");
  AddAnglesOption(verb, options.angles, "unit of the azimuth");
  AddResultFormat(verb, options.format);
}

#include "tools/korvel/corrections/FieldPlotVerb.h"

#include <iostream>
#include <string>

#include "korvelfile/outside/services/ProgressBar.h"
#include "tools/korvel/AngleOption.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/corrections/FieldPlot.h"
#include "tools/korvel/corrections/FieldScene.h"

namespace {

struct PlotOptions {
  std::string model;
  std::string out;
  korvel::AngleUnit angles = korvel::FindAngleUnit("deg");
};

int RunPlotVerb(const PlotOptions& options) {
  korvel::RequireExtension(options.out, {".svg", ".png", ".pdf"});
  Korvel::ProgressBar progress(korvel::Printable(options.model));
  const korvel::FieldScene scene = korvel::ReadFieldScene(
      options.model, options.angles, [&](double done) { progress.Show(done); });
  progress.End();
  korvel::WriteFieldPlot(options.out, scene);
  std::cout << "Plot written to " << korvel::Printable(options.out) << '\n';
  return korvel::kDone;
}

}  // namespace

void korvel::AddFieldPlotVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("plot", "draw a grid or a network");
  verb.footer(
      "Plane corrections are arrows, heights are colours, each with its scale; a network shows "
      "its\n"
      "triangles. Of a large model as many arrows are drawn as find room.\n"
      "\n"
      "Example:\n"
      "  korvel grid plot region.ccg -o region.pdf\n");
  PlotOptions& options = OptionsOf(verb, run, RunPlotVerb);
  verb.add_option("MODEL", options.model, "correction grid, geoid grid or network")
      ->required()
      ->type_name("");
  verb.add_option("-o,--output", options.out, "picture to write, .svg .png .pdf")
      ->required()
      ->type_name("FILE");
  AddAnglesOption(verb, options.angles, "unit of latitude and longitude");
}

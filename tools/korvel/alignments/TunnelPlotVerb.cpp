#include "tools/korvel/alignments/TunnelPlotVerb.h"

#include <iostream>
#include <string>

#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/PlotCanvas.h"
#include "tools/korvel/PlotColumn.h"
#include "tools/korvel/PlotMap.h"
#include "tools/korvel/PlotPen.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/alignments/LinePlan.h"
#include "tools/korvel/alignments/TunnelOutline.h"

namespace {

using korvel::PlotMap;
using korvel::PlotPen;
using korvel::TunnelOutline;

struct TunnelPlotOptions {
  std::string tunnel;
  std::string out;
  bool verbose = false;
};

void DrawCentre(const PlotPen& pen, const PlotMap& map, const TunnelOutline& outline) {
  const TunFile& file = outline.Get();
  const auto centre = outline.Plan().placeAt(file.GetTcArcLength());
  if (file.GetTcIndex() >= 0 && centre) pen.KnownSign(map.ToPage(centre->at));
}

void DrawPanel(const PlotPen& pen, const PlotMap& map, const TunnelPlotOptions& options,
               const TunnelOutline& outline, int unlabelled) {
  const TunFile& file = outline.Get();
  korvel::PlotColumn panel(pen, map);
  panel.Title("Tunnel");
  panel.Subtitle(korvel::Printable(options.tunnel));
  panel.Head("Contents");
  panel.Fact("elements", std::to_string(outline.Elements().size()));
  panel.Fact("length", korvel::MetreText(file.GetTotalLength()) + " m");
  AddPlanLegend(panel, pen, map, false, "length from the start");
  if (file.GetTcIndex() >= 0)
    panel.Sign("tunnel centre", [&](const Vector& at) { pen.KnownSign(at); });
  AddPlanScale(panel, map, unlabelled);
}

int RunTunnelPlotVerb(const TunnelPlotOptions& options) {
  korvel::RequireExtension(options.out, {".svg", ".png", ".pdf"});
  korvel::LibraryMessages messages(options.verbose);
  const TunnelOutline outline(options.tunnel, messages);
  const korvel::PlanLine line = outline.Plan();
  const korvel::LinePlan plan(line);
  const PlotMap map(plan.Places());
  korvel::PlotCanvas canvas(korvel::ExtensionOf(options.out), map.GetPageWidth(),
                            map.GetPageHeight());
  const PlotPen pen(canvas.Context());
  const int unlabelled = plan.Draw(pen, map);
  DrawCentre(pen, map, outline);
  DrawPanel(pen, map, options, outline, unlabelled);
  canvas.Write(options.out);
  std::cout << "Plot written to " << korvel::Printable(options.out) << '\n';
  return korvel::kDone;
}

}  // namespace

void korvel::AddTunnelPlotVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("plot", "draw an outline");
  verb.footer(
      "The outline stands in the plane of the section, by kinds of elements, with radii and "
      "lengths\n"
      "from its start.\n"
      "\n"
      "Example:\n"
      "  korvel tunnel plot outline.tun -o outline.pdf\n");
  TunnelPlotOptions& options = OptionsOf(verb, run, RunTunnelPlotVerb);
  AddTunnelPath(verb, options.tunnel);
  verb.add_option("-o,--output", options.out, "picture to write, .svg .png .pdf")
      ->required()
      ->type_name("FILE");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

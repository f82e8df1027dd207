#include "tools/korvel/alignments/RoadPlotVerb.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "korvelfile/outside/model/LineException.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/PlotCanvas.h"
#include "tools/korvel/PlotColumn.h"
#include "tools/korvel/PlotMap.h"
#include "tools/korvel/PlotPen.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/alignments/Elements.h"
#include "tools/korvel/alignments/LinePlan.h"
#include "tools/korvel/alignments/RoadDiagrams.h"
#include "tools/korvel/alignments/RoadFiles.h"

namespace {

using korvel::PlotColumn;
using korvel::PlotMap;
using korvel::PlotPen;
using korvel::Road;

struct RoadPlotOptions {
  korvel::RoadPaths road;
  std::string out;
  bool verbose = false;
};

korvel::Colour ColourOf(const TLin& element) {
  if (korvel::IsClothoid(element)) return korvel::kClothoidColour;
  return korvel::IsArc(element) ? korvel::kArcColour : korvel::kStraightColour;
}

double LargestCurvature(const TLin& e) {
  const auto curvature = [](double radius) {
    return radius == 0.0 ? 0.0 : std::fabs(1.0 / radius);
  };
  return std::max(curvature(e.GetRadius()), curvature(e.GetERadius()));
}

korvel::PlanLine PlanOf(const Road& road) {
  korvel::PlanLine plan;
  for (const TLin& e : korvel::ElementsOf(road.lin))
    plan.elements.push_back(
        {e.GetSection(), e.GetLength(), LargestCurvature(e), ColourOf(e), korvel::FigureOf(e)});
  plan.range = {road.line->GetStartArc(), road.line->GetEndArc()};
  plan.placeAt = [&road](double arc) -> std::optional<korvel::PlanPlace> {
    try {
      const Model::Coordinate place = road.line->PointAt(arc, 0.0);
      return korvel::PlanPlace{{place.X, place.Y}, road.line->DirectionAt(arc)};
    } catch (const Model::LineException&) {
      return std::nullopt;
    }
  };
  return plan;
}

void DrawPanel(const PlotPen& pen, const PlotMap& map, const RoadPlotOptions& options,
               const Road& road, int unlabelled) {
  PlotColumn panel(pen, map);
  panel.Title("Road");
  panel.Subtitle(korvel::Printable(options.road.line));
  panel.Head("Contents");
  panel.Fact("elements", std::to_string(road.lin.GetTotalElements()));
  panel.Fact("from chainage", korvel::MetreText(road.line->GetStartArc()) + " m");
  panel.Fact("to chainage", korvel::MetreText(road.line->GetEndArc()) + " m");
  AddPlanLegend(panel, pen, map, true, "chainage");
  AddPlanScale(panel, map, unlabelled);
  DrawNorthArrow(pen, map);
}

int RunRoadPlotVerb(const RoadPlotOptions& options) {
  korvel::RequireExtension(options.out, {".svg", ".png", ".pdf"});
  korvel::LibraryMessages messages(options.verbose);
  const Road road = korvel::ReadRoad(options.road, messages);
  const korvel::PlanLine line = PlanOf(road);
  const korvel::LinePlan plan(line);
  const std::vector<korvel::Diagram> diagrams = korvel::DiagramsOf(road);
  const PlotMap map(plan.Places());
  const double height = korvel::kDiagramHeight * static_cast<double>(diagrams.size());
  korvel::PlotCanvas canvas(korvel::ExtensionOf(options.out), map.GetPageWidth(),
                            map.GetPageHeight() + height);
  const PlotPen pen(canvas.Context());
  DrawPanel(pen, map, options, road, plan.Draw(pen, map));
  double top = map.GetPageHeight();
  for (const korvel::Diagram& diagram : diagrams) {
    DrawDiagram(pen, top, map.GetPageWidth(), line.range, diagram);
    top += korvel::kDiagramHeight;
  }
  canvas.Write(options.out);
  std::cout << "Plot written to " << korvel::Printable(options.out) << '\n';
  return korvel::kDone;
}

}  // namespace

void korvel::AddRoadPlotVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("plot", "draw a road");
  verb.footer(
      "The plan shows kinds and limits of elements, radii, parameters and chainages; below it "
      "stand\n"
      "the profile, the curvature and the crossfalls, as far as there are files for them.\n"
      "\n"
      "Example:\n"
      "  korvel align plot road.lin --prf road.prf --skv road.skv -o road.pdf\n");
  RoadPlotOptions& options = OptionsOf(verb, run, RunRoadPlotVerb);
  AddRoadPaths(verb, options.road);
  verb.add_option("-o,--output", options.out, "picture to write, .svg .png .pdf")
      ->required()
      ->type_name("FILE");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

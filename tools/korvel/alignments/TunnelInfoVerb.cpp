#include "tools/korvel/alignments/TunnelInfoVerb.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/SummaryText.h"
#include "tools/korvel/ValueRange.h"
#include "tools/korvel/alignments/TunnelOutline.h"

namespace {

using korvel::Json;
using korvel::TunnelOutline;
using korvel::ValueRange;

constexpr double kClosedWithin = 1e-3;  // metres, a little more than files round

struct TunnelInfoOptions {
  std::vector<std::string> files;
  bool json = false;
  bool verbose = false;
};

void AddExtent(const TunnelOutline& outline, Json& summary) {
  ValueRange side, height, radius;
  const korvel::PlanLine plan = outline.Plan();
  for (const Vector& place : korvel::LinePlan(plan).Places()) {
    side.Add(place.x);
    height.Add(place.y);
  }
  for (const TunElement& e : outline.Elements())
    if (e.Radius != 0.0) radius.Add(std::fabs(e.Radius));
  summary["arcs"] = radius.count;
  summary["side"] = side.ToJson();
  summary["height"] = height.ToJson();
  if (radius.count > 0) summary["radius"] = radius.ToJson();
}

Json Summarize(const std::string& path, korvel::LibraryMessages& messages) {
  const TunnelOutline outline(path, messages);
  const TunFile& file = outline.Get();
  Json summary{{"file", korvel::JsonText(path)},
               {"format", "tunnel outline"},
               {"elements", outline.Elements().size()}};
  AddExtent(outline, summary);
  const double gap = outline.Elements().front().Start.GetDistance(outline.Elements().back().End);
  summary["length"] = korvel::JsonNumber(file.GetTotalLength());
  summary["closed"] = gap <= kClosedWithin;
  if (file.GetTcIndex() >= 0)
    summary["centre"] = {{"element", file.GetTcIndex() + 1},
                         {"arc", korvel::JsonNumber(file.GetTcArcLength())}};
  return summary;
}

int RunTunnelInfoVerb(const TunnelInfoOptions& options) {
  korvel::LibraryMessages messages(options.verbose);
  return korvel::PrintSummaries(options.files, options.json,
                                [&](const std::string& path) { return Summarize(path, messages); });
}

}  // namespace

void korvel::AddTunnelInfoVerb(CLI::App& group, VerbRun& run) {
  CLI::App& verb = *group.add_subcommand("info", "tell what outlines hold");
  verb.footer(
      "Metres; the side is positive to the right, the height upwards.\n"
      "\n"
      "Exit status: 0; 2 if a file can't be read (the others are shown all the same).\n");
  TunnelInfoOptions& options = OptionsOf(verb, run, RunTunnelInfoVerb);
  verb.add_option("TUNNEL", options.files, "outlines to look into, .tun .geo .pxy")
      ->required()
      ->type_name("");
  verb.add_flag("--json", options.json, "print an array with one JSON object for each file");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

#include "tools/korvel/corrections/QueryVerb.h"

#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "korvelfile/outside/services/ProgressBar.h"
#include "tools/korvel/AngleOption.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/ResultWriter.h"
#include "tools/korvel/corrections/CorrectionQuery.h"
#include "tools/korvel/corrections/QueryRows.h"

namespace {

using korvel::CorrectedPoint;
using korvel::CorrectionModel;
using korvel::ModelKind;
using korvel::ModelUnits;
using korvel::QueryPoint;

struct QueryOptions {
  ModelKind kind{};
  std::string model;
  korvel::QueryInput input;
  korvel::ResultFormat format;
  korvel::AngleUnit angles = korvel::FindAngleUnit("deg");
  bool inverse = false;
  bool verbose = false;
};

void RequireKind(const QueryOptions& options) {
  const ModelKind kind = korvel::FindModelKind(options.model);
  if (kind == options.kind) return;
  throw korvel::InputError(options.model + ": is " + ModelKindName(kind) + ", not " +
                           ModelKindName(options.kind) + "; ask it by korvel " +
                           korvel::ModelKindGroup(kind) + " query");
}

korvel::Json About(const QueryOptions& options, const ModelUnits& units) {
  return {{"model", korvel::JsonText(options.model)},
          {"unit", units.Name()},
          {"height_unit", "m"},
          {"inverse", options.inverse}};
}

int RunQueryVerb(const QueryOptions& options) {
  korvel::LibraryMessages messages(options.verbose);
  RequireKind(options);
  const auto model = CorrectionModel::Open(options.model);
  const ModelUnits units(model->GetTraits().isGeographic, options.angles);
  const korvel::CorrectionQuery query(*model, units, options.inverse);
  const korvel::QueryRows rows(model->GetTraits(), units, options.inverse);
  const std::vector<QueryPoint> points = korvel::ReadQueryPoints(options.input, messages);
  const auto writer = korvel::ResultWriter::Make(options.format, rows.Columns(),
                                                 About(options, units), "points", std::cout);
  auto progress = Korvel::ProgressBar::BesideOutput(korvel::Printable(options.model));
  std::vector<std::string> uncorrected;
  for (std::size_t i = 0; i < points.size(); ++i) {
    progress.Show(static_cast<double>(i) / static_cast<double>(points.size()));
    const CorrectedPoint result = query.Correct(points[i]);
    if (!result.fault.empty()) uncorrected.push_back(NameForMessage(points[i]));
    writer->Add(rows.Cells(points[i], result));
  }
  progress.End();
  writer->End();
  korvel::PrintPointsWithout("correction", uncorrected, points.size());
  return uncorrected.empty() ? korvel::kDone : korvel::kComputationFailed;
}

const char* Description(ModelKind kind) {
  switch (kind) {
    case ModelKind::CorrectionGrid:
      return "correct points by a correction grid";
    case ModelKind::GeoidGrid:
      return "tell geoid heights at points, and their heights above it";
    case ModelKind::Network:
      break;
  }
  return "correct points by a triangulated network";
}

std::string Footer(ModelKind kind) {
  const std::string group = korvel::ModelKindGroup(kind);
  return std::string(korvel::kQueryInputHelp) + korvel::kGeographicInputHelp +
         "\n"
         "Every point gets its row. One without a correction says why in its last column, and is\n"
         "named on standard error too.\n"
         "\n"
         "Exit status: 0; 1 if a point has no correction; 2 for wrong use, or a file that can't "
         "be\n"
         "read.\n"
         "\n"
         "Examples:\n"
         "  korvel " +
         group + " query MODEL 5528000.5,3456000\n  korvel " + group +
         " query MODEL --points points.geo --csv\n  korvel " + group +
         " query MODEL --points - --inverse --json <points.csv\n";
}

}  // namespace

void korvel::AddQueryVerb(CLI::App& group, VerbRun& run, ModelKind kind) {
  CLI::App& verb = *group.add_subcommand("query", Description(kind));
  verb.footer(Footer(kind));
  QueryOptions& options = OptionsOf(verb, run, RunQueryVerb);
  options.kind = kind;
  verb.add_option("MODEL", options.model, "file of the model")->required()->type_name("");
  AddQueryInput(verb, options.input);
  verb.add_flag("-i,--inverse", options.inverse,
                kind == ModelKind::GeoidGrid ? "from heights above the geoid to ellipsoidal ones"
                                             : "take corrections off again");
  AddResultFormat(verb, options.format);
  if (kind != ModelKind::Network)
    AddAnglesOption(verb, options.angles, "unit of latitude and longitude");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

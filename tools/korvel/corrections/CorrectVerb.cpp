#include "tools/korvel/corrections/CorrectVerb.h"

#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/outside/services/ProgressBar.h"
#include "tools/korvel/AngleOption.h"
#include "tools/korvel/CoordinateFile.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/QueryPoints.h"
#include "tools/korvel/TextTable.h"
#include "tools/korvel/ValueRange.h"
#include "tools/korvel/corrections/CorrectionModel.h"
#include "tools/korvel/corrections/CorrectionQuery.h"

namespace {

using korvel::CorrectedPoint;
using korvel::CorrectionModel;
using korvel::InputError;
using korvel::IsKnown;
using korvel::ModelUnits;
using korvel::ValueRange;

constexpr const char* kHelp =
    "Points and the points of lines are corrected; names, codes, attributes and header stay. With\n"
    "--inverse the corrections are taken off again. A grid of geoid heights turns ellipsoidal\n"
    "heights into heights above the geoid. For a model in latitude and longitude y is the "
    "latitude\n"
    "and x the longitude, in degrees or what --angles says.\n"
    "\n"
    "Where a point has no correction, nothing is written, unless --keep-uncorrected writes such\n"
    "points as they are; they are named in any case.\n"
    "\n"
    "Exit status: 0; 1 if nothing is written since a point has no correction; 2 for wrong use, or "
    "a\n"
    "file that can't be read or written.\n"
    "\n"
    "Examples:\n"
    "  korvel correct old.geo new.geo --model region.ccg\n"
    "  korvel correct new.pxy old.pxy --model region.ccg --inverse\n"
    "  korvel correct gnss.geo levels.geo --model geoid.grd\n";

struct CorrectOptions {
  std::string in;
  std::string out;
  std::string model;
  korvel::AngleUnit angles = korvel::FindAngleUnit("deg");
  bool inverse = false;
  bool keepUncorrected = false;
  bool verbose = false;
};

/// What was done to the points of a file.
struct Correction {
  std::size_t count = 0;  ///< points
  std::vector<std::string> uncorrected;
  ValueRange north, east, height;  ///< of the corrections
};

/// Corrects points in place.
class PointCorrector {
 public:
  PointCorrector(const CorrectionModel& model, const ModelUnits& units, bool isInverse)
      : traits_(model.GetTraits()), query_(model, units, isInverse) {}

  void Correct(PointDataItem& point, const LineDataItem* line) {
    ++done_.count;
    const CorrectedPoint result = query_.Correct({"", point.y, point.x, point.z});
    const bool lacksHeight = !traits_.hasPlane && !IsKnown(point.z);
    if (!result.fault.empty() || lacksHeight) {
      done_.uncorrected.push_back(korvel::FullName(point, line));
      return;
    }
    if (traits_.hasPlane) CorrectPlane(point, result);
    if (traits_.hasHeight && IsKnown(point.z)) {
      point.z = result.height;
      done_.height.Add(result.correction.z);
    }
  }
  const Correction& Done() const { return done_; }

 private:
  void CorrectPlane(PointDataItem& point, const CorrectedPoint& result) {
    point.y = result.north;
    point.x = result.east;
    done_.north.Add(result.correction.x);
    done_.east.Add(result.correction.y);
  }

  CorrectionModel::Traits traits_;
  korvel::CorrectionQuery query_;
  Correction done_;
};

void CheckFiles(const CorrectOptions& options) {
  korvel::RequireExtension(options.out, {".geo", ".pxy"});
  if (korvel::ExtensionOf(options.in) != korvel::ExtensionOf(options.out))
    throw InputError(options.out + ": must have the extension of " + options.in);
  for (const std::string& source : {options.in, options.model})
    if (korvel::IsSameFile(options.out, source))
      throw InputError(options.out + ": is read from, and not overwritten");
}

// Four decimals of an angle are metres on the ground.
void CheckDigits(const CorrectOptions& options, const CorrectionModel& model) {
  if (model.GetTraits().isGeographic && model.GetTraits().hasPlane &&
      korvel::ExtensionOf(options.out) == ".pxy")
    throw InputError(options.out + ": has too few decimals for latitude and longitude; use .geo");
}

Correction CorrectAll(const CorrectOptions& options, const CorrectionModel& model,
                      PxyCoordinateFile& file) {
  const ModelUnits units(model.GetTraits().isGeographic, options.angles);
  PointCorrector corrector(model, units, options.inverse);
  Korvel::ProgressBar progress(korvel::Printable(options.in));
  std::size_t count = 0;
  korvel::ForEachPoint(file, [&](const PointDataItem&, const LineDataItem*) { ++count; });
  korvel::ForEachPoint(file, [&](PointDataItem& point, const LineDataItem* line) {
    corrector.Correct(point, line);
    progress.Show(static_cast<double>(corrector.Done().count) / static_cast<double>(count));
  });
  return corrector.Done();
}

void PrintDone(const Correction& done, const CorrectOptions& options, const ModelUnits& units) {
  std::cout << korvel::CountText(done.count - done.uncorrected.size(), "point")
            << (options.inverse ? " with the correction taken off" : " corrected")
            << ", written to " << korvel::Printable(options.out) << '\n';
  korvel::TextTable table(
      {{"correction", korvel::TextTable::Align::Left}, {"from"}, {"to"}, {"mean"}});
  const auto add = [&](const std::string& what, const ValueRange& range, double scale,
                       int decimals) {
    if (range.count == 0) return;
    table.AddRow({what, korvel::NumberText(range.least * scale, decimals),
                  korvel::NumberText(range.most * scale, decimals),
                  korvel::NumberText(range.Mean() * scale, decimals)});
  };
  const std::string unit = ' ' + units.CorrectionName();
  add("dN" + unit, done.north, units.CorrectionScale(), units.CorrectionDecimals());
  add("dE" + unit, done.east, units.CorrectionScale(), units.CorrectionDecimals());
  add("dH m", done.height, 1.0, 4);
  table.Print(std::cout, "  ");
}

int RunCorrectVerb(const CorrectOptions& options) {
  CheckFiles(options);
  korvel::LibraryMessages messages(options.verbose);
  const auto model = CorrectionModel::Open(options.model);
  CheckDigits(options, *model);
  PxyCoordinateFile file(false);
  korvel::ReadCoordinateFile(options.in, file, messages);
  const Correction done = CorrectAll(options, *model, file);
  korvel::PrintPointsWithout("correction", done.uncorrected, done.count, done.count);
  if (!done.uncorrected.empty() && !options.keepUncorrected) {
    korvel::PrintError(options.out + ": not written; --keep-uncorrected writes such points too");
    return korvel::kComputationFailed;
  }
  korvel::SaveCoordinateFile(options.out, file, messages);
  PrintDone(done, options, ModelUnits(model->GetTraits().isGeographic, options.angles));
  return korvel::kDone;
}

}  // namespace

void korvel::AddCorrectVerb(CLI::App& app, VerbRun& run) {
  CLI::App& verb = *app.add_subcommand("correct", "apply a model to a coordinate file");
  verb.footer(kHelp);
  CorrectOptions& options = OptionsOf(verb, run, RunCorrectVerb);
  verb.add_option("IN", options.in, "coordinate file, .geo or .pxy")->required()->type_name("");
  verb.add_option("OUT", options.out, "file to write, of the same kind")->required()->type_name("");
  verb.add_option("-m,--model", options.model, "correction grid, geoid grid or network")
      ->required()
      ->type_name("FILE");
  verb.add_flag("-i,--inverse", options.inverse, "take corrections off again");
  verb.add_flag("--keep-uncorrected", options.keepUncorrected,
                "write points without a correction as they are");
  AddAnglesOption(verb, options.angles, "unit of latitude and longitude");
  verb.add_flag("-v,--verbose", options.verbose, "show the messages of the library");
}

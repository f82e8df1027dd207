#include "tools/korvel/StationVerb.h"

#include <algorithm>
#include <iostream>
#include <set>

#include "korvelfile/Version.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/FilePath.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Time.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/KnownPoints.h"
#include "tools/korvel/LibraryMessages.h"
#include "tools/korvel/PointsFile.h"
#include "tools/korvel/StationComputation.h"
#include "tools/korvel/StationJson.h"
#include "tools/korvel/StationPlot.h"
#include "tools/korvel/StationReport.h"
#include "tools/korvel/StationRun.h"

namespace {

using korvel::InputError;
using korvel::StationOptions;
using korvel::StationOutcome;
using korvel::StationRun;

void CheckOutput(const std::string& path, const std::vector<std::string>& extensions,
                 const StationOptions& options) {
  if (path.empty()) return;
  korvel::RequireExtension(path, extensions);
  for (const std::string& known : options.known)
    if (korvel::IsSameFile(path, known))
      throw InputError(path + ": is one of the known files, which are not overwritten");
}

void ReadJob(const std::string& path, MeasurementFile& job, korvel::LibraryMessages& messages) {
  messages.Clear();
  job.ChooseFile(path.c_str());
  if (korvel::ExtensionOf(path) != ".plm")
    throw InputError(path + ": not a measurement file: its extension is not .plm");
  if (job.UseCollector() != 0)
    throw InputError(korvel::DescribeReadFault(path, job, "a measurement file", messages));
}

std::vector<StationDataItem*> AllStations(const MeasurementFile& job) {
  std::vector<StationDataItem*> stations;
  TypedItemCursor<StationDataItem> cursor(job);
  StationDataItem* station = nullptr;
  while (cursor.Next(station) == 0) stations.push_back(station);
  return stations;
}

// The stations of the name asked for, or all.
std::vector<StationDataItem*> ChooseStations(const MeasurementFile& job,
                                             const StationOptions& options) {
  std::vector<StationDataItem*> stations = AllStations(job);
  if (options.station.empty()) return stations;
  std::string names;
  for (const StationDataItem* station : stations)
    names += (names.empty() ? "" : ", ") + station->NameText();
  std::erase_if(stations, [&](const StationDataItem* station) {
    return station->NameText() != options.station;
  });
  if (stations.empty())
    throw InputError(options.job + ": no station " + options.station +
                     (names.empty() ? "; it holds none" : "; it holds " + names));
  return stations;
}

std::string Now() {
  const GeoDate now = _Time::GetDateLocal();
  return SF::dformat("%04d-%02d-%02d %02d:%02d:%02d", now.year, now.month, now.day, now.hour,
                     now.minute, now.second);
}

StationRun Compute(const StationOptions& options, const MeasurementFile& job,
                   const korvel::KnownPoints& known) {
  StationRun run;
  run.options = options;
  run.program = std::string("korvel ") + KorvelFileVersion();
  run.date = Now();
  if (const auto* header = FindFirst<FileHeader>(job))
    run.jobDescription = header->GetDescription();
  run.knownFiles = known.GetFileLines();
  run.warnings = known.GetWarnings();
  for (StationDataItem* station : ChooseStations(job, options))
    run.outcomes.push_back(ComputeStation(*station, known, options));
  return run;
}

bool AnyComputed(const StationRun& run) {
  return std::any_of(run.outcomes.begin(), run.outcomes.end(),
                     [](const StationOutcome& outcome) { return outcome.IsComputed(); });
}

// The path as given for a single plot; else with the station's name before the extension, and a
// number behind the name where that is taken.
std::string PlotPath(const std::string& path, const StationOutcome& outcome, bool isOnly,
                     std::set<std::string>& taken) {
  if (isOnly) return path;
  std::string name = outcome.station->NameText();
  std::replace(name.begin(), name.end(), '/', '_');
  Korvel::FilePathT file(path);
  const std::string base = file.GetBasename() + '-' + name;
  file.SetBasename(base);
  for (int i = 2; !taken.insert(file.GetFullpath()).second; ++i)
    file.SetBasename(base + '-' + std::to_string(i));
  return file.GetFullpath();
}

void WritePlots(StationRun& run) {
  const auto computed = std::count_if(run.outcomes.begin(), run.outcomes.end(),
                                      [](const StationOutcome& o) { return o.IsComputed(); });
  std::set<std::string> taken;
  for (const StationOutcome& outcome : run.outcomes) {
    if (!outcome.IsComputed()) continue;
    const std::string path = PlotPath(run.options.plot, outcome, computed == 1, taken);
    WriteStationPlot(path, outcome, run.options);
    run.plots.push_back(path);
  }
}

// Writes the files asked for. A fault is told, and the report comes all the same.
bool WriteFiles(StationRun& run, korvel::LibraryMessages& messages) {
  if (!AnyComputed(run)) return true;
  try {
    if (!run.options.points.empty()) {
      WritePointsFile(run.options.points, run.outcomes, messages);
      run.pointsFile = run.options.points;
    }
    if (!run.options.plot.empty()) WritePlots(run);
    return true;
  } catch (const InputError& error) {
    korvel::PrintError(error.what());
    return false;
  }
}

bool PrintFailures(const StationRun& run) {
  if (run.outcomes.empty()) korvel::PrintError(run.options.job + ": holds no station");
  bool hasFailed = run.outcomes.empty();
  for (const StationOutcome& outcome : run.outcomes) {
    if (outcome.IsComputed()) continue;
    hasFailed = true;
    korvel::PrintError(run.options.job + ": station " + outcome.station->NameText() + ": " +
                       outcome.failure);
  }
  return hasFailed;
}

}  // namespace

int korvel::RunStationVerb(const StationOptions& options) {
  CheckOutput(options.points, {".geo", ".pxy"}, options);
  CheckOutput(options.plot, {".svg", ".png", ".pdf"}, options);
  LibraryMessages messages(options.verbose);
  MeasurementFile job;
  ReadJob(options.job, job, messages);
  const KnownPoints known(options.known, messages);
  StationRun run = Compute(options, job, known);
  const bool isWritten = WriteFiles(run, messages);
  options.json ? PrintStationJson(run, std::cout) : PrintStationReport(run, std::cout);
  const bool hasFailed = PrintFailures(run);
  if (!isWritten) return kBadInput;
  return hasFailed ? kComputationFailed : kDone;
}

#include "tools/korvel/StationReport.h"

#include <cmath>
#include <cstddef>
#include <ostream>
#include <string>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/StationRun.h"
#include "tools/korvel/TextTable.h"

namespace {

using korvel::AdjustmentSettings;
using korvel::AngleUnit;
using korvel::CountText;
using korvel::IsKnown;
using korvel::MetreText;
using korvel::MillimetreText;
using korvel::NumberText;
using korvel::Printable;
using korvel::StationOutcome;
using korvel::StationRun;
using korvel::TextTable;

using Align = TextTable::Align;

constexpr const char* kIndent = "  ";

std::string Small(const AngleUnit& unit, double radians) {
  return unit.SmallText(radians) + ' ' + std::string(unit.smallName);
}

std::string Millimetres(double metres) { return MillimetreText(metres) + " mm"; }

std::string SetsText(int sets) {
  return sets == 0 ? "number of sets not given, counts as half a set"
                   : CountText(static_cast<std::size_t>(sets), "set");
}

std::string LengthErrorsText(const AdjustmentSettings& s) {
  return "distance " + Millimetres(s.distanceError) + " + " + NumberText(s.distancePpm, 1) +
         " ppm, centring " + Millimetres(s.centringError);
}

std::string AngleErrorsText(const AdjustmentSettings& s, const AngleUnit& unit) {
  return "direction " + Small(unit, s.angleError) + ", vertical angle " +
         Small(unit, s.verticalError) + "; " + SetsText(s.sets);
}

void PrintHeader(const StationRun& run, std::ostream& out) {
  const AngleUnit& unit = run.options.angles;
  out << "Free station, " << run.program << ", " << run.date << "\n\n";
  TextTable table({{"", Align::Left}, {"", Align::Left}});
  table.AddRow({"Measurements",
                run.options.job + (run.jobDescription.empty() ? "" : ": " + run.jobDescription)});
  for (const std::string& file : run.knownFiles)
    table.AddRow({&file == &run.knownFiles.front() ? "Known points" : "", file});
  table.AddRow({"Units", "metres; angles in " + std::string(unit.name) + ", clockwise from north"});
  table.AddRow({"Standard errors", AngleErrorsText(run.options.settings, unit)});
  table.AddRow({"", LengthErrorsText(run.options.settings)});
  table.AddRow({"Height method", HeightMethodName(run.options.settings.height)});
  table.Print(out, "");
  for (const std::string& warning : run.warnings) out << "\nWarning: " << Printable(warning);
  out << (run.warnings.empty() ? "" : "\n");
}

void PrintTitle(const StationOutcome& outcome, std::ostream& out) {
  const std::string title = "Station " + Printable(outcome.station->NameText());
  out << '\n' << title << '\n' << std::string(korvel::CharacterCount(title), '=') << '\n';
}

// What the reductions of this set-up rest on.
void PrintSetUp(const StationOutcome& outcome, std::ostream& out) {
  const StationDataItem& station = *outcome.station;
  if (IsKnown(station.Date) && station.Date > 0.0)
    out << "Measured " << Printable(station.GetDateText()) << '\n';
  out << "Instrument height " << MetreText(station.InstrumentHeight) << " m, "
      << (station.SlopeDistance ? "slope" : "horizontal") << " distances, atmosphere "
      << NumberText(outcome.ppm, 2) << " ppm, scale " << NumberText(station.ScalePpm, 2)
      << " ppm, curvature and refraction " << (station.CurvatureOn ? "on" : "off") << "\n\n";
}

void PrintPosition(const StationOutcome& outcome, const AngleUnit& unit, std::ostream& out) {
  const FreeStnResult& r = outcome.result;
  const std::string unitName(unit.name);
  TextTable table({{"", Align::Left},
                   {"", Align::Right},
                   {"", Align::Left},
                   {"standard error"},
                   {"", Align::Left}});
  const auto addLength = [&](const char* name, double value, double error) {
    table.AddRow({name, MetreText(value), IsKnown(value) ? "m" : "", MillimetreText(error),
                  IsKnown(error) ? "mm" : ""});
  };
  addLength("E", r.Position.x, r.PositionError.x);
  addLength("N", r.Position.y, r.PositionError.y);
  addLength("H", r.Position.z, r.PositionError.z);
  table.AddRow({"Orientation", unit.DirectionText(r.Orientation), unitName,
                unit.SmallText(r.OrientationError),
                IsKnown(r.OrientationError) ? std::string(unit.smallName) : ""});
  table.Print(out, kIndent);
  if (!outcome.heightNote.empty()) out << kIndent << "No height: " << outcome.heightNote << ".\n";
}

void PrintQuality(const StationOutcome& outcome, const AngleUnit& unit, std::ostream& out) {
  const FreeStnResult& r = outcome.result;
  const int freedom = outcome.DegreesOfFreedom();
  out << '\n'
      << kIndent << CountText(outcome.points.size(), "backsight") << ", " << freedom + 3
      << " observations, 3 unknowns, degrees of freedom " << freedom << ".\n";
  if (!IsKnown(r.StdDev)) {
    out << kIndent << "Nothing is redundant: no errors, and no blunder can show.\n";
    return;
  }
  out << kIndent << "Standard deviation of unit weight " << NumberText(r.StdDev, 3)
      << " (1 if the observations are as good as their standard errors say).\n"
      << kIndent << "Error ellipse: semi-axes " << Millimetres(r.EllipseA) << " and "
      << Millimetres(r.EllipseB) << ", the larger one at " << unit.BearingText(r.EllipseBearing)
      << ' ' << unit.name << ".\n";
}

void PrintDoubts(const StationOutcome& outcome, std::ostream& out) {
  if (!outcome.hasConverged)
    out << kIndent << "Warning: the adjustment didn't come to rest. Don't use this station.\n";
  if (outcome.second)
    out << kIndent << "A second position was possible, E " << MetreText(outcome.second->x) << " N "
        << MetreText(outcome.second->y) << ": the first sights fit it as well, "
        << (outcome.points.size() > 2 ? "the other backsights less.\n"
                                      : "only knowledge of the place tells them apart.\n");
}

void PrintBacksights(const StationOutcome& outcome, const AngleUnit& unit, std::ostream& out) {
  out << "\nBacksights, reduced, and their residuals (computed less observed)\n";
  TextTable table({{"point", Align::Left},
                   {"distance m"},
                   {"direction " + std::string(unit.name)},
                   {"height diff. m"},
                   {"v dist. mm"},
                   {"v dir. " + std::string(unit.smallName)},
                   {"plane mm"},
                   {"v height mm"},
                   {"3D mm"},
                   {"", Align::Left}});
  for (std::size_t i = 0; i < outcome.points.size(); ++i) {
    const CBacksight& b = outcome.adjustment.Backsights[i];
    const korvel::SightResidual& v = outcome.residuals[i];
    const std::string& known = outcome.points[i].name;
    table.AddRow({b.Name, MetreText(b.Distance), unit.DirectionText(b.Angle),
                  MetreText(b.HeightDiff), MillimetreText(v.distance), unit.SmallText(v.direction),
                  MillimetreText(v.plane), MillimetreText(v.height), MillimetreText(v.spatial),
                  known == b.Name ? "" : "is " + known});
  }
  table.Print(out, kIndent);
}

void PrintWorst(const StationOutcome& outcome, const AngleUnit& unit, std::ostream& out) {
  const FreeStnResult& r = outcome.result;
  TextTable table({{"largest", Align::Left}, {""}, {"at", Align::Left}});
  const auto add = [&](const char* what, const std::string& value, const std::string& name) {
    if (!name.empty()) table.AddRow({what, value, name});
  };
  add("distance", Millimetres(r.MaxDistanceResidual), r.MaxDistanceName);
  add("direction", Small(unit, r.MaxAngleResidual), r.MaxAngleName);
  add("plane", Millimetres(r.MaxPlaneResidual), r.MaxPlaneName);
  add("height", Millimetres(r.MaxHeightResidual), r.MaxHeightName);
  add("3D", Millimetres(r.Max3DResidual), r.Max3DName);
  if (table.IsEmpty()) return;
  out << '\n';
  table.Print(out, kIndent);
}

void PrintWithoutOne(const StationOutcome& outcome, const AngleUnit& unit, std::ostream& out) {
  if (outcome.withoutOne.empty()) return;
  out << "\nWithout one backsight: what changes\n";
  TextTable table({{"without", Align::Left},
                   {"dE mm"},
                   {"dN mm"},
                   {"dH mm"},
                   {"d orientation " + std::string(unit.smallName)},
                   {"unit weight"},
                   {"", Align::Left}});
  for (const korvel::WithoutOne& w : outcome.withoutOne) {
    if (!w.failure.empty()) {
      table.AddRow({w.name, "-", "-", "-", "-", "-", "no station: " + w.failure});
      continue;
    }
    table.AddRow({w.name, MillimetreText(w.dE), MillimetreText(w.dN), MillimetreText(w.dH),
                  unit.SmallText(w.dOrientation), NumberText(w.stdDev, 3),
                  w.dropsMost ? "<- largest drop" : ""});
  }
  table.Print(out, kIndent);
  out << kIndent << "Unit weight deviation with all: " << NumberText(outcome.result.StdDev, 3)
      << ".\n";
}

void PrintNewPoints(const StationOutcome& outcome, std::ostream& out) {
  if (outcome.newPoints.empty()) return;
  out << "\nNew points\n";
  TextTable table({{"point", Align::Left},
                   {"E m"},
                   {"N m"},
                   {"H m"},
                   {"code", Align::Left},
                   {"line", Align::Left}});
  for (const korvel::NewPoint& p : outcome.newPoints)
    table.AddRow({p.point->NameText(), MetreText(p.point->x), MetreText(p.point->y),
                  MetreText(p.point->z), p.point->GetPointCode(),
                  p.line ? p.line->NameText() : ""});
  table.Print(out, kIndent);
}

void PrintLeftOut(const StationOutcome& outcome, std::ostream& out) {
  if (outcome.leftOut.empty()) return;
  out << "\nLeft out\n";
  TextTable table({{"record", Align::Left}, {"type"}, {"why", Align::Left}});
  for (const korvel::LeftOut& left : outcome.leftOut)
    table.AddRow({left.name, std::to_string(left.type), left.reason});
  table.Print(out, kIndent);
}

void PrintStation(const StationOutcome& outcome, const AngleUnit& unit, std::ostream& out) {
  PrintTitle(outcome, out);
  PrintSetUp(outcome, out);
  if (outcome.IsComputed()) {
    PrintPosition(outcome, unit, out);
    PrintQuality(outcome, unit, out);
    PrintDoubts(outcome, out);
    PrintBacksights(outcome, unit, out);
    PrintWorst(outcome, unit, out);
    PrintWithoutOne(outcome, unit, out);
    PrintNewPoints(outcome, out);
  } else {
    out << kIndent << "Not computed: " << outcome.failure << ".\n";
  }
  PrintLeftOut(outcome, out);
}

}  // namespace

void korvel::PrintStationReport(const StationRun& run, std::ostream& out) {
  PrintHeader(run, out);
  for (const StationOutcome& outcome : run.outcomes) PrintStation(outcome, run.options.angles, out);
  if (!run.pointsFile.empty()) out << "\nPoints written to " << Printable(run.pointsFile) << '\n';
  for (const std::string& plot : run.plots) out << "Plot written to " << Printable(plot) << '\n';
}

// `korvel station` on the real jobs, and on jobs made from them.

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFilesMap.h"
#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/Angles.h"
#include "tests/support/Surroundings.h"
#include "tests/tools/korvel/RunKorvel.h"

namespace {

using Json = nlohmann::json;

// The expected values were computed by another program from the same files; both agree to what
// double precision leaves of coordinates of this size.
constexpr double kMetre = 1e-7;
constexpr double kRadian = 1e-10;

Json ExpectedOf(const std::string& job) {
  return Json::parse(ReadBytes(JobFolder(job) + "expected.json"));
}

Json FirstStation(const ProgramRun& run) {
  EXPECT_EQ(run.status, 0) << run.error;
  return run.Json()["stations"][0];
}

void ExpectNear(const Json& value, const Json& expected, double tolerance, const char* what) {
  ASSERT_TRUE(value.is_number()) << what;
  EXPECT_NEAR(value.get<double>(), expected.get<double>(), tolerance) << what;
}

// One row of object text.
std::string Record(int type, const std::string& name, double distance, double direction,
                   const std::string& fsbu = "") {
  std::ostringstream row;
  row.precision(17);
  row << "\t\t\tInmRecord " << type << ",\"" << name << "\",\"C\",\"\",\"\"," << distance << ','
      << direction << ",0,0,0\r\n";
  if (!fsbu.empty())
    row << "begin\r\nAttributeList \r\nbegin\r\nAttribute \"FSBU\",\"" << fsbu
        << "\"\r\nend\r\nend\r\n";
  return row.str();
}

struct Place {
  const char* name;
  double E, N;
};
constexpr Place kKnown[] = {{"A", 100, 200}, {"B", 300, 210}, {"C", 250, 20}, {"D", 90, 60}};
constexpr Place kStation{"S", 180, 130};
constexpr double kOrientation = 0.4;

// A sight from the true station without error; horizontal distances, height difference 0.
std::string Sight(int type, const Place& to, const std::string& fsbu = "", double blunder = 0.0) {
  const double dE = to.E - kStation.E;
  const double dN = to.N - kStation.N;
  return Record(type, to.name, std::hypot(dE, dN) + blunder,
                NormalizeAngle(std::atan2(dE, dN) - kOrientation, kTwoPi, 0.0), fsbu);
}

std::string StationText(const std::string& name, const std::string& records) {
  return "\tInmStation \"" + name +
         "\",0,0,1,1,0,0,0,0,0,0,0,0,0,0,0,,,\"\",,\"\",0,-1,-1,\"\",0,6389000,0.14,0,0,0,0\r\n"
         "\tbegin\r\n\t\tInmRecordList \r\n\t\tbegin\r\n" +
         records + "\t\tend\r\n\tend\r\n";
}

std::string LineText(const std::string& name, const std::string& records) {
  return "\t\t\tInmLine \"" + name + "\",1,\"EDGE\"\r\nbegin\r\nInmRecordList \r\nbegin\r\n" +
         records + "end\r\nend\r\n";
}

/// A job of made-up files in a folder of its own.
class MadeJob {
 public:
  explicit MadeJob(const std::string& stations) {
    WriteBytes(folder.Path("job.plm"),
               "FileHeader \"KVT Object Text v1.08\",\"Polar measurements\"\r\nbegin\r\nend\r\n"
               "InmStnList \r\nbegin\r\n" +
                   stations + "end\r\nInmPrecision ,,,,\r\nAttributeList \r\n");
    std::string points;
    for (const Place& p : kKnown) points += PointText(p.name, p.N, p.E);
    WriteKnown("known.geo", points, "");
  }

  static std::string PointText(const std::string& name, double north, double east) {
    std::ostringstream row;
    row << "\tPoint \"" << name << "\"," << north << ',' << east << ",50,\"\",\"\",\"\"\r\n";
    return row.str();
  }

  void WriteKnown(const char* name, const std::string& points, const std::string& lines) const {
    WriteBytes(folder.Path(name),
               "FileHeader \"KVT Object Text v2.01\",\"Coordinate Document\"\r\nbegin\r\nend\r\n"
               "PointList \r\nbegin\r\n" +
                   points + "end\r\nLineList \r\n" +
                   (lines.empty() ? "" : "begin\r\n" + lines + "end\r\n") + "AttributeList \r\n");
  }

  ProgramRun Run(const std::string& more) const {
    return RunKorvel("station " + folder.Path("job.plm") + " --known " + folder.Path("known.geo") +
                     ' ' + more);
  }

  TempFolder folder;
};

const std::string kFourSights =
    Sight(7, kKnown[0]) + Sight(7, kKnown[1], "2") + Sight(7, kKnown[2]) + Sight(7, kKnown[3]);

std::vector<std::string> LeftOutNames(const Json& station) {
  std::vector<std::string> names;
  for (const Json& left : station["left_out"]) names.push_back(left["name"]);
  return names;
}

}  // namespace

TEST(StationVerb, RealJobsGiveTheExpectedStations) {
  for (const char* job : {"niemeier_z108", "crane_8001"}) {
    SCOPED_TRACE(job);
    const Json expected = ExpectedOf(job);
    const Json s = FirstStation(RunKorvel(StationOf(job) + "--json --angles rad"));
    ExpectNear(s["position"]["E"], expected["E"], kMetre, "E");
    ExpectNear(s["position"]["N"], expected["N"], kMetre, "N");
    ExpectNear(s["orientation"], expected["orientation_rad"], kRadian, "orientation");
    ExpectNear(s["unit_weight_deviation"], expected["std_dev"], 1e-6, "deviation");
    ExpectNear(s["standard_errors"]["E"], expected["sE"], kMetre, "sE");
    ExpectNear(s["standard_errors"]["N"], expected["sN"], kMetre, "sN");
    ExpectNear(s["standard_errors"]["orientation"], expected["s_orientation_rad"], kRadian, "sO");
    ExpectNear(s["ellipse"]["a"], expected["ellipse_a"], kMetre, "a");
    ExpectNear(s["ellipse"]["b"], expected["ellipse_b"], kMetre, "b");
    EXPECT_EQ(s["degrees_of_freedom"], expected["observations"].get<int>() - 3);
    ASSERT_EQ(s["backsights"].size(), expected["residuals"].size());
    for (std::size_t i = 0; i < s["backsights"].size(); ++i) {
      const Json& v = s["backsights"][i]["residuals"];
      const Json& e = expected["residuals"][i];
      EXPECT_EQ(s["backsights"][i]["name"], e["name"]);
      ExpectNear(v["distance"], e["distance"], kMetre, "distance residual");
      ExpectNear(v["direction"], e["direction_rad"], kRadian, "direction residual");
      ExpectNear(v["plane"], e["plane"], kMetre, "plane residual");
    }
  }
}

TEST(StationVerb, HeightsAndNewPointsOfARealJob) {
  const Json expected = ExpectedOf("crane_8001");
  const Json mean = FirstStation(RunKorvel(StationOf("crane_8001") + "--json"));
  ExpectNear(mean["position"]["H"], expected["H_mean"], kMetre, "H");
  ExpectNear(mean["standard_errors"]["H"], expected["sH_mean"], kMetre, "sH");
  ASSERT_EQ(mean["points"].size(), expected["points"].size());
  for (const Json& point : mean["points"]) {
    const Json& e = expected["points"][point["name"].get<std::string>()];
    for (const char* axis : {"E", "N", "H"}) ExpectNear(point[axis], e[axis], kMetre, axis);
  }
  const Json weighted =
      FirstStation(RunKorvel(StationOf("crane_8001") + "--json --height weighted"));
  ExpectNear(weighted["position"]["H"], expected["H_weighted"], kMetre, "weighted H");
  ExpectNear(weighted["standard_errors"]["H"], expected["sH_weighted"], kMetre, "weighted sH");
  const Json none = FirstStation(RunKorvel(StationOf("crane_8001") + "--json --height none"));
  EXPECT_TRUE(none["position"]["H"].is_null());
  EXPECT_TRUE(none["points"][0]["H"].is_null());
}

TEST(StationVerb, AnglesRuleEveryAngleInAndOut) {
  const Json rad =
      FirstStation(RunKorvel(StationOf("crane_8001") + "--json --angle-error 2e-5 --angles rad"));
  for (const auto& [unit, perRadian, error] :
       {std::tuple{"gon", 200 / kPi, "0.0012732395447351627"},
        std::tuple{"deg", 180 / kPi, "0.0011459155902616464"}}) {
    SCOPED_TRACE(unit);
    const Json s = FirstStation(
        RunKorvel(StationOf("crane_8001") + "--json --angles " + unit + " --angle-error " + error));
    const auto ratio = [factor = perRadian](const Json& value, const Json& radians,
                                            const char* what) {
      EXPECT_NEAR(value.get<double>() / radians.get<double>(), factor, 1e-6) << what;
    };
    ratio(s["orientation"], rad["orientation"], "orientation");
    ratio(s["standard_errors"]["orientation"], rad["standard_errors"]["orientation"], "error");
    ratio(s["ellipse"]["bearing"], rad["ellipse"]["bearing"], "bearing");
    ratio(s["backsights"][3]["direction"], rad["backsights"][3]["direction"], "direction");
    ratio(s["backsights"][3]["residuals"]["direction"],
          rad["backsights"][3]["residuals"]["direction"], "residual");
  }
}

TEST(StationVerb, EverySettingReachesTheAdjustment) {
  const Json plain = FirstStation(RunKorvel(StationOf("crane_8001") + "--json --height weighted"));
  for (const char* flag : {"--angle-error 0.01", "--distance-error 0.05", "--distance-ppm 300",
                           "--centring-error 0", "--sets 9"}) {
    const Json s =
        FirstStation(RunKorvel(StationOf("crane_8001") + "--json --height weighted " + flag));
    EXPECT_GT(std::abs(s["position"]["E"].get<double>() - plain["position"]["E"].get<double>()),
              1e-6)
        << flag;
  }
  // Heights are weighted among each other: a common factor cancels in all but the settings shown.
  const ProgramRun run = RunKorvel(StationOf("crane_8001") + "--json --vertical-error 0.002");
  EXPECT_NEAR(run.Json()["settings"]["vertical_error"].get<double>(), 0.002, 1e-15);
}

TEST(StationVerb, ExitStatusAndWhatIsWrong) {
  const MadeJob job(StationText("S", kFourSights));
  const auto path = [&](const char* name) { return job.folder.Path(name); };
  const std::string whole = ReadBytes(path("job.plm"));
  WriteBytes(path("cut.plm"), whole.substr(0, whole.find("InmRecord 7,\"C\"")));
  WriteBytes(path("text.geo"), "no header\r\n");
  const std::string plm = "station " + path("job.plm");
  const std::string good = plm + " --known " + path("known.geo");
  const struct {
    const char* what;
    std::string arguments;
    int status;
    std::string error;
  } kCases[] = {
      {"nothing", "", 2, "required"},
      {"unknown verb", "measure", 2, "required"},
      {"help", "station --help", 0, ""},
      {"version", "--version", 0, ""},
      {"good", good, 0, ""},
      {"no known files", plm, 2, "--known"},
      {"unknown flag", good + " --north", 2, "--north"},
      {"unknown unit", good + " --angles grad", 2, "grad"},
      {"decimal comma", good + " --centring-error 0,003", 2, "0,003"},
      {"not finite", good + " --distance-error inf", 2, "inf"},
      {"no weight", good + " --angle-error 0", 2, "--angle-error"},
      {"sets below 0", good + " --sets -1", 2, "--sets"},
      {"no job", "station no.plm --known " + path("known.geo"), 2, "no.plm: can't be opened"},
      {"cut job", "station " + path("cut.plm") + " --known " + path("known.geo"), 2,
       "cut.plm:18: "},
      {"job of another kind", "station " + path("known.geo") + " --known " + path("known.geo"), 2,
       "not a measurement file"},
      {"one bad of two known", good + ' ' + path("text.geo"), 2, "text.geo:1: "},
      {"drawing", good + ' ' + path("plan.dxf"), 2, "plan.dxf: not a coordinate file"},
      {"folder", good + ' ' + path("."), 2, "not a coordinate file"},
      {"unknown station", good + " --station X", 2, "no station X; it holds S"},
      {"points of unknown kind", good + " --points p.txt", 2, "p.txt: unknown extension"},
      {"points over a known file", good + " --points " + path("known.geo"), 2, "not overwritten"},
      {"points nowhere", good + " --points " + path("no/p.geo"), 2, "p.geo: can't be written"},
      {"plot of unknown kind", good + " --plot p.jpg", 2, "p.jpg: unknown extension"},
      {"plot nowhere", good + " --plot " + path("no/p.svg"), 2, "p.svg: can't be written"},
      {"no backsights", StationOf("fieldbook_2setups"), 1, "station 30: no record of type 7"},
  };
  for (const auto& c : kCases) {
    const ProgramRun run = RunKorvel(c.arguments);
    EXPECT_EQ(run.status, c.status) << c.what << '\n' << run.error;
    EXPECT_NE(run.error.find(c.error), std::string::npos) << c.what << '\n' << run.error;
    EXPECT_EQ(run.error.find("Read collector"), std::string::npos) << c.what;
  }
  EXPECT_EQ(ReadBytes(path("job.plm")), whole);
}

TEST(StationVerb, WhatIsLeftOutAndWhy) {
  const MadeJob job(StationText("S", kFourSights + Sight(7, kKnown[0], "8") +
                                         Sight(7, kKnown[1], "0") + Record(7, "gone", 10, 1) +
                                         Record(7, "flat", 10, 1) + Record(8, "far", 0, 1) +
                                         Sight(8, {"new", 400, 500})));
  job.WriteKnown("more.geo", "\tPoint \"flat\",,,5,\"\",\"\",\"\"\r\n", "");
  const Json s = FirstStation(job.Run(job.folder.Path("more.geo") + " --json"));
  EXPECT_EQ(s["backsights"].size(), 4U);
  EXPECT_EQ(LeftOutNames(s), (std::vector<std::string>{"A", "B", "gone", "flat", "far"}));
  const char* reasons[] = {"FSBU", "FSBU", "not among", "no plane coordinates", "no distance"};
  for (std::size_t i = 0; i < 5; ++i)
    EXPECT_NE(s["left_out"][i]["reason"].get<std::string>().find(reasons[i]), std::string::npos);
  std::vector<std::string> points;
  for (const Json& point : s["points"]) points.push_back(point["name"]);
  EXPECT_EQ(points, (std::vector<std::string>{"gone", "flat", "new"}));
  EXPECT_NEAR(s["points"][2]["E"].get<double>(), 400.0, 1e-9);
  EXPECT_NEAR(s["points"][2]["N"].get<double>(), 500.0, 1e-9);
}

TEST(StationVerb, OtherStationsAreDoneWhereOneFails) {
  const MadeJob job(StationText("few", Sight(7, kKnown[0])) + StationText("S", kFourSights));
  const ProgramRun all = job.Run("--json --points " + job.folder.Path("p.geo"));
  EXPECT_EQ(all.status, 1);
  EXPECT_NE(all.error.find("station few: too few usable backsights"), std::string::npos);
  ASSERT_EQ(all.Json()["stations"].size(), 2U);
  EXPECT_EQ(all.Json()["stations"][0]["computed"], false);
  EXPECT_EQ(all.Json()["stations"][1]["computed"], true);
  const ProgramRun one = job.Run("--json --station S");
  EXPECT_EQ(one.status, 0);
  ASSERT_EQ(one.Json()["stations"].size(), 1U);
  EXPECT_EQ(one.Json()["stations"][0]["name"], "S");
}

TEST(StationVerb, BacksightsOnOneSpotAreAFailure) {
  const MadeJob job(StationText("S", Record(7, "A", 50, 1) + Record(7, "A", 50, 1)));
  const ProgramRun run = job.Run("");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.error.find("no approximate position"), std::string::npos) << run.error;
}

TEST(StationVerb, TellsOfASecondPosition) {
  // A and B are 200 m apart: 300 m from A, two places see them 0.3 rad beside each other.
  const MadeJob job(StationText("S", Record(7, "A", 300, 0.0) + Record(7, "B", 0, 0.3)));
  const Json s = FirstStation(job.Run("--json"));
  ASSERT_TRUE(s["second_position"].is_object());
  EXPECT_TRUE(s["unit_weight_deviation"].is_null());
  for (const Json& p : {s["position"], s["second_position"]}) {
    const double toA = std::atan2(100 - p["E"].get<double>(), 200 - p["N"].get<double>());
    const double toB = std::atan2(300 - p["E"].get<double>(), 210 - p["N"].get<double>());
    EXPECT_NEAR(NormalizeAngle(toB - toA, kTwoPi, -kPi), 0.3, 1e-6);
    EXPECT_NEAR(std::hypot(100 - p["E"].get<double>(), 200 - p["N"].get<double>()), 300, 1e-6);
  }
}

TEST(StationVerb, LeaveOneOutShowsABlunder) {
  std::string records;
  for (const Place& p : kKnown) records += Sight(7, p, "", p.name == std::string("C") ? 0.05 : 0.0);
  const MadeJob job(StationText("S", records));
  const Json s = FirstStation(job.Run("--json --leave-one-out"));
  EXPECT_GT(s["unit_weight_deviation"], 2.0);
  ASSERT_EQ(s["leave_one_out"].size(), 4U);
  for (const Json& row : s["leave_one_out"])
    EXPECT_EQ(row["largest_drop"], row["name"] == "C") << row["name"];
  const Json& withoutC = s["leave_one_out"][2];
  EXPECT_LT(withoutC["unit_weight_deviation"], 1e-6);
  EXPECT_NEAR(s["position"]["E"].get<double>() + withoutC["dE"].get<double>(), kStation.E, 1e-6);
  EXPECT_NEAR(s["position"]["N"].get<double>() + withoutC["dN"].get<double>(), kStation.N, 1e-6);
}

TEST(StationVerb, LeaveOneOutEqualsAJobWithoutTheSight) {
  const ProgramRun run = RunKorvel(StationOf("crane_8001") + "--json --leave-one-out");
  const Json all = FirstStation(run);
  const TempFolder folder;
  std::string text = ReadBytes(JobFolder("crane_8001") + "job.plm");
  const std::size_t flag = text.find("\"FSBU\",\"7\"", text.find("InmRecord 7,\"4003\""));
  text.replace(flag, 10, "\"FSBU\",\"0\"");
  WriteBytes(folder.Path("job.plm"), text);
  const Json rest = FirstStation(RunKorvel("station " + folder.Path("job.plm") + " --known " +
                                           JobFolder("crane_8001") + "known.geo --json"));
  const Json& row = all["leave_one_out"][2];
  EXPECT_EQ(row["name"], "4003");
  for (const auto& [change, axis] : {std::pair{"dE", "E"}, {"dN", "N"}, {"dH", "H"}})
    EXPECT_NEAR(all["position"][axis].get<double>() + row[change].get<double>(),
                rest["position"][axis].get<double>(), 1e-9)
        << axis;
  EXPECT_EQ(row["unit_weight_deviation"], rest["unit_weight_deviation"]);
}

TEST(StationVerb, NamesAreFoundByTheRulesOfTheIndex) {
  const MadeJob job(StationText(
      "S", Sight(7, kKnown[0]) + LineText("L", Sight(7, kKnown[1]) + Sight(7, {"9", 20, 30})) +
               Sight(7, {"1,5", 60, 210})));
  job.WriteKnown("more.geo", MadeJob::PointText("1,5", 210, 60) + MadeJob::PointText("B", 0, 0),
                 "\tLine \"L\",0,\"\"\r\n\tbegin\r\n\t\tPointList \r\n\t\tbegin\r\n" +
                     MadeJob::PointText("9", 30, 20) + "\t\tend\r\n\tend\r\n");
  const ProgramRun run = job.Run(job.folder.Path("more.geo") + " --json");
  const Json s = FirstStation(run);
  std::vector<std::string> points;
  for (const Json& b : s["backsights"]) points.push_back(b["point"]);
  EXPECT_EQ(points, (std::vector<std::string>{"A", "B", "L.9", "1.5"}));
  EXPECT_NEAR(s["position"]["E"].get<double>(), kStation.E, 1e-6);
  ASSERT_EQ(run.Json()["warnings"].size(), 2U);
  const auto warning = run.Json()["warnings"][1].get<std::string>();
  EXPECT_NE(warning.find("more.geo: point B is known as B_x2"), std::string::npos) << warning;
  EXPECT_NE(warning.find("366.197 m away"), std::string::npos) << warning;
}

TEST(StationVerb, PointsFileHoldsStationsPointsAndLines) {
  const CaughtMessages messages;
  const MadeJob job(
      StationText("S", kFourSights + Sight(8, {"n1", 1, 2}) +
                           LineText("L", Sight(8, {"n2", 3, 4}) + Sight(8, {"n3", 5, 6})) +
                           Sight(8, {"n4", 7, 8})));
  for (const char* name : {"p.geo", "p.pxy"}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(job.Run("--points " + job.folder.Path(name)).status, 0);
    const CoordinateFilesMap map({job.folder.Path(name)}, L"");
    EXPECT_EQ(map.GetPointList(), (std::vector<std::string>{"S", "n1", "n4", "L.n2", "L.n3"}));
    PointInfo point;
    ASSERT_TRUE(map.GetPoint("L.n3", point));
    EXPECT_NEAR(point.GetENH().x, 5.0, 1e-3);
    EXPECT_NEAR(point.GetENH().y, 6.0, 1e-3);
    EXPECT_NEAR(point.GetENH().z, 50.0, 1e-3);
  }
  PxyCoordinateFile file(false);
  file.ChooseFile(job.folder.Path("p.geo").c_str());
  ASSERT_EQ(file.UseCollector(), 0);
  const auto* line = FindFirst<LineDataItem>(file);
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->LineType, 1);
  EXPECT_EQ(line->CodeText(), "EDGE");
  const GeoAttrib* error = GeoAttrib::GetAttribute(FindFirst<PointDataItem>(file), "sE");
  ASSERT_NE(error, nullptr);
  EXPECT_LT(error->GetDoubleValue(), 1e-6);
}

TEST(StationVerb, EachStationGetsAPlotOfItsOwn) {
  const MadeJob job(StationText("S", kFourSights) + StationText("S", kFourSights) +
                    StationText("a/b", kFourSights));
  ASSERT_EQ(job.Run("--plot " + job.folder.Path("p.svg")).status, 0);
  for (const char* name : {"p-S.svg", "p-S-2.svg", "p-a_b.svg"})
    EXPECT_TRUE(std::filesystem::exists(job.folder.Path(name))) << name;
  EXPECT_FALSE(std::filesystem::exists(job.folder.Path("p.svg")));
}

// Bytes that are no UTF-8, and control characters, reach neither JSON, report nor plot.
TEST(StationVerb, ForeignBytesInNames) {
  const MadeJob job(StationText("S\xFC\x1B[2J", kFourSights + Sight(8, {"\xE9t\xE9", 1, 2})));
  const ProgramRun json = job.Run("--json --plot " + job.folder.Path("p.png"));
  EXPECT_EQ(FirstStation(json)["points"][0]["name"], "\u00E9t\u00E9");
  const ProgramRun report = job.Run("");
  EXPECT_NE(report.out.find("Station S\u00FC?[2J"), std::string::npos);
}

// The whole report, but for its first line, which holds version and date.
TEST(StationVerb, ReportOfTheSampleJob) {
  const std::string folder = KORVELFILE_SOURCE "/examples/free-station";
  const ProgramRun run = RunProgram("cd", folder + " && \"" KORVELFILE_KORVEL
                                                   "\" station job.plm"
                                                   " --known known.geo --leave-one-out");
  const std::string approved = ReadBytes(folder + "/report.txt");
  EXPECT_EQ(run.out.substr(run.out.find('\n')), approved.substr(approved.find('\n')));
}

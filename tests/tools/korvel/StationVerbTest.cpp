// `korvel station` on the real jobs, and on jobs made from them.

#include <cmath>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFilesMap.h"
#include "korvelfile/outside/base/Angles.h"
#include "tests/support/Surroundings.h"
#include "tests/tools/korvel/RunKorvel.h"

namespace {

using Json = nlohmann::json;

Json FirstStation(const std::string& arguments) { return RunWell(arguments).Json()["stations"][0]; }

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
    std::ostringstream points;
    for (const Place& p : kKnown)
      points << "Point \"" << p.name << "\"," << p.N << ',' << p.E << ",50,\"\",\"\",\"\"\r\n";
    WriteKnown("known.geo", points.str());
  }

  void WriteKnown(const char* name, const std::string& points) const {
    WriteBytes(folder.Path(name),
               "FileHeader \"KVT Object Text v2.01\",\"Coordinate Document\"\r\nbegin\r\nend\r\n"
               "PointList \r\nbegin\r\n" +
                   points + "end\r\nLineList \r\nAttributeList \r\n");
  }

  std::string With(const std::string& more) const {
    return "station " + folder.Path("job.plm") + " --known " + folder.Path("known.geo") + ' ' +
           more;
  }

  TempFolder folder;
};

const std::string kFourSights =
    Sight(7, kKnown[0]) + Sight(7, kKnown[1], "2") + Sight(7, kKnown[2]) + Sight(7, kKnown[3]);

}  // namespace

// The expected values were computed by another program from the same files; both agree to what
// double precision leaves of coordinates of this size.
TEST(StationVerb, RealJobsGiveTheExpectedStations) {
  constexpr double kMetre = 1e-7, kRadian = 1e-10;
  const struct {
    const char *given, *expected;
    double tolerance;
  } kCases[] = {{"/position/E", "E", kMetre},
                {"/position/N", "N", kMetre},
                {"/position/H", "H_mean", kMetre},
                {"/orientation", "orientation_rad", kRadian},
                {"/unit_weight_deviation", "std_dev", 1e-6},
                {"/standard_errors/E", "sE", 3e-8},
                {"/standard_errors/N", "sN", 2e-8},
                {"/standard_errors/H", "sH_mean", 1e-9},
                {"/standard_errors/orientation", "s_orientation_rad", 4e-11},
                {"/ellipse/a", "ellipse_a", 3e-8},
                {"/ellipse/b", "ellipse_b", 2e-8}};
  for (const char* job : {"niemeier_z108", "crane_8001"}) {
    SCOPED_TRACE(job);
    const Json expected = Json::parse(ReadBytes(JobFolder(job) + "expected.json"));
    const Json s = FirstStation(StationOf(job) + "--json --angles rad");
    for (const auto& c : kCases) {
      const Json& value = s[Json::json_pointer(c.given)];
      ASSERT_EQ(value.is_number(), expected.contains(c.expected)) << c.given;
      if (value.is_number()) {
        EXPECT_NEAR(value, expected[c.expected], c.tolerance) << c.given;
      }
    }
    EXPECT_EQ(s["degrees_of_freedom"], expected["observations"].get<int>() - 3);
    ASSERT_EQ(s["backsights"].size(), expected["residuals"].size());
    for (std::size_t i = 0; i < s["backsights"].size(); ++i) {
      const Json& v = s["backsights"][i]["residuals"];
      const Json& e = expected["residuals"][i];
      EXPECT_EQ(s["backsights"][i]["name"], e["name"]);
      EXPECT_NEAR(v["distance"], e["distance"], kMetre);
      EXPECT_NEAR(v["direction"], e["direction_rad"], kRadian);
      EXPECT_NEAR(v["plane"], e["plane"], kMetre);
    }
    for (const Json& point : s["points"])
      for (const char* axis : {"E", "N", "H"})
        EXPECT_NEAR(point[axis], expected["points"][std::string(point["name"])][axis], kMetre);
    if (!expected.contains("points")) continue;
    EXPECT_EQ(s["points"].size(), expected["points"].size());
    const Json weighted = FirstStation(StationOf(job) + "--json --height weighted");
    EXPECT_NEAR(weighted["position"]["H"], expected["H_weighted"], kMetre);
    EXPECT_NEAR(weighted["standard_errors"]["H"], expected["sH_weighted"], 1e-9);
  }
}

TEST(StationVerb, EverySettingReachesTheAdjustment) {
  const std::string command = StationOf("crane_8001") + "--json --height weighted ";
  const double plain = FirstStation(command)["position"]["E"];
  for (const char* flag : {"--angle-error 0.01", "--distance-error 0.05", "--distance-ppm 300",
                           "--centring-error 0", "--sets 9"}) {
    const double changed = FirstStation(command + flag)["position"]["E"];
    EXPECT_GT(std::abs(changed - plain), 1e-6) << flag;
  }
}

TEST(StationVerb, ExitStatusAndWhatIsWrong) {
  const MadeJob job(StationText("S", kFourSights));
  const auto path = [&](const char* name) { return job.folder.Path(name); };
  const std::string whole = ReadBytes(path("job.plm"));
  WriteBytes(path("cut.plm"), whole.substr(0, whole.find("InmRecord 7,\"C\"")));
  WriteBytes(path("text.geo"), "no header\r\n");
  const std::string plm = "station " + path("job.plm");
  const std::string good = plm + " --known " + path("known.geo");
  const std::pair<std::string, std::string> kCases[] = {
      {"", "required"},
      {plm, "--known"},
      {good + " --angles grad", "grad"},
      {good + " --centring-error 0,003", "0,003"},
      {good + " --angle-error 0", "--angle-error"},
      {"station no.plm --known " + path("known.geo"), "no.plm: can't be opened"},
      {"station " + path("cut.plm") + " --known " + path("known.geo"), "cut.plm:18: "},
      {good + ' ' + path("text.geo"), "text.geo:1: "},
      {good + " --station X", "no station X; it holds S"},
      {good + " --points p.txt", "p.txt: unknown extension"},
      {good + " --points " + path("known.geo"), "not overwritten"},
      {good + " --plot " + path("no/p.svg"), "p.svg: can't be written"},
  };
  for (const auto& [arguments, fault] : kCases) ExpectFault(arguments, fault);
  ExpectFault(StationOf("fieldbook_2setups"), "station 30: no record of type 7", 1);
  RunWell("--version");
  EXPECT_EQ(RunWell(good).error.find("Read collector"), std::string::npos);
  EXPECT_EQ(ReadBytes(path("job.plm")), whole);
}

TEST(StationVerb, WhatIsLeftOutAndWhy) {
  const MadeJob job(StationText("S", kFourSights + Sight(7, kKnown[0], "8") +
                                         Sight(7, kKnown[1], "0") + Record(7, "gone", 10, 1) +
                                         Record(7, "flat", 10, 1) + Record(8, "far", 0, 1) +
                                         Sight(8, {"new", 400, 500})));
  job.WriteKnown("more.geo", "\tPoint \"flat\",,,5,\"\",\"\",\"\"\r\n");
  const Json s = FirstStation(job.With(job.folder.Path("more.geo") + " --json"));
  EXPECT_EQ(s["backsights"].size(), 4U);
  std::string leftOut;
  for (const Json& left : s["left_out"])
    leftOut += std::string(left["name"]) + ": " + std::string(left["reason"]) + '\n';
  EXPECT_TRUE(std::regex_match(leftOut, std::regex("A: .*FSBU.*\nB: .*FSBU.*\ngone: .*not among.*\n"
                                                   "flat: .*no plane coordinates.*\n"
                                                   "far: .*no distance.*\n")))
      << leftOut;
  ASSERT_EQ(s["points"].size(), 3U);
  EXPECT_EQ(s["points"][0]["name"], "gone");
  EXPECT_EQ(s["points"][1]["name"], "flat");
  EXPECT_NEAR(s["points"][2]["E"].get<double>(), 400.0, 1e-9);
  EXPECT_NEAR(s["points"][2]["N"].get<double>(), 500.0, 1e-9);
}

TEST(StationVerb, OtherStationsAreDoneWhereOneFails) {
  const MadeJob job(StationText("few", Sight(7, kKnown[0])) + StationText("S", kFourSights));
  const ProgramRun all = RunKorvel(job.With("--json"));
  EXPECT_EQ(all.status, 1);
  EXPECT_NE(all.error.find("station few: too few usable backsights"), std::string::npos);
  ASSERT_EQ(all.Json()["stations"].size(), 2U);
  EXPECT_EQ(all.Json()["stations"][0]["computed"], false);
  EXPECT_EQ(all.Json()["stations"][1]["computed"], true);
  EXPECT_EQ(FirstStation(job.With("--json --station S"))["name"], "S");
}

TEST(StationVerb, LeaveOneOutShowsABlunder) {
  std::string records;
  for (const Place& p : kKnown) records += Sight(7, p, "", p.name == std::string("C") ? 0.05 : 0.0);
  const MadeJob job(StationText("S", records));
  const Json s = FirstStation(job.With("--json --leave-one-out"));
  EXPECT_GT(s["unit_weight_deviation"], 2.0);
  ASSERT_EQ(s["leave_one_out"].size(), 4U);
  for (const Json& row : s["leave_one_out"])
    EXPECT_EQ(row["largest_drop"], row["name"] == "C") << row["name"];
  const Json& withoutC = s["leave_one_out"][2];
  EXPECT_LT(withoutC["unit_weight_deviation"], 1e-6);
  EXPECT_NEAR(s["position"]["E"].get<double>() + withoutC["dE"].get<double>(), kStation.E, 1e-6);
  EXPECT_NEAR(s["position"]["N"].get<double>() + withoutC["dN"].get<double>(), kStation.N, 1e-6);
}

TEST(StationVerb, PointsFileHoldsStationsPointsAndLines) {
  const CaughtMessages messages;
  const MadeJob job(
      StationText("S", kFourSights + Sight(8, {"n1", 1, 2}) +
                           LineText("L", Sight(8, {"n2", 3, 4}) + Sight(8, {"n3", 5, 6})) +
                           Sight(8, {"n4", 7, 8})));
  for (const char* name : {"p.geo", "p.pxy"}) {
    SCOPED_TRACE(name);
    RunWell(job.With("--points " + job.folder.Path(name)));
    const CoordinateFilesMap map({job.folder.Path(name)}, L"");
    EXPECT_EQ(map.GetPointList(), (std::vector<std::string>{"S", "n1", "n4", "L.n2", "L.n3"}));
    PointInfo point;
    ASSERT_TRUE(map.GetPoint("L.n3", point));
    EXPECT_NEAR(point.GetENH().x, 5.0, 1e-3);
    EXPECT_NEAR(point.GetENH().y, 6.0, 1e-3);
    EXPECT_NEAR(point.GetENH().z, 50.0, 1e-3);
  }
}

// Bytes that are no UTF-8, and control characters, reach neither JSON, report nor plot.
TEST(StationVerb, ForeignBytesInNames) {
  const MadeJob job(StationText("S\xFC\x1B[2J", kFourSights + Sight(8, {"\xE9t\xE9", 1, 2})));
  const Json s = FirstStation(job.With("--json --plot " + job.folder.Path("p.png")));
  EXPECT_EQ(s["points"][0]["name"], "\u00E9t\u00E9");
  const ProgramRun report = RunWell(job.With(""));
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

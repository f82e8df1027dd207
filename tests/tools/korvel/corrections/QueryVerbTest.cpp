// The verbs that ask models, on real grids and on points from everywhere.

#include <cmath>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"
#include "tests/tools/korvel/corrections/ModelFiles.h"

namespace {

using Json = nlohmann::json;

const std::string kShift = RealGrid("germany_shift.ccg");

Json PointsOf(const std::string& arguments) { return RunWell(arguments).Json()["points"]; }

}  // namespace

// The tolerance is 1e-10 rad, the resolution of the expected values.
TEST(GridQuery, ShiftGridAnswersAsAnIndependentProgram) {
  const TempFolder folder;
  const double tolerance = 1e-10 / kRadiansPerDegree;
  const std::string given = RealGrid("germany_shift.values.csv");
  const auto expected = CsvNumbersOf(ReadBytes(given));
  const Json forward = PointsOf("grid query " + kShift + " --json -p " + given);
  ASSERT_EQ(forward.size(), expected.size());
  std::string shifted = "lon;lat\n";
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const auto& e = expected[i];
    const Json& point = forward[i];
    EXPECT_NEAR(point["d_north"], e[2] / kRadiansPerDegree, tolerance) << i;
    EXPECT_NEAR(point["d_east"], e[3] / kRadiansPerDegree, tolerance) << i;
    EXPECT_NEAR(point["corrected_east"], e[4], tolerance) << i;
    EXPECT_NEAR(point["corrected_north"], e[5], tolerance) << i;
    shifted += GeneralText(e[4], 17) + ';' + GeneralText(e[5], 17) + '\n';
  }
  WriteBytes(folder.Path("shifted.csv"), shifted);
  const Json back =
      PointsOf("grid query " + kShift + " --json --inverse -p " + folder.Path("shifted.csv"));
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(back[i]["original_east"], expected[i][0], tolerance) << i;
    EXPECT_NEAR(back[i]["original_north"], expected[i][1], tolerance) << i;
  }
}

TEST(GridQuery, SameRowFromEverySourceAndInEveryUnit) {
  const TempFolder folder;
  const auto path = [&](const char* name) { return folder.Path(name); };
  WriteBytes(path("plain.csv"), "48.25,8.75\n");
  WriteBytes(path("names.csv"),
             "\xEF\xBB\xBF# survey of May\r\nHeight [m];lon_deg;LAT;code\r\n"
             "\r\n;8.75;48.25;\"a;b\"\r\n");
  WriteBytes(path("tabs.txt"), "A\t+48.25\t8.75\t\n");
  WriteBytes(path("p.geo"),
             "FileHeader \"KVT Object Text v2.01\",\"Coordinate Document\"\r\nbegin\r\nend\r\n"
             "PointList \r\nbegin\r\nend\r\nLineList \r\nbegin\r\nLine \"L\",0,\"\"\r\nbegin\r\n"
             "PointList \r\nbegin\r\nPoint \"1\",48.25,8.75,3,\"\",\"\",\"\"\r\nend\r\nend\r\nend"
             "\r\nAttributeList \r\n");
  const std::string query = "grid query " + kShift + " --csv ";
  const ProgramRun first = RunKorvel(query + "48.25,8.75");
  const std::string row = SplitAt(first.out, '\n').at(1);
  const std::string gon = std::to_string(48.25 / 0.9) + ',' + std::to_string(8.75 / 0.9);
  const struct {
    std::string arguments, name, height;
  } kCases[] = {{path("plain.csv"), "", ""},         {"- <" + path("plain.csv"), "", ""},
                {"-p " + path("names.csv"), "", ""}, {"-p " + path("tabs.txt"), "A", ""},
                {"-p " + path("p.geo"), "L.1", "3"}, {"48.25,8.75,3", "", "3"}};
  for (const auto& c : kCases) {
    const ProgramRun run = RunKorvel(query + c.arguments);
    const std::string expected =
        c.name + row.substr(0, row.find(",,")) + ',' + c.height + row.substr(row.find(",,") + 1);
    EXPECT_EQ(run.out, SplitAt(first.out, '\n').at(0) + '\n' + expected + '\n')
        << c.arguments << run.error;
  }
  const Json inGon = PointsOf("grid query " + kShift + " --json --angles gon " + gon);
  const Json inDegrees = PointsOf("grid query " + kShift + " --json 48.25,8.75");
  EXPECT_NEAR(inGon[0]["d_north"].get<double>() * 0.9, inDegrees[0]["d_north"], 1e-9);
}

TEST(GridQuery, NoPointIsDropped) {
  const ProgramRun run = ExpectFault("grid query " + kShift + " 48,8 10,10 47,5.5 -33.5,151",
                                     "2 points of 4 have no correction: 10,10, -33.5,151", 1);
  const auto rows = SplitAt(run.out, '\n');
  ASSERT_EQ(rows.size(), 5U) << run.out;
  EXPECT_TRUE(rows[2].ends_with("  outside")) << run.out;
  EXPECT_TRUE(rows[4].ends_with("  outside")) << run.out;
}

TEST(GridQuery, WhatIsWrong) {
  const TempFolder folder;
  auto csv = [&, count = 0](const std::string& text) mutable {
    const std::string path = folder.Path(std::to_string(++count) + ".csv");
    WriteBytes(path, text);
    return kShift + " -p " + path;
  };
  const std::pair<std::string, std::string> kCases[] = {
      {csv("48,8\n\n1,x\n"), ".csv:3: east: x is no number"},
      {csv("48,8\nA,1,2,3,4\n"), ".csv:2: 5 fields; there must be 2 to 4"},
      {csv("name,north\nA,2\n"), ".csv:1: the header names no column east"},
      {csv("north,east\n,2\n"), ".csv:2: no north"},
      {csv("# nothing\n"), "hold no points"},
      {kShift, "give N,E or --points"},
      {kShift + " 48", "48: no point"},
      {kShift + " 48,8,1,1", "no point"},
      {kShift + " -p no.csv", "no.csv: can't be opened"},
      {"no.ccg 1,1", "no.ccg: can't be opened"},
      {kNetwork + " 1,1", "ask it by korvel triad query"},
      {RealGrid("canada.byn") + " 1,1", "canada.byn: is no correction grid"},
  };
  for (const auto& [arguments, fault] : kCases)
    EXPECT_EQ(ExpectFault("grid query " + arguments, fault).out, "") << fault;
}

TEST(TriadVerbs, CorrectionsOfANetwork) {
  const Json info = RunWell("triad info --json " + kNetwork).Json()[0];
  EXPECT_EQ(info["triangles"], 4);
  EXPECT_EQ(info["rim_edges"], 4);
  const Json point = PointsOf("triad query --json " + kNetwork + " 6580200,480500")[0];
  EXPECT_NEAR(point["d_north"], 0.19375, 1e-7);
  EXPECT_NEAR(point["d_east"], -0.3375, 1e-7);
  const Json back = PointsOf("triad query --json -i " + kNetwork + " 6580200.19375,480499.6625")[0];
  EXPECT_NEAR(back["original_north"], 6580200.0, 1e-4);
  EXPECT_NEAR(back["original_east"], 480500.0, 1e-4);
}

// Along 50 gon, from rim to rim across the four edges of the middle.
TEST(TriadVerbs, SectionRunsAlongItsAzimuth) {
  const std::string section = "triad section --csv " + kNetwork + " --azimuth 50 ";
  const auto rows = CsvNumbersOf(RunWell(section + "6580100,480150").out);
  const double expected[][4] = {{0, 50, 0.13125, -0.2625}, {200, 250, 0.1625, -0.275}};
  ASSERT_EQ(rows.size(), 5U);
  for (std::size_t i = 0; i < 2; ++i) {
    const auto& [north, east, dNorth, dEast] = expected[i];
    EXPECT_NEAR(rows[i][0], (north - 100) * std::sqrt(2.0), 1e-6);
    EXPECT_NEAR(rows[i][1], 6580000 + north, 1e-6);
    EXPECT_NEAR(rows[i][2], 480000 + east, 1e-6);
    EXPECT_NEAR(rows[i][3], dNorth, 1e-7);
    EXPECT_NEAR(rows[i][4], dEast, 1e-7);
  }
  ExpectFault(section + "6580100,481150", "", 1);
}

// The verbs that ask models, on real grids and on points from everywhere.

#include <string>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"
#include "tests/tools/korvel/corrections/ModelFiles.h"

namespace {

using Json = nlohmann::json;

const std::string kShift = RealGrid("germany_shift.ccg");

Json PointsOf(const ProgramRun& run) {
  EXPECT_EQ(run.status, 0) << run.error;
  return run.Json()["points"];
}

}  // namespace

// The tolerance is 1e-10 rad, the resolution of the expected values.
TEST(GridQuery, ShiftGridAnswersAsAnIndependentProgram) {
  const TempFolder folder;
  const double tolerance = 1e-10 / kRadiansPerDegree;
  const std::string given = RealGrid("germany_shift.values.csv");
  const auto expected = CsvNumbersOf(ReadBytes(given));
  const Json forward = PointsOf(RunKorvel("grid query " + kShift + " --json -p " + given));
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
  const Json back = PointsOf(
      RunKorvel("grid query " + kShift + " --json --inverse -p " + folder.Path("shifted.csv")));
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
  const Json inGon = PointsOf(RunKorvel("grid query " + kShift + " --json --angles gon " + gon));
  const Json inDegrees = PointsOf(RunKorvel("grid query " + kShift + " --json 48.25,8.75"));
  EXPECT_NEAR(inGon[0]["d_north"].get<double>() * 0.9, inDegrees[0]["d_north"], 1e-9);
}

TEST(GridQuery, NoPointIsDropped) {
  const ProgramRun run = RunKorvel("grid query " + kShift + " 48,8 10,10 47,5.5 -33.5,151");
  EXPECT_EQ(run.status, 1);
  const auto rows = SplitAt(run.out, '\n');
  ASSERT_EQ(rows.size(), 5U) << run.out;
  EXPECT_TRUE(rows[2].ends_with("  outside")) << run.out;
  EXPECT_TRUE(rows[4].ends_with("  outside")) << run.out;
  EXPECT_NE(run.error.find("2 points of 4 have no correction: 10,10, -33.5,151"), std::string::npos)
      << run.error;
}

TEST(GridQuery, WhatIsWrong) {
  const TempFolder folder;
  const auto csv = [&](const std::string& text) {
    WriteBytes(folder.Path("p.csv"), text);
    return "-p " + folder.Path("p.csv");
  };
  WriteNetwork(folder.Path("n.tri"));
  const struct {
    std::string arguments, text, error;
  } kCases[] = {
      {"", "48,8\n\n1,x\n", "p.csv:3: east: x is no number"},
      {"", "48,8\nA,1,2,3,4\n", "p.csv:2: 5 fields; there must be 2 to 4"},
      {"", "name,north\nA,2\n", "p.csv:1: the header names no column east"},
      {"", "north,east\n,2\n", "p.csv:2: no north"},
      {"", "# nothing\n", "hold no points"},
      {kShift, "", "give N,E or --points"},
      {kShift + " 48", "", "48: no point"},
      {kShift + " 48,8,1,1", "", "no point"},
      {kShift + " -p no.csv", "", "no.csv: can't be opened"},
      {"no.ccg 1,1", "", "no.ccg: can't be opened"},
      {folder.Path("n.tri") + " 1,1", "", "ask it by korvel triad query"},
      {RealGrid("canada.byn") + " 1,1", "", "canada.byn: is no correction grid"},
  };
  for (const auto& c : kCases) {
    const ProgramRun run =
        RunKorvel("grid query " + (c.arguments.empty() ? kShift + ' ' + csv(c.text) : c.arguments));
    EXPECT_EQ(run.status, 2) << c.error;
    EXPECT_NE(run.error.find(c.error), std::string::npos) << run.error;
    EXPECT_EQ(run.out, "") << c.error;
  }
}

TEST(TriadVerbs, CorrectionsOfAnEvenNetwork) {
  const TempFolder folder;
  const std::string network = folder.Path("n.tri");
  WriteNetwork(network);
  const Json info = RunKorvel("triad info --json " + network).Json()[0];
  EXPECT_EQ(info["triangles"], 8);
  EXPECT_EQ(info["rim_edges"], 8);
  const Json point = PointsOf(RunKorvel("triad query --json " + network + " 70,130"))[0];
  const Vector expected = EvenCorrection(70, 130);
  EXPECT_NEAR(point["d_north"], expected.x, 1e-7);
  EXPECT_NEAR(point["d_east"], expected.y, 1e-7);
  const std::string corrected =
      point["corrected_north"].dump() + ',' + point["corrected_east"].dump();
  const Json back = PointsOf(RunKorvel("triad query --json -i " + network + ' ' + corrected))[0];
  EXPECT_NEAR(back["original_north"], 70.0, 1e-6);
  EXPECT_NEAR(back["original_east"], 130.0, 1e-6);
}

// Along 50 gon the section through (70, 130) runs from (0, 60) to (140, 200).
TEST(TriadVerbs, SectionRunsAlongItsAzimuth) {
  const TempFolder folder;
  const std::string network = folder.Path("n.tri");
  WriteNetwork(network);
  const ProgramRun run = RunKorvel("triad section --csv " + network + " 70,130 --azimuth 50");
  const auto rows = CsvNumbersOf(run.out);
  ASSERT_EQ(rows.size(), 7U) << run.out << run.error;
  EXPECT_NEAR(rows.front()[0], -70 * std::sqrt(2.0), 1e-6);
  EXPECT_NEAR(rows.back()[0], 70 * std::sqrt(2.0), 1e-6);
  for (const auto& row : rows) {
    EXPECT_NEAR(row[1], 70 + row[0] / std::sqrt(2.0), 1e-6);
    EXPECT_NEAR(row[2], 130 + row[0] / std::sqrt(2.0), 1e-6);
    EXPECT_NEAR(row[3], EvenCorrection(row[1], row[2]).x, 1e-6);
    EXPECT_NEAR(row[4], EvenCorrection(row[1], row[2]).y, 1e-6);
  }
  EXPECT_EQ(RunKorvel("triad section " + network + " 70,230 --azimuth 50").status, 1);
}

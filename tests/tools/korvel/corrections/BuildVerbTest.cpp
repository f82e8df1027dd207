// `korvel grid build` and `korvel grid expand`.

#include <string>

#include <gtest/gtest.h>

#include "tests/tools/korvel/corrections/ModelFiles.h"

namespace {

// 3 x 2 nodes of 10 x 20 m; the last one is missing.
constexpr const char* kHeights = "20,100,1\n20,120,2\n10,100,3\n10.004,120.01,4\n0,100,5\n";

/// A folder with residuals to make grids of.
class GridBuilding : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.Path(name); }

  /// Arguments that make a grid of residuals.
  std::string Build(const std::string& name, const std::string& residuals,
                    const std::string& more) const {
    WriteBytes(Path("r.csv"), residuals);
    return "grid build " + Path(name) + ' ' + Path("r.csv") + ' ' + more;
  }
  /// Makes the grid of `kHeights` and gives its bytes.
  std::string Built(const std::string& name) const {
    RunWell(Build(name, kHeights, "--type z --spacing 10,20 --snap 0.02"));
    return ReadBytes(Path(name));
  }
  std::string Expand(const std::string& name, const std::string& residuals) const {
    WriteBytes(Path("e.csv"), residuals);
    return "grid expand " + Path(name) + ' ' + Path("e.csv");
  }
  /// What the grid says at points, one "d" field each, "-" where it has no correction.
  std::string HeightsAt(const std::string& name, const std::string& points) const {
    const ProgramRun run = RunKorvel("grid query --csv " + Path(name) + ' ' + points);
    std::string heights;
    const auto lines = SplitAt(run.out, '\n');
    for (std::size_t i = 1; i < lines.size(); ++i) {
      const std::string height = SplitAt(lines[i], ',').at(4);
      heights += (i > 1 ? " " : "") + (height.empty() ? "-" : height);
    }
    return heights;
  }

 private:
  TempFolder folder_;
};

}  // namespace

TEST_F(GridBuilding, NodesHoldTheirResiduals) {
  Built("g.ccg");
  const nlohmann::json info = RunKorvel("grid info --json " + Path("g.ccg")).Json()[0];
  EXPECT_EQ(info["rows"], 3);
  EXPECT_EQ(info["columns"], 2);
  EXPECT_EQ(info["nodes_without_value"], 1);
  EXPECT_EQ(info["north"], (nlohmann::json{{"min", 0.0}, {"max", 20.0}}));
  EXPECT_EQ(info["d_height"], (nlohmann::json{{"min", 1.0}, {"max", 5.0}}));
  EXPECT_EQ(HeightsAt("g.ccg", "20,100 20,120 15,110 5,110"), "1 2 2.5 -");
}

TEST_F(GridBuilding, PlaneOfLatitudeAndLongitude) {
  RunWell(Build("g.ccg",
                "name;lon;lat;dE;dN\na;8;50;-3e-4;2e-4\nb;8.5;50;0;0\n"
                "c;8;50.25;0;0\nd;8.5;50.25;0;0\n",
                "--type latlong-xy --spacing 0.25,0.5 --interpolation bilinear"));
  const ProgramRun query = RunKorvel("grid query --json " + Path("g.ccg") + " 50,8 50.125,8.25");
  const nlohmann::json points = query.Json()["points"];
  EXPECT_NEAR(points[0]["d_north"], 2e-4, 1e-11);
  EXPECT_NEAR(points[0]["d_east"], -3e-4, 1e-11);
  EXPECT_NEAR(points[1]["d_north"], 0.5e-4, 1e-11);
}

// At (0, 0) lie residuals in 10 and 20 m; (0, 100) is out of reach of both.
TEST_F(GridBuilding, ScatteredResidualsCountByTheirDistance) {
  const std::string scattered = "10,0,1\n0,20,2\n0,200,7\n";
  const ProgramRun run = RunWell(Build(
      "g.ccg", scattered, "--type z --spacing 100 --scattered --radius 25 --extent 0,100,0,200"));
  EXPECT_NE(run.out.find("2 x 3 nodes, 2 with a value"), std::string::npos) << run.out;
  RunWell(Build("w.ccg", scattered, "--type z --spacing 100 --scattered --radius 150 --force"));
  EXPECT_NEAR(ParseDouble(HeightsAt("w.ccg", "0,0")), (1 / 100. + 2 / 400.) / (1 / 100. + 1 / 400.),
              1e-6);
  const double a = 1 / (90. * 90), b = 1 / (100. * 100 + 20 * 20);
  EXPECT_NEAR(ParseDouble(HeightsAt("w.ccg", "100,0")), (a + 2 * b) / (a + b), 1e-6);
  EXPECT_EQ(HeightsAt("w.ccg", "0,200"), "7");
}

TEST_F(GridBuilding, WhatIsWrong) {
  const std::string old = Built("there.ccg");
  const struct {
    const char *name, *residuals, *more, *error;
  } kCases[] = {
      {"g.ccg", kHeights, "--type z --spacing 10,20", "r.csv:4: lies at no node"},
      {"g.ccg", kHeights, "--type xy --spacing 10,20", "r.csv:1: 3 fields"},
      {"g.ccg", "1,1,1\n1,1,2\n", "--type z --spacing 1", "r.csv:2: lies at the same node as"},
      {"g.ccg", "1,1,9999\n", "--type z --spacing 1", "r.csv:1: a grid can't hold"},
      {"g.ccg", "1,1,1\n9e9,9e9,2\n", "--type z --spacing 1", "beyond 2 GiB"},
      {"g.ccg", "1,1,1\n2001,2001,2\n", "--type z --spacing 1", "less than one node of a hundred"},
      {"g.ccg", "1,1,1\n5,5,2\n", "--type z --spacing 1 --extent 0,2,0,2", "outside of the grid"},
      {"g.ccg", "1,1,1\n", "--type z --spacing 1 --scattered", "needs --radius"},
      {"g.ccg", "1,1,1\n", "--type z --spacing 0", "is not above 0"},
      {"there.ccg", "1,1,1\n", "--type z --spacing 1", "is there already"},
  };
  for (const auto& c : kCases) ExpectFault(Build(c.name, c.residuals, c.more), c.error);
  EXPECT_EQ(ReadBytes(Path("there.ccg")), old);
  EXPECT_FALSE(std::filesystem::exists(Path("g.ccg")));
}

TEST_F(GridBuilding, ExpandingKeepsWhatTheNewGridLacks) {
  const std::string old = Built("g.ccg");
  RunWell(Expand("g.ccg", "0,120,6\n10,100,30\n"));
  EXPECT_EQ(ReadBytes(Path("g.ccg")).size(), old.size());
  EXPECT_EQ(HeightsAt("g.ccg", "20,120 10,100 10,120 0,100 0,120"), "2 30 4 5 6");
  const ProgramRun run = RunWell(Expand("g.ccg", "20,120,20\n30,140,8\n"));
  EXPECT_NE(run.out.find("4 x 3 nodes, 7 with a value"), std::string::npos) << run.out << run.error;
  EXPECT_EQ(HeightsAt("g.ccg", "10,100 10,110 25,130"), "30 17 -");

  RunWell(Build("north.ccg", "40,100,40\n40,120,41\n30,100,50\n30,120,51\n",
                "--type z --spacing 10,20"));
  RunWell("grid expand " + Path("g.ccg") + ' ' + Path("north.ccg"));
  EXPECT_EQ(HeightsAt("g.ccg", "40,110 30,100 25,110 10,100"), "40.5 50 30.5 30");
}

TEST_F(GridBuilding, GridsThatDontFitLeaveTheFileAsItWas) {
  const std::string old = Built("g.ccg");
  const struct {
    const char *residuals, *more, *error;
  } kCases[] = {
      {"20,100,1,1\n0,120,1,1\n", "--type xy --spacing 10,20", "has the correction type xy"},
      {"50,100,1\n60,120,1\n", "--type latlong-z --spacing 10,20", "correction type latlong-z"},
      {"20,100,1\n0,120,1\n", "--type z --spacing 10", "another spacing"},
      {"25,100,1\n5,120,1\n", "--type z --spacing 10,20", "lie between those"},
      {"30,100,1\n0,120,1\n", "--type z --spacing 10,20 --height-interpolation bicubic",
       "another correction type, interpolation or spacing"},
  };
  for (const auto& c : kCases) {
    RunWell(Build("s.ccg", c.residuals, std::string(c.more) + " --force"));
    ExpectFault("grid expand " + Path("g.ccg") + ' ' + Path("s.ccg"), c.error);
    EXPECT_EQ(ReadBytes(Path("g.ccg")), old);
  }
  ExpectFault(Expand("g.ccg", "20,100,1\n5,100,1\n"), "e.csv:2: lies at no node");
}

// The verbs that work on outlines of tunnels.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tools/korvel/RunKorvel.h"

namespace {

using Json = nlohmann::json;
using testing::HasSubstr;

const std::string kOutline = KORVELFILE_GOLDEN "/tunnel/outline.tun";

}  // namespace

TEST(TunnelVerbs, Info) {
  const Json info = RunKorvel("tunnel info --json " + kOutline).Json()[0];
  EXPECT_EQ(info["elements"], 5);
  EXPECT_EQ(info["arcs"], 2);
  EXPECT_EQ(info["closed"], true);
  EXPECT_NEAR(info["height"]["max"], 6.0, 1e-9);
  EXPECT_NEAR(info["length"], 24.4473200583, 1e-9);
}

// The outline runs clockwise: floor from the right to the left, wall, roof, wall.
TEST(TunnelVerbs, OffsetsArePositiveOutside) {
  const TempFolder folder;
  WriteBytes(folder.Path("p.csv"), "height;side;name\n1;-5;left wall\n-2;3;floor\n1;3.5;inside\n");
  const Json rows = RunKorvel("tunnel offset " + kOutline + " --json -p " + folder.Path("p.csv"))
                        .Json()["points"];
  const struct {
    const char* name;
    double offset, arc;
    int element;
  } cases[] = {{"left wall", 1.0, 9.0, 2}, {"floor", 2.0, 1.0, 1}, {"inside", -0.5, 23.4473, 5}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(rows[i]["name"], cases[i].name);
    EXPECT_NEAR(rows[i]["offset"], cases[i].offset, 1e-9) << cases[i].name;
    EXPECT_NEAR(rows[i]["arc"], cases[i].arc, 1e-4) << cases[i].name;
    EXPECT_EQ(rows[i]["element"], cases[i].element) << cases[i].name;
  }
}

TEST(TunnelVerbs, PointsInSpaceComeByTheRoad) {
  const std::string road = KORVELFILE_TEST_DATA "/alignments/clothoids";
  // The start of the road, 4 m above it: the roof stands 6 m above the middle of the floor.
  const ProgramRun run =
      RunKorvel("tunnel offset " + kOutline + " --json --line " + road + ".lin --prf " + road +
                ".prf 4084594.13215,335085.95782,369.8 4084594.13215,335085.95782");
  const Json rows = run.Json()["points"];
  EXPECT_EQ(run.status, 1);
  EXPECT_NEAR(rows[0]["side"], 0.0, 1e-9);
  EXPECT_NEAR(rows[0]["height"], 4.0, 1e-9);
  EXPECT_LT(rows[0]["offset"], -1.9);
  EXPECT_EQ(rows[1]["fault"], "has no place in a section");
}

TEST(TunnelVerbs, ParallelOutlines) {
  const TempFolder folder;
  const std::string out = folder.Path("outer.tun");
  EXPECT_EQ(RunKorvel("tunnel offset " + kOutline + " --by 0.3 -o " + out).status, 0);
  const Json rows = RunKorvel("tunnel offset " + out + " --json 0,0 0,3 4,1").Json()["points"];
  EXPECT_NEAR(rows[0]["offset"], -0.3, 1e-4);
  EXPECT_NEAR(rows[2]["offset"], -0.3, 1e-4);
  const struct {
    std::string arguments;
    int status;
    const char* said;
  } cases[] = {
      {kOutline + " --by -20 -o " + folder.Path("none.tun"), 1, "no parallel"},
      {out + " --by 0.1 -o " + out, 2, "read from"},
      {kOutline + " --by 0.1", 2, "--output"},
      {kOutline + " 1", 2, "no point"},
      {folder.Path("none.tun") + " 1,2", 2, "none.tun"},
  };
  for (const auto& c : cases) {
    const ProgramRun run = RunKorvel("tunnel offset " + c.arguments);
    EXPECT_EQ(run.status, c.status) << c.arguments;
    EXPECT_THAT(run.error, HasSubstr(c.said)) << c.arguments;
  }
}

TEST(TunnelVerbs, Plot) {
  const TempFolder folder;
  EXPECT_EQ(RunKorvel("tunnel plot " + kOutline + " -o " + folder.Path("t.svg")).status, 0);
  EXPECT_GT(ReadBytes(folder.Path("t.svg")).size(), 5000U);
}

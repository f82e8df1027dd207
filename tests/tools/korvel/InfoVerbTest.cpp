// `korvel info` on real and golden files.

#include <string>

#include <gtest/gtest.h>

#include "tests/tools/korvel/RunKorvel.h"

namespace {

const std::string kCrane = JobFolder("crane_8001");

}  // namespace

TEST(InfoVerb, CountsOfEachFormat) {
  const std::string golden = KORVELFILE_GOLDEN;
  const ProgramRun run = RunWell(
      "info --json " + kCrane + "job.plm " + kCrane + "known.geo " + golden +
      "/lvt/job.lvt " KORVELFILE_TEST_DATA "/points/m3_breaklines.pxy " + golden + "/atr/job.atr");
  const nlohmann::json files = run.Json();
  ASSERT_EQ(files.size(), 5U);
  EXPECT_EQ(files[0]["stations"], 1);
  EXPECT_EQ(files[0]["records_by_type"], (nlohmann::json{{"7", 4}, {"8", 30}}));
  EXPECT_EQ(files[1]["points"], 4);
  EXPECT_EQ(files[1]["east"]["max"], 1011.7981);
  EXPECT_EQ(files[2]["readings"], 4);
  EXPECT_EQ(files[2]["height"]["missing"], 1);
  EXPECT_EQ(files[3]["lines"], 175);
  EXPECT_EQ(files[3]["points_in_lines"], 5871);
  EXPECT_EQ(files[4]["contexts"],
            (nlohmann::json{{"Point", {"Species", "COLOR"}}, {"Line", nlohmann::json::array()}}));
}

TEST(InfoVerb, UnreadableFilesDontHideTheOthers) {
  const TempFolder folder;
  WriteBytes(folder.Path("bad.geo"), "no header\r\n");
  const std::string files = "no.geo " + folder.Path("bad.geo") + " x.txt " + kCrane + "known.geo";
  const ProgramRun text = RunKorvel("info " + files);
  EXPECT_EQ(text.status, 2);
  for (const char* fault : {"no.geo: can't be opened", "bad.geo:1: ", "x.txt: no format"})
    EXPECT_NE(text.error.find(fault), std::string::npos) << fault << '\n' << text.error;
  EXPECT_NE(text.out.find("points           4"), std::string::npos) << text.out;
}

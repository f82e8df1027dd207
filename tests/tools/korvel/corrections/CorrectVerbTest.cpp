// `korvel correct` on real points.

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "tests/support/Surroundings.h"
#include "tests/tools/korvel/corrections/ModelFiles.h"
#include "tools/korvel/CoordinateFile.h"

namespace {

/// A grid over the real points with corrections of some decimetres that change from node to node.
void BuildModel(const std::string& path, const TempFolder& folder, double west) {
  std::string residuals;
  for (int n = 0; n < 4; ++n)
    for (int e = 0; e < 5; ++e)
      residuals += GeneralText(6782400 + 300 * n, 15) + ',' + GeneralText(west + 300 * e, 15) +
                   ',' + GeneralText(0.1 * ((n * 5 + e) % 7), 6) + ',' +
                   GeneralText(-0.1 * ((n + 3 * e) % 5), 6) + ',' +
                   GeneralText(0.05 * ((n + e) % 3), 6) + '\n';
  WriteBytes(folder.Path("r.csv"), residuals);
  const ProgramRun run = RunKorvel("grid build " + path + ' ' + folder.Path("r.csv") +
                                   " --type xyz --spacing 300 --force");
  ASSERT_EQ(run.status, 0) << run.error;
}

struct PointTexts {
  Vector3d place;
  std::string texts;
};

std::vector<PointTexts> PointsOf(const std::string& path) {
  const CaughtMessages messages;
  PxyCoordinateFile file(false);
  file.ChooseFile(path.c_str());
  EXPECT_EQ(file.UseCollector(), 0) << path;
  std::vector<PointTexts> points;
  korvel::ForEachPoint(file, [&](const PointDataItem& p, const LineDataItem* line) {
    points.push_back({p, korvel::FullName(p, line) + '|' + (line ? line->CodeText() : "") + '|' +
                             p.GetPointCode() + '|' + p.GetSpecialCode() + '|' + p.GetRemark()});
  });
  return points;
}

}  // namespace

// Back from the corrected points within what the file's decimals leave.
TEST(CorrectVerb, RoundTripOfRealPoints) {
  const TempFolder folder;
  const std::string model = folder.Path("m.ccg");
  const struct {
    const char* extension;
    double west, tolerance;
  } kCases[] = {{".geo", 21530200, 1e-6}, {".pxy", 530200, 1.01e-4}};
  for (const auto& c : kCases) {
    BuildModel(model, folder, c.west);
    const std::string in = std::string(KORVELFILE_TEST_DATA "/points/m3_breaklines") + c.extension;
    const std::string out = folder.Path("out") + c.extension;
    const std::string back = folder.Path("back") + c.extension;
    const ProgramRun run = RunKorvel("correct " + in + ' ' + out + " --model " + model);
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_TRUE(run.out.starts_with("5871 points corrected")) << run.out;
    ASSERT_EQ(RunKorvel("correct -i " + out + ' ' + back + " -m " + model).status, 0);
    const auto before = PointsOf(in), corrected = PointsOf(out), after = PointsOf(back);
    ASSERT_EQ(before.size(), 5871U);
    ASSERT_EQ(after.size(), before.size());
    double longest = 0.0;
    for (std::size_t i = 0; i < before.size(); ++i) {
      EXPECT_EQ(after[i].texts, before[i].texts);
      ASSERT_LT(after[i].place.GetDistance(before[i].place), c.tolerance) << before[i].texts;
      longest = std::max(longest, corrected[i].place.GetDistance(before[i].place));
    }
    EXPECT_GT(longest, 0.3);
  }
}

TEST(CorrectVerb, HeaderAndAttributesStay) {
  const TempFolder folder;
  const std::string in = std::string(KORVELFILE_GOLDEN) + "/geo/job.geo";
  WriteBytes(folder.Path("r.csv"), "0,0,1\n1e7,0,1\n0,1e7,1\n1e7,1e7,1\n");
  ASSERT_EQ(RunKorvel("grid build " + folder.Path("m.ccg") + ' ' + folder.Path("r.csv") +
                      " --type z --spacing 1e7")
                .status,
            0);
  const ProgramRun run = RunKorvel("correct " + in + ' ' + folder.Path("o.geo") + " --model " +
                                   folder.Path("m.ccg") + " --keep-uncorrected");
  ASSERT_EQ(run.status, 0) << run.error;
  const auto rowsBut = [](const std::string& text, const std::string& keyword) {
    std::string rows;
    for (const std::string& line : SplitAt(text, '\n'))
      if (line.find(keyword) == std::string::npos && line.find("FileInfo") == std::string::npos)
        rows += line + '\n';
    return rows;
  };
  EXPECT_EQ(rowsBut(ReadBytes(folder.Path("o.geo")), "Point \""),
            rowsBut(ReadBytes(in), "Point \""));
}

TEST(CorrectVerb, WhatCantBeCorrectedIsNamed) {
  const TempFolder folder;
  const auto path = [&](const char* name) { return folder.Path(name); };
  BuildModel(path("m.ccg"), folder, 1000);
  const std::string in = KORVELFILE_SOURCE "/examples/free-station/known.geo";
  const std::string correct = "correct " + in + ' ';
  const ProgramRun refused = RunKorvel(correct + path("o.geo") + " --model " + path("m.ccg"));
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.error.find("no correction: "), std::string::npos) << refused.error;
  EXPECT_FALSE(std::filesystem::exists(path("o.geo")));
  const ProgramRun kept =
      RunKorvel(correct + path("o.geo") + " --keep-uncorrected --model " + path("m.ccg"));
  EXPECT_EQ(kept.status, 0);
  EXPECT_NE(kept.error.find("no correction: "), std::string::npos) << kept.error;
  EXPECT_EQ(PointsOf(path("o.geo")).size(), PointsOf(in).size());

  const std::string old = ReadBytes(path("o.geo"));
  const std::string itself = "correct " + path("o.geo") + ' ' + path("o.geo");
  const struct {
    std::string arguments, error;
  } kCases[] = {
      {itself + " --model " + path("m.ccg"), "is read from, and not overwritten"},
      {correct + path("o.pxy") + " --model " + path("m.ccg"), "must have the extension of"},
      {correct + path("o.txt") + " --model " + path("m.ccg"), "unknown extension"},
      {"correct no.geo " + path("x.geo") + " --model " + path("m.ccg"), "no.geo: can't be opened"},
      {correct + path("x.geo") + " --model " + in, "is no correction grid"},
      {"correct " KORVELFILE_TEST_DATA "/points/m3_breaklines.pxy " + path("x.pxy") + " --model " +
           RealGrid("germany_shift.ccg"),
       "too few decimals"},
  };
  for (const auto& c : kCases) {
    const ProgramRun run = RunKorvel(c.arguments);
    EXPECT_EQ(run.status, 2) << c.error;
    EXPECT_NE(run.error.find(c.error), std::string::npos) << run.error;
  }
  EXPECT_EQ(ReadBytes(path("o.geo")), old);
}

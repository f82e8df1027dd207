// `korvel correct` on real points.

#include <algorithm>
#include <regex>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFilesMap.h"
#include "tests/support/Surroundings.h"
#include "tests/tools/korvel/corrections/ModelFiles.h"

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
  RunWell("grid build " + path + ' ' + folder.Path("r.csv") + " --type xyz --spacing 300 --force");
}

}  // namespace

// Back from the corrected points within what the file's decimals leave.
TEST(CorrectVerb, RoundTripOfRealPoints) {
  const CaughtMessages messages;
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
    const ProgramRun run = RunWell("correct " + in + ' ' + out + " --model " + model);
    EXPECT_TRUE(run.out.starts_with("5871 points corrected")) << run.out;
    RunWell("correct -i " + out + ' ' + back + " -m " + model);
    const CoordinateFilesMap before({in}, L""), corrected({out}, L""), after({back}, L"");
    const auto names = before.GetPointList();
    ASSERT_EQ(names.size(), 5871U);
    EXPECT_EQ(after.GetPointList(), names);
    double longest = 0.0;
    for (const std::string& name : names) {
      PointInfo b, c1, a;
      ASSERT_TRUE(before.GetPoint(name, b) && corrected.GetPoint(name, c1) &&
                  after.GetPoint(name, a));
      ASSERT_LT(a.GetENH().GetDistance(b.GetENH()), c.tolerance) << name;
      longest = std::max(longest, c1.GetENH().GetDistance(b.GetENH()));
    }
    EXPECT_GT(longest, 0.3);
  }
}

TEST(CorrectVerb, HeaderAttributesAndCodesStay) {
  const TempFolder folder;
  const std::string in = std::string(KORVELFILE_GOLDEN) + "/geo/job.geo";
  WriteBytes(folder.Path("r.csv"), "0,0,1\n1e7,0,1\n0,1e7,1\n1e7,1e7,1\n");
  const std::string model = folder.Path("m.ccg"), out = folder.Path("o.geo");
  RunWell("grid build " + model + ' ' + folder.Path("r.csv") + " --type z --spacing 1e7");
  RunWell("correct " + in + ' ' + out + " --keep-uncorrected --model " + model);
  // All but the header's rows and the numbers of points.
  const std::regex others("[^\\n]*FileInfo[^\\n]*\\n|(Point \"[^\"]*\")(,[^,]*){3}");
  EXPECT_EQ(std::regex_replace(ReadBytes(out), others, "$1"),
            std::regex_replace(ReadBytes(in), others, "$1"));
}

TEST(CorrectVerb, WhatCantBeCorrectedIsNamed) {
  const CaughtMessages messages;
  const TempFolder folder;
  const auto path = [&](const char* name) { return folder.Path(name); };
  BuildModel(path("m.ccg"), folder, 1000);
  const std::string in = KORVELFILE_SOURCE "/examples/free-station/known.geo";
  const std::string correct = "correct " + in + ' ', byModel = " --model " + path("m.ccg");
  ExpectFault(correct + path("o.geo") + byModel, "no correction: ", 1);
  EXPECT_FALSE(std::filesystem::exists(path("o.geo")));
  ExpectFault(correct + path("o.geo") + " --keep-uncorrected" + byModel, "no correction: ", 0);
  EXPECT_EQ(CoordinateFilesMap({path("o.geo")}, L"").GetPointList(),
            CoordinateFilesMap({in}, L"").GetPointList());

  const std::string old = ReadBytes(path("o.geo"));
  const std::string itself = "correct " + path("o.geo") + ' ' + path("o.geo");
  const std::pair<std::string, std::string> kCases[] = {
      {itself + byModel, "is read from, and not overwritten"},
      {correct + path("o.pxy") + byModel, "must have the extension of"},
      {correct + path("o.txt") + byModel, "unknown extension"},
      {"correct no.geo " + path("x.geo") + byModel, "no.geo: can't be opened"},
      {correct + path("x.geo") + " --model " + in, "is no correction grid"},
      {"correct " KORVELFILE_TEST_DATA "/points/m3_breaklines.pxy " + path("x.pxy") + " --model " +
           RealGrid("germany_shift.ccg"),
       "too few decimals"},
  };
  for (const auto& [arguments, fault] : kCases) ExpectFault(arguments, fault);
  EXPECT_EQ(ReadBytes(path("o.geo")), old);
}

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/corrections/CcgFile.h"
#include "korvelfile/outside/base/Text.h"
#include "tests/support/Files.h"
#include "tests/support/Limits.h"

namespace {

class CcgFileTest : public testing::Test {
 protected:
  CcgInputGrid GoldenGrid(double north) const {
    const std::vector<float> nodes{0.125F,  -0.5F, 0.25F, -0.5F, 0.1875F, -0.25F,
                                   0.3125F, 0.0F,  0.25F, 0.0F,  9999.0F, 9999.0F};
    CcgInputGrid grid(north, 153000.0, 25.0, 50.0, 3, 2, path_, CorrectionXY, Bilinear, Bicubic,
                      nodes);
    grid.approxCorrections = {0.25, -0.25, 0.0};
    return grid;
  }

  // Heights on lines 1 m apart, a digit each; a dot has no value.
  CcgInputGrid Heights(double north, double east, const std::vector<std::string>& rows) const {
    std::vector<float> values;
    for (const std::string& row : rows)
      for (const char c : row) values.push_back(c == '.' ? 9999.0F : static_cast<float>(c - '0'));
    const int columns = static_cast<int>(rows[0].size());
    return {north,       east,     1.0,      1.0,   static_cast<int>(rows.size()), columns, path_,
            CorrectionZ, Bilinear, Bilinear, values};
  }

  std::string Created(const CcgInputGrid& grid) {
    std::filesystem::remove(path_);
    EXPECT_EQ(file_.CreateOrUpdateFile(grid), GeoSuccess);
    return ReadBytes(path_);
  }

  // The golden file as an older version has it.
  std::string Older(char version) const {
    std::string bytes = golden_;
    bytes[30] = version;
    if (version < 3) bytes.erase(82, 24);  // approximate corrections
    if (version < 5) bytes.erase(33, 1);   // height interpolation
    return bytes;
  }

  bool Open(const std::string& bytes) {
    WriteBytes(path_, bytes);
    return file_.OpenFile(Widen(path_));
  }

  const std::string golden_ = ReadBytes(KORVELFILE_GOLDEN "/ccg/shift.ccg");
  TempFolder folder_;
  const std::string path_ = folder_.Path("grid.ccg");
  CcgFile file_;
};

TEST_F(CcgFileTest, GoldenFileAndItsOlderVersions) {
  CcgInputGrid grid = GoldenGrid(6650100.0);
  grid.formatVersion = grid.dataOffset = 0;  // takes the current one
  EXPECT_EQ(Created(grid), golden_);
  for (char version = 0; version <= 5; ++version) {
    file_.GetApproxCorrections() = {1.0, 2.0, 3.0};
    ASSERT_TRUE(Open(Older(version)));
    EXPECT_EQ(file_.GetFileInfo().heightInterpolation, version < 5 ? Bilinear : Bicubic);
    EXPECT_EQ(file_.GetApproxCorrections().y, version < 3 ? 2.0 : -0.25);
    ASSERT_EQ(file_.CreateOrUpdateFile(GoldenGrid(6650175.0)), GeoSuccess) << int{version};
    EXPECT_EQ(std::filesystem::file_size(path_), Older(version).size() + 3 * 2 * 2 * 4);
    EXPECT_EQ(ReadBytes(path_)[30], version);
    Vector3d correction;
    ASSERT_TRUE(file_.GetCorrections(6650087.5, 153025.0, correction)) << int{version};
    EXPECT_EQ(correction, Vector3d(0.21875, -0.3125, 0.0));
  }
  EXPECT_FALSE(Open(Older(6)));
  EXPECT_EQ(file_.GetFileInfo().rows, 0) << "of the file before";
  EXPECT_FALSE(Open(std::string(golden_).replace(29, 1, "D")));
  for (std::size_t size = 0; size < golden_.size(); ++size)
    EXPECT_EQ(Open(golden_.substr(0, size)), size >= 30) << size;
}

TEST_F(CcgFileTest, NewNodesWinAndTheOldOnesStay) {
  // Where the spacing doesn't divide the limits, the last lines come to lie beyond the file's.
  CcgInputGrid widening = Heights(9.5, 0.5, {"2222", "2222", "2222"});
  widening.northMin = 8.0;
  CcgInputGrid widened = Heights(10.0, 0.0, {"1111", "1222", "1222"});
  widening.eastMax = widened.eastMax = 3.4;
  const struct {
    std::size_t kept;  // bytes of the file before
    CcgInputGrid grid, expected;
  } cases[] = {
      {154, Heights(9, 1, {"22", "2."}), Heights(10, 0, {"1111", "1221", "12.1"})},
      {154, Heights(8.6, 1.4, {"2"}), Heights(10, 0, {"1111", "1211", "1111"})},
      {154, Heights(11, 3, {"22", "22"}), Heights(11, 0, {"...22", "11122", "1111.", "1111."})},
      {154, Heights(8, -2, {"222", "222"}),
       Heights(10, -2, {"..1111", "..1111", "222111", "222..."})},
      {154, widening, widened},
      {129, Heights(8, 1, {"2"}), Heights(10, 0, {"1111", "1...", ".2.."})},
      {129, Heights(7, 1, {"2"}), Heights(10, 0, {"1111", "1...", "....", ".2.."})},
  };
  for (const auto& c : cases) {
    const std::string expected = Created(c.expected);
    Created(Heights(10, 0, {"1111", "1111", "1111"}));
    std::filesystem::resize_file(path_, c.kept);
    EXPECT_EQ(file_.CreateOrUpdateFile(c.grid), GeoSuccess);
    EXPECT_EQ(ReadBytes(path_), expected) << c.grid.northMax << ' ' << c.kept;
  }
}

TEST_F(CcgFileTest, WhatDoesNotFitLeavesTheFileAlone) {
  std::vector<CcgInputGrid> grids(7, Heights(11, 0, {"22", "22"}));
  grids[0].eastSpacing = 0.5;
  grids[1].correctionType = CorrectionLatLongZ;
  grids[2].heightInterpolation = Bicubic;
  grids[3].residuals.pop_back();
  grids[4].northMax = 1e9;  // beyond 2 GiB
  grids[5].northMax = 1e7;  // nearly empty
  grids[6].eastMin = std::nan("");
  std::string before = Created(Heights(10, 0, {"11", "11"}));
  for (std::size_t i = 0; i < grids.size(); ++i) {
    EXPECT_EQ(file_.CreateOrUpdateFile(grids[i]), i < 3 ? GeoGridMismatch : GeoFileError) << i;
    EXPECT_EQ(ReadBytes(path_), before) << i;
  }
  // A header of 72 million nodes, of which the file has four; the north minimum is -36e6.
  WriteBytes(path_, before.replace(34, 8, "\0\0\0\0\x88\x2A\x81\xC1", 8));
  for (const double north : {10.0, 11.0})
    EXPECT_EQ(file_.CreateOrUpdateFile(Heights(north, 0, {"2"})), GeoFileError);
  EXPECT_EQ(ReadBytes(path_), before);
  std::filesystem::remove(path_);
  grids[3] = GoldenGrid(0.0);
  grids[3].formatVersion = 6;
  grids[4] = CcgInputGrid(CcgFileInfo(0.0, 0.0, 1.0, 1.0, 2000000000, 1));  // of no type
  grids[4].fileName = path_;
  for (const std::size_t i : {3U, 4U}) EXPECT_EQ(file_.CreateOrUpdateFile(grids[i]), GeoFileError);
  EXPECT_FALSE(std::filesystem::exists(path_));
  const FileSizeLimit fullDisk(120);
  EXPECT_EQ(file_.CreateOrUpdateFile(GoldenGrid(0.0)), GeoFileError);
}

}  // namespace

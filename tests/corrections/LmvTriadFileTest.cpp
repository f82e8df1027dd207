#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/corrections/LmvTriadFile.h"
#include "korvelfile/outside/base/Text.h"
#include "tests/support/Files.h"

namespace {

constexpr double kNorth = 6580000.0;
constexpr double kEast = 480000.0;

class LmvTriadFileTest : public testing::Test {
 protected:
  using Patch = std::pair<std::size_t, std::string>;  // offset and bytes

  bool Open(const std::vector<Patch>& patches = {}) {
    std::string bytes = golden_;
    for (const auto& [offset, patch] : patches) bytes.replace(offset, patch.size(), patch);
    return OpenBytes(bytes);
  }
  bool OpenBytes(const std::string& bytes) {
    WriteBytes(path_, bytes);
    return file_.OpenFile(Widen(path_));
  }

  const std::string golden_ = ReadBytes(KORVELFILE_GOLDEN "/triad/square.triad");
  TempFolder folder_;
  const std::string path_ = folder_.Path("n\xC3\xA4t.triad");
  LmvTriadFile file_;
  Vector3d found_{7.0, 8.0, 9.0};
};

TEST_F(LmvTriadFileTest, AnswersFromTheGoldenFile) {
  ASSERT_TRUE(Open());
  EXPECT_EQ(file_.GetNorthMax(), kNorth + 1000.0);
  EXPECT_EQ(file_.Triangle(3).vertex, (std::array{4, 0, 3}));  // turned clockwise
  EXPECT_EQ(file_.Triangle(3).neighbour, (std::array{0, -1, 2}));
  EXPECT_EQ(file_.Point(1).triangle, 1);
  const std::array<double, 5> kCases[] = {
      // North, east, their corrections, tolerance: the points' own are exact.
      {0, 0, 0.125, -0.25, 0},
      {0, 1000, 0.25, -0.5, 0},
      {1000, 1000, 0.1F, -0.7F, 0},
      {1000, 0, 0.375, -0.375, 0},
      {400, 500, 0.2F, -0.3F, 0},
      {0, 500, 0.1875, -0.375, 5e-8},
      {200, 500, 0.19375, -0.3375, 5e-8},
      {700, 500, 0.21875, -0.41875, 5e-8},
  };
  for (const auto& [north, east, x, y, tolerance] : kCases) {
    ASSERT_TRUE(file_.GetCorrections(kNorth + north, kEast + east, found_));
    EXPECT_NEAR(found_.x, x, tolerance) << north << " " << east;
    EXPECT_NEAR(found_.y, y, tolerance) << north << " " << east;
    EXPECT_EQ(found_.z, 0.0);
  }
  ASSERT_TRUE(file_.GetInverseCorrections(kNorth + 200.19375, kEast + 499.6625, found_));
  EXPECT_NEAR(found_.x, 0.19375, 1e-4);
  EXPECT_NEAR(found_.y, -0.3375, 1e-4);
}

TEST_F(LmvTriadFileTest, HasNoAnswerOutside) {
  ASSERT_TRUE(Open());
  const double nan = std::nan("");
  for (const Vector& at : {Vector(kNorth - 1e-6, kEast), Vector(nan, kEast), Vector(kNorth, nan)}) {
    EXPECT_FALSE(file_.GetCorrections(at.x, at.y, found_));
    EXPECT_FALSE(file_.GetInverseCorrections(at.x, at.y, found_));
  }
  EXPECT_EQ(found_.x, 7.0);
  EXPECT_FALSE(file_.GetInverseCorrections(kNorth + 0.05, kEast + 500.0, found_));
  double north = kNorth + 1.0;
  double east = kEast;
  EXPECT_FALSE(file_.CheckLimits(north, east));
  EXPECT_TRUE(file_.CheckLimits(north, east += 1.0));
  // Extents far off don't matter; a correction that is no number is none.
  ASSERT_TRUE(Open({{96, std::string(32, '\0')}, {240, "\xFF\xFF\xFF\x7F"}}));
  EXPECT_TRUE(file_.GetCorrections(kNorth + 1000.0, kEast + 500.0, found_));
  EXPECT_FALSE(file_.GetCorrections(kNorth, kEast, found_));
}

TEST_F(LmvTriadFileTest, RefusesWhatIsNoNetwork) {
  const std::string kMost = "\xFF\xFF\xFF\xFF";
  const std::string kNull(1, '\0');
  const std::vector<Patch> kCases[] = {
      {{7, "_"}},                   // magic
      {{64, "\x02"}},               // record 2
      {{192, "\x01"}},              // record 6
      {{48, "\x06"}},               // points end before they begin
      {{56, "\x0B"}},               // so do triangles
      {{47, "\x7F"}, {48, kMost}},  // points beyond the end
      {{56, "\x11"}},               // one triangle too many
      {{52, kNull}, {56, kMost}},   // four billion triangles
      {{384, kNull}},               // vertex 0
      {{488, "\x06"}},              // vertex 6 of 5
      {{48, "\x07"}},               // vertices without points
  };
  for (const auto& patches : kCases) {
    ASSERT_TRUE(Open());
    EXPECT_FALSE(Open(patches)) << patches[0].first;
    EXPECT_EQ(file_.GetNumPoints() + file_.GetNumTriangles(), 0) << patches[0].first;
    EXPECT_TRUE(file_.GetCrossSection({kEast, kNorth}, 0.0).empty());
  }
  for (std::size_t size = 0; size < golden_.size(); size += 3)
    EXPECT_FALSE(OpenBytes(golden_.substr(0, size))) << size;
  EXPECT_TRUE(Open({{48, "\x07"}, {56, "\x0C"}}));  // neither points nor triangles
}

}  // namespace

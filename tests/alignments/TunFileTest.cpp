#include <cfloat>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/alignments/TunFile.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/LineFactory.h"
#include "tests/support/Files.h"
#include "tests/support/Golden.h"
#include "tests/support/Limits.h"
#include "tests/support/Random.h"
#include "tests/support/Surroundings.h"

namespace {

const std::string& Golden() {
  static const std::string bytes = ReadBytes(KORVELFILE_GOLDEN "/tunnel/outline.tun");
  return bytes;
}

std::shared_ptr<Model::ILineFactory> Factory() { return std::make_shared<Model::LineFactory>(); }

class TunFileTest : public testing::Test {
 protected:
  int Read(const std::string& bytes, const char* name = "outline.tun") {
    WriteBytes(folder_.Path(name), bytes);
    return file_.Open(folder_.Path(name).c_str());
  }

  // The golden outline with a point code at one of its points.
  std::string Coded(int point, const std::string& code) {
    std::string bytes = Golden();
    return bytes.replace(77 * (2U + static_cast<unsigned>(point)) + 51, code.size(), code);
  }

  TempFolder folder_;
  TunFile file_{Factory()};
  CaughtMessages messages_;
};

std::vector<double> Figures(const TunFile& file) {
  std::vector<double> all;
  for (int i = 0; i < file.GetNumNodes(); ++i) {
    TunElement e;
    file.GetElement(i, e);
    all.insert(all.end(), {e.Start.x, e.Start.y, e.End.x, e.End.y, e.Radius});
  }
  return all;
}

TEST_F(TunFileTest, GoldenFileReadsAndWritesByteForByteAndIsOnThePage) {
  ASSERT_EQ(Read(Golden()), 0);
  EXPECT_EQ(Figures(file_), std::vector<double>({4, 0, -4, 0, 0, -4, 0,    -4, 3, 0, -4, 3, 0,
                                                 6, 5, 0,  6, 4, 3,  5.25, 4,  3, 4, 0,  0}));
  const std::string path = folder_.Path("again.tun");
  EXPECT_EQ(file_.Save(path.c_str()), 0);
  EXPECT_EQ(ReadBytes(path), DatedToday(Golden()));
  ExpectOnPage("tunnel.md", Golden());
}

TEST_F(TunFileTest, ObjectTextKeepsTheChain) {
  SetGoldenIdentity();
  const std::string path = folder_.Path("outline.geo");
  file_.AddElement({{0.0, 0.0}, {1.0 / 3.0, 7.0}, -5.1234567890123});
  ASSERT_EQ(file_.Save(path.c_str()), 0);
  ASSERT_EQ(file_.Open(path.c_str()), 0);
  EXPECT_THAT(Figures(file_), testing::Pointwise(testing::DoubleNear(1e-15),
                                                 {0.0, 0.0, 1.0 / 3.0, 7.0, -5.123456789}));
}

TEST_F(TunFileTest, CentreIsMarkedByItsCodeAlone) {
  const struct {
    int point;
    const char* code;
    int index;
    double arc;
  } cases[] = {{5, "TC", -1, 0.0}, {3, "TCX", -1, 0.0}, {3, "ATC", -1, 0.0}, {1, "TC", 1, 8.0}};
  for (const auto& c : cases) {
    ASSERT_EQ(Read(Coded(c.point, c.code)), 0);
    EXPECT_EQ(file_.GetTcIndex(), c.index) << c.code;
    EXPECT_EQ(file_.GetTcArcLength(), c.arc) << c.code;
  }
  ASSERT_EQ(Read(Golden()), 0);
  EXPECT_EQ(file_.GetTcArcLength(), 8.0) << "kept by a file without a centre";
  file_.SetTcIndex(5);
  EXPECT_EQ(file_.GetTcIndex(), 5);
  EXPECT_EQ(file_.GetTcArcLength(), 0.0);
  file_.Flush();
  EXPECT_EQ(file_.GetTcIndex(), -1);
}

// Left of the crown the roof is a circle of radius 5 over a chord of 5: offsets are positive
// outside.
TEST_F(TunFileTest, StationsFromTheCentre) {
  ASSERT_EQ(Read(Coded(3, "TC")), 0);
  const Vector center = Vector(-2.0, 4.5) + std::sqrt(18.75) * Vector(0.6, -0.8);
  const double crown = center.GetDirection({0.0, 6.0});
  PrintedRandom random(5);
  for (int round = 0; round < 1000; ++round) {
    const double angle = random.Between(0.1, 0.8);
    const double offset = random.Between(-0.4, 3.0);
    const Vector point =
        center + (5.0 + offset) * Vector(std::cos(crown + angle), std::sin(crown + angle));
    double found = 0.0, arc = 0.0;
    ASSERT_TRUE(file_.GetTunOffsAndArcLen(point.x, point.y, found, arc));
    ASSERT_NEAR(found, offset, 1e-12);
    ASSERT_NEAR(arc, -5.0 * angle, 1e-12);
    Vector again;
    ASSERT_TRUE(file_.GetSideAndHeight(arc + file_.GetTcArcLength(), offset, again.x, again.y));
    ASSERT_LT(again.GetDistance(point), 1e-12);
  }
  EXPECT_EQ(file_.GetTotalLength(), file_.GetEndArc() - file_.GetStartArc());
}

TEST_F(TunFileTest, PreferredElementKeepsPointsNearItsCorner) {
  ASSERT_EQ(Read(Coded(1, "TC")), 0);
  double offset = 0.0, arc = 0.0;
  ASSERT_TRUE(file_.GetTunOffsAndArcLen(-3.9, 0.2, offset, arc));
  EXPECT_NEAR(offset, -0.1, 1e-12) << "the wall is nearer";
  ASSERT_TRUE(file_.GetTunOffsAndArcLenAtPreferredElement(-3.9, 0.2, 5.0, offset, arc));
  EXPECT_NEAR(offset, -0.2, 1e-12);
  EXPECT_NEAR(arc, -0.1, 1e-12);
  for (const double preferred : {9.0, 1e9}) {
    ASSERT_TRUE(file_.GetTunOffsAndArcLenAtPreferredElement(-4.5, 0.2, preferred, offset, arc));
    EXPECT_NEAR(offset, 0.5, 1e-12);
    EXPECT_NEAR(arc, 0.2, 1e-12);
  }
}

TEST_F(TunFileTest, NoAnswer) {
  file_.AddElement({{0.0, 0.0}, {1.0, 0.0}, 0.0});
  double a = 1.0, b = 1.0;
  Vector position(1.0, 1.0);
  EXPECT_FALSE(file_.GetTunOffsAndArcLen(2.0, 2.0, a, b));
  EXPECT_EQ(Vector(a, b), Vector(DBL_MAX, DBL_MAX));
  EXPECT_FALSE(file_.GetTunOffsAndArcLenAtPreferredElement(NAN, 2.0, 0.5, a, b));
  EXPECT_FALSE(file_.GetSideAndHeight(2.0, 0.0, a, b));
  EXPECT_FALSE(file_.GetDirAndPosFromArc(2.0, &position, &a));
  EXPECT_EQ(Vector(a, b), Vector(DBL_MAX, DBL_MAX));
  EXPECT_TRUE(file_.GetDirAndPosFromArc(0.25, &position, &a));
  EXPECT_EQ(position, Vector(0.25, 0.0));
  EXPECT_THROW(file_.AddElement({{0.0, 0.0}, {9.0, 0.0}, 1.0}), Model::LineException);
  EXPECT_EQ(file_.GetNumNodes(), 1);
}

TEST_F(TunFileTest, OffsetSectionRunsAtItsDistance) {
  ASSERT_EQ(Read(Coded(2, "TC")), 0);
  for (const double offset : {0.4, -0.4}) {
    TunFile beside(Factory());
    ASSERT_TRUE(file_.GetOffsetSection(offset, beside));
    EXPECT_EQ(beside.GetNumNodes(), file_.GetNumNodes());
    EXPECT_EQ(beside.GetTcIndex(), -1);
    for (double arc = 0.0; arc < beside.GetEndArc(); arc += 0.37) {
      Vector position;
      double direction = 0.0, found = 0.0, at = 0.0;
      ASSERT_TRUE(beside.GetDirAndPosFromArc(arc, &position, &direction));
      // Outside, the parallel runs on to its corner where a foot lies on the corner itself.
      if (!file_.GetTunOffsAndArcLen(position.x, position.y, found, at)) continue;
      const double limit = offset > 0.0 ? offset * std::sqrt(2.0) + 1e-9 : offset + 1e-9;
      ASSERT_GE(found, offset - 1e-9) << arc;
      ASSERT_LE(found, limit) << arc;
    }
  }
  EXPECT_FALSE(file_.GetOffsetSection(-4.5, file_)) << "nothing is left of the floor";
  EXPECT_EQ(file_.GetNumNodes(), 0);
}

TEST_F(TunFileTest, CopiesShareTheLine) {
  const TunFile copy(file_);
  file_.AddElement({{0.0, 0.0}, {1.0, 0.0}, 0.0});
  EXPECT_EQ(copy.GetNumNodes(), 1);
  file_.Flush();
  EXPECT_EQ(copy.GetNumNodes(), 1);
}

TEST_F(TunFileTest, DamagedFiles) {
  const struct {
    const char* what;
    std::string bytes;
    const char* name;
    int result, elements;
  } cases[] = {
      {"no header", Golden().substr(0, 60), "a.tun", -9, 0},
      {"one point", Golden().substr(0, 3 * 77), "a.tun", 0, 0},
      {"cut off in a point", Golden().substr(0, 5 * 77 + 30), "a.tun", 0, 3},
      {"unknown extension", Golden(), "a.txt", -9, 0},
      {"radius below half the chord", std::string(Golden()).replace(77 * 4 + 62, 1, "2"), "a.tun",
       -9, 2},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Read(c.bytes, c.name), c.result) << c.what;
    EXPECT_EQ(file_.GetNumNodes(), c.elements) << c.what;
  }
}

TEST_F(TunFileTest, FailedSaveKeepsTheOldFile) {
  ASSERT_EQ(Read(Golden()), 0);
  const FileSizeLimit limit(200);
  EXPECT_NE(file_.Save(folder_.Path("outline.tun").c_str()), 0);
  EXPECT_EQ(ReadBytes(folder_.Path("outline.tun")), Golden());
}

}  // namespace

// The plot: its geometry, its names, and files of all kinds from jobs of any size.

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Random.h"
#include "tests/tools/korvel/RunKorvel.h"
#include "tools/korvel/PlotLabels.h"
#include "tools/korvel/PlotMap.h"

namespace {

struct Box {
  Vector corner, size;

  bool Overlaps(const Box& other) const {
    return corner.x < other.corner.x + other.size.x && other.corner.x < corner.x + size.x &&
           corner.y < other.corner.y + other.size.y && other.corner.y < corner.y + size.y;
  }
};

}  // namespace

TEST(PlotMap, EverythingLiesWithinTheFrameAndFillsIt) {
  const Vector far(40759376.5, 5527816.1);
  for (const double extent : {0.0, 0.004, 1.0, 117.0, 9.9e5, 3e7}) {
    for (const double aspect : {0.0, 0.2, 1.0, 5.0}) {
      const Vector other = far + Vector(extent, extent * aspect);
      const korvel::PlotMap map({far, other});
      const Box frame{map.GetCorner(), map.GetSize()};
      const Vector a = map.ToPage(far);
      const Vector b = map.ToPage(other);
      for (const Vector& p : {a, b})
        EXPECT_TRUE(frame.Overlaps({p, {0.0, 0.0}})) << extent << ' ' << aspect;
      if (extent >= 0.004) {
        EXPECT_GT(a.GetDistance(b), 150.0) << extent << ' ' << aspect;
      }
      EXPECT_LE(a.y, frame.corner.y + frame.size.y);
      EXPECT_NEAR(map.ToGround(a).GetDistance(far), 0.0, 1e-7);
    }
  }
}

TEST(PlotLabels, NamesCoverNeitherSignsNorEachOther) {
  const Vector corner(20.0, 30.0);
  const Vector size(400.0, 300.0);
  korvel::PlotLabels labels(corner, size);
  PrintedRandom random(7);
  std::vector<Vector> signs;
  for (int i = 0; i < 200; ++i)
    signs.push_back(corner + Vector(random.Between(0, size.x), random.Between(0, size.y)));
  for (const Vector& sign : signs) labels.AddSign(sign, 2.0);
  const Vector name(22.0, 6.0);
  std::vector<Box> placed;
  for (const Vector& sign : signs) {
    const auto place = labels.Place(sign, name, 6.0, false);
    if (!place) continue;
    const Box box{*place - Vector(0.0, name.y), name};
    for (const Vector& other : signs) EXPECT_FALSE(box.Overlaps({other, {0.0, 0.0}}));
    for (const Box& other : placed) EXPECT_FALSE(box.Overlaps(other));
    EXPECT_GE(box.corner.x, corner.x);
    EXPECT_LE(box.corner.x + name.x, corner.x + size.x + 1.5);
    placed.push_back(box);
  }
  EXPECT_GT(placed.size(), 100U);
}

TEST(Plot, FilesOfEachKind) {
  const std::string png = ExpectPlots(StationOf("crane_8001") + "--plot");
  // Width and height of the image, upright A4 with two pixels to the point.
  EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x04\xA7\0\0\x06\x94", 8));
}

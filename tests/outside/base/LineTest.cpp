#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Line.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Line, IsPointNear) {
  const Line line({1000, 1000}, {1010, 1000});
  const struct {
    const char* what;
    Vector point;
    double distance;
    bool near;
  } cases[] = {
      {"beside, at the limit", {1005, 1002}, 2.0, true},
      {"beside, farther", {1005, 1002}, 1.999, false},
      {"on the line", {1003, 1000}, 0.0, true},
      {"beyond the end, at the limit", {1013, 1004}, 5.0, true},
      {"beyond the end, though near the straight line", {1013, 1000}, 2.9, false},
      {"before the start", {997, 996}, 5.0, true},
      {"before the start, farther", {997, 996}, 4.9, false},
      {"negative distance", {1005, 1000}, -1.0, false},
      {"distance not a number", {1005, 1000}, kNaN, false},
      {"point not a number", {kNaN, 1000}, 10.0, false},
      {"point without a place", {DBL_MAX, DBL_MAX}, 10.0, false},
  };
  for (const auto& c : cases) EXPECT_EQ(line.IsPointNear(c.point, c.distance), c.near) << c.what;
}

TEST(Line, OfNoLengthIsAPoint) {
  const Line line({3, 4}, {3, 4});
  EXPECT_TRUE(line.IsPointNear({0, 0}, 5.0));
  EXPECT_FALSE(line.IsPointNear({0, 0}, 4.999));
  EXPECT_EQ(line.GetFoot({9, 9}), Vector(3, 4));
  EXPECT_EQ(line.GetLength(), 0.0);
}

// Judge: the nearest of many points along the segment.
TEST(Line, DistanceIsThatOfTheNearestPoint) {
  std::mt19937 random(21);
  std::uniform_real_distribution<double> any(-100, 100);
  for (int i = 0; i < 300; ++i) {
    const Vector a(any(random), any(random)), b(any(random), any(random));
    const Vector point(any(random), any(random));
    const Line line(a, b);
    double least = DBL_MAX;
    for (int k = 0; k <= 2000; ++k)
      least = std::min(least, point.GetDistance(a + (b - a) * (k / 2000.0)));
    ASSERT_LE(line.GetDistance(point), least + 1e-12) << i;
    ASSERT_NEAR(line.GetDistance(point), least, 0.15) << i;
    const Vector foot = line.GetFoot(point);
    ASSERT_NEAR((point - foot).GetScalarProduct(b - a), 0.0, 1e-9) << i;
    ASSERT_NEAR((foot - a).GetCrossProduct(b - a), 0.0, 1e-9) << i;
  }
}

TEST(Line, OrthoOutTellsStationAndOffsetToTheRight) {
  const Line north({1000, 2000}, 1.5707963267948966, 50.0);
  EXPECT_NEAR(north.GetEnd().y, 2050.0, 1e-12);
  const struct {
    Vector point, expected;
  } cases[] = {{{1003, 2010}, {10, 3}}, {{997, 2060}, {60, -3}}, {{1000, 1990}, {-10, 0}}};
  for (const auto& c : cases) {
    const Vector found = north.OrthoOut(c.point);
    EXPECT_NEAR(found.x, c.expected.x, 1e-12);
    EXPECT_NEAR(found.y, c.expected.y, 1e-12);
  }
  EXPECT_EQ(Line({1, 1}, {1, 1}).OrthoOut({5, 5}).x, 0.0);
}

}  // namespace

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Circle.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Line.h"
#include "tests/support/Random.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kAccuracy = 1e-12;

TEST(CircleArc, TurnsRightForAPositiveRadius) {
  const double root = std::sqrt(0.5);
  const struct {
    const char* what;
    Vector end, middle, center;
    double radius, bearing, length;
  } cases[] = {
      {"quarter to the right", {1, 1}, {1 - root, root}, {1, 0}, 1, kHalfPi, kHalfPi},
      {"quarter to the left", {1, 1}, {root, 1 - root}, {0, 1}, -1, 0, kHalfPi},
      {"half to the right", {2, 0}, {1, 1}, {1, 0}, 1, kHalfPi, kPi},
      {"half to the left", {0, -2}, {-1, -1}, {0, -1}, -1, kPi, kPi},
      {"backwards", {-1, 1}, {-root, 1 - root}, {0, 1}, 1, kPi, kHalfPi},
  };
  for (const auto& c : cases) {
    CircleArc arc;
    ASSERT_TRUE(arc.Set({0, 0}, c.end, c.radius, 0, 0)) << c.what;
    EXPECT_NEAR(std::cos(arc.GetBearing()), std::cos(c.bearing), kAccuracy) << c.what;
    EXPECT_NEAR(std::sin(arc.GetBearing()), std::sin(c.bearing), kAccuracy) << c.what;
    EXPECT_NEAR(arc.GetLength(), c.length, kAccuracy) << c.what;
    EXPECT_LT(arc.GetMidPoint().GetDistance(c.middle), kAccuracy) << c.what;
    EXPECT_LT(arc.GetCenter().GetDistance(c.center), kAccuracy) << c.what;
    EXPECT_EQ(arc.GetEndPoint(), c.end) << c.what;
  }
}

TEST(CircleArc, FromAStartIsTheSameAsBetweenItsEnds) {
  PrintedRandom random(5);
  for (int i = 0; i < 1000; ++i) {
    const double radius = random.Between(-500.0, 500.0);
    const double length = std::fabs(radius) * random.Between(0.001, 3.14);
    const CircleArc given({1000, 2000}, radius, random.Between(-9.0, 9.0), length, 0, 0);
    const CircleArc found({1000, 2000}, given.GetEndPoint(), radius, 0, 0);
    ASSERT_NEAR(found.GetLength(), length, 1e-8);
    ASSERT_NEAR(std::remainder(found.GetBearing() - given.GetBearing(), kTwoPi), 0.0, 1e-8);
    ASSERT_NEAR(std::remainder(found.GetEndBearing() - given.GetEndBearing(), kTwoPi), 0.0, 1e-8);
    ASSERT_NEAR(given.GetMidPoint().GetDistance(given.GetCenter()), std::fabs(radius), 1e-9);
  }
}

TEST(CircleArc, WhatIsNone) {
  const struct {
    const char* what;
    Vector start, end;
    double radius;
    bool isArc;
  } cases[] = {
      {"chord of the diameter", {0.1, 0}, {0.3, 0}, 0.1, true},
      {"the same with coordinates of seven digits", {6580000.1, 0}, {6580000.3, 0}, 0.1, true},
      {"chord longer by a micrometre", {6580000.1, 0}, {6580000.300001, 0}, 0.1, false},
      {"radius below a millimetre", {0, 0}, {1e-4, 0}, 1e-4, true},
      {"radius 0", {0, 0}, {1, 0}, 0.0, false},
      {"equal points", {1, 1}, {1, 1}, 10.0, false},
      {"radius NaN", {0, 0}, {1, 0}, kNaN, false},
      {"radius infinite", {0, 0}, {1, 0}, kInfinity, false},
      {"end NaN", {0, 0}, {kNaN, 0}, 10.0, false},
      {"start infinite", {-kInfinity, 0}, {1, 0}, 10.0, false},
  };
  for (const auto& c : cases) {
    CircleArc arc({7, 7}, {8, 8}, 5.0, 0, 0);
    EXPECT_EQ(arc.Set(c.start, c.end, c.radius, 0, 0), c.isArc) << c.what;
    EXPECT_EQ(arc.GetRadius(), c.isArc ? c.radius : 5.0) << c.what;
    const CircleArc made(c.start, c.end, c.radius, 0, 0);
    EXPECT_EQ(made.GetRadius(), c.isArc ? c.radius : 0.0) << c.what;
    EXPECT_EQ(made.GetStartPoint(), c.start) << c.what;
  }
  EXPECT_EQ(CircleArc({1, 2}, 10.0, 0.0, kInfinity, 0, 0).GetEndPoint(), Vector(1, 2));
}

TEST(Line, CrossesACircleInItsOwnOrder) {
  const Circle circle({10, 0}, 0.0, 5.0, 0);  // centre (10, -5)
  const struct {
    const char* what;
    Line line;
    bool meets;
    Vector first, second;
  } cases[] = {
      {"through the centre, far away", Line({10, 100}, -kHalfPi, 1.0), true, {10, 0}, {10, -10}},
      {"upwards", Line({10, -300}, {10, -299}), true, {10, -10}, {10, 0}},
      {"beside the centre", Line({0, -2}, {1, -2}), true, {6, -2}, {14, -2}},
      {"touching", Line({0, 0}, {3, 0}), true, {10, 0}, {10, 0}},
      {"passing", Line({0, 1}, {3, 1}), false, {}, {}},
      {"of no length", Line({10, -5}, {10, -5}), false, {}, {}},
      {"not a number", Line({10, kNaN}, {10, 5}), false, {}, {}},
  };
  for (const auto& c : cases) {
    Vector first;
    Vector second;
    EXPECT_EQ(c.line.GetIntersection(circle, first, second), c.meets) << c.what;
    EXPECT_LT(first.GetDistance(c.first), 1e-10) << c.what;
    EXPECT_LT(second.GetDistance(c.second), 1e-10) << c.what;
  }
  EXPECT_EQ(Line({1, 1}, {5, 3}).GetSlope(), 0.5);
}

}  // namespace

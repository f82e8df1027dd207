#include <cmath>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Circle.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Line.h"
#include "tests/support/Random.h"

namespace {

const double kNaN = std::nan("");

TEST(CircleArc, FromAStartIsTheSameAsBetweenItsEnds) {
  const CircleArc quarter({0, 0}, {1, 1}, 1.0, 0, 0);  // up, and then to the right
  EXPECT_NEAR(quarter.GetBearing(), kHalfPi, 1e-15);
  EXPECT_LT(quarter.GetMidPoint().GetDistance({1 - std::sqrt(0.5), std::sqrt(0.5)}), 1e-15);
  PrintedRandom random(5);
  for (int i = 0; i < 1000; ++i) {
    const double radius = random.Between(-500.0, 500.0);
    const double length = std::fabs(radius) * random.Between(0.001, 3.14);
    const CircleArc given({1000, 2000}, radius, random.Between(-9.0, 9.0), length, 0, 0);
    const CircleArc found({1000, 2000}, given.GetEndPoint(), radius, 0, 0);
    ASSERT_NEAR(found.GetLength(), length, 1e-8);
    ASSERT_NEAR(std::remainder(found.GetBearing() - given.GetBearing(), kTwoPi), 0.0, 1e-8);
    ASSERT_NEAR(given.GetMidPoint().GetDistance(given.GetCenter()), std::fabs(radius), 1e-9);
  }
}

TEST(CircleArc, ChordOfTheDiameterPassesWithinTheRoundingOfCoordinates) {
  CircleArc arc;
  EXPECT_TRUE(arc.Set({6580000.1, 0}, {6580000.3, 0}, -0.1, 0, 0));
  EXPECT_FALSE(arc.Set({6580000.1, 0}, {6580000.300001, 0}, 0.1, 0, 0));
  EXPECT_FALSE(arc.Set({0, 0}, {0, 0}, 0.1, 0, 0));
  for (const double radius : {0.0, kNaN, 1.0 / 0.0})
    EXPECT_FALSE(arc.Set({0, 0}, {0, 1}, radius, 0, 0));
  EXPECT_FALSE(arc.Set({0, 0}, {kNaN, 1}, 5.0, 0, 0));
  EXPECT_EQ(arc.GetRadius(), -0.1);
  EXPECT_EQ(CircleArc({1, 2}, 10.0, kNaN, 5.0, 0, 0).GetEndPoint(), Vector(1, 2));
}

TEST(Line, CrossesACircleInItsOwnOrder) {
  const Circle circle({10, 0}, 0.0, 5.0, 0);  // centre (10, -5)
  Vector first, second;
  ASSERT_TRUE(Line({10, 100}, -kHalfPi, 1.0).GetIntersection(circle, first, second));
  EXPECT_LT(first.GetDistance({10, 0}) + second.GetDistance({10, -10}), 1e-10);
  ASSERT_TRUE(Line({0, -2}, {1, -2}).GetIntersection(circle, first, second));
  EXPECT_LT(first.GetDistance({6, -2}) + second.GetDistance({14, -2}), 1e-10);
  for (const Line& line : {Line({0, 1}, {3, 1}), Line({10, -5}, {10, -5}), Line({9, kNaN}, {9, 5})})
    EXPECT_FALSE(line.GetIntersection(circle, first, second));
}

}  // namespace

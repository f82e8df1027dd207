#include <climits>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

constexpr struct {
  const char* what;
  double given, period, base, expected;
} kPeriods[] = {
    {"inside", 1.0, kTwoPi, 0.0, 1.0},
    {"at the base", -kPi, kTwoPi, -kPi, -kPi},
    {"at the end", kTwoPi, kTwoPi, 0.0, 0.0},
    {"below the base", -0.5, kTwoPi, 0.0, kTwoPi - 0.5},
    {"base below zero", 4.0, kTwoPi, -kPi, 4.0 - kTwoPi},
    {"three turns down", -1210.0, 400.0, 0.0, 390.0},
    {"another unit and base", 750.0, 400.0, 100.0, 350.0},
    {"lifted to the end by rounding", -1e-20, kTwoPi, 0.0, 0.0},
    {"so large that looping would not end", 1e300, 400.0, 0.0, 160.0},
};

TEST(Angles, NormalizeAngle) {
  for (const auto& c : kPeriods) {
    const double normalized = NormalizeAngle(c.given, c.period, c.base);
    EXPECT_NEAR(normalized, c.expected, 1e-13) << c.what;
    EXPECT_GE(normalized, c.base) << c.what;
    EXPECT_LT(normalized, c.base + c.period) << c.what;
  }
  for (const double bad : {kNaN, kInf}) EXPECT_TRUE(std::isnan(NormalizeAngle(bad, kTwoPi, 0.0)));
  EXPECT_TRUE(std::isnan(NormalizeAngle(1.0, 0.0, 0.0)));
}

TEST(Angles, NormalizeVAngle) {
  EXPECT_EQ(NormalizeVAngle(kPi), kPi);
  EXPECT_DOUBLE_EQ(NormalizeVAngle(kTwoPi - 1.5), 1.5);
}

TEST(Angles, MathematicalAngleAndAzimuthOfTheSameRay) {
  constexpr struct {
    double east, north, azimuth;
  } kRays[] = {{0, 1, 0.0}, {1, 1, 0.25 * kPi}, {1, 0, kHalfPi}, {0, -1, kPi}, {-1, 0, 1.5 * kPi}};
  for (const auto& ray : kRays) {
    const double angle = std::atan2(ray.north, ray.east);
    EXPECT_NEAR(std::remainder(SwapAngleDirection(angle) - ray.azimuth, kTwoPi), 0.0, 1e-15);
    EXPECT_NEAR(BearingToGon(angle), ray.azimuth / kRadiansPerGon, 1e-13);
    EXPECT_NEAR(std::remainder(GonToBearing(ray.azimuth / kRadiansPerGon) - angle, kTwoPi), 0.0,
                1e-15);
  }
}

TEST(Angles, GonRoundTrip) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> any(0.0, 400.0);
  for (int i = 0; i < 10000; ++i) {
    const double gon = any(random);
    ASSERT_NEAR(BearingToGon(GonToBearing(gon)), gon, 2e-13);
  }
  EXPECT_EQ(BearingToGon(GonToBearing(0.0)), 0.0);
  EXPECT_EQ(BearingToGon(GonToBearing(400.0)), 0.0);
  EXPECT_EQ(BearingToGon(GonToBearing(100.0)), 100.0);
  EXPECT_TRUE(std::isnan(BearingToGon(kInf)));
}

TEST(Angles, HAngleJustifyToFirst) {
  constexpr struct {
    double first, given, turns;
  } kCases[] = {{6.28, 0.01, 1},    {0.01, 6.28, -1}, {1.0, 1.5, 0},           {0.0, kPi, 0},
                {100.0, 0.0, 16.0}, {0.0, -20.0, 3},  {-kPi, kPi - 0.01, -1.0}};
  for (const auto& c : kCases) {
    const double justified = HAngleJustifyToFirst(c.first, c.given);
    EXPECT_NEAR(justified, c.given + c.turns * kTwoPi, 1e-13) << c.first << ' ' << c.given;
    EXPECT_LE(std::fabs(justified - c.first), kPi + 1e-13);
  }
  EXPECT_TRUE(std::isnan(HAngleJustifyToFirst(0.0, kInf)));
  EXPECT_TRUE(std::isnan(HAngleJustifyToFirst(kNaN, 0.0)));
}

TEST(Angles, RoundInt) {
  constexpr struct {
    double given;
    int expected;
  } kCases[] = {{0.5, 1},         {-0.5, -1},
                {2.5, 3},         {0.49999999999999994, 0},
                {-1.49, -1},      {2147483646.5, INT_MAX},
                {1e300, INT_MAX}, {-kInf, INT_MIN},
                {kNaN, 0}};
  for (const auto& c : kCases) EXPECT_EQ(RoundInt(c.given), c.expected) << c.given;
}

}  // namespace

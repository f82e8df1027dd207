#include <algorithm>
#include <cmath>
#include <limits>

#include <boost/math/quadrature/gauss.hpp>
#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "tests/support/Random.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kAccuracy = 1e-10;  // metres

struct Shape {
  double direction;
  double parameter;
  double startRadius;
  double endRadius;

  long double From() const { return startRadius == 0.0 ? 0.0L : 1.0L / startRadius; }
  long double To() const { return endRadius == 0.0 ? 0.0L : 1.0L / endRadius; }
  long double Rate() const { return std::copysign(1.0L, To() - From()) / parameter / parameter; }
  double Length() const { return static_cast<double>((To() - From()) / Rate()); }

  Clothoid Make(const Vector& start) const {
    Clothoid clothoid;
    clothoid.SetWithParameter(start, direction, parameter, startRadius, endRadius);
    return clothoid;
  }

  // The point by Gauss's rule of 30 points in long double over steps of half a radian.
  Vector Integrate(double length) const {
    const long double most = std::max(std::fabs(From()), std::fabs(From() + Rate() * length));
    const int steps = static_cast<int>(2.0L * most * std::fabs(length)) + 1;
    long double x = 0.0L;
    long double y = 0.0L;
    for (int i = 0; i < steps; ++i) {
      const long double a = static_cast<long double>(length) * i / steps;
      const long double b = static_cast<long double>(length) * (i + 1) / steps;
      const auto angle = [&](long double s) { return direction - s * (From() + Rate() * s / 2); };
      using Gauss = boost::math::quadrature::gauss<long double, 30>;
      x += Gauss::integrate([&](long double s) { return std::cos(angle(s)); }, a, b);
      y += Gauss::integrate([&](long double s) { return std::sin(angle(s)); }, a, b);
    }
    return {static_cast<double>(x), static_cast<double>(y)};
  }
};

// Right and left, into a curve, out of it, from one radius to another and through zero; up to some
// kilometres, and at most some turns.
Shape RandomShape(PrintedRandom& random, int kind) {
  const double parameter = 20.0 * std::pow(100.0, random.Between(0.0, 1.0));
  const auto radius = [&] {
    return std::max(5.0, 0.25 * parameter) * std::pow(50.0, random.Between(0.0, 1.0));
  };
  const double side = random.Between(-1.0, 1.0) < 0.0 ? -1.0 : 1.0;
  const double from = kind == 0 ? 0.0 : side * radius();
  const double to = kind == 1 ? 0.0 : (kind == 3 ? -side : side) * radius();
  return {random.Between(0.0, kTwoPi), parameter, from, to};
}

TEST(Clothoid, PointsAgreeWithAnIndependentQuadrature) {
  PrintedRandom random(1);
  for (int i = 0; i < 4000; ++i) {
    const Shape shape = RandomShape(random, i % 4);
    const Clothoid clothoid = shape.Make({});
    ASSERT_NEAR(clothoid.CalcArcLength(), shape.Length(), 1e-12 * shape.Length());
    const double length = shape.Length() * random.Between(-0.2, 1.3);
    if (std::fabs(length) > 5000.0) continue;
    double direction = 0.0;
    double curvature = 0.0;
    const Vector point = clothoid.TangentPoint(&direction, &curvature, length);
    ASSERT_LT(point.GetDistance(shape.Integrate(length)), kAccuracy)
        << shape.parameter << ' ' << shape.startRadius << ' ' << shape.endRadius << ' ' << length;
    const long double end = shape.From() + shape.Rate() * length;
    const long double turn = length * (shape.From() + end) / 2;
    ASSERT_NEAR(curvature, static_cast<double>(end), 1e-15);
    ASSERT_NEAR(direction, static_cast<double>(shape.direction - turn), 1e-13);
  }
}

TEST(Clothoid, OfHardlyChangingCurvatureKeepsItsDigits) {
  const Shape shape{0.3, 1e6, 1000.0, 1000.01};
  const Vector end = shape.Make({}).CalcEndPoint();
  EXPECT_LT(end.GetDistance(shape.Integrate(shape.Length())), kAccuracy);
}

TEST(Clothoid, LengthAndParameterMakeTheSameCurve) {
  PrintedRandom random(2);
  for (int i = 0; i < 100; ++i) {
    const Shape shape = RandomShape(random, i % 4);
    const Clothoid byParameter = shape.Make({1000, 2000});
    Clothoid byLength;
    byLength.SetWithLength({1000, 2000}, shape.direction, shape.Length(), shape.startRadius,
                           shape.endRadius);
    EXPECT_NEAR(byLength.GetParameter(), shape.parameter, 1e-11 * shape.parameter);
    Clothoid byNegative;
    byNegative.SetWithParameter({1000, 2000}, shape.direction, -shape.parameter, shape.startRadius,
                                shape.endRadius);
    EXPECT_EQ(byNegative.CalcEndPoint(), byParameter.CalcEndPoint());
  }
}

// A point beside the curve, short of the centre of curvature, has its foot where it was set out.
TEST(Clothoid, OrthoOutFindsTheFootAlsoBeyondTheEnds) {
  PrintedRandom random(3);
  const Vector start(674000.0, 6580000.0);
  for (int i = 0; i < 4000; ++i) {
    Shape shape = RandomShape(random, i % 4);
    shape.startRadius *= 2.0;  // at most a turn or so, lest another branch lies nearer
    shape.endRadius *= 2.0;
    const double length = shape.Length() * random.Between(-0.05, 1.05);
    if (shape.Length() > 1.5 * shape.parameter) continue;
    const Clothoid clothoid = shape.Make(start);
    double direction = 0.0;
    double curvature = 0.0;
    const Vector foot = clothoid.TangentPoint(&direction, &curvature, length);
    const double room = std::min(0.5 / std::max(std::fabs(curvature), 1e-3), shape.parameter / 4);
    const double offset = room * random.Between(-1.0, 1.0);
    Vector result;
    ASSERT_TRUE(clothoid.OrthoOut(foot + PolarVector(offset, direction - kHalfPi).GetVector(),
                                  result, 1.0));
    // Coordinates of seven digits before the point are themselves rounded by 1e-9 m.
    ASSERT_NEAR(result.x, length, 4e-9) << shape.parameter << ' ' << offset;
    ASSERT_NEAR(result.y, offset, 2e-9);
  }
}

TEST(Clothoid, OrthoOutTakesTheNearestFootOfSeveral) {
  PrintedRandom random(4);
  for (const Shape& shape : {Shape{0.0, 100.0, 0.0, 15.0}, Shape{2.0, 50.0, -12.0, 12.0}}) {
    const Clothoid clothoid = shape.Make({});
    for (int i = 0; i < 60; ++i) {
      const double about = shape.Length() * random.Between(0.1, 0.9);
      const Vector point = clothoid.TangentPoint(nullptr, nullptr, about) +
                           Vector(random.Between(-30, 30), random.Between(-30, 30));
      double nearest = kInfinity;
      for (int k = 0; k <= 5000; ++k) {
        const double s = shape.Length() * k / 5000;
        nearest = std::min(nearest, point.GetDistance(clothoid.TangentPoint(nullptr, nullptr, s)));
      }
      Vector result;
      ASSERT_TRUE(clothoid.OrthoOut(point, result, 1e-5));
      if (result.x < 0.0 || result.x > shape.Length()) continue;
      double direction = 0.0;
      const Vector foot = clothoid.TangentPoint(&direction, nullptr, result.x);
      EXPECT_LE(foot.GetDistance(point), nearest + kAccuracy);
      EXPECT_NEAR((point - foot).GetScalarProduct(PolarVector(1.0, direction).GetVector()), 0.0,
                  kAccuracy);
    }
  }
}

TEST(Clothoid, WhatMakesNoneIsItsStart) {
  const struct {
    const char* what;
    double direction, parameter, startRadius, endRadius;
  } cases[] = {
      {"equal radii", 1, 100, 50, 50},
      {"two straights", 1, 100, 0, 0},
      {"parameter 0", 1, 0, 0, 50},
      {"parameter NaN", 1, kNaN, 0, 50},
      {"parameter infinite", 1, kInfinity, 0, 50},
      {"radius NaN", 1, 100, kNaN, 50},
      {"square beyond all numbers", 1, 1e200, 0, 50},
      {"square below", 1, 1e-200, 0, 50},
      {"radius too small", 1, 100, 0, 1e-310},
      {"direction NaN", kNaN, 100, 0, 50},
  };
  for (const auto& c : cases) {
    Clothoid clothoid;
    clothoid.SetWithParameter({3, 4}, c.direction, c.parameter, c.startRadius, c.endRadius);
    EXPECT_EQ(clothoid.CalcArcLength(), 0.0) << c.what;
    EXPECT_EQ(clothoid.GetParameter(), 0.0) << c.what;
    EXPECT_EQ(clothoid.TangentPoint(nullptr, nullptr, 7.0), Vector(3, 4)) << c.what;
    Vector result(1, 2);
    EXPECT_FALSE(clothoid.OrthoOut({5, 6}, result, 1e-5)) << c.what;
    EXPECT_EQ(result, Vector(1, 2)) << c.what;
  }
}

TEST(Clothoid, OfExtremeNumbersAnswersFinite) {
  const double radii[] = {0.0, 1e-300, 1e-6, -1e-4, 5e-4, 1.0, -1e12, 1e300};
  const double sizes[] = {1e-150, 1e-6, 1.0, 1e4, 1e9, 1e150};
  for (const double parameter : sizes) {
    for (const double from : radii) {
      for (const double to : radii) {
        const Clothoid clothoid = Shape{0.5, parameter, from, to}.Make({1, 2});
        for (const double length : {-1e300, -3.0, 1e-9, 2e3, 1e15, 1e300, kNaN, kInfinity}) {
          double direction = 0.0;
          const Vector point = clothoid.TangentPoint(&direction, nullptr, length);
          EXPECT_TRUE(std::isfinite(point.x + point.y + direction))
              << parameter << ' ' << from << ' ' << to << ' ' << length;
        }
        for (const Vector& point : {Vector(7, 8), Vector(1e300, -1e300), Vector(kNaN, 0)}) {
          Vector result;
          clothoid.OrthoOut(point, result, 0.0);
          EXPECT_TRUE(std::isfinite(result.x + result.y)) << parameter << ' ' << from << ' ' << to;
        }
      }
    }
  }
}

}  // namespace

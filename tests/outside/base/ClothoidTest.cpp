#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>

#include <boost/math/quadrature/gauss.hpp>
#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "tests/support/Random.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kAccuracy = 1e-10;  // metres

struct Shape {
  double direction, parameter, startRadius, endRadius;

  long double From() const { return startRadius == 0.0 ? 0.0L : 1.0L / startRadius; }
  long double To() const { return endRadius == 0.0 ? 0.0L : 1.0L / endRadius; }
  long double Rate() const { return std::copysign(1.0L, To() - From()) / parameter / parameter; }
  double Length() const { return static_cast<double>((To() - From()) / Rate()); }

  Clothoid Make(const Vector& start) const {
    Clothoid clothoid;
    clothoid.SetWithParameter(start, direction, -parameter, startRadius, endRadius);
    return clothoid;
  }

  // By Gauss's rule of 30 points in long double over steps of half a radian.
  Vector Integrate(double length) const {
    const long double most = std::max(std::fabs(From()), std::fabs(From() + Rate() * length));
    const int steps = static_cast<int>(2.0L * most * std::fabs(length)) + 1;
    const long double step = static_cast<long double>(length) / steps;
    const auto angle = [&](long double s) { return direction - s * (From() + Rate() * s / 2); };
    const auto unit = [&](long double s) { return std::polar(1.0L, angle(s)); };
    std::complex<long double> sum = 0.0L;
    for (int i = 0; i < steps; ++i)
      sum += boost::math::quadrature::gauss<long double, 30>::integrate(unit, i * step,
                                                                        (i + 1) * step);
    return {static_cast<double>(sum.real()), static_cast<double>(sum.imag())};
  }
};

// Right and left, into a curve, out of it, from one radius to another and through zero; up to some
// kilometres, and at most some turns.
Shape RandomShape(PrintedRandom& random, int kind) {
  const double parameter = 20.0 * std::pow(100.0, random.Between(0.0, 1.0));
  const double tightest = std::max(5.0, 0.25 * parameter);
  const auto radius = [&] { return tightest * std::pow(50.0, random.Between(0.0, 1.0)); };
  const double side = random.Between(-1.0, 1.0) < 0.0 ? -1.0 : 1.0;
  const double from = kind == 0 ? 0.0 : side * radius();
  const double to = kind == 1 ? 0.0 : (kind == 3 ? -side : side) * radius();
  return {random.Between(0.0, kTwoPi), parameter, from, to};
}

TEST(Clothoid, PointsAndFeetAgreeWithAnIndependentQuadrature) {
  PrintedRandom random(1);
  for (int i = 0; i < 4000; ++i) {
    // The first changes its curvature hardly at all.
    const Shape shape = i == 0 ? Shape{0.3, 1e6, 1000.0, 1000.01} : RandomShape(random, i % 4);
    const double length = shape.Length() * random.Between(-0.1, 1.1);
    if (i > 0 && std::fabs(length) > 5000.0) continue;
    Clothoid clothoid;
    clothoid.SetWithLength({}, shape.direction, shape.Length(), shape.startRadius, shape.endRadius);
    ASSERT_NEAR(clothoid.GetParameter(), shape.parameter, 1e-11 * shape.parameter);
    clothoid = shape.Make({});
    double direction, curvature;
    const Vector point = clothoid.TangentPoint(&direction, &curvature, length);
    ASSERT_LT(point.GetDistance(shape.Integrate(length)), kAccuracy)
        << shape.parameter << ' ' << shape.startRadius << ' ' << shape.endRadius << ' ' << length;
    const long double end = shape.From() + shape.Rate() * length;
    const long double turn = length * (shape.From() + end) / 2;
    ASSERT_NEAR(curvature, static_cast<double>(end), 1e-15);
    ASSERT_NEAR(direction, static_cast<double>(shape.direction - turn), 1e-13);

    // Of a curve of more than a turn or so another branch may lie nearer.
    if (i == 0 || shape.Length() > 1.5 * shape.parameter) continue;
    const double room = std::min(0.5 / std::fabs(curvature), shape.parameter / 8);
    const double offset = room * random.Between(-1.0, 1.0);
    const Vector across = PolarVector(1.0, direction - kHalfPi).GetVector();
    Vector result;
    ASSERT_TRUE(clothoid.OrthoOut(point + offset * across, result, 1.0));
    ASSERT_LT(result.GetDistance({length, offset}), kAccuracy) << shape.parameter;
  }
}

TEST(Clothoid, OrthoOutTakesTheNearestFootOfSeveral) {
  PrintedRandom random(4);
  for (int i = 0; i < 120; ++i) {
    const Shape shape = i % 2 ? Shape{0.0, 100.0, 0.0, 15.0} : Shape{2.0, 50.0, -12.0, 12.0};
    const Clothoid clothoid = shape.Make({});
    const Vector point(random.Between(-80, 80), random.Between(-80, 80));
    Vector result;
    ASSERT_TRUE(clothoid.OrthoOut(point, result, 1e-5));
    if (result.x < 0.0 || result.x > shape.Length()) continue;
    for (double s = 0.0; s <= shape.Length(); s += shape.Length() / 5000)
      ASSERT_LE(std::fabs(result.y),
                point.GetDistance(clothoid.TangentPoint(nullptr, nullptr, s)) + kAccuracy);
  }
}

TEST(Clothoid, WhatMakesNoneIsItsStart) {
  const Shape shapes[] = {{1, 100, 50, 50},  {1, 0, 0, 50},    {1, kNaN, 0, 50},
                          {kNaN, 9, 0, 50},  {1, 1e200, 0, 9}, {1, 1e-200, 0, 50},
                          {1, 9, 0, 1e-310}, {1, 9, kNaN, 50}};
  for (const Shape& shape : shapes) {
    const Clothoid clothoid = shape.Make({3, 4});
    Vector result;
    EXPECT_FALSE(clothoid.OrthoOut({5, 6}, result, 1e-5)) << &shape - shapes;
    EXPECT_EQ(clothoid.TangentPoint(nullptr, nullptr, 7.0), Vector(3, 4)) << &shape - shapes;
    EXPECT_EQ(clothoid.CalcArcLength() + clothoid.GetParameter(), 0.0) << &shape - shapes;
  }
}

}  // namespace

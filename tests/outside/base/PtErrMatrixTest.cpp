#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/PtErrMatrix.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

struct Ellipse {
  double a = -1.0, b = -1.0, bearing = -1.0;
};

Ellipse EllipseOf(double sN, double sE, double covariance) {
  Ellipse e;
  PtErrMatrix(sN, sE, covariance).Mat2Ell(e.a, e.b, e.bearing);
  return e;
}

// Standard error in the direction of an azimuth, from the law of propagation.
double ErrorTowards(double azimuth, double sN, double sE, double covariance) {
  const double c = std::cos(azimuth), s = std::sin(azimuth);
  return std::sqrt(sN * sN * c * c + sE * sE * s * s + 2.0 * covariance * s * c);
}

// Judge: the direction of the greatest standard error is sought by narrowing a range.
TEST(PtErrMatrix, MajorAxisPointsToTheGreatestError) {
  std::mt19937 random(41);
  std::uniform_real_distribution<double> error(0.0001, 0.02), correlation(-0.98, 0.98);
  for (int i = 0; i < 2000; ++i) {
    const double sN = error(random), sE = error(random);
    const double covariance = correlation(random) * sN * sE;
    const auto towards = [&](double azimuth) { return ErrorTowards(azimuth, sN, sE, covariance); };
    double best = 0.0;
    for (int k = 1; k < 180; ++k)
      if (towards(k * kPi / 180) > towards(best)) best = k * kPi / 180;
    for (double step = kPi / 180; step > 1e-9; step *= 0.7)
      for (const double azimuth : {best - step, best + step})
        if (towards(azimuth) > towards(best)) best = azimuth;

    const Ellipse e = EllipseOf(sN, sE, covariance);
    ASSERT_NEAR(e.a, towards(best), 1e-14) << i;
    ASSERT_NEAR(e.b, towards(best + kHalfPi), 1e-9) << i;
    ASSERT_GE(e.bearing, 0.0);
    ASSERT_LT(e.bearing, kPi);
    if (e.a - e.b < 0.01 * e.a) continue;  // nearly a circle: no direction to speak of
    ASSERT_NEAR(std::remainder(e.bearing - best, kPi), 0.0, 1e-6) << i;
  }
}

TEST(PtErrMatrix, Edges) {
  const struct {
    const char* what;
    double sN, sE, covariance;
    Ellipse expected;
  } cases[] = {
      {"north the larger", 3, 2, 0, {3, 2, 0}},
      {"east the larger", 2, 3, 0, {3, 2, kHalfPi}},
      {"east the larger, negative zero", 2, 3, -0.0, {3, 2, kHalfPi}},
      {"circle", 2, 2, 0, {2, 2, 0}},
      {"north-east", 1, 1, 0.5, {std::sqrt(1.5), std::sqrt(0.5), kPi / 4}},
      {"north-west", 1, 1, -0.5, {std::sqrt(1.5), std::sqrt(0.5), 3 * kPi / 4}},
      {"just west of north", 3, 2, -1e-300, {3, 2, 0}},
      {"flat", 3, 4, 12, {5, 0, std::atan2(4.0, 3.0)}},
      {"indefinite by rounding", 3, 4, 12.000000000000005, {5, 0, std::atan2(4.0, 3.0)}},
      {"without error", 0, 0, 0, {0, 0, 0}},
  };
  for (const auto& c : cases) {
    const Ellipse e = EllipseOf(c.sN, c.sE, c.covariance);
    EXPECT_NEAR(e.a, c.expected.a, 1e-14) << c.what;
    EXPECT_NEAR(e.b, c.expected.b, 1e-14) << c.what;
    EXPECT_NEAR(e.bearing, c.expected.bearing, 1e-14) << c.what;
    EXPECT_FALSE(std::signbit(e.bearing)) << c.what;
  }
}

// Two adjusted free stations: their axes by an adjustment outside of this library.
TEST(PtErrMatrix, RealStations) {
  const Ellipse textbook = EllipseOf(0.0024388273033503, 0.0031283415624837, 1.70889758113e-06);
  EXPECT_NEAR(textbook.a, 0.003230642184288, 1e-14);
  EXPECT_NEAR(textbook.b, 0.002301597407070, 1e-14);
  EXPECT_NEAR(textbook.bearing / kRadiansPerGon, 76.844016675, 1e-8);
  const Ellipse crane = EllipseOf(0.00059324441650665, 0.00082950296789303, 2.5679363340561e-07);
  EXPECT_NEAR(crane.a, 0.000909346317631, 1e-14);
  EXPECT_NEAR(crane.b, 0.000461631223024, 1e-14);
  EXPECT_NEAR(crane.bearing / kRadiansPerGon, 68.446794008, 1e-8);
}

TEST(PtErrMatrix, NotFiniteIsUndefined) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInf = std::numeric_limits<double>::infinity();
  for (const Ellipse& e : {EllipseOf(kNaN, 1, 0), EllipseOf(1, kInf, 0), EllipseOf(1, 1, kNaN)}) {
    EXPECT_TRUE(IsUndefined(e.a));
    EXPECT_TRUE(IsUndefined(e.b));
    EXPECT_TRUE(IsUndefined(e.bearing));
  }
}

}  // namespace

// The free station against a second least-squares adjustment that shares nothing with it:
// misclosures are derived numerically, in long double, and an elimination of its own solves the
// equations. It is slow and general.

#include <cmath>
#include <cstddef>
#include <functional>
#include <valarray>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "tests/measurements/FreeStnSights.h"

namespace {

using Real = long double;
using Row = std::valarray<Real>;
using Square = std::vector<Row>;
using Misclosures = std::function<Row(const Row& unknowns)>;  // computed - observed, over errors

// By Gauss-Jordan elimination; normal equations need no pivots.
Square Inverse(Square a) {
  Square inverse(a.size(), Row(Real(0), a.size()));
  for (std::size_t i = 0; i < a.size(); ++i) inverse[i][i] = 1;
  for (std::size_t p = 0; p < a.size(); ++p) {
    inverse[p] /= a[p][p];
    a[p] /= Real(a[p][p]);
    for (std::size_t i = 0; i < a.size(); ++i) {
      if (i == p) continue;
      inverse[i] -= a[i][p] * inverse[p];
      a[i] -= Real(a[i][p]) * a[p];
    }
  }
  return inverse;
}

// Improves `x` once and gives the cofactors there.
Square Step(const Misclosures& misclosures, Row& x) {
  constexpr Real kStep = 1e-4L;
  const Row v = misclosures(x);
  Square derivatives, normals;  // by unknowns
  for (std::size_t i = 0; i < x.size(); ++i) {
    Row above = x, below = x;
    above[i] += kStep;
    below[i] -= kStep;
    derivatives.push_back((misclosures(above) - misclosures(below)) / (2 * kStep));
  }
  for (const Row& d : derivatives) {
    normals.emplace_back(x.size());
    for (std::size_t k = 0; k < x.size(); ++k) normals.back()[k] = (d * derivatives[k]).sum();
  }
  const Square cofactors = Inverse(normals);
  for (std::size_t i = 0; i < x.size(); ++i)
    for (std::size_t k = 0; k < x.size(); ++k) x[i] -= cofactors[i][k] * (derivatives[k] * v).sum();
  return cofactors;
}

Square Adjust(const Misclosures& misclosures, Row& x) {
  for (int i = 0; i < 14; ++i) Step(misclosures, x);
  return Step(misclosures, x);
}

// The spot that both first distances fit exactly, near the true station: the weights are made from
// there. The unknowns are E, N and orientation, then E and N of each satellite point.
Row Start(const std::vector<TestSight>& sights) {
  const auto distance = [](const TestSight& s, const Row& x) {
    return std::hypot(s.point.x - x[0], s.point.y - x[1]) - s.distance;
  };
  Row spot{kTrueStation.x, kTrueStation.y};
  Adjust([&](const Row& x) { return Row{distance(sights[0], x), distance(sights[1], x)}; }, spot);
  std::vector<Real> start{spot[0], spot[1], kTrueOrientation};
  for (const TestSight& s : sights)
    if (s.isGps) start.insert(start.end(), {s.point.x, s.point.y});
  return {start.data(), start.size()};
}

Row PlaneMisclosures(const FreeStn& errors, const std::vector<TestSight>& sights, const Row& start,
                     const Row& x) {
  std::vector<Real> v;
  std::size_t gps = 3;
  const Real sets = errors.Sets == 0 ? 0.5L : errors.Sets;
  const Real centring = errors.CentringError / std::sqrt(2.0L);
  for (const TestSight& s : sights) {
    Real E = s.point.x, N = s.point.y;
    const Real D = std::hypot(E - start[0], N - start[1]);
    if (s.isGps) {
      E = x[gps++];
      N = x[gps++];
      v.insert(v.end(), {(E - s.point.x) / s.errors.x, (N - s.point.y) / s.errors.y});
    }
    const Real error = errors.DistanceError + errors.DistancePpm * 1e-6L * D;
    if (s.distance != 0.0)
      v.push_back((std::hypot(E - x[0], N - x[1]) - s.distance) / std::hypot(error, centring));
    const Real turn = std::atan2(E - x[0], N - x[1]) - x[2] - s.direction;
    v.push_back(std::remainder(turn, 2 * std::acos(Real(-1))) /
                std::hypot(errors.AngleError / std::sqrt(sets), centring / D));
  }
  return {v.data(), v.size()};
}

void ExpectPlane(const FreeStn& errors, const std::vector<TestSight>& sights,
                 const FreeStnResult& result) {
  const Row start = Start(sights);
  const auto misclosures = [&](const Row& at) {
    return PlaneMisclosures(errors, sights, start, at);
  };
  Row x = start;
  const Square cofactors = Adjust(misclosures, x);
  const Row v = misclosures(x);
  const Real variance = (v * v).sum() / static_cast<Real>(v.size() - x.size());
  const auto error = [&](std::size_t i) {
    return static_cast<double>(std::sqrt(variance * cofactors[i][i]));
  };
  EXPECT_LT(std::hypot(result.Position.x - x[0], result.Position.y - x[1]), 2e-9);
  EXPECT_NEAR(std::remainder(result.Orientation - static_cast<double>(x[2]), kTwoPi), 0.0, 1e-11);
  EXPECT_NEAR(result.StdDev / static_cast<double>(std::sqrt(variance)), 1.0, 1e-7);
  EXPECT_NEAR(result.PositionError.x / error(0), 1.0, 1e-6);
  EXPECT_NEAR(result.PositionError.y / error(1), 1.0, 1e-6);
  EXPECT_NEAR(result.OrientationError / error(2), 1.0, 1e-6);
}

TEST(FreeStnJudged, AgreesWithAnotherRoute) {
  using Sights = std::vector<TestSight>;
  constexpr struct {
    const char* what;
    void (*change)(FreeStn& errors, Sights& sights);
  } kVariants[] = {
      {"all full", [](FreeStn&, Sights&) {}},
      {"directions alone", [](FreeStn&, Sights& s) { s[4].distance = s[5].distance = 0.0; }},
      {"two sights", [](FreeStn&, Sights& s) { s.resize(2); }},
      {"errors", [](FreeStn& f, Sights&) { f.SetAprioriErrors(0.001, 20, 5e-5, 1e-5, 0.02, 3); }},
      {"satellite point", [](FreeStn&, Sights& s) { s[3].isGps = true; }},
      {"satellite points alone",
       [](FreeStn&, Sights& s) {
         for (TestSight& sight : s) sight.isGps = true;
         s[1].errors = {0.03, 0.002, 0.1};
         s[4].distance = 0.0;
       }},
  };
  for (const auto& variant : kVariants) {
    SCOPED_TRACE(variant.what);
    FreeStn errors;
    Sights sights = SixSights();
    variant.change(errors, sights);
    FreeStn free = errors;
    for (const TestSight& sight : sights) Add(free, sight);
    FreeStnResult result;
    ASSERT_TRUE(free.CalcPlane(result));
    ExpectPlane(errors, sights, result);
  }
}

}  // namespace

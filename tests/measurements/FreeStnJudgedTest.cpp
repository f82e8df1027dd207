// The free station against a second adjustment by another route, and against what must not change
// its results.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "tests/measurements/FreeStnJudge.h"
#include "tests/measurements/FreeStnSights.h"

namespace {

using judge::Observation;
using judge::Real;
using judge::Values;

// The judge's unknowns are E, N and orientation, then E and N of each satellite point.
struct Place {
  Real E, N;
};

Place PlaceOf(const TestSight& sight, std::size_t gps, const Values& unknowns) {
  if (sight.isGps) return {unknowns[3 + 2 * gps], unknowns[4 + 2 * gps]};
  return {sight.point.x, sight.point.y};
}

Real Turned(Real angle) { return std::remainder(angle, 2 * std::acos(Real(-1))); }

// The spot that both first distances fit exactly, near the true station: the weights are made from
// there.
Values Start(const std::vector<TestSight>& sights) {
  std::vector<Observation> distances;
  for (std::size_t i = 0; i < 2; ++i)
    distances.push_back({[s = sights[i]](const Values& at) {
                           return std::hypot(s.point.x - at[0], s.point.y - at[1]) - s.distance;
                         },
                         1});
  Values start{kTrueStation.x, kTrueStation.y};
  start = judge::Adjust(distances, start).unknowns;
  start.push_back(kTrueOrientation);
  for (const TestSight& sight : sights) {
    if (!sight.isGps) continue;
    start.push_back(sight.point.x);
    start.push_back(sight.point.y);
  }
  return start;
}

void AddObservations(const FreeStn& errors, const TestSight& s, std::size_t gps,
                     const Values& start, std::vector<Observation>& observations) {
  const Real D = std::hypot(s.point.x - start[0], s.point.y - start[1]);
  const Real centring = Real(errors.CentringError) * errors.CentringError / 2;
  const Real sets = errors.Sets == 0 ? 0.5L : errors.Sets;
  if (s.distance != 0.0) {
    const Real sigma = errors.DistanceError + errors.DistancePpm * 1e-6L * D;
    observations.push_back({[s, gps](const Values& x) {
                              const Place p = PlaceOf(s, gps, x);
                              return std::hypot(p.E - x[0], p.N - x[1]) - s.distance;
                            },
                            1 / (sigma * sigma + centring)});
  }
  const Real angle = Real(errors.AngleError) * errors.AngleError / sets;
  observations.push_back({[s, gps](const Values& x) {
                            const Place p = PlaceOf(s, gps, x);
                            return Turned(std::atan2(p.E - x[0], p.N - x[1]) - x[2] - s.direction);
                          },
                          1 / (angle + centring / (D * D))});
  if (!s.isGps) return;
  observations.push_back({[s, gps](const Values& x) { return PlaceOf(s, gps, x).N - s.point.y; },
                          1 / (Real(s.errors.y) * s.errors.y)});
  observations.push_back({[s, gps](const Values& x) { return PlaceOf(s, gps, x).E - s.point.x; },
                          1 / (Real(s.errors.x) * s.errors.x)});
}

judge::Solution Judged(const FreeStn& errors, const std::vector<TestSight>& sights) {
  const Values start = Start(sights);
  std::vector<Observation> observations;
  std::size_t gps = 0;
  for (const TestSight& sight : sights) {
    AddObservations(errors, sight, gps, start, observations);
    gps += sight.isGps;
  }
  return judge::Adjust(observations, start);
}

double Number(Real value) { return static_cast<double>(value); }

// Residuals, ellipse and errors of `result` against the judge's.
void ExpectAsJudged(const FreeStnResult& result, const judge::Solution& judged) {
  EXPECT_NEAR(result.Position.x, Number(judged.unknowns[0]), 2e-9);
  EXPECT_NEAR(result.Position.y, Number(judged.unknowns[1]), 2e-9);
  EXPECT_NEAR(std::remainder(result.Orientation - Number(judged.unknowns[2]), kTwoPi), 0.0, 1e-11);
  const double sigma = Number(judged.unitWeight);
  EXPECT_NEAR(result.StdDev / sigma, 1.0, 1e-7);
  const auto error = [&](std::size_t i) {
    return sigma * Number(std::sqrt(judged.cofactors[i][i]));
  };
  EXPECT_NEAR(result.PositionError.x / error(0), 1.0, 1e-6);
  EXPECT_NEAR(result.PositionError.y / error(1), 1.0, 1e-6);
  EXPECT_NEAR(result.OrientationError / error(2), 1.0, 1e-6);

  // Along its bearing the ellipse is as long as the error of the position in that direction.
  const double sinT = std::sin(result.EllipseBearing);
  const double cosT = std::cos(result.EllipseBearing);
  const double covariance = sigma * sigma * Number(judged.cofactors[0][1]);
  const double along = error(0) * error(0) * sinT * sinT + error(1) * error(1) * cosT * cosT +
                       2.0 * covariance * sinT * cosT;
  EXPECT_NEAR(result.EllipseA / std::sqrt(along), 1.0, 1e-6);
  EXPECT_NEAR(std::hypot(result.EllipseA, result.EllipseB) / std::hypot(error(0), error(1)), 1.0,
              1e-6);
}

FreeStnResult Adjusted(FreeStn free) {
  FreeStnResult result;
  EXPECT_TRUE(free.CalcPlane(result));
  EXPECT_TRUE(free.CalcHeightWeighted(result));
  return result;
}

struct Variant {
  const char* what;
  void (*change)(FreeStn& errors, std::vector<TestSight>& sights);
};

constexpr Variant kVariants[] = {
    {"all full", [](FreeStn&, std::vector<TestSight>&) {}},
    {"directions alone at the end",
     [](FreeStn&, std::vector<TestSight>& s) { s[4].distance = s[5].distance = 0.0; }},
    {"two sights", [](FreeStn&, std::vector<TestSight>& s) { s.resize(2); }},
    {"other errors",
     [](FreeStn& f, std::vector<TestSight>&) { f.SetAprioriErrors(0.001, 20, 5e-5, 1e-5, 0, 3); }},
    {"short sights and centring",
     [](FreeStn& f, std::vector<TestSight>&) {
       f.SetAprioriErrors(0.001, 0, 1e-6, 1e-5, 0.02, 0);
     }},
    {"one satellite point", [](FreeStn&, std::vector<TestSight>& s) { s[3].isGps = true; }},
    {"satellite points alone",
     [](FreeStn&, std::vector<TestSight>& s) {
       for (TestSight& sight : s) sight.isGps = true;
       s[1].errors = {0.03, 0.002, 0.1};
       s[4].distance = 0.0;
     }},
};

TEST(FreeStnJudged, AgreesWithAnotherRoute) {
  for (const Variant& variant : kVariants) {
    SCOPED_TRACE(variant.what);
    FreeStn errors;
    std::vector<TestSight> sights = SixSights();
    variant.change(errors, sights);
    FreeStn free = errors;
    for (const TestSight& sight : sights) Add(free, sight);
    FreeStnResult result;
    ASSERT_TRUE(free.CalcPlane(result));
    ExpectAsJudged(result, Judged(errors, sights));
  }
}

TEST(FreeStnJudged, LargestResidualsAreTheJudges) {
  std::vector<TestSight> sights = SixSights();
  sights[1].distance += 0.030;
  sights[4].direction -= 4e-4;
  const FreeStnResult result = Adjusted(StationOf(sights));
  const judge::Solution judged = Judged(FreeStn(), sights);
  EXPECT_EQ(result.MaxDistanceName, "B2");
  EXPECT_NEAR(result.MaxDistanceResidual, Number(judged.residuals[2]), 1e-8);
  EXPECT_LT(result.MaxDistanceResidual, -0.02);
  EXPECT_EQ(result.MaxAngleName, "B5");
  EXPECT_NEAR(result.MaxAngleResidual, Number(judged.residuals[9]), 1e-10);
  EXPECT_GT(result.MaxAngleResidual, 2e-4);

  ASSERT_EQ(result.PlaneResiduals.size(), sights.size());
  for (std::size_t i = 0; i < sights.size(); ++i) {
    const Real distance = judged.residuals[2 * i];
    const Real across = judged.residuals[2 * i + 1] * sights[i].distance;
    EXPECT_NEAR(result.PlaneResiduals[i], Number(std::hypot(distance, across)), 2e-6) << i;
  }
  EXPECT_EQ(result.MaxPlaneResidual,
            *std::max_element(result.PlaneResiduals.begin(), result.PlaneResiduals.end()));
}

// Heights by the judge: of the station, then of each satellite point.
judge::Solution JudgedHeight(const FreeStn& free, const std::vector<TestSight>& sights) {
  std::vector<Observation> observations;
  Values start{0};
  for (std::size_t i = 0; i < sights.size(); ++i) {
    const TestSight& s = sights[i];
    const std::size_t gps = s.isGps ? start.size() : 0;
    if (s.isGps) {
      start.push_back(0);
      observations.push_back({[s, gps](const Values& x) { return x[gps] - s.point.z; },
                              1 / (Real(s.errors.z) * s.errors.z)});
    }
    if (s.distance == 0.0) continue;
    const Vector3d d = free.Backsights[i].Adjusted - free.Station;
    const Real sigma = std::hypot(d.x, d.y) * free.VerticalError / std::sqrt(0.5L);
    observations.push_back({[s, gps](const Values& x) {
                              return (s.isGps ? x[gps] : Real(s.point.z)) - x[0] - s.heightDiff;
                            },
                            1 / (sigma * sigma)});
  }
  return judge::Adjust(observations, start);
}

TEST(FreeStnJudged, WeightedHeightAgreesWithAnotherRoute) {
  for (const Variant& variant : kVariants) {
    SCOPED_TRACE(variant.what);
    FreeStn ignored;
    std::vector<TestSight> sights = SixSights();
    variant.change(ignored, sights);
    FreeStn free = StationOf(sights);
    FreeStnResult result;
    ASSERT_TRUE(free.CalcPlane(result) && free.CalcHeightWeighted(result));
    const judge::Solution judged = JudgedHeight(free, sights);
    EXPECT_NEAR(result.Position.z, Number(judged.unknowns[0]), 1e-9);
    EXPECT_EQ(free.Station.z, result.Position.z);
    const double error = Number(judged.unitWeight * std::sqrt(judged.cofactors[0][0]));
    EXPECT_NEAR(result.PositionError.z / error, 1.0, 1e-6);
    std::size_t gps = 0;
    for (std::size_t i = 0; i < sights.size(); ++i) {
      const double point = sights[i].isGps ? Number(judged.unknowns[++gps]) : sights[i].point.z;
      EXPECT_NEAR(free.Backsights[i].Adjusted.z, point, 1e-9) << i;
    }
  }
}

// What may be done to a set-up, and how the station then moves.
TEST(FreeStnJudged, MovesWithTheMap) {
  constexpr struct {
    const char* what;
    double turn;  // clockwise about the origin
    Vector3d shift;
    double circle;  // added to every circle reading
  } kCases[] = {{"shift", 0.0, {5e5, 6.4e6, 1000.0}, 0.0},
                {"half a turn", kPi, {}, 0.0},
                {"turn", 2.2, {-300.0, 40.0, 0.0}, 0.0},
                {"circle", 0.0, {}, 3.9},
                {"all", -1.1, {7e5, 5.3e6, -12.0}, 5.5}};
  const FreeStnResult plain = Adjusted(StationOf(SixSights()));
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const auto moved = [&](const Vector3d& v) {
      return Vector3d(v.x * std::cos(c.turn) + v.y * std::sin(c.turn),
                      v.y * std::cos(c.turn) - v.x * std::sin(c.turn), v.z) +
             c.shift;
    };
    std::vector<TestSight> sights = SixSights();
    for (TestSight& sight : sights) {
      sight.point = moved(sight.point);
      sight.direction = NormalizeAngle(sight.direction + c.circle, kTwoPi, 0.0);
    }
    const FreeStnResult result = Adjusted(StationOf(sights));
    // Coordinates of millions of metres carry 1e-9 m each.
    EXPECT_LT((result.Position - moved(plain.Position)).GetLength(), 1e-8);
    const double orientation = plain.Orientation + c.turn - c.circle;
    EXPECT_NEAR(std::remainder(result.Orientation - orientation, kTwoPi), 0.0, 1e-10);
    EXPECT_NEAR(result.StdDev / plain.StdDev, 1.0, 1e-5);
    EXPECT_NEAR(result.EllipseA / plain.EllipseA, 1.0, 1e-5);
    EXPECT_NEAR(std::remainder(result.EllipseBearing - plain.EllipseBearing - c.turn, kPi), 0.0,
                1e-4);
    EXPECT_EQ(result.MaxPlaneName, plain.MaxPlaneName);
    EXPECT_NEAR(result.Max3DResidual, plain.Max3DResidual, 1e-8);
  }
}

TEST(FreeStnJudged, OrderOfBacksightsIsAllTheSame) {
  std::vector<TestSight> sights = SixSights();
  sights[2].isGps = true;
  const FreeStnResult plain = Adjusted(StationOf(sights));
  for (int i = 0; i < 5; ++i) {
    std::rotate(sights.begin(), sights.begin() + 1, sights.end());
    std::swap(sights[0], sights[3]);
    const FreeStnResult result = Adjusted(StationOf(sights));
    // The weights come from another first position, so the last digits move.
    EXPECT_LT((result.Position - plain.Position).GetLength(), 1e-7);
    EXPECT_NEAR(result.StdDev / plain.StdDev, 1.0, 1e-3);
    EXPECT_EQ(result.Max3DName, plain.Max3DName);
  }
}

TEST(FreeStnJudged, TightSatellitePointsAreFixedAndLooseOnesDropOut) {
  const std::vector<TestSight> fixed = SixSights();
  std::vector<TestSight> tight = fixed;
  for (TestSight& sight : tight) {
    sight.isGps = true;
    sight.errors = {1e-8, 1e-8, 1e-8};
  }
  EXPECT_LT((Adjusted(StationOf(tight)).Position - Adjusted(StationOf(fixed)).Position).GetLength(),
            1e-8);

  std::vector<TestSight> loose = fixed;
  loose[5].isGps = true;
  loose[5].errors = {1e4, 1e4, 1e4};
  loose[5].distance += 0.5;  // goes all into the point
  const std::vector<TestSight> without(fixed.begin(), fixed.end() - 1);
  const FreeStnResult result = Adjusted(StationOf(loose));
  EXPECT_LT((result.Position - Adjusted(StationOf(without)).Position).GetLength(), 1e-7);
  EXPECT_EQ(result.MaxPlaneName, "B6");
  EXPECT_NEAR(result.MaxPlaneResidual, 0.5, 0.01);
}

}  // namespace

#include <cmath>
#include <functional>
#include <thread>
#include <valarray>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <newmat.h>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Angles.h"

namespace {

// The table of docs/computations/free-station.md; angles in gon.
TEST(FreeStn, WorkedExampleComesOutToEveryDigit) {
  constexpr struct {
    const char* name;
    Vector3d point;
    double distance, horAngle, vertical;
  } kRows[] = {{"P4324", {3689.594, 60225.839, kUndefined}, 286.884, 23.7571, 109.5010},
               {"P4332", {3973.978, 60374.338, kUndefined}, 96.094, 143.6652, 129.2844},
               {"P6112", {4024.795, 60252.332, 49.75}, 69.209, 273.2535, 93.4687},
               {"P4351", {4033.568, 60355.275, 47.348}, 94.871, 188.2427, 96.8535}};
  StationDataItem station;
  station.InstrumentHeight = 1.507;
  FreeStn free;
  for (const auto& row : kRows) {
    RecordDataItem record;
    record.SetName(row.name);
    record.Distance = row.distance;
    record.HorAngle = row.horAngle * kRadiansPerGon;
    record.Vertical = row.vertical * kRadiansPerGon;
    record.TargetHeight = 1.5;
    free.AddBacksight(station, record, row.point, 0.0);
  }
  FreeStnResult result;
  ASSERT_TRUE(free.CalcPlane(result) && free.CalcHeight(result));
  std::vector<double> values = result.PlaneResiduals;
  for (const Vector3d& v : {result.Position, result.PositionError})
    values.insert(values.end(), {v.x, v.y, v.z});
  values.insert(values.end(), {result.Orientation / kRadiansPerGon, result.StdDev});
  for (double& value : values) value = std::round(value * 1e4) / 1e4;
  EXPECT_THAT(values, testing::ElementsAre(0.0016, 0.0009, 0.0010, 0.0021, 3966.2640, 60288.5794,
                                           42.6540, 0.0005, 0.0005, 0.0007, 262.0462, 0.2556));
  EXPECT_EQ(result.Residuals3D[0], result.PlaneResiduals[0]) << "no height";
  EXPECT_EQ(result.Residuals3D[3], std::hypot(result.PlaneResiduals[3], result.HeightResiduals[3]));
  EXPECT_EQ(result.Max3DName, "P4351");
}

// One sight as the adjustment takes it; the station it is made for reduces nothing.
struct TestSight {
  Vector3d point;  // E, N, H as given
  double direction = 0.0;
  double distance = 0.0;  // horizontal; 0.0 if none was measured
  bool isGps = false;
  Vector3d errors;  // E, N, H
};

void Add(FreeStn& free, const TestSight& sight) {
  RecordDataItem record;
  record.Distance = sight.distance;
  record.HorAngle = sight.direction;
  StationDataItem station;  // of horizontal distances
  station.SlopeDistance = 0;
  station.VerticalIsHeightDiff = 1;
  station.CurvatureOn = 0;
  if (sight.isGps)
    free.AddBacksightGPS(station, record, sight.point, sight.errors, 0.0);
  else
    free.AddBacksight(station, record, sight.point, 0.0);
}

constexpr Vector3d kTrueStation{1250.0, 3480.0, 52.0};  // E, N, H
constexpr double kTrueOrientation = 1.2;

// The sight from the true station to `point` without error.
TestSight ExactSight(const Vector3d& point) {
  const Vector3d d = point - kTrueStation;
  const double direction = std::atan2(d.x, d.y) - kTrueOrientation;
  return {point, direction < 0.0 ? direction + kTwoPi : direction, std::hypot(d.x, d.y), false, {}};
}

// Six sights all round the true station with small errors, always the same.
std::vector<TestSight> SixSights() {
  constexpr Vector3d kPoints[] = {{1300.0, 3560.0, 60.0}, {1390.0, 3470.0, 48.0},
                                  {1270.0, 3330.0, 55.5}, {1150.0, 3400.0, 51.0},
                                  {1110.0, 3530.0, 70.0}, {1235.0, 3660.0, 44.0}};
  std::vector<TestSight> sights;
  for (std::size_t i = 0; i < std::size(kPoints); ++i) {
    TestSight sight = ExactSight(kPoints[i]);
    const double phase = static_cast<double>(i);
    sight.distance += 0.004 * std::sin(1.7 * phase + 0.3);
    sight.direction += 2.5e-5 * std::cos(2.9 * phase);
    sight.errors = {0.011, 0.007, 0.02};
    sights.push_back(sight);
  }
  return sights;
}

FreeStn StationOf(const std::vector<TestSight>& sights, FreeStn free = {}) {
  for (const TestSight& sight : sights) Add(free, sight);
  return free;
}

// A second least-squares adjustment to judge the first; it shares nothing with it: misclosures are
// derived numerically, in long double, and an elimination of its own solves the equations.
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

TEST(FreeStn, AgreesWithAnotherRoute) {
  using Sights = std::vector<TestSight>;
  constexpr void (*kVariants[])(FreeStn & errors, Sights & sights) = {
      [](FreeStn&, Sights& s) { s[4].distance = s[5].distance = 0.0; },
      [](FreeStn&, Sights& s) { s.resize(2); },
      [](FreeStn& f, Sights&) { f.SetAprioriErrors(0.001, 20, 5e-5, 1e-5, 0.02, 3); },
      [](FreeStn&, Sights& s) { s[3].isGps = true; },
      [](FreeStn&, Sights& s) {
        for (TestSight& sight : s) sight.isGps = true;
        s[1].errors = {0.03, 0.002, 0.1};
        s[4].distance = 0.0;
      },
  };
  for (std::size_t i = 0; i < std::size(kVariants); ++i) {
    SCOPED_TRACE(i);
    FreeStn errors;
    Sights sights = SixSights();
    kVariants[i](errors, sights);
    FreeStn free = StationOf(sights, errors);
    FreeStnResult result;
    ASSERT_TRUE(free.CalcPlane(result));
    ExpectPlane(errors, sights, result);
  }
}

TEST(FreeStn, DegreesOfFreedom) {
  constexpr struct {
    std::size_t backsights, withDistance;
    bool gps, found, redundant;
  } kCases[] = {{0, 0, false, false, false}, {1, 1, false, false, false},
                {2, 0, false, false, false}, {2, 1, false, true, false},
                {2, 2, false, true, true},   {2, 2, true, true, true},
                {3, 0, false, true, false},  {4, 0, false, true, true}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(testing::Message() << c.backsights << ", distances: " << c.withDistance);
    FreeStn free;
    for (std::size_t i = 0; i < c.backsights; ++i) {
      TestSight sight = ExactSight(SixSights()[i].point);
      if (i >= c.withDistance) sight.distance = 0.0;
      sight.isGps = c.gps;
      sight.errors = {0.01, 0.01, 0.01};
      Add(free, sight);
    }
    FreeStnResult result;
    ASSERT_EQ(free.CalcPlane(result), c.found);
    if (!c.found) continue;
    EXPECT_LT((result.Position.GetXY() - kTrueStation.GetXY()).GetLength(), 1e-9);
    EXPECT_NEAR(std::remainder(result.Orientation - kTrueOrientation, kTwoPi), 0.0, 1e-11);
    for (const double* value : {&result.StdDev, &result.PositionError.x, &result.PositionError.y,
                                &result.EllipseA, &result.EllipseB, &result.EllipseBearing})
      EXPECT_EQ(IsUndefined(*value), !c.redundant);
  }
}

// A distance to a far point and the angle to a near one fit two spots on the same ray.
TEST(FreeStn, TheThirdBacksightTellsOneOfTwoPositions) {
  TestSight near = ExactSight(kTrueStation + Vector3d(0.0, 70.0, 0.0));
  near.distance = 0.0;
  const TestSight far = ExactSight(kTrueStation + Vector3d(40.0, 90.0, 0.0));
  // By the cosine rule: the roots of s^2 - 2 r s cos t + r^2 - c^2 add up to 2 r cos t.
  const double other = 2.0 * far.distance * std::cos(far.direction - near.direction) - 70.0;
  ASSERT_GT(other, 71.0);  // so that the true station is the second choice
  FreeStn free = StationOf({near, far});
  FreeStnResult result;
  ASSERT_TRUE(free.CalcPlane(result));
  EXPECT_NEAR(result.Position.GetXY().GetDistance(near.point.GetXY()), other, 1e-9);
  ASSERT_TRUE(free.GetSecondPosition());
  EXPECT_LT(free.GetSecondPosition()->GetDistance(kTrueStation.GetXY()), 1e-9);
  Add(free, ExactSight({1110.0, 3430.0, 50.0}));
  ASSERT_TRUE(free.CalcPlane(result));
  EXPECT_LT(result.Position.GetXY().GetDistance(kTrueStation.GetXY()), 1e-9);
}

TEST(FreeStn, BadNumbersGiveFalse) {
  constexpr void (*kSpoils[])(FreeStn&) = {
      [](FreeStn& f) { f.Backsights[3].Distance = std::nan(""); },
      [](FreeStn& f) {
        for (CBacksight& b : f.Backsights) b.Adjusted = b.Given = b.Given * 1e300;
      },
      [](FreeStn& f) {
        for (CBacksight& b : f.Backsights) b = f.Backsights[0];
      },
      [](FreeStn& f) { f.SetAprioriErrors(0, 0, 0, 0, 0, 1); },
      [](FreeStn& f) { f.Backsights.pop_back(); },
  };
  for (std::size_t i = 0; i < std::size(kSpoils); ++i) {
    FreeStn free = StationOf(SixSights());
    kSpoils[i](free);
    FreeStnResult result;
    EXPECT_FALSE(free.CalcPlane(result)) << i;
    EXPECT_EQ(result.Position, Vector3d()) << i;
    EXPECT_TRUE(result.PlaneResiduals.empty()) << i;
  }
}

TEST(FreeStn, AdjustmentsInThreadsDontMeetInNewmat) {
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread)
    threads.emplace_back([thread] {
      for (int i = 0; i < 300; ++i) {
        FreeStn free = StationOf(SixSights());
        FreeStnResult result;
        if (thread % 2 == 0) {
          ASSERT_TRUE(free.CalcPlane(result));
          continue;
        }
        free.SetAprioriErrors(1e200, 0.0, 1e200, 1e200, 0.0, 0);  // weights of 0
        ASSERT_THROW(free.CalcPlane(result), NEWMAT::SingularException);
      }
    });
  for (std::thread& thread : threads) thread.join();
}

}  // namespace

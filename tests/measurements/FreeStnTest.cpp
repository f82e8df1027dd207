#include <climits>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <newmat.h>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "tests/measurements/FreeStnSights.h"

namespace {

// The table of docs/computations/free-station.md; angles in gon.
FreeStn WorkedExample() {
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
  return free;
}

TEST(FreeStn, WorkedExampleComesOutToEveryDigit) {
  FreeStn free = WorkedExample();
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

TEST(FreeStn, DegreesOfFreedom) {
  constexpr struct {
    const char* what;
    std::size_t backsights, withDistance;
    bool gps, found, redundant;
  } kCases[] = {{"none", 0, 0, false, false, false},
                {"one full", 1, 1, false, false, false},
                {"two directions", 2, 0, false, false, false},
                {"two, one distance", 2, 1, false, true, false},
                {"two full", 2, 2, false, true, true},
                {"two full satellite points", 2, 2, true, true, true},
                {"three directions", 3, 0, false, true, false},
                {"four directions", 4, 0, false, true, true}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    FreeStn free;
    for (std::size_t i = 0; i < c.backsights; ++i) {
      TestSight sight = ExactSight("B", SixSights()[i].point);
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
  TestSight near = ExactSight("near", kTrueStation + Vector3d(0.0, 70.0, 0.0));
  near.distance = 0.0;
  const TestSight far = ExactSight("far", kTrueStation + Vector3d(40.0, 90.0, 0.0));
  // By the cosine rule: the roots of s^2 - 2 r s cos t + r^2 - c^2 add up to 2 r cos t.
  const double other = 2.0 * far.distance * std::cos(far.direction - near.direction) - 70.0;
  ASSERT_GT(other, 71.0);  // so that the true station is the second choice
  FreeStn free;
  Add(free, near);
  Add(free, far);
  FreeStnResult result;
  ASSERT_TRUE(free.CalcPlane(result));
  EXPECT_NEAR(result.Position.GetXY().GetDistance(near.point.GetXY()), other, 1e-9);
  ASSERT_TRUE(free.GetSecondPosition());
  EXPECT_LT(free.GetSecondPosition()->GetDistance(kTrueStation.GetXY()), 1e-9);
  Add(free, ExactSight("third", {1110.0, 3430.0, 50.0}));
  ASSERT_TRUE(free.CalcPlane(result));
  EXPECT_LT(result.Position.GetXY().GetDistance(kTrueStation.GetXY()), 1e-9);
}

TEST(FreeStn, BadNumbersGiveFalse) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const struct {
    const char* what;
    void (*spoil)(FreeStn&);
  } kCases[] = {
      {"distance not a number", [](FreeStn& f) { f.Backsights[3].Distance = kNaN; }},
      {"all positions huge",
       [](FreeStn& f) {
         for (CBacksight& b : f.Backsights) b.Adjusted = b.Given = b.Given * 1e300;
       }},
      {"all on one spot",
       [](FreeStn& f) {
         for (CBacksight& b : f.Backsights) b = f.Backsights[0];
       }},
      {"no error", [](FreeStn& f) { f.SetAprioriErrors(0, 0, 0, 0, 0, 1); }},
      {"counter too high", [](FreeStn& f) { f.DistanceCount = INT_MAX; }},
      {"backsight taken away", [](FreeStn& f) { f.Backsights.pop_back(); }},
  };
  for (const auto& c : kCases) {
    FreeStn free = SixSightStation();
    c.spoil(free);
    FreeStnResult result;
    EXPECT_FALSE(free.CalcPlane(result)) << c.what;
    EXPECT_EQ(result.Position, Vector3d()) << c.what;
    EXPECT_TRUE(result.PlaneResiduals.empty()) << c.what;
  }
}

TEST(FreeStn, AdjustmentsInThreadsDontMeetInNewmat) {
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread)
    threads.emplace_back([thread] {
      for (int i = 0; i < 300; ++i) {
        FreeStn free = SixSightStation();
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

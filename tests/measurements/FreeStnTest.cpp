#include <climits>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <newmat.h>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "tests/measurements/FreeStnSights.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

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

std::vector<double> RoundedTo4(std::vector<double> values) {
  for (double& value : values) value = std::round(value * 1e4) / 1e4;
  return values;
}

TEST(FreeStn, WorkedExampleComesOutToEveryDigit) {
  FreeStn free = WorkedExample();
  EXPECT_EQ(free.DistanceCount, 4);
  EXPECT_EQ(free.HeightCount, 2);
  FreeStnResult result;
  ASSERT_TRUE(free.CalcPlane(result));
  ASSERT_TRUE(free.CalcHeight(result));
  EXPECT_THAT(RoundedTo4({result.Position.x, result.Position.y, result.Position.z,
                          result.Orientation / kRadiansPerGon, result.StdDev}),
              ElementsAre(3966.2640, 60288.5794, 42.6540, 262.0462, 0.2556));
  EXPECT_THAT(RoundedTo4({result.PositionError.x, result.PositionError.y, result.PositionError.z}),
              ElementsAre(0.0005, 0.0005, 0.0007));
  EXPECT_THAT(RoundedTo4(result.PlaneResiduals), ElementsAre(0.0016, 0.0009, 0.0010, 0.0021));
  EXPECT_THAT(RoundedTo4({free.Backsights[2].Given.z - free.Backsights[2].HeightDiff,
                          free.Backsights[3].Given.z - free.Backsights[3].HeightDiff}),
              ElementsAre(42.6547, 42.6533));
  EXPECT_THAT(result.HeightResiduals[0], kUndefined);
  EXPECT_EQ(result.Residuals3D[0], result.PlaneResiduals[0]);
  EXPECT_EQ(result.Residuals3D[3], std::hypot(result.PlaneResiduals[3], result.HeightResiduals[3]));
  EXPECT_EQ(result.Max3DName, "P4351");
}

TEST(FreeStn, ASecondCallGivesTheSame) {
  std::vector<TestSight> sights = SixSights();
  sights[0].isGps = sights[4].isGps = true;
  FreeStn free = StationOf(sights);
  FreeStnResult first, second;
  ASSERT_TRUE(free.CalcPlane(first) && free.CalcHeightWeighted(first));
  second = first;
  second.MaxAngleResidual = second.MaxPlaneResidual = second.MaxHeightResidual = 1e3;
  second.MaxDistanceResidual = second.Max3DResidual = -1e3;
  ASSERT_TRUE(free.CalcPlane(second) && free.CalcHeightWeighted(second));
  EXPECT_EQ(second.Position, first.Position);
  EXPECT_EQ(second.StdDev, first.StdDev);
  EXPECT_EQ(second.Residuals3D, first.Residuals3D);
  EXPECT_EQ(second.MaxAngleResidual, first.MaxAngleResidual);
  EXPECT_EQ(second.MaxDistanceResidual, first.MaxDistanceResidual);
  EXPECT_EQ(second.MaxPlaneName, first.MaxPlaneName);
  EXPECT_EQ(second.MaxHeightResidual, first.MaxHeightResidual);
  EXPECT_EQ(second.Max3DResidual, first.Max3DResidual);
}

TEST(FreeStn, AddingSwapsTheFrameAndCounts) {
  TestSight sight = ExactSight("A", {1300.0, 3560.0, 60.0});
  sight.isGps = true;
  sight.errors = {0.01, 0.02, 0.03};
  TestSight directionOnly = ExactSight("B", {1390.0, 3470.0, 48.0});
  directionOnly.distance = 0.0;
  TestSight heightless = ExactSight("C", {1110.0, 3530.0, kUndefined});
  TestSight undefined = directionOnly;
  undefined.distance = kUndefined;
  const FreeStn free = StationOf({sight, directionOnly, heightless, undefined});
  EXPECT_EQ(free.BacksightCount, 4);
  EXPECT_EQ(free.DistanceCount, 2);
  EXPECT_EQ(free.HeightCount, 1);
  EXPECT_EQ(free.GpsCount, 1);
  const CBacksight& first = free.Backsights[0];
  EXPECT_EQ(first.Name, "A");
  EXPECT_EQ(first.Given, Vector3d(3560.0, 1300.0, 60.0));
  EXPECT_EQ(first.Adjusted, first.Given);
  EXPECT_EQ(first.GpsErrors, Vector3d(0.02, 0.01, 0.03));
  EXPECT_EQ(first.Distance, sight.distance);
  EXPECT_EQ(first.HeightDiff, 8.0);
  EXPECT_TRUE(IsUndefined(free.Backsights[1].Distance) &&
              IsUndefined(free.Backsights[1].HeightDiff));
  EXPECT_FALSE(IsUndefined(free.Backsights[2].Distance));
  EXPECT_TRUE(IsUndefined(free.Backsights[2].HeightDiff));
  EXPECT_TRUE(IsUndefined(free.Backsights[3].Distance));
}

// Sights without error to the first of six points.
std::vector<TestSight> ExactSights(std::size_t count) {
  std::vector<TestSight> sights;
  for (const TestSight& sight : SixSights()) sights.push_back(ExactSight(sight.name, sight.point));
  sights.resize(count);
  return sights;
}

TEST(FreeStn, DegreesOfFreedom) {
  constexpr struct {
    const char* what;
    std::size_t backsights;
    std::size_t withDistance;
    bool gps, found, redundant;
  } kCases[] = {{"none", 0, 0, false, false, false},
                {"one full", 1, 1, false, false, false},
                {"two directions", 2, 0, false, false, false},
                {"two, one distance", 2, 1, false, true, false},
                {"two full", 2, 2, false, true, true},
                {"two satellite points, one distance", 2, 1, true, true, false},
                {"two full satellite points", 2, 2, true, true, true},
                {"three directions", 3, 0, false, true, false},
                {"three, one distance", 3, 1, false, true, true},
                {"four directions", 4, 0, false, true, true}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    std::vector<TestSight> sights = ExactSights(c.backsights);
    for (std::size_t i = 0; i < sights.size(); ++i) {
      if (i >= c.withDistance) sights[i].distance = 0.0;
      sights[i].isGps = c.gps;
      sights[i].errors = {0.01, 0.01, 0.01};
    }
    FreeStnResult result;
    ASSERT_EQ(StationOf(sights).CalcPlane(result), c.found);
    if (!c.found) {
      EXPECT_EQ(result.Position, Vector3d());
      EXPECT_THAT(result.PlaneResiduals, IsEmpty());
      continue;
    }
    EXPECT_LT((result.Position.GetXY() - kTrueStation.GetXY()).GetLength(), 1e-9);
    EXPECT_NEAR(std::remainder(result.Orientation - kTrueOrientation, kTwoPi), 0.0, 1e-11);
    for (const double* value : {&result.StdDev, &result.PositionError.x, &result.PositionError.y,
                                &result.EllipseA, &result.EllipseB, &result.EllipseBearing})
      EXPECT_EQ(IsUndefined(*value), !c.redundant);
    EXPECT_EQ(result.OrientationError > 0.0, c.redundant);
  }
}

TEST(FreeStn, HeightsOfOneOfTwoAndOfNoBacksight) {
  FreeStn one = StationOf({ExactSight("A", {1300.0, 3560.0, 60.0})});
  FreeStnResult result;
  ASSERT_TRUE(one.CalcHeight(result));
  EXPECT_EQ(result.Position.z, 52.0);
  EXPECT_TRUE(IsUndefined(result.PositionError.z));
  EXPECT_THAT(result.Residuals3D, IsEmpty());  // needs the plane

  std::vector<TestSight> sights = ExactSights(2);
  sights[1].distance = 0.0;
  FreeStn weighted = StationOf(sights);
  ASSERT_TRUE(weighted.CalcPlane(result) && weighted.CalcHeightWeighted(result));
  EXPECT_NEAR(result.Position.z, 52.0, 1e-12);
  EXPECT_TRUE(IsUndefined(result.PositionError.z));
  EXPECT_TRUE(IsUndefined(result.HeightResiduals[1]));
  EXPECT_EQ(result.Residuals3D.size(), 2u);

  sights = ExactSights(2);
  for (TestSight& sight : sights) sight.point.z = kUndefined;
  FreeStn flat = StationOf(sights);
  EXPECT_FALSE(flat.CalcHeight(result));
  EXPECT_FALSE(flat.CalcHeightWeighted(result));
}

TEST(FreeStn, ASatellitePointWithoutHeightKeepsNone) {
  std::vector<TestSight> sights = SixSights();
  sights[2].isGps = true;
  sights[2].point.z = kUndefined;
  FreeStn free = StationOf(sights);
  FreeStnResult result;
  ASSERT_TRUE(free.CalcPlane(result) && free.CalcHeightWeighted(result));
  EXPECT_TRUE(IsUndefined(free.Backsights[2].Adjusted.z));
  sights.erase(sights.begin() + 2);
  FreeStn without = StationOf(sights);
  FreeStnResult expected;
  ASSERT_TRUE(without.CalcPlane(expected) && without.CalcHeightWeighted(expected));
  EXPECT_NEAR(result.Position.z, expected.Position.z, 1e-8);
}

// A distance to a far point and the angle to a near one fit two spots on the same ray.
struct TwoFold {
  TestSight near = ExactSight("near", kTrueStation + Vector3d(0.0, 70.0, 0.0));
  TestSight far = ExactSight("far", kTrueStation + Vector3d(40.0, 90.0, 0.0));
  TestSight third = ExactSight("third", {1110.0, 3430.0, 50.0});

  TwoFold() { near.distance = 0.0; }

  // The other spot, by the cosine rule: the roots of s^2 - 2 r s cos t + r^2 - c^2 add up to
  // 2 r cos t.
  double OtherDistance() const {
    return 2.0 * far.distance * std::cos(far.direction - near.direction) - 70.0;
  }
};

TEST(FreeStn, TheThirdBacksightTellsOneOfTwoPositions) {
  const TwoFold sights;
  ASSERT_GT(sights.OtherDistance(), 71.0);  // so that the true station is the second choice
  FreeStn two = StationOf({sights.near, sights.far});
  FreeStnResult result;
  ASSERT_TRUE(two.CalcPlane(result));
  const double distanceToNear = result.Position.GetXY().GetDistance(sights.near.point.GetXY());
  EXPECT_NEAR(distanceToNear, sights.OtherDistance(), 1e-9);
  ASSERT_TRUE(two.GetSecondPosition());
  EXPECT_LT(two.GetSecondPosition()->GetDistance(kTrueStation.GetXY()), 1e-9);

  for (const bool thirdHasDistance : {true, false}) {
    TestSight third = sights.third;
    if (!thirdHasDistance) third.distance = 0.0;
    FreeStn three = StationOf({sights.near, sights.far, third});
    ASSERT_TRUE(three.CalcPlane(result));
    EXPECT_LT(result.Position.GetXY().GetDistance(kTrueStation.GetXY()), 1e-9);
    ASSERT_TRUE(three.GetSecondPosition());
    EXPECT_GT(three.GetSecondPosition()->GetDistance(kTrueStation.GetXY()), 1.0);
  }
  EXPECT_FALSE(WorkedExample().GetSecondPosition());
  EXPECT_FALSE(FreeStn().GetSecondPosition());
}

TEST(FreeStn, LaterPairsHelpWhereTheFirstFail) {
  std::vector<TestSight> sights = ExactSights(4);
  sights[0].distance = 1.0;  // meets no circle of the second
  FreeStn free = StationOf(sights);
  FreeStnResult result;
  ASSERT_TRUE(free.CalcPlane(result));
  EXPECT_EQ(result.MaxDistanceName, "B1");
}

TEST(FreeStn, BacksightsOnOneSpotGiveNothing) {
  for (const double distance : {50.0, 0.0}) {
    std::vector<TestSight> sights(4, ExactSight("A", {1300.0, 3560.0, 60.0}));
    for (TestSight& sight : sights) sight.distance = distance;
    FreeStnResult result;
    EXPECT_FALSE(StationOf(sights).CalcPlane(result));
    EXPECT_THAT(result.PlaneResiduals, IsEmpty());
  }
}

TEST(FreeStn, NewmatTellsASingularMatrix) {
  FreeStn free = StationOf(SixSights());
  free.SetAprioriErrors(1e200, 0.0, 1e200, 1e200, 0.0, 0);  // weights of 0
  FreeStnResult result;
  const auto message = [&](auto calculate) {
    try {
      calculate();
    } catch (const NEWMAT::SingularException&) {
      return std::string(NEWMAT::SingularException::what());
    }
    return std::string("nothing was thrown");
  };
  EXPECT_THAT(message([&] { free.CalcPlane(result); }),
              HasSubstr("detected by Newmat: matrix is singular"));
  EXPECT_THAT(message([&] { free.CalcHeightWeighted(result); }),
              HasSubstr("detected by Newmat: matrix is singular"));
}

TEST(FreeStn, BadNumbersGiveFalse) {
  const struct {
    const char* what;
    void (*spoil)(FreeStn&);
  } kCases[] = {
      {"infinite direction", [](FreeStn& f) { f.Backsights[3].Angle = kInfinity; }},
      {"distance not a number", [](FreeStn& f) { f.Backsights[3].Distance = kNaN; }},
      {"position not a number", [](FreeStn& f) { f.Backsights[3].Given.y = kNaN; }},
      {"huge position",
       [](FreeStn& f) {
         f.Backsights[3].Adjusted = f.Backsights[3].Given = {1e308, -1e308, 0};
       }},
      {"all positions huge",
       [](FreeStn& f) {
         for (CBacksight& b : f.Backsights) b.Adjusted = b.Given = b.Given * 1e300;
       }},
      {"no error at all", [](FreeStn& f) { f.SetAprioriErrors(0, 0, 0, 0, 0, 1); }},
      {"error not a number", [](FreeStn& f) { f.AngleError = kNaN; }},
      {"negative sets", [](FreeStn& f) { f.Sets = -1; }},
      {"satellite point without error",
       [](FreeStn& f) {
         f.Backsights[2].IsGps = true;
         ++f.GpsCount;
       }},
      {"counter too high", [](FreeStn& f) { f.DistanceCount = INT_MAX; }},
      {"counter too low", [](FreeStn& f) { --f.BacksightCount; }},
      {"satellite counter", [](FreeStn& f) { ++f.GpsCount; }},
      {"distance taken away", [](FreeStn& f) { f.Backsights[5].Distance = kUndefined; }},
      {"backsight taken away", [](FreeStn& f) { f.Backsights.pop_back(); }},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    FreeStn free = StationOf(SixSights());
    c.spoil(free);
    FreeStnResult result;
    EXPECT_FALSE(free.CalcPlane(result));
    EXPECT_EQ(result.Position, Vector3d());
    EXPECT_EQ(result.StdDev, 0.0);
    EXPECT_THAT(result.PlaneResiduals, IsEmpty());
  }
}

TEST(FreeStn, BadHeightsGiveFalse) {
  const struct {
    const char* what;
    void (*spoil)(FreeStn&);
    bool spoilsMean;
  } kCases[] = {
      {"height not a number", [](FreeStn& f) { f.Backsights[1].Given.z = kNaN; }, true},
      {"infinite difference", [](FreeStn& f) { f.Backsights[1].HeightDiff = kInfinity; }, true},
      {"counter", [](FreeStn& f) { ++f.HeightCount; }, true},
      {"no vertical error", [](FreeStn& f) { f.VerticalError = 0.0; }, false},
      {"station on a point", [](FreeStn& f) { f.Station = f.Backsights[1].Adjusted; }, false},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    FreeStn free = StationOf(SixSights());
    FreeStnResult result;
    ASSERT_TRUE(free.CalcPlane(result));
    c.spoil(free);
    EXPECT_FALSE(free.CalcHeightWeighted(result));
    EXPECT_EQ(result.Position.z, 0.0);
    EXPECT_EQ(free.CalcHeight(result), !c.spoilsMean);
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
        free.SetAprioriErrors(1e200, 0.0, 1e200, 1e200, 0.0, 0);
        ASSERT_THROW(free.CalcPlane(result), NEWMAT::SingularException);
      }
    });
  for (std::thread& thread : threads) thread.join();
}

}  // namespace

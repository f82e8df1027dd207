// Free stations of real surveys, from their files, against values that another adjustment found.

#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFilesMap.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/measurements/PolarReductions.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Angles.h"
#include "tests/support/Surroundings.h"

namespace {

struct ExpectedSight {
  const char* name;
  double distance, direction, plane;  // residuals
};

struct ExpectedStation {
  const char* job;
  double E, N, orientation, stdDev, sE, sN, sOrientation;
  double ellipseA, ellipseB, ellipseGon;
  std::vector<ExpectedSight> sights;
};

// Of tests/data/jobs/*/expected.json.
const ExpectedStation kStations[] = {
    {"niemeier_z108",
     40759.37648623143,
     27816.113629979805,
     0.08011016500432966,
     0.4001626370094803,
     0.0031283415624836796,
     0.0024388273033503012,
     4.146306952717986e-06,
     0.003230642184287793,
     0.002301597407069692,
     76.84401667500339,
     {{"280", 0.0027714599893897685, 6.314209225699585e-06, 0.007470203333345906},
      {"104", 0.0035003298613673905, -2.4199628296805997e-06, 0.004258992630323754},
      {"113", -0.0008019319109280332, -3.8782388482871966e-06, 0.005941002055173708}}},
    {"crane_8001",
     988.7576894007977,
     5032.010578337362,
     2.8735118422645693,
     0.2521305331586003,
     0.0008295029678930332,
     0.000593244416506654,
     1.6963924483171646e-05,
     0.0009093463176309659,
     0.0004616312230240426,
     68.44679400838075,
     {{"4001", 0.0012558798047592745, 4.505767606577393e-06, 0.0012970288042846957},
      {"4009", -0.0019490471514949093, 6.097216535216887e-06, 0.0019542152648946366},
      {"4003", 0.00013115036004762715, 1.2202303327768504e-06, 0.00014582102103450793},
      {"4005", -0.000667592974266995, -2.0466046288802886e-05, 0.0009791748143014663}}}};

FreeStn StationOfJob(const std::string& job) {
  const CaughtMessages messages;
  const std::string folder = KORVELFILE_TEST_DATA "/jobs/" + job + "/";
  const CoordinateFilesMap known({folder + "known.geo"}, L"");
  MeasurementFile file;
  file.ChooseFile((folder + "job.plm").c_str());
  EXPECT_EQ(file.UseCollector(), 0);
  TypedItemCursor<StationDataItem> stations(file);
  StationDataItem* station = nullptr;
  EXPECT_EQ(stations.Next(station), 0);

  FreeStn free;
  for (int i = 0; i < station->GetRecordCount(PlmTypes::RecordFreeBacksight); ++i) {
    const RecordDataItem& record = *station->GetRecord(PlmTypes::RecordFreeBacksight, i);
    PointInfo point;
    EXPECT_TRUE(known.GetPoint(record.GetName(), point)) << record.GetName();
    free.AddBacksight(*station, record, point.GetENH(), GetAtmPPMIfNotApplied(*station));
  }
  file.UnUseCollector();
  return free;
}

const ExpectedSight& Worst(const ExpectedStation& station, double ExpectedSight::*residual) {
  const ExpectedSight* worst = &station.sights[0];
  for (const ExpectedSight& sight : station.sights)
    if (std::abs(sight.*residual) > std::abs(worst->*residual)) worst = &sight;
  return *worst;
}

TEST(FreeStnJobs, PlaneOfRealSurveys) {
  for (const ExpectedStation& expected : kStations) {
    SCOPED_TRACE(expected.job);
    FreeStn free = StationOfJob(expected.job);
    FreeStnResult result;
    ASSERT_TRUE(free.CalcPlane(result));
    EXPECT_NEAR(result.Position.x, expected.E, 1e-7);
    EXPECT_NEAR(result.Position.y, expected.N, 1e-7);
    EXPECT_NEAR(result.Orientation, expected.orientation, 1e-10);
    EXPECT_NEAR(result.StdDev / expected.stdDev, 1.0, 1e-6);
    EXPECT_NEAR(result.PositionError.x / expected.sE, 1.0, 1e-5);
    EXPECT_NEAR(result.PositionError.y / expected.sN, 1.0, 1e-5);
    EXPECT_NEAR(result.OrientationError / expected.sOrientation, 1.0, 1e-5);
    EXPECT_NEAR(result.EllipseA / expected.ellipseA, 1.0, 1e-5);
    EXPECT_NEAR(result.EllipseB / expected.ellipseB, 1.0, 1e-5);
    EXPECT_NEAR(result.EllipseBearing / kRadiansPerGon, expected.ellipseGon, 1e-3);

    ASSERT_EQ(result.PlaneResiduals.size(), expected.sights.size());
    for (std::size_t i = 0; i < expected.sights.size(); ++i)
      EXPECT_NEAR(result.PlaneResiduals[i], expected.sights[i].plane, 1e-7) << i;
    const ExpectedSight& distance = Worst(expected, &ExpectedSight::distance);
    EXPECT_EQ(result.MaxDistanceName, distance.name);
    EXPECT_NEAR(result.MaxDistanceResidual, distance.distance, 1e-7);
    const ExpectedSight& direction = Worst(expected, &ExpectedSight::direction);
    EXPECT_EQ(result.MaxAngleName, direction.name);
    EXPECT_NEAR(result.MaxAngleResidual, direction.direction, 1e-9);
  }
}

TEST(FreeStnJobs, HeightsOfTheCraneRunway) {
  FreeStn free = StationOfJob("crane_8001");
  FreeStnResult result;
  ASSERT_TRUE(free.CalcPlane(result) && free.CalcHeight(result));
  EXPECT_NEAR(result.Position.z, 107.04536637959495, 1e-8);
  EXPECT_NEAR(result.PositionError.z, 0.00012201527857144857, 1e-9);
  constexpr double kHeights[] = {107.04503904161149, 107.04542849732908, 107.0456264124017,
                                 107.0453715670375};
  for (std::size_t i = 0; i < 4; ++i)
    EXPECT_NEAR(result.HeightResiduals[i], result.Position.z - kHeights[i], 1e-8) << i;
  EXPECT_EQ(result.MaxHeightName, "4001");

  ASSERT_TRUE(free.CalcHeightWeighted(result));
  EXPECT_NEAR(result.Position.z, 107.0454132084258, 1e-8);
  EXPECT_NEAR(result.PositionError.z, 6.868476933605017e-05, 1e-9);
}

TEST(FreeStnJobs, PointsWithoutHeightsGiveNone) {
  FreeStn free = StationOfJob("niemeier_z108");
  FreeStnResult result;
  ASSERT_TRUE(free.CalcPlane(result));
  EXPECT_FALSE(free.CalcHeight(result));
  EXPECT_FALSE(free.CalcHeightWeighted(result));
  EXPECT_TRUE(result.HeightResiduals.empty());
  EXPECT_TRUE(result.Residuals3D.empty());
}

}  // namespace

#include <cmath>
#include <fstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/InmCalculator.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/support/Surroundings.h"

namespace {

constexpr const char* kJob = KORVELFILE_TEST_DATA "/jobs/fieldbook_2setups/";

StationDataItem Station() {
  StationDataItem station;
  station.SetName("S");
  station.CurvatureOn = 0;
  station.InstrumentHeight = 1.5;
  station.Establish({1000.0, 2000.0, 100.0}, 0.5);
  return station;
}

// 5 m along the slope, due east, 3 m up.
RecordDataItem SightEast() {
  RecordDataItem record;
  record.SetName("P");
  record.PointCode = "TREE";
  record.Distance = 5.0;
  record.HorAngle = std::acos(-1.0) / 2.0 - 0.5;
  record.Vertical = std::acos(0.6);
  return record;
}

// The published field book: every sight comes out where another program put it.
TEST(InmCalculator, FieldBookOfTwoSetups) {
  constexpr double kTolerance = 1e-8;  // metres
  const auto expected = nlohmann::json::parse(std::ifstream(std::string(kJob) + "expected.json"));
  const CaughtMessages quiet;
  MeasurementFile job;
  job.ChooseFile((std::string(kJob) + "job.plm").c_str());
  ASSERT_EQ(job.UseCollector(), 0);
  TypedItemCursor<StationDataItem> stations(job);
  StationDataItem* station = nullptr;
  int sights = 0;
  while (stations.Next(station) == 0) {
    const auto& setup = expected.at(station->GetName());
    station->Establish({setup.at("E"), setup.at("N"), setup.at("H")}, setup.at("orientation_rad"));
    ASSERT_EQ(station->GetRecordCount(PlmTypes::RecordAny), int(setup.at("points").size()) + 1);
    for (int i = 0; i < int(setup.at("points").size()); ++i, ++sights) {
      const RecordDataItem& record = *station->GetRecord(PlmTypes::RecordAny, i + 1);
      const auto& sight = setup.at("points").at(std::size_t(i));
      PointDataItem point;
      InmCalculator().CalcPoint(*station, record, point, nullptr);
      EXPECT_EQ(point.GetName(), sight.at("name"));
      EXPECT_NEAR(point.x, sight.at("E"), kTolerance);
      EXPECT_NEAR(point.y, sight.at("N"), kTolerance);
      EXPECT_NEAR(point.z, sight.at("H"), kTolerance);
      if (sight.at("kind") != "sideShot") continue;
      EXPECT_NEAR(point.y, sight.at("published").at(0), kTolerance);
      EXPECT_NEAR(point.x, sight.at("published").at(1), kTolerance);
      EXPECT_NEAR(point.z, sight.at("published").at(2), kTolerance);
    }
  }
  EXPECT_EQ(sights, 223);
}

TEST(InmCalculator, HeightIsUndefinedWithoutOneOfItsParts) {
  const struct {
    const char* what;
    double stationHeight, distance, x, z, heightDiff;
  } kCases[] = {
      {"all", 100.0, 5.0, 1004.0, 103.0, 3.0},
      {"no station height", kUndefined, 5.0, 1004.0, kUndefined, 3.0},
      {"no distance", 100.0, 0.0, 1000.0, kUndefined, kUndefined},
  };
  for (const auto& c : kCases) {
    StationDataItem station = Station();
    station.Coordinates.z = c.stationHeight;
    RecordDataItem record = SightEast();
    record.Distance = c.distance;
    record.TargetHeight = 1.5;
    PointDataItem point;
    double heightDiff = 7.0;
    InmCalculator().CalcPoint(station, record, point, &heightDiff);
    EXPECT_NEAR(point.x, c.x, 1e-9) << c.what;
    EXPECT_NEAR(point.y, 2000.0, 1e-9) << c.what;
    EXPECT_NEAR(point.z, c.z, 1e-9) << c.what;
    EXPECT_NEAR(heightDiff, c.heightDiff, 1e-9) << c.what;
    EXPECT_EQ(IsUndefined(point.z), IsUndefined(c.z)) << c.what;
  }
}

TEST(InmCalculator, AppliesTheAtmosphereUnlessTheInstrumentDid) {
  StationDataItem station = Station();
  station.InstrumentN = 300.0;
  station.InstrumentA = 80.0;
  station.Temperature = 400.0;
  station.Pressure = 100000.0;  // 1000 hPa * 80 / 400 K = 200: 100 ppm
  PointDataItem point;
  InmCalculator().CalcPoint(station, SightEast(), point, nullptr);
  EXPECT_NEAR(point.x, 1004.0004, 1e-9);
  station.AtmApplied = 1;
  InmCalculator().CalcPoint(station, SightEast(), point, nullptr);
  EXPECT_NEAR(point.x, 1004.0, 1e-9);
}

TEST(InmCalculator, TextsOfThePoint) {
  constexpr struct {
    const char *code, *pointCode, *pointRemark;
  } kCases[] = {{"", "", "new"},
                {"R", "R", "new"},
                {"LL", "old code", "old remark"},
                {"E", "old code", "old remark"}};
  for (const auto& c : kCases) {
    RecordDataItem record = SightEast();
    record.SpecialCode = c.code;
    record.Remark = "new";
    PointDataItem point({}, "old", "old", "old code", "old remark");
    InmCalculator().CalcPoint(Station(), record, point, nullptr);
    EXPECT_EQ(point.GetName() + point.GetPointCode(), "PTREE");
    EXPECT_EQ(point.GetSpecialCode(), c.pointCode) << c.code;
    EXPECT_EQ(point.GetRemark(), c.pointRemark) << c.code;
  }
}

TEST(InmCalculator, AttributesReplaceThoseOfThePoint) {
  RecordDataItem record = SightEast();
  GeoAttrib::PutAttribute(&record, "Colour", "green", false);
  PointDataItem point;
  GeoAttrib::PutAttribute(&point, "Old", "1", false);
  InmCalculator().CalcPoint(Station(), record, point, nullptr);
  EXPECT_EQ(point.GetNumberOfItems(), 1);
  GeoAttrib::GetAttribute(&point, "Colour")->Value = "red";
  EXPECT_EQ(GeoAttrib::GetAttribute(&record, "Colour")->Value, "green");
  EXPECT_EQ(GeoAttrib::GetAttribute(&point, "Old"), nullptr);
  InmCalculator().CalcPoint(Station(), SightEast(), point, nullptr);
  EXPECT_TRUE(point.empty());
}

}  // namespace

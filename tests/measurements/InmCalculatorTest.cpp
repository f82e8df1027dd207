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
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/support/Surroundings.h"

namespace {

// The published field book: every sight comes out where another program put it.
TEST(InmCalculator, FieldBookOfTwoSetups) {
  constexpr double kTolerance = 1e-8;  // metres
  const std::string folder = KORVELFILE_TEST_DATA "/jobs/fieldbook_2setups/";
  const auto expected = nlohmann::json::parse(std::ifstream(folder + "expected.json"));
  const CaughtMessages quiet;
  MeasurementFile job;
  job.ChooseFile((folder + "job.plm").c_str());
  ASSERT_EQ(job.UseCollector(), 0);
  TypedItemCursor<StationDataItem> stations(job);
  StationDataItem* station = nullptr;
  int sights = 0;
  while (stations.Next(station) == 0) {
    const auto& setup = expected.at(station->GetName());
    station->Establish({setup.at("E"), setup.at("N"), setup.at("H")}, setup.at("orientation_rad"));
    for (int i = 0; i < int(setup.at("points").size()); ++i, ++sights) {
      const RecordDataItem& record = *station->GetRecord(PlmTypes::RecordAny, i + 1);
      const auto& sight = setup.at("points").at(std::size_t(i));
      PointDataItem point;
      InmCalculator().CalcPoint(*station, record, point, nullptr);
      EXPECT_EQ(point.GetName(), sight.at("name"));
      EXPECT_LT(point.GetDistance({sight.at("E"), sight.at("N"), sight.at("H")}), kTolerance);
      if (sight.at("kind") != "sideShot") continue;
      const auto& neh = sight.at("published");
      EXPECT_LT(point.GetDistance({neh.at(1), neh.at(0), neh.at(2)}), kTolerance);
    }
  }
  EXPECT_EQ(sights, 223);
}

// 5 m along the slope, due east, 3 m up.
TEST(InmCalculator, AtmosphereRemarkAndAttributes) {
  StationDataItem station;
  station.CurvatureOn = 0;
  station.InstrumentHeight = 1.5;
  station.Establish({1000.0, 2000.0, 100.0}, 0.5);
  station.InstrumentN = 300.0;
  station.InstrumentA = 80.0;
  station.Temperature = 400.0;
  station.Pressure = 100000.0;  // 1000 hPa * 80 / 400 K = 200: 100 ppm
  RecordDataItem record;
  record.SpecialCode = "LL";
  record.Remark = "new";
  record.Distance = 5.0;
  record.HorAngle = kHalfPi - 0.5;
  record.Vertical = std::acos(0.6);
  GeoAttrib::PutAttribute(&record, "Colour", "green", false);

  PointDataItem point({}, "old", "code", "special", "remark");
  double heightDiff = 0.0;
  InmCalculator().CalcPoint(station, record, point, &heightDiff);
  EXPECT_NEAR(point.x, 1004.0004, 1e-9);
  EXPECT_NEAR(heightDiff, 4.5003, 1e-9);
  EXPECT_EQ(point.GetSpecialCode() + point.GetRemark(), "specialremark") << "LL isn't the point's";
  GeoAttrib::GetAttribute(&point, "Colour")->Value = "red";
  EXPECT_EQ(GeoAttrib::GetAttribute(&record, "Colour")->Value, "green");

  record.Distance = 0.0;
  InmCalculator().CalcPoint(station, record, point, &heightDiff);
  EXPECT_TRUE(IsUndefined(point.z) && IsUndefined(heightDiff));
}

}  // namespace

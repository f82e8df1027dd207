#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "korvelfile/measurements/PolarReductions.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Vector3d.h"

namespace {

constexpr double kMetre = 1e-9;  // double rounding at some hundred metres, with room

StationDataItem FlatStation() {
  StationDataItem station;
  station.CurvatureOn = 0;
  return station;
}

// A sight of slope distance 5 m that rises 3 m over 4 m.
RecordDataItem Sight345() {
  RecordDataItem record;
  record.Distance = 5.0;
  record.HorAngle = 1.0;
  record.Vertical = std::acos(0.6);
  return record;
}

TEST(PolarReductions, AgreeWithVectorsInBothFacesAndAllModes) {
  std::mt19937 random(4711);
  std::uniform_real_distribution<double> metres(5.0, 500.0), offset(-0.5, 0.5), turn(0.0, kTwoPi),
      zenith(0.2, kPi - 0.2);
  for (int i = 0; i < 200; ++i) {
    StationDataItem station = FlatStation();
    RecordDataItem record;
    const double s = metres(random), z = zenith(random), a = turn(random);
    const Vector3d sight(std::sin(z) * std::sin(a), std::sin(z) * std::cos(a), std::cos(z));
    const Vector3d up(-std::cos(z) * std::sin(a), -std::cos(z) * std::cos(a), std::sin(z));
    const Vector3d right(std::cos(a), -std::sin(a), 0.0);
    const auto expectTarget = [&](const char* what) {
      const Vector3d target =
          sight * s + up * station.OffsetVertical + right * station.OffsetSideways;
      const double distance = GetHorDist(station, record, 0.0);
      const double angle = GetHorAngle(station, record, 0.0);
      EXPECT_NEAR(distance * std::sin(angle), target.x, kMetre) << what;
      EXPECT_NEAR(distance * std::cos(angle), target.y, kMetre) << what;
      EXPECT_NEAR(GetHeightDiff(station, record, 0.0), target.z, kMetre) << what;
    };
    record.DistanceOffset = offset(random);
    record.Distance = s - record.DistanceOffset;
    record.HorAngle = a;
    record.Vertical = z;
    // One offset at a time: the turn by the sideways one leaves the vertical one out.
    station.OffsetVertical = offset(random);
    station.OffsetSideways = 0.0;
    expectTarget("vertical offset");
    station.OffsetVertical = 0.0;
    station.OffsetSideways = offset(random);
    expectTarget("sideways offset");
    record.Vertical = kTwoPi - z;
    record.HorAngle = std::fmod(a + kPi, kTwoPi);
    expectTarget("second face");
    record.HorAngle = a;
    record.Vertical = s * std::cos(z);
    station.VerticalIsHeightDiff = 1;
    expectTarget("height difference");
  }
}

TEST(PolarReductions, SpecialCodes) {
  constexpr auto kAny = PlmTypes::RecordAny, kKnown = PlmTypes::RecordKnownBacksight;
  // Without a code: h = 4 - 0.6 * 0.1, es = 0.2, height 3 + 0.8 * 0.1.
  const double kAway = std::hypot(3.94, 0.2), kTurn = std::atan(0.05);
  const struct {
    const char *code, *remark;
    PlmTypes::inm_rec_t type;
    double distance, turn, height;  // turn: beyond the circle reading
  } kCases[] = {
      {"", "9", kAny, kAway, kTurn, 3.08},
      {"LL", "5", kAny, std::hypot(7.94, 0.2), kTurn, 6.08},
      {"LL", "1,5,0", kAny, std::hypot(5.14, 0.2), kTurn, 3.98},
      {"HL", " -1", kAny, std::hypot(2.94, 0.2), kTurn, 3.08},
      {"SM", "2.8", kAny, std::hypot(3.94, 3.0), std::atan(0.75), 3.08},
      {"RF", "", kAny, std::hypot(4.06, 0.2), -kTurn, 2.92},
      {"SM", "3", kKnown, 5.0, std::atan(0.75), 3.0},
      {"Z+", "0,125", kAny, kAway, kTurn, 3.205},
  };
  StationDataItem station = FlatStation();
  station.OffsetVertical = 0.1;
  station.OffsetSideways = 0.2;
  station.InstrumentHeight = 1.5;
  for (const auto& c : kCases) {
    RecordDataItem record = Sight345();
    record.SpecialCode = c.code;
    record.Remark = c.remark;
    record.Type = c.type;
    record.TargetHeight = 1.5;
    EXPECT_NEAR(GetHorDist(station, record, 0.0), c.distance, kMetre) << c.code;
    EXPECT_NEAR(GetHorAngle(station, record, 0.0), 1.0 + c.turn, 1e-12) << c.code;
    EXPECT_NEAR(GetHeightDiffPoints(station, record, 0.0), c.height, kMetre) << c.code;
  }
}

TEST(PolarReductions, ScaleActsWhereItShould) {
  StationDataItem station = FlatStation();
  station.ScalePpm = 1e5;  // a tenth, to show
  RecordDataItem record = Sight345();
  record.DistanceOffset = 0.5;
  // ppm before the constant and ScalePpm on the level distance: (5 * 1.2 + 0.5) * 0.8 * 1.1.
  EXPECT_NEAR(GetHorDist(station, record, 2e5), 5.72, kMetre);
  EXPECT_NEAR(GetHeightDiff(station, record, 2e5), 6.5 * 0.6, kMetre);
  // The turn takes both before the constant: (5 * 1.2 * 1.1 + 0.5) * 0.8.
  station.OffsetSideways = 5.68;
  EXPECT_NEAR(GetHorAngle(station, record, 2e5), 1.0 + kPi / 4, 1e-12);
}

// On a round earth: the level distance lies across the bisector of the two plumb lines, the height
// is the difference of the distances from the centre.
TEST(PolarReductions, CurvatureAgreesWithTheSphere) {
  StationDataItem station;
  station.RefractionK = 0.0;
  const double R = station.EarthRadius;
  for (const double s : {50.0, 300.0, 1000.0}) {
    for (const double z : {1.2, 1.5, 1.6, 1.9}) {
      RecordDataItem record;
      record.Distance = s;
      record.Vertical = z;
      const double x = s * std::sin(z), y = R + s * std::cos(z);
      const double half = std::atan2(x, y) / 2.0;
      const double level = x * std::cos(half) - s * std::cos(z) * std::sin(half);
      EXPECT_NEAR(GetHorDist(station, record, 0.0), level, 2e-6) << s << " " << z;
      const double curvature = std::hypot(x, y) - y;
      EXPECT_NEAR(GetHeightDiff(station, record, 0.0), y - R + curvature, 1e-5) << s << " " << z;
      // Refraction takes its share of the curvature.
      EXPECT_NEAR(GetHeightDiff(StationDataItem(), record, 0.0), y - R + 0.86 * curvature, 1e-5);
    }
  }
}

TEST(PolarReductions, PartsPerMillion) {
  StationDataItem station;
  // 850 nm: 287.604 + 4.8864 / 0.7225 + 0.068 / 0.52200625 = 294.497450, over 3.709.
  CalculateInstrNandA(850e-9, 285.15, 101325.0, station.InstrumentN, station.InstrumentA);
  EXPECT_NEAR(station.InstrumentA, 79.4007684, 1e-6);
  EXPECT_NEAR(station.InstrumentN, 282.142131, 1e-6);
  station.Pressure = 101325.0;
  // Rules of thumb: about 1 ppm for 1 kelvin, 0.28 ppm for 1 hectopascal, both towards longer.
  station.Temperature = 286.15;
  EXPECT_NEAR(GetAtmPPM(station), 0.986, 1e-3);
  station.Temperature = 285.15;
  station.Pressure = 101225.0;
  EXPECT_NEAR(GetAtmPPM(station), 0.2785, 1e-4);
  // Scale, distance from the meridian, height, and their products: + 0.04, - 0.005 and - 0.02.
  EXPECT_NEAR(GetGeomPPM(0.9996, 63890.0, 638.9), -449.985, 1e-4);
}

}  // namespace

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "korvelfile/measurements/PolarReductions.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Vector3d.h"

namespace {

constexpr double kMetre = 1e-9;  // double rounding at some hundred metres, with room
constexpr double kRadian = 1e-12;

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

struct Polar {
  double distance, angle, height;
};

Polar Reduce(const StationDataItem& station, const RecordDataItem& record, double ppm = 0.0) {
  return {GetHorDist(station, record, ppm), GetHorAngle(station, record, ppm),
          GetHeightDiff(station, record, ppm)};
}

// The same target by vectors: `s` along the line of sight, `up` across it in the vertical plane,
// `right` level and across it. East, north, height from the sighting axis.
Vector3d Target(double s, double a, double z, double up, double right) {
  const Vector3d sight(std::sin(z) * std::sin(a), std::sin(z) * std::cos(a), std::cos(z));
  const Vector3d across(-std::cos(z) * std::sin(a), -std::cos(z) * std::cos(a), std::sin(z));
  return sight * s + across * up + Vector3d(std::cos(a), -std::sin(a), 0.0) * right;
}

void ExpectAt(const Vector3d& target, const Polar& polar, const char* what) {
  EXPECT_NEAR(polar.distance * std::sin(polar.angle), target.x, kMetre) << what;
  EXPECT_NEAR(polar.distance * std::cos(polar.angle), target.y, kMetre) << what;
  EXPECT_NEAR(polar.height, target.z, kMetre) << what;
}

TEST(PolarReductions, AgreeWithVectorsInBothFacesAndAllModes) {
  std::mt19937 random(4711);
  std::uniform_real_distribution<double> metres(5.0, 500.0), offset(-0.5, 0.5), turn(0.0, kTwoPi),
      zenith(0.2, kPi - 0.2);
  for (int i = 0; i < 200; ++i) {
    StationDataItem station = FlatStation();
    RecordDataItem record;
    const double s = metres(random), z = zenith(random), constant = offset(random);
    record.Distance = s - constant;
    record.DistanceOffset = constant;
    record.HorAngle = turn(random);
    record.Vertical = z;

    // One offset at a time: the turn by the sideways one leaves the vertical one out.
    station.OffsetVertical = offset(random);
    ExpectAt(Target(s, record.HorAngle, z, station.OffsetVertical, 0.0), Reduce(station, record),
             "vertical offset");
    station.OffsetVertical = 0.0;
    station.OffsetSideways = offset(random);
    const Vector3d target = Target(s, record.HorAngle, z, 0.0, station.OffsetSideways);
    ExpectAt(target, Reduce(station, record), "sideways offset");

    RecordDataItem second = record;
    second.Vertical = kTwoPi - z;
    second.HorAngle = std::fmod(record.HorAngle + kPi, kTwoPi);
    ExpectAt(target, Reduce(station, second), "second face");

    RecordDataItem rise = record;
    rise.Vertical = s * std::cos(z);
    station.VerticalIsHeightDiff = 1;
    ExpectAt(target, Reduce(station, rise), "height difference");

    RecordDataItem level = record;
    level.DistanceOffset = 0.0;
    level.Distance = s * std::sin(z);
    station.VerticalIsHeightDiff = station.SlopeDistance = 0;
    ExpectAt(target, Reduce(station, level), "horizontal distance");
  }
}

TEST(PolarReductions, SpecialCodes) {
  const struct {
    const char *code, *remark;
    PlmTypes::inm_rec_t type;
    double distance, turn, height;  // turn: beyond the circle reading
  } kCases[] = {
      // Without a code: h = 4 - 0.6 * 0.1, es = 0.2, height 3 + 0.8 * 0.1.
      {"", "9", PlmTypes::RecordAny, std::hypot(3.94, 0.2), std::atan(0.05), 3.08},
      {"R", "9", PlmTypes::RecordAny, std::hypot(3.94, 0.2), std::atan(0.05), 3.08},
      {"ll", "9", PlmTypes::RecordAny, std::hypot(3.94, 0.2), std::atan(0.05), 3.08},
      {"LL", "5", PlmTypes::RecordAny, std::hypot(7.94, 0.2), std::atan(0.05), 6.08},
      {"LL", "0,25", PlmTypes::RecordAny, std::hypot(4.14, 0.2), std::atan(0.05), 3.23},
      {"LL", "1,5,0", PlmTypes::RecordAny, std::hypot(5.14, 0.2), std::atan(0.05), 3.98},
      {"LL", "oak", PlmTypes::RecordAny, std::hypot(3.94, 0.2), std::atan(0.05), 3.08},
      {"LH", "0.06", PlmTypes::RecordAny, std::hypot(4.0, 0.2), std::atan(0.05), 3.08},
      {"HL", " -1", PlmTypes::RecordAny, std::hypot(2.94, 0.2), std::atan(0.05), 3.08},
      {"SM", "2.8", PlmTypes::RecordAny, std::hypot(3.94, 3.0), std::atan(0.75), 3.08},
      {"RF", "", PlmTypes::RecordAny, std::hypot(4.06, 0.2), -std::atan(0.05), 2.92},
      {"RF", "", PlmTypes::RecordFreeBacksight, std::hypot(4.06, 0.2), -std::atan(0.05), 2.92},
      {"", "", PlmTypes::RecordKnownBacksight, 4.0, 0.0, 3.0},
      {"RF", "", PlmTypes::RecordKnownBacksight, 4.0, 0.0, 3.0},
      {"SM", "3", PlmTypes::RecordKnownBacksight, 5.0, std::atan(0.75), 3.0},
      {"Z+", "2", PlmTypes::RecordAny, std::hypot(3.94, 0.2), std::atan(0.05), 3.08},
  };
  StationDataItem station = FlatStation();
  station.OffsetVertical = 0.1;
  station.OffsetSideways = 0.2;
  for (const auto& c : kCases) {
    RecordDataItem record = Sight345();
    record.SpecialCode = c.code;
    record.Remark = c.remark;
    record.Type = c.type;
    const std::string what = std::string(c.code) + " " + c.remark;
    EXPECT_NEAR(GetHorDist(station, record, 0.0), c.distance, kMetre) << what;
    EXPECT_NEAR(GetHorAngle(station, record, 0.0), 1.0 + c.turn, kRadian) << what;
    EXPECT_NEAR(GetHeightDiff(station, record, 0.0), c.height, kMetre) << what;
  }
}

TEST(PolarReductions, HeightDifferenceOfThePoints) {
  StationDataItem station = FlatStation();
  station.InstrumentHeight = 1.5;
  RecordDataItem record = Sight345();
  record.TargetHeight = 2.0;
  EXPECT_NEAR(GetHeightDiffPoints(station, record, 0.0), 2.5, kMetre);
  record.SpecialCode = "Z+";
  record.Remark = "0,125";
  EXPECT_NEAR(GetHeightDiffPoints(station, record, 0.0), 2.625, kMetre);
  station.HeightsMeasured = 0;
  EXPECT_EQ(GetHeightDiffPoints(station, record, 0.0), kUndefined);
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
  EXPECT_NEAR(GetHorAngle(station, record, 2e5), 1.0 + kPi / 4, kRadian);
}

TEST(PolarReductions, HorizontalDistancesTakeTheConstantInHeightsOnly) {
  StationDataItem station = FlatStation();
  station.SlopeDistance = 0;
  RecordDataItem record = Sight345();
  record.DistanceOffset = 3.0;
  EXPECT_NEAR(GetHorDist(station, record, 0.0), 5.0, kMetre);
  EXPECT_NEAR(GetHeightDiff(station, record, 0.0), 8.0 * 0.75, kMetre);
  station.VerticalIsHeightDiff = 1;
  record.Vertical = -7.0;
  EXPECT_EQ(GetHorDist(station, record, 0.0), 5.0);
  EXPECT_EQ(GetHeightDiff(station, record, 0.0), -7.0);
}

TEST(PolarReductions, SecondFaceTurnsTheCircle) {
  StationDataItem station = FlatStation();
  RecordDataItem record = Sight345();
  record.Vertical = kTwoPi - 1.5;
  constexpr struct {
    double reading, direction;
  } kCases[] = {{1.0, 1.0 + kPi}, {kPi, kTwoPi}, {6.0, 6.0 - kPi}, {10.0, 10.0 - kPi}};
  for (const auto& c : kCases) {
    record.HorAngle = c.reading;
    EXPECT_NEAR(GetHorAngle(station, record, 0.0), c.direction, kRadian);
  }
  station.VerticalIsHeightDiff = 1;
  record.HorAngle = 1.0;
  EXPECT_EQ(GetHorAngle(station, record, 0.0), 1.0) << "4.78 m is no second face";
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
      EXPECT_NEAR(GetHeightDiff(station, record, 0.0), std::hypot(x, y) - R, 1e-5) << s << " " << z;
    }
  }
}

TEST(PolarReductions, RefractionTakesItsShareOfTheCurvature) {
  StationDataItem station;
  RecordDataItem record;
  record.Distance = 1000.0;
  record.Vertical = kHalfPi;
  // (1 - 0.14) * 1000 m * 1000 m / (2 * 6389000 m)
  EXPECT_NEAR(GetHeightDiff(station, record, 0.0), 0.0673031773, 1e-9);
}

TEST(PolarReductions, WithoutADistance) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  StationDataItem station;
  station.OffsetSideways = 0.2;
  for (const double missing : {0.0, kUndefined, 0.99e-7, -0.99e-7}) {
    RecordDataItem record = Sight345();
    record.Distance = missing;
    EXPECT_EQ(GetHorDist(station, record, 50.0), 0.0);
    EXPECT_EQ(GetHorAngle(station, record, 50.0), 1.0);
    EXPECT_EQ(GetHeightDiff(station, record, 50.0), kUndefined);
    EXPECT_EQ(GetHeightDiffPoints(station, record, 50.0), kUndefined);
  }
  RecordDataItem record = Sight345();
  record.Distance = 1e-7;
  EXPECT_GT(GetHorDist(station, record, 0.0), 0.0) << "1e-7 is no longer missing";
  for (const double absurd : {kInf, -kInf, std::numeric_limits<double>::quiet_NaN(), 1e308}) {
    record.Distance = record.Vertical = absurd;
    GetHorDist(station, record, 0.0);
    GetHorAngle(station, record, 0.0);
    GetHeightDiffPoints(station, record, 0.0);
  }
}

TEST(PolarReductions, AHeightDifferenceLongerThanItsSlopeIsNoNumber) {
  StationDataItem station = FlatStation();
  station.VerticalIsHeightDiff = 1;
  RecordDataItem record = Sight345();
  record.Vertical = 6.0;
  EXPECT_TRUE(std::isnan(GetHorDist(station, record, 0.0)));
  EXPECT_TRUE(std::isnan(GetHorAngle(station, record, 0.0)));
  EXPECT_EQ(GetHeightDiff(station, record, 0.0), 6.0);
}

TEST(PolarReductions, NoCurvatureWithoutARadius) {
  StationDataItem station;
  for (const double radius : {0.0, kUndefined}) {
    station.EarthRadius = radius;
    EXPECT_NEAR(GetHorDist(station, Sight345(), 0.0), 4.0, kMetre);
    EXPECT_NEAR(GetHeightDiff(station, Sight345(), 0.0), 3.0, kMetre);
  }
}

TEST(PolarReductions, Atmosphere) {
  StationDataItem station;
  EXPECT_EQ(GetAtmPPM(station), 0.0);
  // 850 nm: 287.604 + 4.8864 / 0.7225 + 0.068 / 0.52200625 = 294.497450, over 3.709.
  CalculateInstrNandA(850e-9, 285.15, 101325.0, station.InstrumentN, station.InstrumentA);
  EXPECT_NEAR(station.InstrumentA, 79.4007684, 1e-6);
  EXPECT_NEAR(station.InstrumentN, 282.142131, 1e-6);
  station.Temperature = 285.15;
  EXPECT_EQ(GetAtmPPM(station), 0.0) << "no pressure";
  station.Pressure = 101325.0;
  EXPECT_NEAR(GetAtmPPM(station), 0.0, 1e-9) << "the reference itself";
  // Rules of thumb: about 1 ppm for 1 kelvin, 0.28 ppm for 1 hectopascal, both towards longer.
  station.Temperature = 286.15;
  EXPECT_NEAR(GetAtmPPM(station), 0.986, 1e-3);
  station.Temperature = 285.15;
  station.Pressure = 101225.0;
  EXPECT_NEAR(GetAtmPPM(station), 0.2785, 1e-4);
  EXPECT_EQ(GetAtmPPMIfNotApplied(station), GetAtmPPM(station));
  station.AtmApplied = -1;
  EXPECT_EQ(GetAtmPPMIfNotApplied(station), 0.0);
  for (double StationFields::*field : {&StationFields::InstrumentN, &StationFields::InstrumentA,
                                       &StationFields::Temperature, &StationFields::Pressure}) {
    for (const double none : {0.0, kUndefined}) {
      StationDataItem without = station;
      without.*field = none;
      EXPECT_EQ(GetAtmPPM(without), 0.0);
    }
  }
}

TEST(PolarReductions, GeometricScale) {
  constexpr struct {
    double scale, offset, height, ppm;
  } kCases[] = {
      {1.0, 0.0, 0.0, 0.0},      {0.9996, 0.0, 0.0, -400.0},         {1.0, 0.0, 638.9, -100.0},
      {1.0, 63890.0, 0.0, 50.0}, {0.9996, 63890.0, 638.9, -449.985},  // products of the three: +
                                                                      // 0.04, - 0.005 and - 0.02
  };
  for (const auto& c : kCases)
    EXPECT_NEAR(GetGeomPPM(c.scale, c.offset, c.height), c.ppm, 1e-4) << c.scale << " " << c.height;
}

}  // namespace

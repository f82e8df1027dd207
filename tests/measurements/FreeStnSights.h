/// @file
/// Set-ups of free stations made in code, for the tests of the adjustment.
#pragma once

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/base/Vector3d.h"

/// One sight as the adjustment takes it; the station it is made for reduces nothing.
struct TestSight {
  std::string name;
  Vector3d point;  ///< E, N, H as given
  double direction = 0.0;
  double distance = 0.0;  ///< horizontal; 0.0 if none was measured
  bool isGps = false;
  Vector3d errors;  ///< E, N, H
};

inline void Add(FreeStn& free, const TestSight& sight) {
  RecordDataItem record;
  record.SetName(sight.name);
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

/// The sight from the true station to `point` without error.
inline TestSight ExactSight(const std::string& name, const Vector3d& point) {
  const Vector3d d = point - kTrueStation;
  const double direction = std::atan2(d.x, d.y) - kTrueOrientation;
  return {name,  point, direction < 0.0 ? direction + kTwoPi : direction, std::hypot(d.x, d.y),
          false, {}};
}

/// Six sights all round the true station with small errors, always the same.
inline std::vector<TestSight> SixSights() {
  constexpr Vector3d kPoints[] = {{1300.0, 3560.0, 60.0}, {1390.0, 3470.0, 48.0},
                                  {1270.0, 3330.0, 55.5}, {1150.0, 3400.0, 51.0},
                                  {1110.0, 3530.0, 70.0}, {1235.0, 3660.0, 44.0}};
  std::vector<TestSight> sights;
  for (std::size_t i = 0; i < std::size(kPoints); ++i) {
    TestSight sight = ExactSight("B" + std::to_string(i + 1), kPoints[i]);
    const double phase = static_cast<double>(i);
    sight.distance += 0.004 * std::sin(1.7 * phase + 0.3);
    sight.direction += 2.5e-5 * std::cos(2.9 * phase);
    sight.errors = {0.011, 0.007, 0.02};
    sights.push_back(sight);
  }
  return sights;
}

inline FreeStn SixSightStation() {
  FreeStn free;
  for (const TestSight& sight : SixSights()) Add(free, sight);
  return free;
}

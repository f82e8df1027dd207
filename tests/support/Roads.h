/// @file
/// Alignments made up for tests, as a line model takes them.
#pragma once

#include <cmath>
#include <vector>

#include "korvelfile/outside/base/Clothoid.h"
#include "korvelfile/outside/base/PolarVector.h"
#include "korvelfile/outside/base/Vector.h"
#include "korvelfile/outside/model/Proxies.h"

/// Records of an alignment in memory.
template <class Interface, class Record>
struct Records : Interface {
  std::vector<Record> records;
  int GetElementCount() const override { return static_cast<int>(records.size()); }
  Record GetAt(int index) const override { return records[static_cast<std::size_t>(index)]; }
};
using LineRecords = Records<Model::ILineFileProxy, Model::Proxy::LineElement>;
using ProfileRecords = Records<Model::IProfileFileProxy, Model::Proxy::ProfileElement>;
using CamberRecords = Records<Model::ICamberFileProxy, Model::Proxy::CamberSlopeElement>;

/// A winding road of all kinds of elements, tangent to each other: right and left, entry, exit,
/// between two radii, and over a turning point.
inline LineRecords MakeRoad(int rounds) {
  const struct {
    double radius, endRadius, length;
  } kinds[] = {{0, 0, 120},  {0, 250, 90},     {250, 250, 140},  {250, 90, 60},
               {90, 90, 70}, {90, -140, 100},  {-140, -140, 80}, {-140, 0, 75},
               {0, 0, 1},    {-300, -300, 400}};
  LineRecords line;
  Vector at(6000.0, 9000.0);
  double direction = 0.3;
  double chainage = 1000.0;
  for (int i = 0; i < rounds * 10; ++i) {
    const auto& k = kinds[i % 10];
    Model::Proxy::LineElement e{L"", at, chainage, direction, k.radius, k.endRadius, k.length, 0.0};
    if (k.radius != k.endRadius) {
      Clothoid curve;
      curve.SetWithLength(at, direction, k.length, k.radius, k.endRadius);
      e.Parameter = curve.GetParameter();
      at = curve.TangentPoint(&direction, nullptr, k.length);
    } else if (k.radius == 0.0) {
      at += PolarVector(k.length, direction).GetVector();
    } else {
      const Vector centre = at + k.radius * Vector(std::sin(direction), -std::cos(direction));
      direction -= k.length / k.radius;
      at = centre - k.radius * Vector(std::sin(direction), -std::cos(direction));
    }
    line.records.push_back(e);
    chainage += k.length;
  }
  return line;
}

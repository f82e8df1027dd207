/// @file
/// What files hold: their outline, and known figures (m3_breaklines.expected.json).
#pragma once

#include <algorithm>
#include <cfloat>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFileInterface.h"
#include "korvelfile/coordinates/CoordinatesKeeper.h"
#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/TypedItemCursor.h"

/// "name", "line{name name}" and so on, in the order of the list.
inline std::string Outline(const DataItemListObject& list) {
  std::string outline;
  for (const DataItemInterface& item : list) {
    const auto* line = dynamic_cast<const LineDataItem*>(&item);
    if (!line && !dynamic_cast<const PointDataItem*>(&item)) continue;
    if (!outline.empty()) outline += ' ';
    outline += item.GetName();
    if (line) outline += '{' + Outline(*line) + '}';
  }
  return outline;
}

namespace RealPoints {

inline constexpr double kPxyEastOffset = 21000000.0;  ///< taken off in the `.pxy` file

/// Counts, extent and means, with x east and y north.
struct Figures {
  int lines = 0;
  int points = 0;
  Vector3d min{DBL_MAX, DBL_MAX, DBL_MAX};
  Vector3d max{-DBL_MAX, -DBL_MAX, -DBL_MAX};
  Vector3d sum;

  void Add(const Vector3d& p) {
    ++points;
    min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
    max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
    sum += p;
  }

  void ExpectAll(double eastOffset) const {
    EXPECT_EQ(lines, 175);
    ASSERT_EQ(points, 5871);
    const Vector3d offset(eastOffset, 0, 0);
    ExpectNear(min + offset, {21530213.8014, 6782503.6307, 14.817});
    ExpectNear(max + offset, {21531306.207, 6783189.0886, 22.8148});
    ExpectNear(sum * (1.0 / points) + offset,
               {21530722.62345153, 6782903.0560780475, 17.65085957264515});
  }

  static void ExpectNear(const Vector3d& a, const Vector3d& b) {
    constexpr double kRounding = 0.5e-4;  // of the `.pxy` file
    EXPECT_NEAR(a.x, b.x, kRounding);
    EXPECT_NEAR(a.y, b.y, kRounding);
    EXPECT_NEAR(a.z, b.z, kRounding);
  }
};

inline void ExpectIn(CoordinateFileInterface& file, double eastOffset) {
  Figures figures;
  TypedItemCursor<LineDataItem> lines(file);
  for (LineDataItem* line = nullptr; lines.Next(line) == 0; ++figures.lines) {
    TypedItemCursor<PointDataItem> points(*line);
    for (PointDataItem* point = nullptr; points.Next(point) == 0;) figures.Add(*point);
  }
  figures.ExpectAll(eastOffset);
  EXPECT_EQ(file.GetMaxX(), figures.max.x);
}

inline void ExpectInStore(CoordinatesKeeper& store, double eastOffset) {
  Figures figures;
  CooLineData line;
  for (bool isThere = store.GetLine(line, KeeperFirst, 0); isThere; ++figures.lines) {
    CooPtData point;
    for (int i = 0; store.GetPointInLine(point, line.Index, i); ++i) figures.Add(point.Position);
    isThere = store.GetLine(line, KeeperNext, 0);
  }
  figures.ExpectAll(eastOffset);
  std::vector<int> hits;
  EXPECT_TRUE(store.LineIntersectsBox({figures.min}, {figures.max}, hits));
  EXPECT_EQ(hits.size(), 175U) << "every line passes through the extent";
}

}  // namespace RealPoints

/// @file
/// What is known of the break lines in tests/data/points from another source: the figures of
/// m3_breaklines.expected.json.
#pragma once

#include <algorithm>
#include <cfloat>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFileInterface.h"
#include "korvelfile/coordinates/CoordinatesKeeper.h"
#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/TypedItemCursor.h"

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
    constexpr double kRounding = 0.5e-4;  // of the `.pxy` file
    EXPECT_NEAR(min.y, 6782503.6307, kRounding);
    EXPECT_NEAR(max.y, 6783189.0886, kRounding);
    EXPECT_NEAR(min.x + eastOffset, 21530213.8014, kRounding);
    EXPECT_NEAR(max.x + eastOffset, 21531306.207, kRounding);
    EXPECT_NEAR(min.z, 14.817, kRounding);
    EXPECT_NEAR(max.z, 22.8148, kRounding);
    EXPECT_NEAR(sum.x / points + eastOffset, 21530722.62345153, kRounding);
    EXPECT_NEAR(sum.y / points, 6782903.0560780475, kRounding);
    EXPECT_NEAR(sum.z / points, 17.65085957264515, kRounding);
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
  EXPECT_EQ(file.GetMinX(), figures.min.x);
  EXPECT_EQ(file.GetMaxY(), figures.max.y);
  EXPECT_EQ(file.GetMaxZ(), figures.max.z);
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
  // Every line passes through the extent, and the first one by its own first point.
  std::vector<int> hits;
  EXPECT_TRUE(store.LineIntersectsBox({figures.min}, {figures.max}, hits));
  EXPECT_EQ(hits.size(), 175U);
  CooPtData first;
  ASSERT_TRUE(store.GetPointInLine(first, 0, 0));
  hits.clear();
  EXPECT_TRUE(store.IsPointNearLine(first, 0.001, hits));
  EXPECT_EQ(hits.front(), 0);
}

}  // namespace RealPoints

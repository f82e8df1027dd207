/// @file
/// What files hold: their outline, and known figures (m3_breaklines.expected.json).
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFileInterface.h"
#include "korvelfile/coordinates/CoordinatesKeeper.h"
#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"

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

/// Adds what an outline tells, all at the origin.
inline void AddOutline(PxyCoordinateFile& file, const std::string& outline) {
  LineDataItem* line = nullptr;
  std::istringstream words(outline);
  for (std::string word; words >> word;) {
    const std::size_t brace = word.find('{');
    if (brace != word.npos) line = file.CreateLine(word.substr(0, brace), 0);
    const bool isLast = word.ends_with('}');
    std::string name = word.substr(brace + 1);
    if (isLast) name.pop_back();
    line ? line->AddPoint(name, {}, "", "", "")
         : file.InsertPoint(new PointDataItem({}, name, "", "", ""), nullptr);
    if (isLast) line = nullptr;
  }
}

namespace RealPoints {

inline constexpr double kPxyEastOffset = 21000000.0;  ///< taken off in the `.pxy` file

inline void ExpectInStore(CoordinatesKeeper& store, double eastOffset) {
  int lineCount = 0, pointCount = 0;
  Vector3d sum;
  CooLineData line;
  for (bool isThere = store.GetLine(line, KeeperFirst, 0); isThere; ++lineCount) {
    CooPtData point;
    for (int i = 0; store.GetPointInLine(point, line.Index, i); ++i, ++pointCount)
      sum += point.Position;
    isThere = store.GetLine(line, KeeperNext, 0);
  }
  EXPECT_EQ(lineCount, 175);
  ASSERT_EQ(pointCount, 5871);
  const Vector3d mean = sum * (1.0 / pointCount) + Vector3d(eastOffset, 0, 0);
  constexpr double kRounding = 0.5e-4;  // of the `.pxy` file
  EXPECT_NEAR(mean.x, 21530722.62345153, kRounding);
  EXPECT_NEAR(mean.y, 6782903.0560780475, kRounding);
  EXPECT_NEAR(mean.z, 17.65085957264515, kRounding);
  std::vector<int> hits;
  EXPECT_TRUE(store.LineIntersectsBox({{21530213.8 - eastOffset, 6782503.6, 0}},
                                      {{21531306.3 - eastOffset, 6783189.1, 0}}, hits));
  EXPECT_EQ(hits.size(), 175U) << "every line passes through the extent";
}

}  // namespace RealPoints

#include <cmath>

#include <gtest/gtest.h>

#include "korvelfile/corrections/CcgFileInfo.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

TEST(CcgFileInfo, NearestRow) {
  CcgFileInfo info(10.0, 0.0, 1.0, 1.0, 11, 1);
  const double norths[] = {10.0, 0.0, 9.5, 9.51, 10.001, -0.001, std::nan(""), kUndefined};
  const int rows[] = {0, 10, 1, 0, -1, -1, -1, -1};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(info.GetRowFromNorth(norths[i]), rows[i]) << norths[i];
  info.northSpacing = 1.01;  // rounded: its error shows at row 0
  EXPECT_DOUBLE_EQ(info.GetNorthFromRow(0), 10.1);
  EXPECT_EQ(info.GetNorthFromRow(11), kUndefined);
  EXPECT_EQ(info.GetEastFromCol(1), kUndefined);
}

TEST(CcgFileInfo, RowsFollowFromLimitsAndSpacing) {
  const double spacings[] = {1.0, 1.04, 1.06, 0.96, 0.94, 0.0, -1.0, std::nan(""), 1e-9, 1e-320};
  const int rows[] = {11, 11, 10, 11, 12, 0, 0, 0, 0, 0};
  for (int i = 0; i < 10; ++i) {
    CcgFileInfo info(10.0, 0.0, spacings[i], 1.0, 1, 1);
    info.northMin = 0.0;
    info.DeriveRowsAndColumns();
    EXPECT_EQ(info.rows, rows[i]) << spacings[i];
  }
}

}  // namespace

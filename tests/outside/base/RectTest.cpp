#include <cfloat>
#include <limits>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Rect.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(Rect, FromAnyTwoCorners) {
  const Rect expected(1, 8, 5, 2);
  EXPECT_EQ(Rect({1, 2}, {5, 8}), expected);
  EXPECT_EQ(Rect({5, 2}, {1, 8}), expected);
  EXPECT_EQ(Rect({5, 8}, {1, 2}), expected);
}

TEST(Rect, WidensFromNothing) {
  Rect extent = Rect::Nothing();
  EXPECT_EQ(extent, Rect(DBL_MAX, -DBL_MAX, -DBL_MAX, DBL_MAX));
  EXPECT_FALSE(extent.Intersects({{-1e9, -1e9}, {1e9, 1e9}}));
  extent.Widen({3, -4});
  EXPECT_EQ(extent, Rect(3, -4, 3, -4));
  extent.Widen({-1, 7});
  extent.Widen({kNaN, kNaN});
  EXPECT_EQ(extent, Rect(-1, 7, 3, -4));
}

TEST(Rect, Intersects) {
  const Rect rect({10, 10}, {20, 15});
  const struct {
    const char* what;
    Line line;
    bool expected;
  } cases[] = {
      {"inside", {{12, 11}, {13, 14}}, true},
      {"right across, both ends outside", {{0, 12}, {30, 13}}, true},
      {"cuts a corner", {{9, 13}, {12, 16}}, true},
      {"touches a corner", {{9, 14}, {11, 16}}, true},
      {"past a corner, extents overlapping", {{8, 14}, {11, 17}}, false},
      {"ends on the border", {{0, 12}, {10, 12}}, true},
      {"ends short of the border", {{0, 12}, {9.999, 12}}, false},
      {"along the border", {{5, 15}, {25, 15}}, true},
      {"along the border, but beyond", {{21, 15}, {25, 15}}, false},
      {"a point inside", {{12, 12}, {12, 12}}, true},
      {"a point outside", {{12, 16}, {12, 16}}, false},
      {"an end not a number", {{12, 12}, {kNaN, 12}}, false},
      {"the other end not a number", {{12, kNaN}, {12, 12}}, false},
      {"an end at infinity", {{12, 12}, {kInf, 12}}, false},
      {"an end without a place", {{12, 12}, {DBL_MAX, DBL_MAX}}, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(rect.Intersects(c.line), c.expected) << c.what;
    EXPECT_EQ(rect.Intersects({c.line.GetEnd(), c.line.GetStart()}), c.expected) << c.what;
  }
  EXPECT_TRUE(Rect({5, 5}, {5, 5}).Intersects({{0, 0}, {10, 10}}));
}

}  // namespace

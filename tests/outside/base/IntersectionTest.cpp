#include <limits>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Intersection.h"

namespace {

TEST(Intersection, LinesBeyondTheirEnds) {
  Vector crossing(-1, -1);
  ASSERT_TRUE(Intersection::Calculate(Line({6e6, 5e5}, {6e6 + 1, 5e5 + 2}),
                                      Line({6e6 + 10, 5e5}, {6e6 + 11, 5e5}), crossing));
  EXPECT_DOUBLE_EQ(crossing.x, 6e6);
  EXPECT_DOUBLE_EQ(crossing.y, 5e5);
  ASSERT_TRUE(Intersection::Calculate(Line({0, 0}, {1, 1}), Line({10, 0}, {11, -1}), crossing));
  EXPECT_DOUBLE_EQ(crossing.x, 5.0);
  EXPECT_DOUBLE_EQ(crossing.y, 5.0);
}

TEST(Intersection, NoneLeavesThePoint) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const struct {
    const char* what;
    Line a, b;
  } cases[] = {
      {"parallel", {{0, 0}, {1, 1}}, {{5, 0}, {7, 2}}},
      {"the same", {{0, 0}, {1, 1}}, {{0, 0}, {1, 1}}},
      {"no length", {{0, 0}, {0, 0}}, {{5, 0}, {7, 2}}},
      {"not a number", {{0, kNaN}, {1, 0}}, {{5, 0}, {7, 2}}},
  };
  for (const auto& c : cases) {
    Vector crossing(-1, -1);
    EXPECT_FALSE(Intersection::Calculate(c.a, c.b, crossing)) << c.what;
    EXPECT_EQ(crossing.x, -1.0) << c.what;
  }
}

}  // namespace

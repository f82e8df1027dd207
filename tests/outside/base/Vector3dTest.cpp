#include <type_traits>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Vector3d.h"

namespace {

TEST(Vector3d, IsThreeNumbersAndNothingElse) {
  EXPECT_EQ(sizeof(Vector3d), 24u);
  EXPECT_FALSE(std::is_polymorphic_v<Vector3d>);
  EXPECT_EQ(Vector3d(), Vector3d(0, 0, 0));
}

TEST(Vector3d, Arithmetic) {
  const Vector3d a(1, 2, 3), b(3, 5, 9);
  EXPECT_EQ(b - a, Vector3d(2, 3, 6));
  EXPECT_EQ(a + b, Vector3d(4, 7, 12));
  EXPECT_EQ(2.0 * -a, Vector3d(-2, -4, -6));
  EXPECT_EQ(a.GetDistance(b), 7.0);
  EXPECT_EQ(a.GetScalarProduct(b), 40.0);
  EXPECT_EQ(b.GetXY(), Vector(3, 5));
}

}  // namespace

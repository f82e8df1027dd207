#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/DataTextOutputStream.h"

namespace {

TEST(DataTextOutputStream, EveryKindOfField) {
  std::string row = "\tRow ";
  DataTextOutputStream fields(row);
  std::string text = "a \"b\"\n";
  double numbers[] = {12.5, -0.25, 0.0, kUndefined, std::numeric_limits<double>::max()};
  int whole = std::numeric_limits<int>::min();
  std::uint8_t byte = 200;
  std::int8_t small = -3;
  fields.Stream(text, "absent");
  for (double& number : numbers) fields.Stream(number, 7.0);
  fields.Stream(whole, 7);
  fields.Stream(byte);
  fields.Stream(small);
  EXPECT_EQ(row, "\tRow \"a \\\"b\\\"\\n\",12.5,-2.500000000000000e-01,0,,?,-2147483648,200,-3");
  EXPECT_EQ(text, "a \"b\"\n");
  EXPECT_EQ(whole, std::numeric_limits<int>::min());
}

}  // namespace

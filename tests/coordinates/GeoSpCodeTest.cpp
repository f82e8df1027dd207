#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/GeoSpCode.h"

namespace {

using testing::ElementsAre;

TEST(GeoSpCode, TextsAndIds) {
  constexpr struct {
    const char* text;
    int id;
  } kCases[] = {{"R", 0}, {"C", 1}, {"B", 2}, {"-1", 3}, {"CF", 4}};
  for (const auto& c : kCases) {
    GeoSpCode code(GeoSpCodeOther);
    EXPECT_TRUE(code = c.text);
    EXPECT_EQ(static_cast<GeoSpCodeId>(code), c.id);
    EXPECT_STREQ(static_cast<const char*>(code), c.text);
    EXPECT_TRUE(code == c.text);
    EXPECT_FALSE(code == "anything else");
  }
  EXPECT_THAT(GeoSpCode::GetSpCodeList(), ElementsAre("R", "C", "B", "-1", "CF"));
}

TEST(GeoSpCode, AnyOtherText) {
  for (const char* text : {"", "r", "R ", "RX", "cf"}) {
    GeoSpCode code(GeoSpCodeRadius);
    EXPECT_FALSE(code = text);
    EXPECT_EQ(static_cast<GeoSpCodeId>(code), 5);
    EXPECT_STREQ(static_cast<const char*>(code), "");
    EXPECT_TRUE(code == "no code either") << "all of them are one code";
  }
}

}  // namespace

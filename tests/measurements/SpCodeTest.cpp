#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/measurements/SpCode.h"

namespace {

TEST(SpCode, TextsInTheOrderOfTheirNumbers) {
  const std::vector<std::string> texts = SpCode::GetSpCodeList();
  EXPECT_THAT(texts, testing::ElementsAre("F2", "F3", "C2", "C3", "R2", "R3", "E", "PI", "PP", "KP",
                                          "LL", "LH", "SM", "RF", "Z+", "ZC"));
  for (int id = 0; id < 16; ++id) {
    SpCode code;
    EXPECT_TRUE(code = texts[static_cast<std::size_t>(id)].c_str());
    EXPECT_EQ(static_cast<SpCodeId>(code), id);
  }
}

TEST(SpCode, SecondSpellingAndUnknownTexts) {
  SpCode code;
  EXPECT_TRUE(code = "HL");
  EXPECT_TRUE(code == "LH");
  EXPECT_STREQ(code, "LH");
  for (const char* text : {"", "lh", "LH ", "R", "XX"}) {
    EXPECT_FALSE(code = text) << text;
    EXPECT_EQ(static_cast<SpCodeId>(code), SpCodeUnknown) << text;
    EXPECT_TRUE(code == "another");
    EXPECT_FALSE(code == "LH");
    EXPECT_STREQ(code, "");
  }
}

}  // namespace

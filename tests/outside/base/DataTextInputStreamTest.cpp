#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/DataTextInputStream.h"

namespace {

constexpr double kUnlimited = std::numeric_limits<double>::max();

constexpr struct {
  const char* what;
  const char* row;
  const char* first;
  const char* second;  // "absent" where it is blank
} kTexts[] = {
    {"plain", R"("a","b")", "a", "b"},
    {"bare", "a,b", "a", "b"},
    {"blank behind the keyword", R"( "a","b")", "a", "b"},
    {"blanks around", " \"a\" , \tb ", "a", "b "},
    {"comma and quote within", R"("a,\"",b)", "a,\"", "b"},
    {"quote within a bare text", "a\"x\",b", "a\"x\"", "b"},
    {"passed over up to the comma", R"("a"junk"more",b)", "a", "b"},
    {"blank", ",b", "absent", "b"},
    {"empty quotes", R"("","")", "", ""},
    {"missing", R"("a")", "a", "absent"},
    {"nothing", "", "absent", "absent"},
    {"never closed", R"("a,b)", "a,b", "absent"},
    {"backslash at the end", R"("a\)", "a\\", "absent"},
    {"closed by a spelled quote", R"("a\")", "a\"", "absent"},
    {"backslash in a bare text", R"(a\n,b)", R"(a\n)", "b"},
};

TEST(DataTextInputStream, TextFields) {
  for (const auto& c : kTexts) {
    DataTextInputStream fields(c.row);
    std::string first = "before";
    std::string second = "before";
    fields.Stream(first, "absent");
    fields.Stream(second, "absent");
    EXPECT_EQ(first, c.first) << c.what;
    EXPECT_EQ(second, c.second) << c.what;
  }
}

TEST(DataTextInputStream, ZeroBytesAreCharacters) {
  const std::string row("\"a\0b\",c\0d", 9);
  DataTextInputStream fields(row);
  std::string first;
  std::string second;
  fields.Stream(first);
  fields.Stream(second);
  EXPECT_EQ(first, std::string("a\0b", 3));
  EXPECT_EQ(second, std::string("c\0d", 3));
}

constexpr struct {
  const char* what;
  const char* row;
  double number;  // -1 where it is absent
  int whole;      // -1 where it is absent
} kNumbers[] = {
    {"plain", "12.5,7", 12.5, 7},
    {"blank", ",", -1.0, -1},
    {"only blanks", "  ,  ", -1.0, -1},
    {"missing", "", -1.0, -1},
    {"blanks around", " 12.5 , 7 ", 12.5, 7},
    {"foreign text behind", "12.5m,7x", 12.5, 7},
    {"foreign text alone", "abc,x", 0.0, 0},
    {"without a limit", "?,7", kUnlimited, 7},
    {"quoted", R"("12.5","7")", 12.5, 7},
    {"empty quotes", R"("","")", -1.0, -1},
    {"without a limit, quoted", R"("?","7")", kUnlimited, 7},
    {"decimal comma", "12,5", 12.0, 5},
    {"exponent", "1.25e1,1e3", 12.5, 1},
    {"beyond an int", "1e999,2147483648", std::numeric_limits<double>::infinity(), 2147483647},
};

TEST(DataTextInputStream, NumberFields) {
  for (const auto& c : kNumbers) {
    DataTextInputStream fields(c.row);
    double number = 99.0;
    int whole = 99;
    fields.Stream(number, -1.0);
    fields.Stream(whole, -1);
    EXPECT_EQ(number, c.number) << c.what;
    EXPECT_EQ(whole, c.whole) << c.what;
  }
}

template <class Integer>
Integer Read(const char* row) {
  DataTextInputStream fields(row);
  Integer value = 0;
  fields.Stream(value);
  return value;
}

TEST(DataTextInputStream, NumbersBeyondASmallTypeTakeItsNearerEnd) {
  EXPECT_EQ(Read<std::uint8_t>("256"), 255);
  EXPECT_EQ(Read<std::uint8_t>("-1"), 0);
  EXPECT_EQ(Read<std::int8_t>("-129"), -128);
  EXPECT_EQ(Read<std::uint16_t>("65536"), 65535);
  EXPECT_EQ(Read<std::uint32_t>("4294967296"), 4294967295U);
  EXPECT_EQ(Read<bool>("2"), true);
  EXPECT_EQ(Read<long long>("-9223372036854775809"), std::numeric_limits<long long>::min());
}

}  // namespace

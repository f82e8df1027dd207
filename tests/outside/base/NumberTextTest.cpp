#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/support/Random.h"

namespace {

using Limits = std::numeric_limits<double>;

constexpr int kRandomNumbers = 20000;

template <class... Arguments>
std::string Printed(const char* format, Arguments... arguments) {
  char buffer[512];
  const int length = std::snprintf(buffer, sizeof buffer, format, arguments...);
  return {buffer, static_cast<std::size_t>(length)};
}

std::string ObjectNumber(double value) {
  char buffer[kObjectNumberSize];
  return {buffer, PutObjectNumber(buffer, value)};
}

std::string ObjectNumberByPrintf(double value) {
  if (value == Limits::min()) return "";
  if (0.0 < std::fabs(value) && std::fabs(value) < 1.0) return Printed("%.15e", value);
  return value == Limits::max() ? "?" : Printed("%.15g", value);
}

// Of all sizes and kinds, as `strtod` reads them.
constexpr const char* kEdgeNumbers =
    "0 -0 0.5 1 -1 0.25 0.3333333333333333 0.1 9.5 0.00005 0.00015 1234.56785 999999.99995 "
    "6783172.777 -123.5 1e15 1e16 1e100 1e-5 0.0001 1e22 1e23 5e-324 2.2250738585072014e-308 "
    "-2.2250738585072014e-308 1.7976931348623157e308 -1.7976931348623157e308 0.9999999999999999 "
    "1.7976931348623155e308 inf -inf nan -nan 123456789012345 1234567890123456 99999999999999.95";

std::vector<std::string> Words(const std::string& text, char separator) {
  std::vector<std::string> words;
  std::istringstream in(text);
  for (std::string word; std::getline(in, word, separator);) words.push_back(word);
  return words;
}

// Of all sizes, and of the sizes that coordinates have.
double RandomNumber(PrintedRandom& random) {
  if (random.Below(2) == 0) return random.AnyDouble();
  return static_cast<double>(static_cast<std::int64_t>(random.Bits())) * std::pow(2.0, -40);
}

void ExpectAsPrintf(double value) {
  EXPECT_EQ(ObjectNumber(value), ObjectNumberByPrintf(value)) << Printed("%a", value);
  EXPECT_EQ(ScientificText(value), Printed("%.15e", value)) << Printed("%a", value);
  EXPECT_EQ(GeneralText(value, 15), Printed("%.15g", value)) << Printed("%a", value);
  EXPECT_EQ(GeneralText(value, 17), Printed("%.17g", value)) << Printed("%a", value);
  EXPECT_EQ(FixedText(value, 4), Printed("%.4f", value)) << Printed("%a", value);
}

TEST(NumberText, WritesTheBytesOfPrintf) {
  for (const std::string& word : Words(kEdgeNumbers, ' '))
    ExpectAsPrintf(std::strtod(word.c_str(), nullptr));
  PrintedRandom random(20240611);
  for (int i = 0; i < kRandomNumbers && !testing::Test::HasFailure(); ++i) {
    ExpectAsPrintf(RandomNumber(random));
  }
}

TEST(NumberText, DecimalsAndDigitsBeyondTheirRangeCountAsTheNearerEnd) {
  EXPECT_EQ(FixedText(2.5, -1), "2");
  EXPECT_EQ(FixedText(-Limits::max(), 1000), Printed("%.20f", -Limits::max()));
  EXPECT_EQ(GeneralText(123.0, 0), "1e+02");
  EXPECT_EQ(GeneralText(-1.0 / 3.0, 1000), Printed("%.17g", -1.0 / 3.0));
}

TEST(NumberText, Integers) {
  for (const long long value : {0LL, -1LL, 42LL, std::numeric_limits<long long>::min(),
                                std::numeric_limits<long long>::max()}) {
    char buffer[20];
    EXPECT_EQ(std::string(buffer, PutInteger(buffer, value)), Printed("%lld", value));
  }
}

// Any NaN stands for every other.
void ExpectAsStrtod(const std::string& text) {
  char* end = nullptr;
  const double expected = std::strtod(text.c_str(), &end);
  std::string_view rest = text;
  const double parsed = TakeDouble(rest);
  if (std::isnan(expected)) {
    EXPECT_TRUE(std::isnan(parsed)) << '"' << text << '"';
  } else {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(parsed), std::bit_cast<std::uint64_t>(expected))
        << '"' << text << "\" gives " << parsed << ", strtod " << expected;
  }
  if (end == text.c_str()) return;  // without a number white space may be gone
  EXPECT_EQ(text.size() - rest.size(), static_cast<std::size_t>(end - text.c_str()))
      << '"' << text << '"';
}

TEST(NumberText, ReadsAsStrtod) {
  const std::string texts =
      "| |0|-0|+0|1| \t\n\v\f\r12.5|-12.5abc|+7|+-7|-+7|--7|- 7|.5|-.5|5.|.|-.|1e5|1E+5|1e-5|"
      "1e|1e+|1e5.5|1.2.3|1,5|1 2|00012|0.1|9007199254740993|179769313486231580793e289|"
      "1.7976931348623158e308|1.7976931348623159e308|1e308|1e309|-1e309|1e99999|"
      "4.9406564584124654e-324|2.4703282292062328e-324|2.4703282292062327e-324|1e-400|-1e-400|"
      "1e-99999|2.2250738585072011e-308|2.2250738585072014e-308|0e99999|1e99999999999999999999|"
      "1e-99999999999999999999|inf|-INF|+Inf|infinity|-InFiNiTy|infinit|in|nan|-NAN|nan(|nan()|"
      "nan(12ab_)|nan(1-2)|nanx|na|0x10|0X1p4|-0x1.8p1|0x.8|0x8.|0x|0xg|0x.|0x.p1|0x-1|0x+1|"
      "0xinf|0xnan|0xp1|0x1p|0x1p+|0x1p99999|-0x1p99999|0x1p-99999|0x1.fffffffffffff8p1023|"
      "0x1.fffffffffffff7p1023|0x0.8p-1074|0x0.80000000000001p-1074|0x1p-1074|-0x|x10|1x10|e5|"
      "E5|$5|?";
  for (const std::string& text : Words(texts, '|')) ExpectAsStrtod(text);
  ExpectAsStrtod(std::string(5000, '9') + "e-4990");
  ExpectAsStrtod("0." + std::string(5000, '0') + "1e5000");
}

TEST(NumberText, ReadsRandomTextAsStrtod) {
  PrintedRandom random(20240612);
  for (int i = 0; i < kRandomNumbers && !testing::Test::HasFailure(); ++i) {
    ExpectAsStrtod(random.Text(24, "0123456789012345678900..--++eExXpPaAfFiInN(_), "));
    ExpectAsStrtod(Printed("%.17g", random.AnyDouble()));
    ExpectAsStrtod(Printed("%a", random.AnyDouble()) + random.Text(3, "0x.,e"));
  }
}

TEST(NumberText, StopsAtTheEndOfTheText) {
  EXPECT_EQ(ParseDouble(std::string_view("12345", 3)), 123.0);
  EXPECT_EQ(ParseDouble(std::string_view("0x1F", 3)), 1.0);
  EXPECT_EQ(ParseDouble(std::string_view("1e308", 4)), 1e30);
  EXPECT_EQ(ParseDouble(std::string_view("1\0002", 3)), 1.0);
  EXPECT_EQ(ParseInt(std::string_view("12345", 3)), 123);
}

constexpr struct {
  const char* text;
  long long expected;  // within -1000 to 1000
} kIntegers[] = {{"", 0},
                 {" \t42", 42},
                 {"-7", -7},
                 {"+5", 5},
                 {"+-5", 0},
                 {"-+5", 0},
                 {"--5", 0},
                 {"-", 0},
                 {"+", 0},
                 {"007", 7},
                 {"12abc", 12},
                 {"12.9", 12},
                 {"1e2", 1},
                 {"0x10", 0},
                 {"x", 0},
                 {"1000", 1000},
                 {"1001", 1000},
                 {"-1001", -1000},
                 {"99999999999999999999", 1000},
                 {"+99999999999999999999", 1000},
                 {"-99999999999999999999", -1000}};

TEST(NumberText, ReadsIntegersWithinARange) {
  for (const auto& c : kIntegers)
    EXPECT_EQ(ParseInteger(c.text, -1000, 1000), c.expected) << c.text;
  EXPECT_EQ(ParseInteger("none", 5, 10), 5);
  EXPECT_EQ(ParseInt("2147483648"), std::numeric_limits<int>::max());
  EXPECT_EQ(ParseInt("-2147483649"), std::numeric_limits<int>::min());
}

}  // namespace

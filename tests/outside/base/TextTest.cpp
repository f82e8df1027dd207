#include <string>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Text.h"
#include "tests/support/Random.h"

namespace {

TEST(Text, TrimsWhiteSpaceAtItsEnds) {
  EXPECT_EQ(Trim(" \t\r\n\v\fa b\xa0 \n"), "a b\xa0");
  EXPECT_EQ(TrimLeft("  a "), "a ");
  EXPECT_EQ(TrimRight("  a "), "  a");
  EXPECT_EQ(TrimBlanksRight("a\t  "), "a\t");
  EXPECT_EQ(Trim(" \n "), "");
}

TEST(Text, CaseOfTheLettersAToZOnly) {
  EXPECT_TRUE(EqualNoCase("FileHEADER_[1]", "fileheader_[1]"));
  EXPECT_FALSE(EqualNoCase("[", "{"));
  EXPECT_FALSE(EqualNoCase("a", "ab"));
  EXPECT_FALSE(EqualNoCase("\xc4", "\xe4"));
}

TEST(Text, OnlyTheFirstCommaBecomesAPoint) {
  EXPECT_EQ(FirstCommaToPoint("1,5,2"), "1.5,2");
  EXPECT_EQ(FirstCommaToPoint("1.5"), "1.5");
}

const struct {
  const char* what;
  std::string narrow;
  std::wstring wide;
} kWideTexts[] = {
    {"nothing", "", L""},
    {"zero byte", std::string(1, '\0'), std::wstring(1, L'\0')},
    {"one to four bytes", "A\xc3\xb6\xe2\x82\xac\xf0\x9f\x98\x80", L"A\u00f6\u20ac\U0001F600"},
    {"first and last of each length",
     "\x7f\xc2\x80\xdf\xbf\xe0\xa0\x80\xef\xbf\xbf\xf4\x8f\xbf\xbf",
     L"\x7f\x80\u07ff\u0800\xffff\U0010FFFF"},
    {"8-bit text", "Gr\xe4nd", L"Gr\xdce4nd"},
    {"too long a form", "\xc0\x80\xe0\x9f\xbf", L"\xdcc0\xdc80\xdce0\xdc9f\xdcbf"},
    {"surrogate", "\xed\xb2\x80", L"\xdced\xdcb2\xdc80"},
    {"beyond the last", "\xf4\x90\x80\x80\xf8", L"\xdcf4\xdc90\xdc80\xdc80\xdcf8"},
    {"cut off", "a\xe2\x82", L"a\xdce2\xdc82"},
};

TEST(Text, WidensUtf8AndCarriesOtherBytes) {
  for (const auto& c : kWideTexts) {
    EXPECT_EQ(Widen(c.narrow), c.wide) << c.what;
    EXPECT_EQ(Narrow(c.wide), c.narrow) << c.what;
  }
  EXPECT_EQ(Narrow(std::wstring(1, static_cast<wchar_t>(0x110000))), "\xef\xbf\xbd");
}

TEST(Text, AnyBytesComeBackFromWideText) {
  PrintedRandom random(20240614);
  const std::string odd = "a\x80\xbf\xc0\xc3\xe0\xed\xef\xa0\x9f\xf0\xf4\x8f\x90\xff";
  for (int i = 0; i < 20000; ++i) {
    for (const std::string& bytes : {random.Bytes(12), random.Text(12, odd)}) {
      ASSERT_EQ(Narrow(Widen(bytes)), bytes);
    }
  }
}

}  // namespace

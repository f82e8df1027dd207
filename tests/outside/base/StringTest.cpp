#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/DataTextInputStream.h"
#include "korvelfile/outside/base/String.h"
#include "tests/support/Random.h"

namespace {

constexpr struct {
  const char* plain;
  const char* quoted;
} kQuotes[] = {
    {"", "\"\""},
    {"oak, 2 m", "\"oak, 2 m\""},
    {"Gr\xe4nd\x01'", "\"Gr\xe4nd\x01'\""},
    {"\n\r\t\\\"", R"("\n\r\t\\\"")"},
    {R"(C:\new)", R"("C:\\new")"},
};

TEST(String, QuotesAndUnquotes) {
  for (const auto& c : kQuotes) {
    const std::string quoted = String::QuoteString(c.plain);
    EXPECT_EQ(quoted, c.quoted);
    EXPECT_EQ(String::Unquote(quoted.substr(1, quoted.size() - 2)), c.plain);
    EXPECT_EQ(String::NeedsQuoting(c.plain), quoted.size() != std::string(c.plain).size() + 2);
  }
}

TEST(String, ABackslashBeforeAnythingElseStandsForItself) {
  EXPECT_EQ(String::Unquote(R"(a\b\)"), R"(a\b\)");
  EXPECT_EQ(String::Unquote(R"(\\n)"), R"(\n)");
}

TEST(String, AnyBytesComeBackFromAQuotedField) {
  PrintedRandom random(20240615);
  for (int i = 0; i < 20000; ++i) {
    for (const std::string& text : {random.Bytes(16), random.Text(16, "\n\r\t\\\"nrt,a ")}) {
      std::string row = "1,";
      String::AppendQuoted(row, text);
      row += ",2";
      DataTextInputStream fields(row);
      int before = 0;
      int behind = 0;
      std::string read;
      fields.Stream(before);
      fields.Stream(read);
      fields.Stream(behind);
      ASSERT_EQ(read, text) << row;
      ASSERT_EQ(behind, 2) << row;
    }
  }
}

TEST(String, FormatsTextOfAnyLength) {
  EXPECT_EQ(SF::dformat("%-3s|%05.1f|%i", "a", 2.25, -1), "a  |002.2|-1");
  const std::string longText(100000, 'x');
  EXPECT_EQ(SF::dformat("%s", longText.c_str()), longText);
  EXPECT_EQ(SF::dformat("%c", '\0'), std::string(1, '\0'));
}

TEST(String, RefusedFormatThrows) {
  const wchar_t noCharacter[] = {static_cast<wchar_t>(0x7fffffff), 0};
  EXPECT_THROW(SF::dformat("%ls", noCharacter), std::invalid_argument);
}

}  // namespace

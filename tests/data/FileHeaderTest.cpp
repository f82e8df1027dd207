#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/ObjectText.h"
#include "tests/support/Surroundings.h"

namespace {

TEST(FileHeader, VersionsAsText) {
  const struct {
    const char* text;
    int version;
  } kCases[] = {{"V2.01", 0x00020001},
                {"v1.03", 0x00010003},
                {"v1.3", 0x0001001E},
                {"v0.01", 0x00000001},
                {"v1.005", 0x00010001},
                {"v1.004", 0x00010000},
                {"v 2.01", 0x00020001},
                {"v2.01beta", 0x00020001},
                {"v", 0},
                {"v-1.5", 0},
                {"vnan", 0},
                {"v1e300", 0x7FFFFFFF},
                {"v32767.01", 0x7FFF0001},
                {"", -1},
                {"s 2.01", -1}};
  for (const auto& c : kCases) {
    CaughtMessages caught;
    FileHeader header("old", 0x00010000);
    const std::string row = "FileHeader \"kvt object text " + std::string(c.text) + "\",\"type\"";
    ASSERT_TRUE(ReadObjectRow(row, "FileHeader", &header, 0));
    EXPECT_EQ(header.IsValid(), c.version > 0) << c.text;
    EXPECT_EQ(header.GetFileType(), "type");
    EXPECT_EQ(c.version < 0 ? c.version : header.GetVersion(), c.version) << c.text;
    const std::vector<std::string> messages{"No valid version in file!"};
    EXPECT_EQ(caught.Take(), c.version < 0 ? messages : std::vector<std::string>()) << c.text;
  }
}

}  // namespace

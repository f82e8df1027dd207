#include <cfloat>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/AttributeRows.h"
#include "korvelfile/data/FileHeaderRows.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/outside/base/DataStream.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

// One field of each kind.
struct Row : Streamable {
  std::string text = "unread";
  double number = 1.0;
  int whole = 1;
  int version = 0;

  int GetVersion() const override { return 0; }
  void Stream(DataStream& stream, int fileVersion) override {
    version = fileVersion;
    stream.Stream(text);
    stream.Stream(number);
    stream.Stream(whole);
  }
};

TEST(ObjectText, GoldenFileReadsAndWritesByteForByte) {
  SetGoldenIdentity();
  const std::string golden = KORVELFILE_GOLDEN "/object-text/header.txt";
  const TempFolder folder;
  GeoFile file;
  DataItemListObject list;
  int version = 0;
  ASSERT_EQ(_FileIO::OpenFile(file, golden, _FileIO::kRead, true), 0);
  GeoFileTextInputStream in(file);
  ASSERT_TRUE(ReadFileHeader(in, &list, version));
  ASSERT_TRUE(ReadAttributeList(in, &list, version));
  EXPECT_FALSE(in.HasMore());
  EXPECT_EQ(GeoAttrib::GetAttribute(&list, "Folder")->Value, "C:\\jobs\\\"east\"");

  const std::string path = folder.Path("written");
  ASSERT_EQ(_FileIO::OpenFile(file, path, _FileIO::kReplace, false), 0);
  EXPECT_TRUE(WriteFileHeader(file, &list, version));
  EXPECT_TRUE(WriteAttributeList(file, &list, version, 0));
  ASSERT_EQ(_FileIO::CloseFile(file), 0);
  std::string bytes = ReadBytes(path);
  EXPECT_EQ(bytes, ReadBytes(golden));
  std::erase(bytes, '\r');
  EXPECT_THAT(ReadBytes(KORVELFILE_SOURCE "/docs/formats/object-text.md"),
              testing::HasSubstr("```\n" + bytes + "```\n"));
}

TEST(ObjectText, IndentTable) {
  for (int depth = 0; depth <= kDeepestIndent; ++depth) {
    EXPECT_EQ(gszIndent[depth], std::string(static_cast<std::size_t>(depth), '\t'));
  }
  std::string out = "x";
  AppendIndent(out, kDeepestIndent + 3);
  EXPECT_EQ(out, "x" + std::string(15, '\t'));
}

TEST(ObjectText, WritesRows) {
  Row row;
  row.text = "a,b";
  row.whole = -7;
  const struct {
    double number;
    const char* text;
  } kNumbers[] = {{0.0, "0"},
                  {12.5, "12.5"},
                  {0.5, "5.000000000000000e-01"},
                  {-0.25, "-2.500000000000000e-01"},
                  {1.0, "1"},
                  {6543210.987654321, "6543210.98765432"},
                  {DBL_MIN, ""},
                  {DBL_MAX, "?"}};
  std::string out = "replaced";
  for (const auto& n : kNumbers) {
    row.number = n.number;
    WriteObjectRow(2, out, "Row", &row, 5);
    EXPECT_EQ(out, "\t\tRow \"a,b\"," + std::string(n.text) + ",-7\r\n");
    EXPECT_EQ(row.version, 5);
  }
}

TEST(ObjectText, ReadsRows) {
  const struct {
    const char* line;
    const char* text;
    double number;
    int whole;
  } kCases[] = {
      {"Row \"a\",2.5,3", "a", 2.5, 3},
      {"ROW \"a\",2.5,3", "a", 2.5, 3},
      {"Row", "", DBL_MIN, 0},
      {"Row ", "", DBL_MIN, 0},
      {"Row ,,", "", DBL_MIN, 0},
      {"Row \"a,\\\"b\\\"\\n\",?,-2", "a,\"b\"\n", DBL_MAX, -2},
      {"Row bare,2.5e3x,99999999999", "bare", 2500.0, 2147483647},
      {"Row \"open", "open", DBL_MIN, 0},
  };
  for (const auto& c : kCases) {
    Row row;
    ASSERT_TRUE(ReadObjectRow(c.line, "Row", &row, 6)) << c.line;
    EXPECT_EQ(row.text, c.text) << c.line;
    EXPECT_EQ(row.number, c.number) << c.line;
    EXPECT_EQ(row.whole, c.whole) << c.line;
    EXPECT_EQ(row.version, 6);
  }
  for (const char* line : {"Rows \"a\"", "Row2", "Row\t\"a\"", "Row,\"a\"", "Ro", "", " Row"}) {
    Row row;
    EXPECT_FALSE(ReadObjectRow(line, "Row", &row, 6)) << line;
    EXPECT_EQ(row.text, "unread") << line;
  }
}

// Numbers of a row reach their ends without wrapping.
TEST(ObjectText, IntegersOutOfRangeTakeTheNearerEnd) {
  GeoAttribType type;
  ASSERT_TRUE(ReadObjectRow("T \"\",\"\",256,-1,\"\",\"\",\"\",\"\",-5,1e3,7x,-99999999999,255",
                            "T", &type, 0x00010003));
  EXPECT_EQ(type.Flag1, 255);
  EXPECT_EQ(type.Number1, 0);
  EXPECT_EQ(type.Flag2, 0);
  EXPECT_EQ(type.Flag3, 1) << "a whole number ends at a foreign character";
  EXPECT_EQ(type.Flag4, 7);
  EXPECT_EQ(type.Number2, -2147483647 - 1);
  EXPECT_EQ(type.Flag5, 255);
}

}  // namespace

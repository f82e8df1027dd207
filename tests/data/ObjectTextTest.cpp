#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/AttributeRows.h"
#include "korvelfile/data/FileHeaderRows.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "tests/support/Files.h"
#include "tests/support/Golden.h"
#include "tests/support/Surroundings.h"

namespace {

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
  EXPECT_EQ(ReadBytes(path), ReadBytes(golden));
  ExpectOnPage("object-text.md", ReadBytes(golden));
}

// Rows of texts and of bytes and whole numbers; these reach their ends without wrapping.
TEST(ObjectText, OddRows) {
  const struct {
    const char *line, *written;
  } kCases[] = {{"ROW \"a,\\\"b\\\"\\n\"",
                 "Row \"a,\\\"b\\\"\\n\",\"\",0,0,\"\",\"\",\"\",\"\",0,0,0,0,0\r\n"},
                {"Row", "Row \"\",\"\",0,0,\"\",\"\",\"\",\"\",0,0,0,0,0\r\n"},
                {"Row \"open,", "Row \"open,\",\"\",0,0,\"\",\"\",\"\",\"\",0,0,0,0,0\r\n"},
                {"Row bare,,256,-1,,,,,-5,1e3,7x,-99999999999,255",
                 "Row \"bare\",\"\",255,0,\"\",\"\",\"\",\"\",0,1,7,-2147483648,255\r\n"}};
  for (const auto& c : kCases) {
    GeoAttribType row;
    std::string written;
    ASSERT_TRUE(ReadObjectRow(c.line, "Row", &row, 0x00010003)) << c.line;
    WriteObjectRow(0, written, "Row", &row, 0x00010003);
    EXPECT_EQ(written, c.written);
  }
  for (const char* line : {"Rows \"a\"", "Row2", "Row\t\"a\"", "Row,\"a\"", "Ro", "", " Row"}) {
    GeoAttribType row;
    EXPECT_FALSE(ReadObjectRow(line, "Row", &row, 0x00010003)) << line;
  }
}

}  // namespace

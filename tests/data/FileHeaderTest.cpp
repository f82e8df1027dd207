#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/FileHeaderFields.h"
#include "korvelfile/data/FileHeaderRows.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string RowOf(FileHeader& header) {
  std::string row;
  WriteObjectRow(0, row, "FileHeader", &header, 0);
  return row;
}

std::vector<std::string> InfosOf(const DataItemListObject& header) {
  std::vector<std::string> infos;
  for (const DataItemInterface& item : header) {
    if (const auto* info = dynamic_cast<const FileInfo*>(&item)) {
      infos.push_back(info->GetName() + "=" + info->GetValue());
    }
  }
  return infos;
}

class FileHeaderTest : public testing::Test {
 protected:
  FileHeaderTest() { SetGoldenIdentity(); }

  bool Read(const std::string& text, DataItemListObject& list, int& version) {
    WriteBytes(path_, text);
    GeoFile file;
    EXPECT_EQ(_FileIO::OpenFile(file, path_, _FileIO::kRead, true), 0);
    GeoFileTextInputStream in(file);
    return ReadFileHeader(in, &list, version);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("header");
  CaughtMessages messages_;
};

TEST_F(FileHeaderTest, VersionsAsText) {
  const struct {
    const char* text;
    int version;
  } kCases[] = {{"2.01", 0x00020001},
                {"1.03", 0x00010003},
                {"1.3", 0x0001001E},
                {"2", 0x00020000},
                {"1.99", 0x00010063},
                {"0.01", 0x00000001},
                {"1.005", 0x00010001},
                {"1.004", 0x00010000},
                {"1.999", 0x00010064},
                {" 2.01", 0x00020001},
                {"2.01beta", 0x00020001},
                {"", 0},
                {"x", 0},
                {"-1.5", 0},
                {"nan", 0},
                {"1e300", 0x7FFFFFFF},
                {"32768", 0x7FFFFFFF},
                {"32767.01", 0x7FFF0001}};
  for (const auto& c : kCases) {
    FileHeader header;
    const std::string row = "FileHeader \"kvt object text V" + std::string(c.text) + "\",\"type\"";
    ASSERT_TRUE(ReadObjectRow(row, "FileHeader", &header, 0));
    EXPECT_EQ(header.GetVersion(), c.version) << c.text;
    EXPECT_EQ(header.IsValid(), c.version > 0) << c.text;
    EXPECT_EQ(header.GetFileType(), "type");
  }
  EXPECT_THAT(messages_.Take(), IsEmpty());
  FileHeader header("type", 0x00010003);
  EXPECT_EQ(RowOf(header), "FileHeader \"KVT Object Text v1.03\",\"type\"\r\n");
  header.SetFileVersion(0x000C0064);
  EXPECT_EQ(RowOf(header), "FileHeader \"KVT Object Text v12.100\",\"type\"\r\n");
}

TEST_F(FileHeaderTest, MissingVersionsAreTold) {
  for (const char* magic : {"KVT Object Text ", "KVT Object Texts 2.01", "2.01", ""}) {
    FileHeader header("old", 0x00010000);
    ASSERT_TRUE(ReadObjectRow("FileHeader \"" + std::string(magic) + "\",\"new\"", "FileHeader",
                              &header, 0));
    EXPECT_FALSE(header.IsValid()) << magic;
    EXPECT_EQ(header.GetFileType(), "new");
    EXPECT_THAT(messages_.Take(), ElementsAre("No valid version in file!")) << magic;
  }
  FileHeader unset;
  EXPECT_EQ(RowOf(unset), "FileHeader \"KVT Object Text v0.00\",\"\"\r\n");
  EXPECT_THAT(messages_.Take(), ElementsAre("File version must be set before streaming!"));
}

TEST_F(FileHeaderTest, Infos) {
  FileHeader header("type", 0x00020001);
  EXPECT_THAT(InfosOf(header), ElementsAre("Application=Golden version 1.0", "SerialNo=4711",
                                           "Author=Surveyor", "Company=Company", "Description="));
  header.SetInfo(FileHeaderFields::szFileInfoCoordinateSystem, "local");
  header.SetDescription("bridge");
  header.SetInfo("Author", "me");
  EXPECT_THAT(InfosOf(header),
              ElementsAre("Application=Golden version 1.0", "SerialNo=4711", "Author=me",
                          "Company=Company", "Description=bridge", "Coordinate System=local"))
      << "changed in place, new ones at the end";
  std::string value = "unchanged";
  EXPECT_FALSE(header.GetInfo("description", value));
  EXPECT_EQ(value, "unchanged");
  EXPECT_TRUE(header.GetInfo("Description", value));
  EXPECT_EQ(value, "bridge");
  EXPECT_EQ(header.GetInfo("none"), "");
  EXPECT_EQ(header.FindInfo("none"), nullptr);

  FileHeader copy(header);
  copy.SetInfo("Author", "you");
  EXPECT_EQ(header.GetInfo("Author"), "me");
  header = copy;
  EXPECT_EQ(header.GetInfo("Author"), "you");
  EXPECT_EQ(header.GetVersion(), 0x00020001);
}

TEST_F(FileHeaderTest, WritingStampsIdentityAndVersion) {
  DataItemListObject list;
  list.InsertItem(new GeoAttribList, -1);
  auto* header = new FileHeader;
  header->SetFileType("type");
  header->SetInfo("Company", "former");
  header->SetInfo("Say", "\"x\"");
  header->InsertItem(new GeoAttribList, -1);
  list.InsertItem(header, -1);
  list.InsertItem(new FileHeader("second", 1), -1);
  GeoFile file;
  ASSERT_EQ(_FileIO::OpenFile(file, path_, _FileIO::kReplace, false), 0);
  EXPECT_TRUE(WriteFileHeader(file, &list, 0x00010003));
  ASSERT_EQ(_FileIO::CloseFile(file), 0);
  EXPECT_EQ(ReadBytes(path_),
            "FileHeader \"KVT Object Text v1.03\",\"type\"\r\n"
            "begin\r\n"
            "\tFileInfo \"Company\",\"Company\"\r\n"
            "\tFileInfo \"Say\",\"\\\"x\\\"\"\r\n"
            "\tFileInfo \"Application\",\"Golden version 1.0\"\r\n"
            "\tFileInfo \"SerialNo\",\"4711\"\r\n"
            "\tFileInfo \"Author\",\"Surveyor\"\r\n"
            "end\r\n");
  DataItemListObject none;
  GeoFile other;
  ASSERT_EQ(_FileIO::OpenFile(other, folder_.Path("other"), _FileIO::kReplace, false), 0);
  EXPECT_FALSE(WriteFileHeader(other, &none, 0x00010003));
}

TEST_F(FileHeaderTest, ReadsTheBlock) {
  const struct {
    const char* text;
    bool result;
    int version;
    int infos;
    bool isCutOff = false;
  } kCases[] = {
      {"FILEHEADER \"KVT Object Text v1.03\"\nbegin\n\tfileinfo \"a\",\"b\"\nend\nrest\n", true,
       0x00010003, 1},
      {"FileHeader\nbegin\nend\n", true, 0, 0},
      {"FileHeader \"KVT Object Text v1.03\"\nbegin\nFileInfo \"a\"\nFileInfo \"a\"\n", true,
       0x00010003, 2, true},
      {"FileHeader \"KVT Object Text v1.03\"\nbegin", true, 0x00010003, 0, true},
      {"FileHeader \"KVT Object Text v1.03\"\n", false, -1, 0},
      {"FileHeader \"KVT Object Text v1.03\"\nBegin\nend\n", false, -1, 0},
      {"FileHeader \"KVT Object Text v1.03\"\nbegin\nFileInfo \"a\"\nFileInfos\nend\n", false, -1,
       1},
      {"FileHeaderX \"KVT Object Text v1.03\"\nbegin\nend\n", false, -1, -1},
      {"", false, -1, -1},
  };
  for (const auto& c : kCases) {
    DataItemListObject list;
    int version = -1;
    messages_.Take();
    EXPECT_EQ(Read(c.text, list, version), c.result) << c.text;
    EXPECT_EQ(version, c.version) << c.text;
    const auto* header = FindFirst<FileHeader>(list);
    EXPECT_EQ(header ? static_cast<int>(header->size()) : -1, c.infos) << c.text;
    const auto cutOff = Contains(HasSubstr("cut off"));
    EXPECT_EQ(testing::Matches(cutOff)(messages_.Take()), c.isCutOff) << c.text;
  }
}

}  // namespace

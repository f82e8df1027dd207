#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/AttributeFile.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "tests/support/Files.h"
#include "tests/support/Random.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kFailure = -9;
constexpr const char* kInvalid = "Invalid Atr-file format";

const std::string& Golden() {
  static const std::string bytes = ReadBytes(KORVELFILE_GOLDEN "/atr/job.atr");
  return bytes;
}

class AttributeFileTest : public testing::Test {
 protected:
  AttributeFileTest() {
    SetGoldenIdentity();
    file_.ChooseFile(path_.c_str());
  }

  int Read(const std::string& bytes) {
    WriteBytes(path_, bytes);
    return file_.UseCollector();
  }

  std::string Written() {
    EXPECT_EQ(file_.AutoSave(), 0);
    return ReadBytes(path_);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("job.atr");
  CaughtMessages messages_;
  AttributeFile file_;
};

TEST_F(AttributeFileTest, GoldenFileReadsAndWritesByteForByte) {
  ASSERT_EQ(Read(Golden()), 0);
  EXPECT_THAT(messages_.Take(), IsEmpty());
  ASSERT_EQ(file_.GetNumberOfItems(), 3);
  GeoAttribContext* context = file_.GetAttribContext("POINT");
  ASSERT_TRUE(context);
  EXPECT_EQ(context->Text2, "all points");
  const GeoAttribType* type = file_.GetAttribType(context, "species");
  ASSERT_TRUE(type);
  EXPECT_EQ(type->Text2, "kind of tree");
  EXPECT_EQ(type->Number1, 12);
  EXPECT_EQ(type->GetTokenByIndex(2), "\"other\"");
  EXPECT_EQ(type->Flag3, 1);
  EXPECT_EQ(type->Number2, -5);
  EXPECT_EQ(type->Flag5, 255);
  EXPECT_EQ(file_.GetAttribType(context, "Line"), nullptr);
  EXPECT_EQ(file_.GetAttribType(nullptr, "species"), nullptr);
  EXPECT_EQ(file_.GetAttribContext("species"), nullptr);
  EXPECT_EQ(Written(), Golden());
}

TEST_F(AttributeFileTest, PageOfTheFormatShowsTheGoldenFile) {
  std::string golden = Golden();
  std::erase(golden, '\r');
  EXPECT_THAT(ReadBytes(KORVELFILE_SOURCE "/docs/formats/atr.md"),
              HasSubstr("```\n" + golden + "```\n"));
}

TEST_F(AttributeFileTest, NewFile) {
  EXPECT_EQ(file_.InitCollector(), 0);
  EXPECT_EQ(ReadBytes(path_),
            "FileHeader \"KVT Object Text v1.03\",\"Tarn Attribute Definition Document\"\r\n"
            "begin\r\n"
            "\tFileInfo \"Application\",\"Golden version 1.0\"\r\n"
            "\tFileInfo \"SerialNo\",\"4711\"\r\n"
            "\tFileInfo \"Author\",\"Surveyor\"\r\n"
            "\tFileInfo \"Company\",\"Company\"\r\n"
            "\tFileInfo \"Description\",\"\"\r\n"
            "end\r\n"
            "GeoAttribContextList \r\n");
  ASSERT_EQ(file_.UseCollector(), 0);
  EXPECT_EQ(file_.GetNumberOfItems(), 1);
  auto* context = new GeoAttribContext;
  context->Name = "made";
  context->InsertItem(new GeoAttribType, -1);
  file_.InsertItem(context, -1);
  file_.FlagDirty();
  EXPECT_EQ(file_.UnUseCollector(), 0);
  EXPECT_THAT(ReadBytes(path_),
              HasSubstr("begin\r\n\tGeoAttribContext \"made\",\"\"\r\n\tbegin\r\n"
                        "\t\tGeoAttribType \"\",\"\",0,0,\"\",\"\",\"\",\"\",0,0,0,0,0\r\n"
                        "\tend\r\nend\r\n"));
}

TEST_F(AttributeFileTest, OldRowsLackTheLastFields) {
  const std::string row = "GeoAttribType \"t\",\"\",1,2,\"\",\"\",\"\",\"\",3,4,5,6,7";
  const struct {
    const char* magic;
    const char* written;
  } kCases[] = {{"KVT Object Text v1.01", ",3,0,0,0,0\r\n"},
                {"no version", ",3,0,0,0,0\r\n"},
                {"KVT Object Text v1.02", ",3,4,5,6,7\r\n"}};
  for (const auto& c : kCases) {
    ASSERT_EQ(Read("FileHeader \"" + std::string(c.magic) +
                   "\"\nbegin\nend\nGeoAttribContextList\nbegin\nGeoAttribContext\nbegin\n" + row +
                   "\nend\nend\n"),
              0)
        << c.magic;
    EXPECT_THAT(Written(), HasSubstr(c.written)) << c.magic;
    file_.UnUseCollector();
  }
}

TEST_F(AttributeFileTest, Refused) {
  const std::string head = "FileHeader \"KVT Object Text v1.03\"\nbegin\nend\n";
  const struct {
    const char* what;
    std::string bytes;
    int line;
  } kCases[] = {
      {"empty", "", 0},
      {"newer", "FileHeader \"KVT Object Text v1.04\"\nbegin\nend\nGeoAttribContextList\n", 4},
      {"no list", head + "GeoAttribContext\n", 4},
      {"no list at all", head, 3},
      {"foreign context", head + "GeoAttribContextList\nbegin\nGeoAttribType\nend\n", 6},
      {"foreign type",
       head + "GeoAttribContextList\nbegin\nGeoAttribContext\nbegin\nGeoAttribContext\n", 8},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Read(c.bytes), kFailure) << c.what;
    EXPECT_THAT(messages_.Take(), ElementsAre(kInvalid)) << c.what;
    EXPECT_EQ(file_.GetFaultLine(), c.line) << c.what;
  }
  EXPECT_EQ(Read(Golden()), 0) << "what came before is forgotten";
  EXPECT_EQ(Written(), Golden());
}

TEST_F(AttributeFileTest, FilesThatCannotBeOpenedOrWritten) {
  EXPECT_EQ(file_.UseCollector(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("can't open pxy-file!", path_));
  const std::string nowhere = folder_.Path("none/job.atr");
  file_.ChooseFile(nowhere.c_str());
  EXPECT_STREQ(file_.GetFileName(), "job.atr");
  EXPECT_STREQ(file_.GetFilePath(), nowhere.c_str());
  file_.InitAndUseCollectorWithoutFuckingDisk();
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("can't create atr-file!", nowhere));
  file_.UnUseCollector();

  file_.ChooseFile(path_.c_str());
  ASSERT_EQ(Read(Golden()), 0);
  file_.DeleteItem(FindFirst<FileHeader>(file_));
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("File Header missing: ", path_));
  EXPECT_EQ(ReadBytes(path_), Golden()) << "the last good copy stays";
  file_.ChooseFile(nullptr);
  EXPECT_STREQ(file_.GetFileName(), "nofile.atr");
  EXPECT_STREQ(file_.GetFilePath(), "nofile.atr");
}

TEST_F(AttributeFileTest, CutOffFilesEndTheirBlocks) {
  const std::size_t listEnd = Golden().find("ContextList") + std::string("ContextList").size();
  for (std::size_t size = 0; size < Golden().size(); size += 3) {
    const int result = Read(Golden().substr(0, size));
    ASSERT_TRUE(result == kFailure || (result == 0 && size >= listEnd)) << size;
    file_.UnUseCollector();
  }
  messages_.Take();
  ASSERT_EQ(Read(Golden().substr(0, Golden().find("\t\tGeoAttribType \"COLOR"))), 0);
  EXPECT_THAT(messages_.Take(), ElementsAre(HasSubstr("cut off after line 13")));
  EXPECT_EQ(file_.GetAttribContext("Point")->size(), 1U) << "what was there is kept";
}

TEST_F(AttributeFileTest, MangledFilesAreReadOrRefused) {
  PrintedRandom random(4711);
  for (int i = 0; i < 300; ++i) {
    std::string bytes = Golden();
    for (std::size_t hits = 1 + random.Below(4); hits > 0; --hits) {
      bytes[random.Below(bytes.size())] = static_cast<char>(random.Below(256));
    }
    const int result = Read(bytes);
    ASSERT_TRUE(result == 0 || result == kFailure) << i;
    if (result != 0) continue;
    const std::string once = Written();
    file_.UnUseCollector();
    ASSERT_EQ(Read(once), 0) << i;
    ASSERT_EQ(Written(), once) << i;
    file_.UnUseCollector();
  }
}

}  // namespace

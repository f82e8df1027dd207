#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/AttributeFile.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "tests/support/Files.h"
#include "tests/support/Golden.h"
#include "tests/support/Random.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kFailure = -9;

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

  const std::string golden_ = ReadBytes(KORVELFILE_GOLDEN "/atr/job.atr");
  TempFolder folder_;
  std::string path_ = folder_.Path("job.atr");
  CaughtMessages messages_;
  AttributeFile file_;
};

TEST_F(AttributeFileTest, GoldenFileStandsOnItsPageAndReadsAndWritesByteForByte) {
  ExpectOnPage("atr.md", golden_);
  ASSERT_EQ(Read(golden_), 0);
  EXPECT_THAT(messages_.Take(), testing::IsEmpty());
  const auto* type = file_.GetAttribType(file_.GetAttribContext("POINT"), "species");
  EXPECT_EQ(type->GetTokenByIndex(2), "\"other\"");
  EXPECT_EQ(Written(), golden_);
  file_.DeleteItem(FindFirst<FileHeader>(file_));
  EXPECT_EQ(file_.AutoSave(), kFailure);
  EXPECT_THAT(messages_.Take(), ElementsAre("File Header missing: ", path_));
  EXPECT_EQ(ReadBytes(path_), golden_) << "the last good copy stays";
}

TEST_F(AttributeFileTest, OldRowsLackTheLastFields) {
  for (const std::string version : {"1.01", "1.02", ""}) {
    ASSERT_EQ(Read("FileHeader \"KVT Object Text v" + version +
                   "\"\nbegin\nend\nGeoAttribContextList\nbegin\nGeoAttribContext\nbegin\n"
                   "GeoAttribType \"t\",\"\",1,2,\"\",\"\",\"\",\"\",3,4,5,6,7\nend\nend\n"),
              0);
    EXPECT_THAT(Written(), HasSubstr(version == "1.02" ? ",3,4,5,6,7\r\n" : ",3,0,0,0,0\r\n"));
    file_.UnUseCollector();
  }
}

TEST_F(AttributeFileTest, Refused) {
  const std::string head = "FileHeader \"KVT Object Text v1.03\"\nbegin\nend\n";
  const std::string list = head + "GeoAttribContextList\nbegin\n";
  const struct {
    std::string bytes;
    int line;
  } kCases[] = {
      {"", 0},
      {"FileHeader \"KVT Object Text v1.04\"\nbegin\nend\nGeoAttribContextList\n", 4},
      {head, 3},
      {head + "GeoAttribContext\n", 4},
      {list + "GeoAttribType\nend\n", 6},
      {list + "GeoAttribContext\nbegin\nGeoAttribContext\n", 8},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Read(c.bytes), kFailure) << c.bytes;
    EXPECT_THAT(messages_.Take(), ElementsAre("Invalid Atr-file format")) << c.bytes;
    EXPECT_EQ(file_.GetFaultLine(), c.line) << c.bytes;
  }
}

TEST_F(AttributeFileTest, CutOffAndMangledFilesAreReadOrRefused) {
  ASSERT_EQ(Read(golden_.substr(0, golden_.find("\t\tGeoAttribType \"COLOR"))), 0);
  EXPECT_THAT(messages_.Take(), ElementsAre(HasSubstr("cut off after line 13")));
  EXPECT_EQ(file_.GetAttribContext("Point")->size(), 1U) << "what was there is kept";
  file_.UnUseCollector();
  const std::size_t listEnd = golden_.find("List") + std::string("List").size();
  PrintedRandom random(4711);
  for (std::size_t i = 0; i < golden_.size(); ++i) {
    const int cutOff = Read(golden_.substr(0, i));
    ASSERT_TRUE(cutOff == kFailure || (cutOff == 0 && i >= listEnd)) << i;
    file_.UnUseCollector();
    std::string bytes = golden_;
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

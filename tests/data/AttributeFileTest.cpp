#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/AttributeFile.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "tests/support/ItemFileTest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct AttributeFileTest : ItemFileTest<AttributeFile> {
  AttributeFileTest() : ItemFileTest("job.atr") {}

  const std::string golden_ = ReadBytes(KORVELFILE_GOLDEN "/atr/job.atr");
};

TEST_F(AttributeFileTest, GoldenFileStandsOnItsPageAndReadsAndWritesByteForByte) {
  ExpectGolden(golden_, "atr.md");
  EXPECT_THAT(messages_.Take(), testing::IsEmpty());
  const auto* type = file_.GetAttribType(file_.GetAttribContext("POINT"), "species");
  EXPECT_EQ(type->GetTokenByIndex(2), "\"other\"");
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
  ExpectReadOrRefused(golden_, golden_.find("List") + std::string("List").size());
}

}  // namespace

#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

constexpr struct {
  const char* line;
  const char* keyword;
  bool matches;
} kKeywords[] = {
    {"FILEHEADER \"x\"", "FileHeader", true},
    {"FileHeader", "FileHeader", true},
    {"FileHeaderX \"x\"", "FileHeader", false},
    {"Point2", "Point", false},
    {"Point\t1", "Point", false},
    {"Poin", "Point", false},
    {"PointList ", "Point", false},
    {"", "Point", false},
};

TEST(GeoFileTextInputStream, KeywordRule) {
  for (const auto& c : kKeywords) EXPECT_EQ(HasKeyword(c.line, c.keyword), c.matches) << c.line;
}

class GeoFileTextInputStreamTest : public testing::Test {
 protected:
  void Open(std::string_view bytes) {
    const std::string path = folder_.Path("job.geo");
    WriteBytes(path, bytes);
    ASSERT_EQ(_FileIO::OpenFile(file_, path, _FileIO::kRead, true), 0);
  }

  TempFolder folder_;
  GeoFile file_;
};

TEST_F(GeoFileTextInputStreamTest, WalksLinesWithoutTheirIndentation) {
  Open("PointList \r\n\t \tbegin\n\t\tPOINT \"A\"\n\r\n\tend");
  GeoFileTextInputStream in(file_);
  EXPECT_EQ(in.GetLine(), "PointList ");
  EXPECT_FALSE(in.TestForTag("PointList"));
  in.NextLine();
  EXPECT_FALSE(in.TestForTag("Begin"));
  EXPECT_TRUE(in.TestForTag("begin"));
  EXPECT_TRUE(in.CheckObjectName("Point"));
  EXPECT_EQ(in.GetLineNumber(), 3);
  in.NextLine();
  EXPECT_TRUE(in.HasMore());
  EXPECT_EQ(in.GetLine(), "");
  in.NextLine();
  EXPECT_TRUE(in.TestForTag("end"));
  EXPECT_FALSE(in.HasMore());
  EXPECT_FALSE(in.TestForTag(""));
  EXPECT_FALSE(in.CheckObjectName(""));
  EXPECT_EQ(in.GetLine(), "");
  in.NextLine();
  EXPECT_EQ(in.GetLineNumber(), 5);
}

TEST_F(GeoFileTextInputStreamTest, ACutOffFileIsReportedOnce) {
  Open("begin\nPoint\n");
  GeoFileTextInputStream in(file_);
  while (in.HasMore()) in.NextLine();
  CaughtMessages messages;
  in.ReportCutOff();
  in.ReportCutOff();
  EXPECT_THAT(messages.Take(), testing::ElementsAre("File is cut off after line 2"));
}

}  // namespace

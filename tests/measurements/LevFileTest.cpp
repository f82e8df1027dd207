#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/measurements/LevFile.h"
#include "korvelfile/measurements/LevRecordItem.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kCannotOpen = -9;

class LevFileTest : public testing::Test {
 protected:
  // A collector on a file of these bytes.
  void Put(const std::string& bytes) {
    WriteBytes(path_, bytes);
    file_.SetFile(Widen(path_));
  }

  const LevRecordItem& Record(std::size_t index) {
    return dynamic_cast<LevRecordItem&>(file_[index]);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("job.lvt");
  LevFile file_;
  CaughtMessages messages_;
};

const std::string& Golden() {
  static const std::string bytes = ReadBytes(KORVELFILE_GOLDEN "/lvt/job.lvt");
  return bytes;
}

TEST_F(LevFileTest, GoldenFileReadsAndWritesByteForByte) {
  Put(Golden());
  ASSERT_EQ(file_.UseCollector(), 0);
  EXPECT_THAT(messages_.Take(),
              ElementsAre("Read collector file begin...", "Read collector file end."));
  ASSERT_EQ(file_.GetNumberOfItems(), 4);
  EXPECT_EQ(Record(1).GetPointName(), L"TP1");
  EXPECT_EQ(Record(1).GetLevType(), 1);
  EXPECT_EQ(Record(1).GetBackwards(), 1.655);
  EXPECT_EQ(Record(1).GetForwards(), 0.731);
  EXPECT_EQ(Record(1).GetDist(), 28.25);
  EXPECT_EQ(Record(1).GetHeight(), 103.096);
  EXPECT_EQ(Record(2).GetPointName(), L"Gr\u00e4nd 4\"");
  EXPECT_EQ(Record(2).GetBackwards(), kUndefined);
  EXPECT_EQ(Record(2).GetCode(), L"well, \\east");

  file_.SetFile(Widen(folder_.Path("copy.LVT")));
  file_.FlagDirty();
  ASSERT_EQ(file_.SaveCollector(), 0);
  EXPECT_EQ(ReadBytes(folder_.Path("copy.LVT")), Golden());
  EXPECT_THAT(messages_.Take(), ElementsAre("writing changes to file", "Wrote lev file."));
}

TEST_F(LevFileTest, PageOfTheFormatShowsTheGoldenFile) {
  std::string page = ReadBytes(KORVELFILE_SOURCE "/docs/formats/lvt.md");
  std::string golden = Golden();
  std::erase(golden, '\r');
  EXPECT_THAT(page, HasSubstr("```\n" + golden + "```\n"));
}

TEST_F(LevFileTest, StopsAtAForeignRow) {
  Put("\tLEVREC \"A\"\nLevRec\nLevRecX \"B\"\nLevRec \"C\"\n");
  ASSERT_EQ(file_.UseCollector(), 0);
  ASSERT_EQ(file_.GetNumberOfItems(), 2);
  EXPECT_EQ(Record(0).GetPointName(), L"A");
  EXPECT_EQ(Record(1).GetHeight(), kUndefined);
}

TEST_F(LevFileTest, CutOffAnywhereItReadsTheRowsSoFar) {
  for (std::size_t size = 0; size < Golden().size(); ++size) {
    Put(Golden().substr(0, size));
    ASSERT_EQ(file_.UseCollector(), 0) << size;
    EXPECT_LE(file_.GetNumberOfItems(), 4) << size;
    file_.UnUseCollector();
  }
}

TEST_F(LevFileTest, TextsOfAnyBytesSurvive) {
  const std::string row = "LevRec \"\xff\xc3(\xed\xa0\x80\",255,,,,,\"\xf0\x9f\"\r\n";
  Put(row);
  ASSERT_EQ(file_.UseCollector(), 0);
  ASSERT_EQ(file_.AutoSave(), 0);
  EXPECT_EQ(ReadBytes(path_), row);
}

TEST_F(LevFileTest, FailuresLeaveTheOldFile) {
  Put(Golden());
  ASSERT_EQ(file_.UseCollector(), 0);
  for (const char* name : {"job.lvtx", "job.lv", "lvt", "x.lvt/job"}) {
    file_.SetFile(Widen(folder_.Path(name)));
    EXPECT_EQ(file_.AutoSave(), -9) << name;
    EXPECT_FALSE(std::filesystem::exists(folder_.Path(name))) << name;
  }
  messages_.Take();
  file_.SetFile(Widen(folder_.Path("missing/job.lvt")));
  EXPECT_EQ(file_.AutoSave(), -1);
  EXPECT_THAT(messages_.Take(), ElementsAre("Can't create lev-file!"));
}

TEST_F(LevFileTest, MissingFile) {
  file_.SetFile(L"/nowhere/job.lvt");
  EXPECT_EQ(file_.UseCollector(), kCannotOpen);
  EXPECT_THAT(messages_.Take(),
              ElementsAre("Read collector file begin...", "Can't open: /nowhere/job.lvt"));
  EXPECT_EQ(file_.GetFile(), L"/nowhere/job.lvt");
}

}  // namespace

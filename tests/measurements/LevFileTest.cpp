#include <string>

#include <gtest/gtest.h>

#include "korvelfile/measurements/LevFile.h"
#include "korvelfile/measurements/LevRecordItem.h"
#include "korvelfile/outside/base/Text.h"
#include "tests/support/ItemFileTest.h"

namespace {

struct LevFileTest : ItemFileTest<LevFile> {
  LevFileTest() : ItemFileTest("job.LVT") {}

  const std::string golden_ = ReadBytes(KORVELFILE_GOLDEN "/lvt/job.lvt");
};

TEST_F(LevFileTest, GoldenFileReadsAndWritesByteForByteAndIsOnThePage) {
  ExpectGolden(golden_, "lvt.md");
  ASSERT_EQ(file_.GetNumberOfItems(), 4);
  EXPECT_EQ(dynamic_cast<const LevRecordItem&>(file_[1]).GetHeight(), 103.096);
}

TEST_F(LevFileTest, CutOffAnywhereItReadsTheRowsSoFar) {
  for (std::size_t size = 0; size < golden_.size(); ++size) {
    ASSERT_EQ(Read(golden_.substr(0, size)), 0) << size;
    EXPECT_LE(file_.GetNumberOfItems(), 4) << size;
  }
}

TEST_F(LevFileTest, Failures) {
  ASSERT_EQ(Read(golden_), 0);
  for (const char* name : {"job.lvtx", "lvt", "x.lvt/job"}) {
    file_.SetFile(Widen(folder_.Path(name)));
    EXPECT_EQ(file_.AutoSave(), -9) << name;
    EXPECT_FALSE(std::filesystem::exists(folder_.Path(name))) << name;
  }
  const std::string missing = folder_.Path("missing/job.lvt");
  file_.SetFile(Widen(missing));
  EXPECT_EQ(file_.AutoSave(), -1);
  file_.UnUseCollector();
  EXPECT_EQ(file_.UseCollector(), -9);
  EXPECT_EQ(messages_.Take().back(), "Can't open: " + missing);
}

}  // namespace

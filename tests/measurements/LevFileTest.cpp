#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/measurements/LevFile.h"
#include "korvelfile/measurements/LevRecordItem.h"
#include "korvelfile/outside/base/Text.h"
#include "tests/support/Files.h"
#include "tests/support/Golden.h"
#include "tests/support/Surroundings.h"

namespace {

class LevFileTest : public testing::Test {
 protected:
  int Read(const std::string& bytes) {
    WriteBytes(path_, bytes);
    file_.SetFile(Widen(path_));
    return file_.UseCollector();
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

TEST_F(LevFileTest, GoldenFileReadsAndWritesByteForByteAndIsOnThePage) {
  ASSERT_EQ(Read(Golden()), 0);
  ASSERT_EQ(file_.GetNumberOfItems(), 4);
  EXPECT_EQ(dynamic_cast<const LevRecordItem&>(file_[1]).GetHeight(), 103.096);
  file_.SetFile(Widen(folder_.Path("copy.LVT")));
  file_.FlagDirty();
  ASSERT_EQ(file_.SaveCollector(), 0);
  EXPECT_EQ(ReadBytes(folder_.Path("copy.LVT")), Golden());

  ExpectOnPage("lvt.md", Golden());
}

TEST_F(LevFileTest, CutOffAnywhereItReadsTheRowsSoFar) {
  for (std::size_t size = 0; size < Golden().size(); ++size) {
    ASSERT_EQ(Read(Golden().substr(0, size)), 0) << size;
    EXPECT_LE(file_.GetNumberOfItems(), 4) << size;
    file_.UnUseCollector();
  }
}

TEST_F(LevFileTest, Failures) {
  ASSERT_EQ(Read(Golden()), 0);
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

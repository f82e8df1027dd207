#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/GeoFile.h"
#include "tests/support/Files.h"

namespace {

namespace fs = std::filesystem;

class GeoFileTest : public testing::Test {
 protected:
  int OpenToRead(std::string_view bytes) {
    WriteBytes(path_, bytes);
    return _FileIO::OpenFile(file_, path_, _FileIO::kRead, true);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("job.geo");
  GeoFile file_;
};

TEST_F(GeoFileTest, ReadALineCutsAtItsLimit) {
  ASSERT_EQ(OpenToRead("123456789\r\nab\r\n\nlast"), 0);
  char buffer[8] = {};
  for (const char* expected : {"1234567", "ab", "", "last"}) {
    ASSERT_EQ(_FileIO::ReadALine(file_, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, expected);
  }
  EXPECT_NE(_FileIO::ReadALine(file_, buffer, sizeof buffer), 0);
}

TEST_F(GeoFileTest, ReadALineWithHardlyAnyRoom) {
  ASSERT_EQ(OpenToRead("ab\ncd\n"), 0);
  char buffer[2] = {'x', 'y'};
  EXPECT_NE(_FileIO::ReadALine(file_, buffer, 0), 0);
  ASSERT_EQ(_FileIO::ReadALine(file_, buffer, 1), 0);
  EXPECT_EQ(buffer[0], '\0');
  EXPECT_EQ(buffer[1], 'y');
  ASSERT_EQ(_FileIO::ReadALine(file_, buffer, 2), 0);
  EXPECT_STREQ(buffer, "c");
}

TEST_F(GeoFileTest, BytesUpToTheEnd) {
  ASSERT_EQ(OpenToRead("0123456789"), 0);
  EXPECT_EQ(_FileIO::FileSize(file_), 10);
  char bytes[8] = {};
  ASSERT_EQ(_FileIO::SeekFile(file_, 4), 0);
  ASSERT_EQ(_FileIO::ReadFile(file_, bytes, 3), 0);
  EXPECT_EQ(std::string_view(bytes, 3), "456");
  EXPECT_EQ(_FileIO::ReadFile(file_, bytes, 8), -2);
  EXPECT_NE(_FileIO::SeekFile(file_, -1), 0);
  EXPECT_EQ(_FileIO::CloseFile(file_), 0);
}

TEST_F(GeoFileTest, ClosedOrWronglyOpenedFilesFail) {
  char byte = 0;
  std::string_view line;
  EXPECT_FALSE(file_.ReadLine(line));
  EXPECT_EQ(_FileIO::ReadFile(file_, &byte, 1), -1);
  EXPECT_EQ(_FileIO::WriteFile(file_, "x"), -1);
  EXPECT_EQ(_FileIO::FileSize(file_), -1);
  EXPECT_EQ(_FileIO::CloseFile(file_), -1);
  EXPECT_EQ(_FileIO::OpenFile(file_, path_, 1, false), -1);
  EXPECT_EQ(_FileIO::OpenFile(file_, path_, _FileIO::kRead, true), -1);
  ASSERT_EQ(_FileIO::OpenFile(file_, path_, _FileIO::kReplace, false), 0);
  EXPECT_EQ(_FileIO::ReadFile(file_, &byte, 1), -1);
  EXPECT_EQ(_FileIO::SeekFile(file_, 0), -1);
  ASSERT_EQ(OpenToRead("bytes"), 0);
  EXPECT_EQ(_FileIO::WriteFile(file_, "x"), -1);
}

TEST_F(GeoFileTest, AReadThatFailedFailsTheClose) {
  ASSERT_EQ(_FileIO::OpenFile(file_, "/proc/self/mem", _FileIO::kRead, false), 0);
  char byte = 0;
  EXPECT_EQ(_FileIO::ReadFile(file_, &byte, 1), -1);
  EXPECT_EQ(_FileIO::CloseFile(file_), -1);
}

TEST_F(GeoFileTest, FilesByPath) {
  WriteBytes(path_, "12345");
  EXPECT_TRUE(_FileIO::Exists(path_));
  EXPECT_EQ(_FileIO::FileSize(path_), 5);
  const std::string moved = folder_.Path("moved.geo");
  WriteBytes(moved, "old");
  EXPECT_EQ(_FileIO::MoveGeoFile(path_, moved), 0);
  EXPECT_FALSE(_FileIO::Exists(path_));
  EXPECT_EQ(ReadBytes(moved), "12345");
  EXPECT_NE(_FileIO::MoveGeoFile(path_, moved), 0);
  EXPECT_EQ(_FileIO::DeleteGeoFile(moved), 0);
  EXPECT_NE(_FileIO::DeleteGeoFile(moved), 0);
  EXPECT_EQ(_FileIO::FileSize(moved), -1);
  EXPECT_EQ(_FileIO::FileSize(folder_.Path("")), -1);
}

TEST_F(GeoFileTest, NamesWithoutRegardToCase) {
  fs::create_directories(folder_.Path("Jobs/North"));
  WriteBytes(folder_.Path("Jobs/North/Known.GEO"), "");
  WriteBytes(folder_.Path("Jobs/North/known.geo"), "");
  WriteBytes(folder_.Path("Jobs/Only.Pxy"), "");
  const struct {
    const char* wanted;
    const char* found;  // empty where nothing is
  } cases[] = {
      {"Jobs/North/Known.GEO", "Jobs/North/Known.GEO"},
      {"jobs/NORTH/known.geo", "Jobs/North/known.geo"},
      {"JOBS/ONLY.PXY", "Jobs/Only.Pxy"},
      {"jobs/north", "Jobs/North"},
      {"jobs/../jobs/only.pxy", "Jobs/../Jobs/Only.Pxy"},
      {"jobs/missing.pxy", ""},
      {"jobs/only.pxy/x", ""},
  };
  for (const auto& c : cases) {
    std::string resolved = "unchanged";
    const bool isThere = *c.found != '\0';
    EXPECT_EQ(_FileIO::GetCIFileName(folder_.Path(c.wanted), resolved), isThere) << c.wanted;
    EXPECT_EQ(resolved, isThere ? folder_.Path(c.found) : "unchanged") << c.wanted;
  }
}

}  // namespace

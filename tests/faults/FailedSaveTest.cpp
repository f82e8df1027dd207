// Saving where the system refuses: the old file stays, and the caller is told.

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/AttributeFile.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/LevFile.h"
#include "korvelfile/measurements/LevRecordItem.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/measurements/PrecisionDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/Text.h"
#include "tests/support/Files.h"
#include "tests/support/Limits.h"
#include "tests/support/Surroundings.h"

namespace {

namespace fs = std::filesystem;

constexpr int kItems = 200;

void Choose(LevFile& file, const std::string& path) { file.SetFile(Widen(path)); }
template <class File>
void Choose(File& file, const std::string& path) {
  file.ChooseFile(path.c_str());
}

template <class Item, class File>
std::unique_ptr<DataCollectionInterface> Filled(std::unique_ptr<File> file,
                                                const std::string& path) {
  Choose(*file, path);
  file->InitAndUseCollectorWithoutFuckingDisk();
  for (int i = 0; i < kItems; ++i) file->InsertItem(new Item, -1);
  return file;
}

// A collector in memory alone, on the file `path`.
std::unique_ptr<DataCollectionInterface> Collector(std::string_view extension,
                                                   const std::string& path) {
  if (extension == "plm") return Filled<StationDataItem>(std::make_unique<MeasurementFile>(), path);
  if (extension == "lvt") return Filled<LevRecordItem>(std::make_unique<LevFile>(), path);
  if (extension == "atr") return Filled<GeoAttribContext>(std::make_unique<AttributeFile>(), path);
  return Filled<PointDataItem>(std::make_unique<PxyCoordinateFile>(false), path);
}

int Save(DataCollectionInterface& collector) {
  collector.FlagDirty();
  return collector.SaveCollector();
}

class FailedSaveTest : public testing::TestWithParam<const char*> {
 protected:
  FailedSaveTest() {
    SetGoldenIdentity();
    WriteBytes(path_, "old");
  }

  void ExpectOldFileAlone() {
    EXPECT_EQ(ReadBytes(path_), "old");
    EXPECT_EQ(folder_.Names(), std::set<std::string>{name_});
  }

  CaughtMessages messages_;
  TempFolder folder_;
  std::string name_ = std::string("job.") + GetParam();
  std::string path_ = folder_.Path(name_);
  std::unique_ptr<DataCollectionInterface> collector_ = Collector(GetParam(), path_);
};

TEST_P(FailedSaveTest, FullDisk) {
  const std::string whole = folder_.Path("whole." + std::string(GetParam()));
  ASSERT_EQ(Save(*Collector(GetParam(), whole)), 0);
  const std::size_t size = ReadBytes(whole).size();
  fs::remove(whole);
  for (const std::size_t room : {std::size_t{0}, std::size_t{1}, size / 2, size - 1}) {
    const FileSizeLimit limit(room);
    EXPECT_NE(Save(*collector_), 0) << room;
    ExpectOldFileAlone();
  }
  const FileSizeLimit limit(size);
  EXPECT_EQ(Save(*collector_), 0);
  EXPECT_EQ(ReadBytes(path_).size(), size);
}

TEST_P(FailedSaveTest, MissingFolder) {
  const std::string path = folder_.Path("missing/" + name_);
  EXPECT_NE(Save(*Collector(GetParam(), path)), 0);
  EXPECT_FALSE(fs::exists(path));
  ExpectOldFileAlone();
}

TEST_P(FailedSaveTest, FolderInPlaceOfTheFile) {
  fs::remove(path_);
  fs::create_directory(path_);
  EXPECT_NE(Save(*collector_), 0);
  EXPECT_TRUE(fs::is_directory(path_));
}

TEST_P(FailedSaveTest, FolderWithoutTheRightToWrite) {
  const OrdinaryUser user(folder_);
  fs::permissions(folder_.Path(""), fs::perms(0555));
  EXPECT_NE(Save(*collector_), 0);
  fs::permissions(folder_.Path(""), fs::perms(0755));
  ExpectOldFileAlone();
}

TEST_P(FailedSaveTest, FullDevice) {
  fs::remove(path_);
  fs::create_symlink("/dev/full", path_);
  EXPECT_NE(Save(*collector_), 0);
  EXPECT_EQ(fs::read_symlink(path_), "/dev/full");
}

TEST_P(FailedSaveTest, LinkAndPermissionsStayWhenItWorks) {
  fs::rename(path_, folder_.Path("target"));
  fs::permissions(folder_.Path("target"), fs::perms(0640));
  fs::create_symlink("target", path_);
  ASSERT_EQ(Save(*collector_), 0);
  EXPECT_EQ(fs::read_symlink(path_), "target");
  EXPECT_EQ(fs::status(path_).permissions(), fs::perms(0640));
  EXPECT_GT(ReadBytes(path_).size(), 1000U);
  EXPECT_EQ(folder_.Names(), (std::set<std::string>{name_, "target"}));
}

INSTANTIATE_TEST_SUITE_P(Formats, FailedSaveTest,
                         testing::Values("geo", "llc", "pxy", "tun", "plm", "lvt", "atr"),
                         [](const auto& format) { return std::string(format.param); });

// What our own reader would refuse doesn't take the place of a good file; what it takes does.
class IncompleteSaveTest : public testing::Test {
 protected:
  template <class Item>
  std::string SavedWithout(const char* extension, int* result) {
    const std::string path = folder_.Path(std::string("job.") + extension);
    WriteBytes(path, "old");
    const auto collector = Collector(extension, path);
    TypedItemCursor<Item> items(*collector);
    Item* item = nullptr;
    EXPECT_EQ(items.Next(item), 0);
    collector->DeleteItem(item);
    *result = Save(*collector);
    return ReadBytes(path);
  }

  CaughtMessages messages_;
  TempFolder folder_;
};

TEST_F(IncompleteSaveTest, WithoutAHeaderTheOldFileStays) {
  for (const char* extension : {"geo", "plm", "atr"}) {
    int result = 0;
    EXPECT_EQ(SavedWithout<FileHeader>(extension, &result), "old") << extension;
    EXPECT_NE(result, 0) << extension;
  }
  EXPECT_EQ(folder_.Names(), (std::set<std::string>{"job.atr", "job.geo", "job.plm"}));
}

TEST_F(IncompleteSaveTest, WithoutPrecisionTheOldFileStays) {
  int result = 0;
  EXPECT_EQ(SavedWithout<PrecisionDataItem>("plm", &result), "old");
  EXPECT_NE(result, 0);
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"job.plm"});
}

TEST_F(IncompleteSaveTest, WithoutAnAttributeListTheDataIsKept) {
  for (const char* extension : {"geo", "plm"}) {
    int result = 0;
    EXPECT_GT(SavedWithout<GeoAttribList>(extension, &result).size(), 1000U) << extension;
    EXPECT_NE(result, 0) << extension;
  }
}

}  // namespace

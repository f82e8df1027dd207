// Several threads that save to one file, and use one collector.

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

constexpr int kThreads = 4;
constexpr int kSaves = 20;
constexpr int kPoints = 200;

std::string NameOf(int thread, int point) {
  return "P" + std::to_string(thread) + "_" + std::to_string(point);
}

void SaveOften(const std::string& path, int thread) {
  PxyCoordinateFile file(false);
  file.ChooseFile(path.c_str());
  file.InitAndUseCollectorWithoutFuckingDisk();
  for (int i = 0; i < kPoints; ++i) {
    file.InsertItem(new PointDataItem({1.0, 2.0, 3.0}, NameOf(thread, i), "", "", ""), -1);
  }
  for (int i = 0; i < kSaves; ++i) {
    file.FlagDirty();
    EXPECT_EQ(file.SaveCollector(), 0);
  }
}

TEST(SharedFile, ThreadsThatSaveToOnePathLeaveAWholeFile) {
  const CaughtMessages messages;
  const TempFolder folder;
  const std::string path = folder.Path("job.geo");
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(SaveOften, path, i);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(folder.Names(), std::set<std::string>{"job.geo"});

  PxyCoordinateFile file(false);
  file.ChooseFile(path.c_str());
  ASSERT_EQ(file.UseCollector(), 0);
  ASSERT_EQ(file.GetNumberOfItems(), kPoints + 2);
  const char thread = file[1].GetName().at(1);
  for (int i = 0; i < kPoints; ++i) {
    ASSERT_EQ(file[static_cast<std::size_t>(i) + 1].GetName(), NameOf(thread - '0', i));
  }
}

// Adds points, saves and reads the others' points, as one of several users of a file.
void WorkOn(PxyCoordinateFile& file, int thread) {
  ASSERT_EQ(file.UseCollector(), 0);
  for (int i = 0; i < kPoints; ++i) {
    file.InsertPoint(
        std::make_unique<PointDataItem>(Vector3d(i, 2.0, 3.0), NameOf(0, i), "121", "", "remark"));
    if (i % 50 == thread) file.SaveCollector();
    if (i % 20 != thread) continue;
    TypedItemCursor<PointDataItem> points(file);
    PointDataItem* point = nullptr;
    while (points.Next(point) == 0) EXPECT_EQ(point->GetPointCode(), "121");
  }
  EXPECT_EQ(file.UnUseCollector(), 0);
}

TEST(SharedFile, ThreadsThatUseOneCollectorLoseNoPoint) {
  const CaughtMessages messages;
  const TempFolder folder;
  PxyCoordinateFile file(false);
  file.ChooseFile(folder.Path("job.geo").c_str());
  ASSERT_EQ(file.InitCollector(), 0);
  ASSERT_EQ(file.UseCollector(), 0);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(WorkOn, std::ref(file), i);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(file.GetNumberOfItems(), kThreads * kPoints + 2);
  ASSERT_EQ(file.UnUseCollector(), 0);

  ASSERT_EQ(file.UseCollector(), 0);
  EXPECT_EQ(file.GetNumberOfItems(), kThreads * kPoints + 2);
}

}  // namespace

// Several threads that save to one file, and use one collector.

#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
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

}  // namespace

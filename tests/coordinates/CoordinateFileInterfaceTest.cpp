#include <algorithm>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFileInterface.h"
#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "tests/coordinates/FileContents.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

constexpr const char* kAll = "A B L{1 2} L{2 3} M{1}";

std::unique_ptr<PointDataItem> NewPoint(const std::string& name, double x = 0.0) {
  return std::make_unique<PointDataItem>(Vector3d(x, 2 * x, 3 * x), name, "", "", "");
}

class CoordinateFileInterfaceTest : public testing::Test {
 protected:
  // A file that is saved and in use.
  CoordinateFileInterfaceTest() {
    file_.ChooseFile(path_.c_str());
    file_.InitAndUseCollectorWithoutFuckingDisk();
    AddOutline(file_, kAll);
    EXPECT_EQ(file_.SaveCollector(), 0);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("job.geo");
  CaughtMessages messages_;
  PxyCoordinateFile file_{false};
};

TEST_F(CoordinateFileInterfaceTest, RemovePoint) {
  const struct {
    int (*remove)(CoordinateFileInterface&);
    std::string left;
    bool isDirty = true;
  } kCases[] = {
      {[](auto& f) { return f.RemovePoint(1, -1); }, "A L{1 2} L{2 3} M{1}"},
      {[](auto& f) { return f.RemovePoint(2, -1); }, kAll},
      {[](auto& f) { return f.RemovePoint(-1, -1); }, kAll},
      {[](auto& f) { return f.RemovePoint(0, 3); }, kAll, false},
      {[](auto& f) { return f.RemovePoint(1, "L"); }, "A B L{1} L{2 3} M{1}"},
      {[](auto& f) { return f.RemovePoint(2, "L"); }, kAll, false},
      {[](auto& f) { return f.RemovePoint(-1, "L"); }, kAll, false},
      {[](auto& f) { return f.RemovePoint(0, "l"); }, kAll, false},
      {[](auto& f) { return f.RemovePoint("3", "L"); }, "A B L{1 2} L{2} M{1}"},
      {[](auto& f) { return f.RemovePoint("B", nullptr); }, "A L{1 2} L{2 3} M{1}"},
      {[](auto& f) { return f.RemovePoint("1", nullptr); }, kAll, false},
  };
  for (const auto& c : kCases) {
    PxyCoordinateFile file(false);
    file.ChooseFile(path_.c_str());
    ASSERT_EQ(file.UseCollector(), 0);
    EXPECT_EQ(c.remove(file), c.left == kAll ? -1 : 0) << &c - kCases;
    EXPECT_EQ(Outline(file), c.left) << &c - kCases;
    EXPECT_EQ(file.IsModified(), c.isDirty) << &c - kCases;
  }
}

TEST_F(CoordinateFileInterfaceTest, ExtentIsThatOfTheLastReading) {
  file_.InsertPoint(NewPoint("C", 10));
  file_.InsertPoint(NewPoint("D", -4));
  EXPECT_EQ(Vector3d(file_.GetMinX(), file_.GetMinY(), file_.GetMinZ()), Vector3d(-4, -8, -12));
  EXPECT_EQ(Vector3d(file_.GetMaxX(), file_.GetMaxY(), file_.GetMaxZ()), Vector3d(10, 20, 30));
  file_.RemovePoint("C", nullptr);
  EXPECT_EQ(file_.GetMaxX(), 10) << "a removal leaves it";
  file_.InsertPoint(NewPoint("E", 1));
  EXPECT_EQ(file_.GetMaxX(), 1) << "worked out anew after an insertion";
  file_.RemovePoint("D", nullptr);
  file_.UnUseCollector();
  file_.UseCollector();
  EXPECT_EQ(file_.GetMinX(), 0) << "worked out anew after a reading";
  file_.UnUseCollector();
  EXPECT_EQ(file_.GetMaxX(), -9.9e+100) << "nothing is loaded";
  file_.UseCollector();
  EXPECT_EQ(file_.GetMaxX(), 1) << "asked for before the reading";
  file_.UnUseCollector();
}

TEST_F(CoordinateFileInterfaceTest, ThreadsInsertRemoveAndSave) {
  std::vector<std::thread> threads;
  for (int t = 0; t < 3; ++t) {
    threads.emplace_back([this, t] {
      LineDataItem line;
      line.SetName("M");
      for (int i = 0; i < 50; ++i) {
        const std::string name = std::to_string(t) + "-" + std::to_string(i);
        file_.InsertPoint(NewPoint(name));
        file_.InsertPoint(NewPoint(name), line);
        EXPECT_EQ(file_.RemovePoint(name.c_str(), i % 2 == 0 ? nullptr : "M"), 0);
      }
    });
  }
  for (int i = 0; i < 10; ++i) {
    file_.FlagDirty();
    EXPECT_EQ(file_.SaveCollector(), 0);
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(std::ranges::count(Outline(file_), '-'), 3 * 50);
}

}  // namespace

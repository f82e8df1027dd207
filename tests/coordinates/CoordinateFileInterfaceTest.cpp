#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFileInterface.h"
#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

std::unique_ptr<PointDataItem> NewPoint(const std::string& name, double x = 0.0) {
  return std::make_unique<PointDataItem>(Vector3d(x, 2 * x, 3 * x), name, "", "", "");
}

// Free points as "name", points of a line as "line:name".
std::vector<std::string> NamesOf(const DataItemListObject& list, const std::string& prefix = "") {
  std::vector<std::string> names;
  for (const DataItemInterface& item : list) {
    if (dynamic_cast<const PointDataItem*>(&item)) names.push_back(prefix + item.GetName());
    if (const auto* line = dynamic_cast<const LineDataItem*>(&item)) {
      for (const auto& name : NamesOf(*line, line->GetName() + ":")) names.push_back(name);
    }
  }
  return names;
}

class CoordinateFileInterfaceTest : public testing::Test {
 protected:
  // "A" and "B" free, two lines "L" and a line "M", saved and in use.
  CoordinateFileInterfaceTest() {
    file_.ChooseFile(path_.c_str());
    file_.InitAndUseCollectorWithoutFuckingDisk();
    file_.InsertPoint(NewPoint("A"));
    file_.InsertPoint(NewPoint("B"));
    LineDataItem* line = nullptr;
    for (const std::string name : {"L:1", "L:2", "L:2", "L:3", "M:1"}) {
      if (!line || line->size() == 2) line = file_.CreateLine(name.substr(0, 1), 0);
      line->AddPoint(name.substr(2), Vector3d(), "", "", "");
    }
    EXPECT_EQ(file_.SaveCollector(), 0);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("job.geo");
  CaughtMessages messages_;
  PxyCoordinateFile file_{false};
};

TEST_F(CoordinateFileInterfaceTest, RemovePoint) {
  using File = CoordinateFileInterface;
  const struct {
    int (*remove)(File&);
    std::vector<std::string> removed;
    bool isDirty = true;
  } kCases[] = {
      {[](File& f) { return f.RemovePoint(1, -1); }, {"B"}},
      {[](File& f) { return f.RemovePoint(2, -1); }, {}},
      {[](File& f) { return f.RemovePoint(-1, -1); }, {}},
      {[](File& f) { return f.RemovePoint(0, 3); }, {}, false},
      {[](File& f) { return f.RemovePoint(1, "L"); }, {"L:2"}},
      {[](File& f) { return f.RemovePoint(2, "L"); }, {}, false},
      {[](File& f) { return f.RemovePoint(-1, "L"); }, {}, false},
      {[](File& f) { return f.RemovePoint(0, "l"); }, {}, false},
      {[](File& f) { return f.RemovePoint("3", "L"); }, {"L:3"}},
      {[](File& f) { return f.RemovePoint("A", "L"); }, {}, false},
      {[](File& f) { return f.RemovePoint("B", nullptr); }, {"B"}},
      {[](File& f) { return f.RemovePoint("1", nullptr); }, {}, false},
  };
  for (const auto& c : kCases) {
    PxyCoordinateFile file(false);
    file.ChooseFile(path_.c_str());
    ASSERT_EQ(file.UseCollector(), 0);
    EXPECT_EQ(c.remove(file), c.removed.empty() ? -1 : 0) << &c - kCases;
    EXPECT_EQ(file.IsModified(), c.isDirty) << &c - kCases;
    auto names = NamesOf(file);
    names.insert(names.end(), c.removed.begin(), c.removed.end());
    EXPECT_THAT(names, testing::UnorderedElementsAreArray(NamesOf(file_))) << &c - kCases;
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
}

TEST_F(CoordinateFileInterfaceTest, ThreadsInsertRemoveAndSave) {
  constexpr int kPoints = 50;
  std::vector<std::thread> threads;
  for (int t = 0; t < 3; ++t) {
    threads.emplace_back([this, t] {
      LineDataItem line;
      line.SetName("M");
      for (int i = 0; i < kPoints; ++i) {
        const std::string name = std::to_string(t) + "-" + std::to_string(i);
        file_.InsertPoint(NewPoint(name));
        file_.InsertPoint(NewPoint(name), line);
        EXPECT_EQ(file_.RemovePoint(name.c_str(), i % 2 == 0 ? nullptr : "M"), 0);
      }
    });
  }
  threads.emplace_back([this] {
    for (int i = 0; i < 10; ++i) {
      file_.FlagDirty();
      EXPECT_EQ(file_.SaveCollector(), 0);
    }
  });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(NamesOf(file_).size(), 7U + 3 * kPoints);
}

}  // namespace

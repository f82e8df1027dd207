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
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

using testing::ElementsAre;

constexpr double kFarOut = 9.9e+100;

std::unique_ptr<PointDataItem> NewPoint(const std::string& name, double x = 0.0) {
  return std::make_unique<PointDataItem>(Vector3d(x, 2 * x, 3 * x), name, "", "", "");
}

// Free points as "name", points of a line as "line:name".
std::vector<std::string> NamesOf(const DataItemListObject& list, const std::string& prefix = "") {
  std::vector<std::string> names;
  for (const DataItemInterface& item : list) {
    if (dynamic_cast<const PointDataItem*>(&item)) names.push_back(prefix + item.GetName());
    if (const auto* line = dynamic_cast<const LineDataItem*>(&item)) {
      for (const std::string& name : NamesOf(*line, line->GetName() + ":")) names.push_back(name);
    }
  }
  return names;
}

class CoordinateFileInterfaceTest : public testing::Test {
 protected:
  CoordinateFileInterfaceTest() { file_.InitAndUseCollectorWithoutFuckingDisk(); }

  void AddLine(const std::string& name, const std::vector<std::string>& points) {
    auto line = std::make_unique<LineDataItem>();
    line->SetName(name);
    for (const std::string& point : points) line->AddPoint(point, Vector3d(), "", "", "");
    file_.InsertLine(std::move(line));
  }

  // "A" and "B" free, two lines "L" and a line "M".
  void FillAndSave() {
    file_.ChooseFile(path_.c_str());
    file_.InsertPoint(NewPoint("A"));
    AddLine("L", {"1", "2"});
    AddLine("L", {"2", "3"});
    file_.InsertPoint(NewPoint("B"));
    AddLine("M", {"1"});
    ASSERT_EQ(file_.SaveCollector(), 0);
    ASSERT_FALSE(file_.IsModified());
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("job.geo");
  CaughtMessages messages_;
  PxyCoordinateFile file_{false};
};

TEST_F(CoordinateFileInterfaceTest, InsertionsTakeOverAndFlag) {
  auto* line = new LineDataItem;
  line->SetName("L");
  file_.InsertLine(line);
  EXPECT_TRUE(file_.IsModified());
  auto* point = NewPoint("raw").release();
  file_.InsertPoint(point, line);
  EXPECT_EQ(&line->front(), point);
  file_.InsertPoint(NewPoint("owned"), *line);
  file_.InsertPoint(NewPoint("free raw").release(), nullptr);
  file_.InsertPoint(NewPoint("free"));
  LineDataItem stranger;
  stranger.SetName("L");
  AddLine("L", {});
  file_.InsertPoint(NewPoint("by name"), stranger);
  EXPECT_THAT(NamesOf(file_), ElementsAre("L:raw", "L:owned", "L:by name", "free raw", "free"));
}

TEST_F(CoordinateFileInterfaceTest, PointsOfUnknownLinesAreNotTaken) {
  FillAndSave();
  LineDataItem stranger;
  stranger.SetName("l");
  const auto mine = NewPoint("mine");
  file_.InsertPoint(mine.get(), &stranger);
  EXPECT_TRUE(file_.IsModified());
  EXPECT_EQ(mine->GetName(), "mine") << "still the caller's";
  file_.InsertPoint(NewPoint("deleted"), stranger);
  EXPECT_EQ(NamesOf(file_).size(), 7U);
}

TEST_F(CoordinateFileInterfaceTest, RemovePoint) {
  const struct {
    const char* what;
    int (*remove)(CoordinateFileInterface&);
    int result;
    bool isDirty;
    std::vector<std::string> left;
  } kCases[] = {
      {"free 0",
       [](auto& f) { return f.RemovePoint(0, -1); },
       0,
       true,
       {"L:1", "L:2", "L:2", "L:3", "B", "M:1"}},
      {"free 1",
       [](auto& f) { return f.RemovePoint(1, -1); },
       0,
       true,
       {"A", "L:1", "L:2", "L:2", "L:3", "M:1"}},
      {"free 2", [](auto& f) { return f.RemovePoint(2, -1); }, -1, true, {}},
      {"free -1", [](auto& f) { return f.RemovePoint(-1, -1); }, -1, true, {}},
      {"line number", [](auto& f) { return f.RemovePoint(0, 3); }, -1, false, {}},
      {"L 1",
       [](auto& f) { return f.RemovePoint(1, "L"); },
       0,
       true,
       {"A", "L:1", "L:2", "L:3", "B", "M:1"}},
      {"L 2", [](auto& f) { return f.RemovePoint(2, "L"); }, -1, false, {}},
      {"L -1", [](auto& f) { return f.RemovePoint(-1, "L"); }, -1, false, {}},
      {"l 0", [](auto& f) { return f.RemovePoint(0, "l"); }, -1, false, {}},
      {"null line", [](auto& f) { return f.RemovePoint(0, nullptr); }, -1, false, {}},
      {"3 of second L",
       [](auto& f) { return f.RemovePoint("3", "L"); },
       0,
       true,
       {"A", "L:1", "L:2", "L:2", "B", "M:1"}},
      {"2 of first L",
       [](auto& f) { return f.RemovePoint("2", "L"); },
       0,
       true,
       {"A", "L:1", "L:2", "L:3", "B", "M:1"}},
      {"A of L", [](auto& f) { return f.RemovePoint("A", "L"); }, -1, false, {}},
      {"free B",
       [](auto& f) { return f.RemovePoint("B", nullptr); },
       0,
       true,
       {"A", "L:1", "L:2", "L:2", "L:3", "M:1"}},
      {"free b", [](auto& f) { return f.RemovePoint("b", nullptr); }, -1, false, {}},
      {"free 1 by name", [](auto& f) { return f.RemovePoint("1", nullptr); }, -1, false, {}},
      {"null point",
       [](auto& f) { return f.RemovePoint(static_cast<const char*>(nullptr), "L"); },
       -1,
       false,
       {}},
      {"pointer",
       [](auto& f) {
         return f.RemovePoint(FindFirst<PointDataItem>(f), static_cast<LineDataItem*>(nullptr));
       },
       -1,
       false,
       {}},
  };
  FillAndSave();
  const auto all = NamesOf(file_);
  for (const auto& c : kCases) {
    PxyCoordinateFile file(false);
    file.ChooseFile(path_.c_str());
    ASSERT_EQ(file.UseCollector(), 0);
    // A file keeps free points before lines.
    ASSERT_THAT(NamesOf(file), testing::UnorderedElementsAreArray(all));
    EXPECT_EQ(c.remove(file), c.result) << c.what;
    EXPECT_EQ(file.IsModified(), c.isDirty) << c.what;
    EXPECT_THAT(NamesOf(file), testing::UnorderedElementsAreArray(c.result == 0 ? c.left : all))
        << c.what;
  }
}

TEST_F(CoordinateFileInterfaceTest, Extent) {
  EXPECT_EQ(file_.GetMinX(), kFarOut);
  EXPECT_EQ(file_.GetMaxX(), -kFarOut);
  file_.InsertPoint(NewPoint("A", 10));
  file_.InsertPoint(NewPoint("B", -4));
  EXPECT_EQ(file_.GetMinX(), -4);
  EXPECT_EQ(file_.GetMinY(), -8);
  EXPECT_EQ(file_.GetMinZ(), -12);
  EXPECT_EQ(file_.GetMaxX(), 10);
  EXPECT_EQ(file_.GetMaxY(), 20);
  EXPECT_EQ(file_.GetMaxZ(), 30);

  file_.RemovePoint("A", nullptr);
  EXPECT_EQ(file_.GetMaxX(), 10) << "a removal leaves it";
  auto line = std::make_unique<LineDataItem>();
  line->AddPoint("1", 1, 2, kUndefined, "", "", "");
  file_.InsertLine(std::move(line));
  EXPECT_EQ(file_.GetMaxX(), 1) << "worked out anew after an insertion";
  EXPECT_EQ(file_.GetMaxZ(), kUndefined) << "counts as the number it is";

  file_.UnUseCollector();
  EXPECT_EQ(file_.GetMaxX(), -kFarOut) << "nothing is loaded";
}

TEST_F(CoordinateFileInterfaceTest, ExtentIsThatOfTheLastReading) {
  for (const double x : {1.0, 2.0}) {
    PxyCoordinateFile writer(false);
    writer.ChooseFile(path_.c_str());
    writer.InitAndUseCollectorWithoutFuckingDisk();
    writer.InsertPoint(NewPoint("A", x));
    writer.UnUseCollector();
    file_.UnUseCollector();
    file_.ChooseFile(path_.c_str());
    ASSERT_EQ(file_.UseCollector(), 0);
    EXPECT_EQ(file_.GetMinX(), x);
  }
}

TEST_F(CoordinateFileInterfaceTest, ThreadsInsertRemoveAndSave) {
  FillAndSave();
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

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFileAdapter.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "tests/support/Files.h"

namespace {

using testing::ElementsAre;

const char* const kGeo = R"(FileHeader "KVT Object Text v2.01",""
begin
end
PointList
begin
Point "free",1,2,3,"","",""
end
LineList
begin
Line "first",0,""
begin
PointList
begin
Point "a",0,0,0,"","",""
Point "b",0,9,0,"","",""
end
end
Line "second",0,""
begin
PointList
begin
Point "c",5,5,5,"","",""
end
end
end
)";

std::vector<std::string> Names(Korvel::ICoordinateFile& file, int line) {
  const auto points = file.GetLine(line);
  std::vector<std::string> names;
  for (int i = 0; i < points->GetPointCount(); ++i)
    names.push_back(points->GetPoint(i)->GetInformation().name);
  return names;
}

class CoordinateFileAdapterTest : public testing::Test {
 protected:
  CoordinateFileAdapterTest() {
    WriteBytes(folder_.Path("lines.geo"), kGeo);
    file_ = Open();
  }

  std::shared_ptr<PxyCoordinateFile> Open() const {
    auto file = std::make_shared<PxyCoordinateFile>(false);
    file->ChooseFile(folder_.Path("lines.geo").c_str());
    EXPECT_EQ(file->UseCollector(), 0);
    return file;
  }

  TempFolder folder_;
  std::shared_ptr<PxyCoordinateFile> file_;
};

TEST_F(CoordinateFileAdapterTest, WhatIsInsertedIsInTheFileAndOnDisk) {
  CoordinateFileAdapter adapter(file_);
  {
    const auto first = adapter.GetLine(0);
    first->InsertPoint(1, {1, 2, 30}, "x");
    first->InsertPoint(1, {-7, 2, 3}, "w")->SetRemark("near");
    first->InsertPoint(4, {1, 2, 3}, "end");
    first->InsertPoint(0, {1, 2, 3}, "start");
    EXPECT_EQ(adapter.GetLine(0), first) << "one object for each line that is held";
    EXPECT_THROW(first->InsertPoint(7, {}, ""), std::out_of_range);
  }
  adapter.InsertLine(1, "between")->InsertPoint(0, {1, 2, 3}, "only");
  adapter.InsertLine(3, "last");
  EXPECT_THROW(adapter.InsertLine(9, ""), std::out_of_range);
  EXPECT_THROW(adapter.GetLine(-1), std::out_of_range);
  EXPECT_EQ(file_->GetMinX(), -7.0);
  EXPECT_EQ(file_->GetMaxZ(), 30.0);
  ASSERT_EQ(file_->SaveCollector(), 0);
  file_->UnUseCollector();

  CoordinateFileAdapter again(Open());
  EXPECT_EQ(again.GetLineCount(), 4);
  EXPECT_THAT(Names(again, 0), ElementsAre("start", "a", "w", "x", "b", "end"));
  EXPECT_THAT(Names(again, 1), ElementsAre("only"));
  EXPECT_THAT(Names(again, 2), ElementsAre("c"));
  EXPECT_THAT(Names(again, 3), ElementsAre());
  EXPECT_EQ(again.GetLine(0)->GetPoint(2)->GetInformation().remark, "near");
}

TEST_F(CoordinateFileAdapterTest, NewPointsReachAHeldLineWithFinish) {
  CoordinateFileAdapter adapter(file_);
  EXPECT_EQ(file_->GetMaxX(), 9.0);
  const auto line = adapter.GetLine(1);
  line->InsertPoint(0, {50, 0, 0}, "n");
  adapter.Finish();
  EXPECT_EQ(file_->GetMaxX(), 50.0);
  EXPECT_THAT(Names(adapter, 1), ElementsAre("n", "c"));
}

TEST_F(CoordinateFileAdapterTest, ADetachedPointNoLongerChangesTheFile) {
  CoordinateFileAdapter adapter(file_);
  const auto point = adapter.GetLine(0)->GetPoint(0);
  point->SetPosition({-1, 0, 0});
  point->Detach();
  point->SetPosition({-2, 0, 0});
  point->SetName("z");
  EXPECT_EQ(point->GetInformation().position.x, -2.0);
  EXPECT_THAT(Names(adapter, 0), ElementsAre("a", "b"));
  EXPECT_EQ(file_->GetMinX(), -1.0);
}

}  // namespace

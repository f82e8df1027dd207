#include <memory>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CoordinateFileAdapter.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "tests/coordinates/FileContents.h"
#include "tests/support/Files.h"

namespace {

class CoordinateFileAdapterTest : public testing::Test {
 protected:
  CoordinateFileAdapterTest() {
    file_->ChooseFile(path_.c_str());
    file_->InitAndUseCollectorWithoutFuckingDisk();
    AddOutline(*file_, "free first{a b} second{c}");
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("lines.geo");
  std::shared_ptr<PxyCoordinateFile> file_ = std::make_shared<PxyCoordinateFile>(false);
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

  const auto again = std::make_shared<PxyCoordinateFile>(false);
  again->ChooseFile(path_.c_str());
  ASSERT_EQ(again->UseCollector(), 0);
  EXPECT_EQ(Outline(*again), "free first{start a w x b end} between{only} second{c} last{}");
  CoordinateFileAdapter adapted(again);
  EXPECT_EQ(adapted.GetLineCount(), 4);
  EXPECT_EQ(adapted.GetLine(0)->GetPoint(2)->GetInformation().remark, "near");
}

TEST_F(CoordinateFileAdapterTest, NewPointsReachAHeldLineWithFinish) {
  CoordinateFileAdapter adapter(file_);
  EXPECT_EQ(file_->GetMaxX(), 0.0);
  const auto line = adapter.GetLine(1);
  line->InsertPoint(0, {50, 0, 0}, "n");
  adapter.Finish();
  EXPECT_EQ(file_->GetMaxX(), 50.0);
  EXPECT_EQ(line->GetPoint(1)->GetInformation().name, "c");
}

TEST_F(CoordinateFileAdapterTest, ADetachedPointNoLongerChangesTheFile) {
  CoordinateFileAdapter adapter(file_);
  const auto point = adapter.GetLine(0)->GetPoint(0);
  point->SetPosition({-1, 0, 0});
  point->Detach();
  point->SetPosition({-2, 0, 0});
  point->SetName("z");
  EXPECT_EQ(point->GetInformation().position.x, -2.0);
  EXPECT_EQ(Outline(*file_), "free first{a b} second{c}");
  EXPECT_EQ(file_->GetMinX(), -1.0);
}

}  // namespace

#include <gtest/gtest.h>

#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tests/measurements/ItemText.h"

namespace {

using Usage = RecordDataItem::BacksightUsage;

TEST(RecordDataItem, BlankFieldsReadAsAbsent) {
  const auto record = ItemFrom<RecordDataItem>(",,,,,,,,,", PlmTypes::kVersion);
  EXPECT_EQ(record.Type, PlmTypes::RecordAny);
  EXPECT_EQ(record.GetName(), "");
  EXPECT_EQ(record.Distance, kUndefined);
  EXPECT_EQ(record.DistanceOffset, kUndefined);
}

TEST(RecordDataItem, RowOfEachVersion) {
  constexpr const char* kRow = "-7,\"A\",\"P\",\"S\",\"R\",1,2,3,4,5,6";
  auto old = ItemFrom<RecordDataItem>(kRow, 0x10003);
  EXPECT_EQ(old.DistanceOffset, 0.0);
  EXPECT_EQ(FieldsOf(old, 0x10003), "-7,\"A\",\"P\",\"S\",\"R\",1,2,3,4");
  auto current = ItemFrom<RecordDataItem>(kRow, 0x10004);
  EXPECT_EQ(FieldsOf(current, 0x10004), "-7,\"A\",\"P\",\"S\",\"R\",1,2,3,4,5");
}

TEST(RecordDataItem, LineNumbers) {
  constexpr struct {
    const char *name, *lineNo, *rest, *other;
    bool connected;
  } kCases[] = {
      {"12.1004", "12", "1004", "12.7", true},
      {"12.1004", "12", "1004", "12", false},
      {"12.1.2", "12", "1.2", "12.9", true},
      {"12", "", "12", "12.1", false},
      {".5", "", "5", ".6", false},
      {"1.5", "1", "5", "12.5", false},
      {"12.", "12", "", "12.", true},
      {"", "", "", "", false},
  };
  for (const auto& c : kCases) {
    RecordDataItem record;
    record.SetName(c.name);
    EXPECT_EQ(record.ConnectedTo(c.other), c.connected) << c.name;
    EXPECT_EQ(record.GetLineNo('.'), c.lineNo) << c.name;
    record.RemoveLineNo('.');
    EXPECT_EQ(record.GetName(), c.rest);
  }
}

TEST(RecordDataItem, BacksightUsageIsAMask) {
  RecordDataItem record;
  EXPECT_FALSE(record.IsBacksightUsageInitialized());
  EXPECT_FALSE(record.IsUsingBacksight(RecordDataItem::AnyBacksightUsage));
  record.RemoveBacksightUsage(Usage{2});
  EXPECT_TRUE(record.IsBacksightUsageInitialized());
  record.AddBacksightUsage(Usage{0x101});
  record.AddBacksightUsage(Usage{5});
  EXPECT_TRUE(record.IsUsingBacksight(Usage{4}));
  EXPECT_FALSE(record.IsUsingBacksight(Usage{2}));
  record.RemoveBacksightUsage(Usage{7});
  EXPECT_FALSE(record.IsUsingBacksight(RecordDataItem::AnyBacksightUsage));
  EXPECT_EQ(GeoAttrib::GetAttribute(&record, "fsbu")->Value, "256");
  GeoAttrib::PutAttribute(&record, "FSBU", "", false);
  EXPECT_FALSE(record.IsUsingBacksight(RecordDataItem::AnyBacksightUsage));
}

}  // namespace

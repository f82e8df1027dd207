#include <gtest/gtest.h>

#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"

namespace {

// The items below `list`, as in "a b 12(1 2) c".
std::string Tree(const DataItemListObject& list) {
  std::string text;
  for (std::size_t i = 0; i < list.size(); ++i) {
    DataItemInterface* item = list.GetItem(i);
    text += (i ? " " : "") + item->GetName();
    if (auto* line = dynamic_cast<InmlineDataItem*>(item)) text += "(" + Tree(*line) + ")";
  }
  return text;
}

TEST(StationDataItem, GenerateLines) {
  const struct {
    std::vector<std::string> names;  // "!" is a line of its own
    const char* tree;
  } kCases[] = {
      {{"12.1"}, "12.1"},
      {{"a", "12.1", "12.2", "b"}, "a 12(1 2) b"},
      {{"12.1", "13.1", "12.2"}, "12.1 13.1 12.2"},
      {{"1.5", "12.5", "12.", "12."}, "1.5 12(5  )"},
      {{"12.1", "12.2", "13.1", "13.2"}, "12(1 2) 13(1 2)"},
      {{"12.1.7", "12.2.7"}, "12(1.7 2.7)"},
      {{".1", ".2", "3", "3"}, ".1 .2 3 3"},
      {{"12.1", "!", "12.2", "12.3"}, "12.1 !() 12(2 3)"},
  };
  for (const auto& c : kCases) {
    StationDataItem station;
    for (const std::string& name : c.names) {
      if (name == "!") {
        station.CreateLine(name, 0);
        continue;
      }
      station.InsertItem(new RecordDataItem, -1);
      station.GetRecord(PlmTypes::RecordAny, -1)->SetName(name);
    }
    for (int i = 0; i < 2; ++i) {
      station.GenerateLines();
      EXPECT_EQ(Tree(station), c.tree) << i;
    }
  }
}

}  // namespace

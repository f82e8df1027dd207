#include <string>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/outside/base/Text.h"
#include "tests/measurements/ItemText.h"

namespace {

std::string RowOf(const DataItemInterface& item) {
  char buffer[300];
  dynamic_cast<const PointDataItem&>(item).SprintfStream(buffer, "");
  return buffer;
}

TEST(LineDataItem, AddsPoints) {
  LineDataItem line;
  line.AddPoint("1", 1, 2, 3, "a", "b", "c");
  line.AddPoint("2", Vector3d(4, 5, 6), "a", "b", "c");
  line.AddLine("3", {1, 2, 3}, {4, 5, 6}, "a", "b", "c");
  line.AddArc("4", {1, 2, 3}, {4, 5, 6}, 25.0, "K");
  line.AddArc("5", {1, 2, 3}, {4, 5, 6}, -100.0 / 3, "");
  const char* const kRows[] = {"Point \"1\",2,1,3,\"a\",\"b\",\"c\"\r\n",
                               "Point \"2\",5,4,6,\"a\",\"b\",\"c\"\r\n",
                               "Point \"3\",2,1,3,\"a\",\"b\",\"c\"\r\n",
                               "Point \"3\",5,4,6,\"a\",\"b\",\"c\"\r\n",
                               "Point \"4\",2,1,3,\"K\",\"R\",\"25\"\r\n",
                               "Point \"4\",5,4,6,\"K\",\"\",\"\"\r\n",
                               "Point \"5\",2,1,3,\"\",\"R\",\"-33.33333333333334\"\r\n",
                               "Point \"5\",5,4,6,\"\",\"\",\"\"\r\n"};
  ASSERT_EQ(line.size(), std::size(kRows));
  for (std::size_t i = 0; i < line.size(); ++i) EXPECT_EQ(RowOf(line[i]), kRows[i]);
}

TEST(LineDataItem, CopiesTakeAllButTheLink) {
  int thing = 0;
  LineDataItem line;
  line.SetName("L");
  line.SetCode(L"K");
  line.LineType = 2;
  line.SetLink(&thing);
  line.AddPoint("1", 1, 2, 3, "", "", "");
  LineDataItem assigned;
  assigned = line;
  const LineDataItem copy(line);
  for (const LineDataItem* l : {&copy, static_cast<const LineDataItem*>(&assigned)}) {
    EXPECT_EQ(l->GetName(), "L");
    EXPECT_EQ(l->GetCode(), L"K");
    EXPECT_EQ(l->LineType, 2);
    EXPECT_EQ(l->GetLink(), nullptr);
    ASSERT_EQ(l->size(), 1U);
    EXPECT_NE(&(*l)[0], &line[0]);
  }
}

TEST(LineDataItem, CodesPassThroughWideText) {
  LineDataItem line;
  line.SetCode(L"Gränd");
  EXPECT_EQ(line.CodeText(), "Gr\xC3\xA4nd");
  const auto latin = ItemFrom<LineDataItem>("\"\",0,\"Gr\xE4nd\"", 0);
  line.SetCode(latin.GetCode());
  EXPECT_EQ(line.CodeText(), "Gr\xE4nd") << "bytes that aren't UTF-8 come back";
}

TEST(LineDataItem, Rows) {
  char buffer[200];
  LineDataItem line;
  line.SetName("12");
  line.LineType = 255;
  line.SetCode(L"KERB");
  EXPECT_EQ(line.SprintfStream(buffer, "\t"), 23);
  EXPECT_STREQ(buffer, "\tLine \"12\",255,\"KERB\"\r\n");
  line.SetCode(L"\"");
  EXPECT_EQ(FieldsOf(line, 0), "\"12\",255,\"\\\"\"");

  auto read = ItemFrom<LineDataItem>("\"a\",300,\"c\"", 0);
  EXPECT_EQ(read.GetName(), "a");
  EXPECT_EQ(read.LineType, 255);
  ASSERT_EQ(FieldsOf(read, 0), "\"a\",255,\"c\"");
  DataTextInputStream blank("");
  read.Stream(blank, 0);
  EXPECT_EQ(FieldsOf(read, 0), "\"\",0,\"\"") << "a reused line keeps nothing";
}

}  // namespace

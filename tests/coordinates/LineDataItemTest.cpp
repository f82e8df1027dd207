#include <gtest/gtest.h>

#include "korvelfile/coordinates/LineDataItem.h"
#include "tests/measurements/ItemText.h"

namespace {

TEST(LineDataItem, RowsKeepAnyBytesOfACodeAndNothingOfAFormerLine) {
  auto line = ItemFrom<LineDataItem>("\"a\",300,\"Gr\xE4nd\"", 0);
  const LineDataItem copy(line);
  line.SetCode(copy.GetCode());
  EXPECT_EQ(FieldsOf(line, 0), "\"a\",255,\"Gr\xE4nd\"");
  line.SetCode(L"Gr\u00E4nd \"");
  EXPECT_EQ(FieldsOf(line, 0), "\"a\",255,\"Gr\xC3\xA4nd \\\"\"");
  DataTextInputStream blank("");
  line.Stream(blank, 0);
  EXPECT_EQ(FieldsOf(line, 0), "\"\",0,\"\"");
}

}  // namespace

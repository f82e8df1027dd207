#include <array>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/internal/PxyRecord.h"
#include "korvelfile/data/FixedColumns.h"

namespace {

// A codec that only notes the columns.
class ColumnList {
 public:
  template <class Value>
  void Stream(Value& /*value*/, Column column) {
    columns_.push_back(column);
  }
  const std::vector<Column>& Columns() const { return columns_; }

 private:
  std::vector<Column> columns_;
};

template <class Record, class Table>
std::vector<Column> ColumnsOf(Table table) {
  ColumnList codec;
  Record record;
  table(codec, record);
  return codec.Columns();
}

TEST(FixedColumns, EveryTableIsInOrder) {
  const struct {
    const char* what;
    std::vector<Column> columns;
    int lineLength;  // up to what closes the line
  } kTables[] = {{"pxy", ColumnsOf<internal::PxyRecord>([](auto& codec, auto& record) {
                    internal::StreamPxyColumns(codec, record);
                  }),
                  internal::kPxyEndOffset}};
  for (const auto& table : kTables) {
    int reached = 0;
    for (const Column& column : table.columns) {
      EXPECT_GE(column.offset, reached) << table.what;
      EXPECT_GT(column.width, 0) << table.what;
      EXPECT_GE(column.decimals, 0) << table.what;
      reached = column.offset + column.width;
    }
    EXPECT_EQ(reached, table.lineLength) << table.what;
  }
  EXPECT_EQ(internal::kPxyEndOffset + internal::kPxyLineEnd.size(), internal::kPxyLineSize);
}

std::string Written(std::string_view text, double number, Column textAt, Column numberAt) {
  std::array<char, 800> buffer;
  ColumnWriter writer(buffer.data());
  writer.Stream(text, textAt);
  writer.Stream(number, numberAt);
  writer.Close("|", numberAt.offset + numberAt.width + 1);
  return {buffer.data(), writer.End()};
}

TEST(FixedColumns, WritesBlanksBetween) {
  EXPECT_EQ(Written("ab", 1.25, {1, 4}, {6, 7, 2}), " ab      1.25 |");
  EXPECT_EQ(Written("abcdef", -1.25, {0, 4}, {4, 5, 1}), "abcd -1.2 |")
      << "cut, and rounded to even";
  EXPECT_EQ(Written("", 123456, {0, 2}, {3, 4, 1}), "   123456.0 |") << "widens the record";
}

TEST(FixedColumns, ReadsShortLinesAsBlank) {
  const struct {
    const char* line;
    const char* text;
    double number;
  } kCases[] = {{"ab  12.5x", "ab", 12.5}, {"ab  12.5 3", "ab", 12.5}, {"ab  1", "ab", 1.0},
                {"a b", "a b", 0.0},       {" ab\t", " ab\t", 0.0},    {"", "", 0.0},
                {"ab  ", "ab", 0.0},       {"abcd-1.57", "abcd", -1.5}};
  for (const auto& c : kCases) {
    std::string_view text;
    double number = 1.0;
    ColumnReader reader(c.line);
    reader.Stream(text, {0, 4});
    reader.Stream(number, {4, 4});
    EXPECT_EQ(text, c.text) << c.line;
    EXPECT_EQ(number, c.number) << c.line;
  }
}

}  // namespace

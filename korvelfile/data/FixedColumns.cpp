#include "korvelfile/data/FixedColumns.h"

#include <algorithm>
#include <array>
#include <cstddef>

void ColumnWriter::PutBlanks(int count) {
  if (count > 0) end_ = std::fill_n(end_, count, ' ');
}

void ColumnWriter::GoTo(Column column) {
  PutBlanks(column.offset - offset_);
  offset_ = column.offset + column.width;
}

void ColumnWriter::Stream(std::string_view value, Column column) {
  GoTo(column);
  const std::size_t length = value.copy(end_, static_cast<std::size_t>(column.width));
  std::replace(end_, end_ + length, '\n', ' ');
  end_ += length;
  PutBlanks(column.width - static_cast<int>(length));
}

void ColumnWriter::Stream(double value, Column column) {
  GoTo(column);
  std::array<char, kFixedNumberSize> text;
  char* const textEnd = PutFixed(text.data(), value, column.decimals);
  PutBlanks(column.width - static_cast<int>(textEnd - text.data()));
  end_ = std::copy(text.data(), textEnd, end_);
}

void ColumnWriter::Close(std::string_view text, int offset) {
  GoTo({offset, static_cast<int>(text.size())});
  end_ = std::copy(text.begin(), text.end(), end_);
}

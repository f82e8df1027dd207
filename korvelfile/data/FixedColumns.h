/// @file
/// Records of fixed columns: one list of columns serves a reader and a writer.
///
/// A format lists its record once, in a template over the codec, with the columns in ascending
/// order:
///
///     template <class Codec, class Record>
///     void StreamPeg(Codec& codec, Record& record) {
///       codec.Stream(record.name, Column{0, 12});
///       codec.Stream(record.east, Column{14, 12, 4});
///     }
#pragma once

#include <cstddef>
#include <string_view>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Text.h"

/// Where a record keeps a field, in bytes from its start.
struct Column {
  int offset;
  int width;
  int decimals = 0;  ///< of a number
};

/// Takes the fields of one line. A column beyond the end of the line is blank: an empty text, or 0.
class ColumnReader {
 public:
  /// @param line must outlive the texts taken from it
  explicit ColumnReader(std::string_view line) : line_(line) {}

  /// The column without the blanks at its end.
  void Stream(std::string_view& value, Column column) const {
    value = TrimBlanksRight(Bytes(column));
  }

  /// The number at the start of the column, see `ParseDouble`.
  void Stream(double& value, Column column) const { value = ParseDouble(Bytes(column)); }

 private:
  std::string_view Bytes(Column column) const {
    const auto offset = static_cast<std::size_t>(column.offset);
    if (offset >= line_.size()) return {};
    return line_.substr(offset, static_cast<std::size_t>(column.width));
  }

  std::string_view line_;
};

/// Puts the fields of one line one behind the other, with the blanks that the columns leave
/// between them.
class KORVELFILE_EXPORT ColumnWriter {
 public:
  /// @param out room for the record, and 320 bytes more for each number: one that is wider than its
  ///   column widens the record
  explicit ColumnWriter(char* out) : end_(out) {}

  /// Left-justified, cut at the column's width. A line feed, which would end the line, becomes a
  /// blank.
  void Stream(std::string_view value, Column column);

  /// Right-justified, "%*.*f"; wider than the column if it must be.
  void Stream(double value, Column column);

  /// Puts `text` at `offset`.
  void Close(std::string_view text, int offset);

  /// Behind the last byte written.
  char* End() const { return end_; }

 private:
  void PutBlanks(int count);
  void GoTo(Column column);

  char* end_;
  int offset_ = 0;  ///< reached so far, in terms of the columns
};

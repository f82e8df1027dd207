#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace korvel {

/// Lines up rows of text in columns: text to the left, numbers to the right.
class TextTable {
 public:
  /// How a column stands.
  enum class Align { Left, Right };

  struct Column {
    std::string head;
    Align align = Align::Right;
  };

  explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

  /// Adds a row; texts come from files and are made printable.
  /// @param cells at most one for each column
  void AddRow(const std::vector<std::string>& cells);

  bool IsEmpty() const { return rows_.empty(); }

  /// Writes the heads, unless all are empty, and the rows, each behind `indent`. A column without
  /// any text in its rows isn't shown.
  void Print(std::ostream& out, const std::string& indent) const;

 private:
  std::vector<std::size_t> ShownColumns() const;
  std::size_t Width(std::size_t column) const;

  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace korvel

#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace korvel {

/// Splits the lines of a CSV text into fields.
///
/// Fields are separated by semicolons if the first line has one, else by tabs if it has one, else
/// by commas. A field in double quotes may hold separators, and quotes doubled. Empty lines and
/// lines that begin with # are passed over.
class CsvReader {
 public:
  /// @param in     must outlive the reader
  /// @param source name of the text in messages
  CsvReader(std::istream& in, std::string source);

  /// Gives the fields of the next line, without white space around them.
  /// @return false at the end
  bool Next(std::vector<std::string>& fields);

  /// Number of the line that `Next` gave last, from 1.
  int GetLine() const { return line_; }

  /// "points.csv:12", the place that `Next` gave last.
  std::string Place() const;

 private:
  bool NextLine(std::string& text);
  std::string TakeField(const std::string& text, std::size_t& at) const;

  std::istream& in_;
  std::string source_;
  char separator_ = '\0';
  int line_ = 0;
};

}  // namespace korvel

#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "tools/korvel/CsvReader.h"

namespace korvel {

/// A column of numbers.
struct CsvColumn {
  std::vector<std::string> names;  ///< that a header may give it, in lower case; the best first
  bool isRequired = true;
};

/// A line of a CSV text: a name, and a number for each column, undefined where it has none.
struct CsvRow {
  std::string name;
  std::vector<double> numbers;
};

/// The columns for north and east, in this order, which all CSV texts have.
CsvColumn NorthColumn();
CsvColumn EastColumn();

/// Reads rows of numbers from CSV text.
///
/// A first line without numbers that names columns is a header: it says where each column stands,
/// and columns that it names otherwise aren't read. The name of a column may have its unit behind
/// it, as in "lat_deg" or "North [m]". Without a header the numbers stand in the order of the
/// columns; a line with more fields than there are required columns begins with a name.
class CsvNumbers {
 public:
  /// @param in      must outlive the reader
  /// @param source  name of the text in messages
  /// @param columns required ones first
  CsvNumbers(std::istream& in, const std::string& source, std::vector<CsvColumn> columns);

  /// Gives the next row.
  /// @return false at the end
  /// @throws InputError that names the line for a row that lacks a number or has none in its place
  bool Next(CsvRow& row);

  /// As `CsvReader::Place`.
  std::string Place() const { return reader_.Place(); }

 private:
  using Fields = std::vector<std::string>;

  bool IsHeader(const Fields& fields) const;
  void ReadHeader(const Fields& fields);
  std::size_t Required() const;
  void PlaceWithoutHeader(std::size_t fieldCount);
  double NumberOf(const Fields& fields, std::size_t column) const;
  [[noreturn]] void Fail(const std::string& what) const;

  CsvReader reader_;
  std::vector<CsvColumn> columns_;
  std::optional<std::size_t> name_;                 ///< field of the name
  std::vector<std::optional<std::size_t>> places_;  ///< field of each column
  bool isFirst_ = true;
  bool hasHeader_ = false;
};

/// Calls `visit` with a stream on `path`, or on standard input for "-", and its name in messages.
/// @throws InputError if the file can't be read
void WithCsvText(const std::string& path,
                 const std::function<void(std::istream&, const std::string& source)>& visit);

}  // namespace korvel

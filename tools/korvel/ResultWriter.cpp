#include "tools/korvel/ResultWriter.h"

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <utility>

#include <CLI/CLI.hpp>

#include "korvelfile/outside/base/NumberText.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/TextTable.h"

namespace {

using korvel::Json;
using korvel::ResultCell;
using korvel::ResultColumn;
using korvel::TextTable;

using Columns = std::vector<ResultColumn>;
using Row = std::vector<ResultCell>;

class TableWriter : public korvel::ResultWriter {
 public:
  TableWriter(Columns columns, std::ostream& out)
      : columns_(std::move(columns)), table_(Heads()), out_(out) {}

  void Add(const Row& row) override {
    std::vector<std::string> cells;
    for (std::size_t i = 0; i < row.size(); ++i) cells.push_back(CellText(row[i], columns_[i]));
    table_.AddRow(cells);
  }
  void End() override { table_.Print(out_, ""); }

 private:
  std::vector<TextTable::Column> Heads() const {
    std::vector<TextTable::Column> heads;
    for (const ResultColumn& c : columns_)
      heads.push_back({c.head, c.decimals == ResultColumn::kText ? TextTable::Align::Left
                                                                 : TextTable::Align::Right});
    return heads;
  }
  static std::string CellText(const ResultCell& cell, const ResultColumn& column) {
    if (const auto* text = std::get_if<std::string>(&cell)) return *text;
    const double value = std::get<double>(cell);
    return korvel::IsKnown(value) ? korvel::NumberText(value * column.scale, column.decimals) : "";
  }

  Columns columns_;
  TextTable table_;
  std::ostream& out_;
};

class CsvWriter : public korvel::ResultWriter {
 public:
  CsvWriter(const Columns& columns, std::ostream& out) : out_(out) {
    Row heads;
    for (const ResultColumn& column : columns) heads.emplace_back(column.key);
    Add(heads);
  }
  void Add(const Row& row) override {
    for (std::size_t i = 0; i < row.size(); ++i) out_ << (i ? "," : "") << CellText(row[i]);
    out_ << '\n';
  }
  void End() override {}

 private:
  static std::string CellText(const ResultCell& cell) {
    constexpr int kDigits = 15;
    if (const auto* text = std::get_if<std::string>(&cell)) return Quoted(*text);
    const double value = std::get<double>(cell);
    return korvel::IsKnown(value) ? GeneralText(value == 0.0 ? 0.0 : value, kDigits) : "";
  }
  static std::string Quoted(const std::string& text) {
    if (text.find_first_of(",;\t\"\r\n#") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
  }

  std::ostream& out_;
};

// Writes the same text as `PrintJson` would do of a whole document, but for the rows, which take
// one line each.
class JsonWriter : public korvel::ResultWriter {
 public:
  JsonWriter(Columns columns, const Json& about, const std::string& rowsKey, std::ostream& out)
      : columns_(std::move(columns)), out_(out) {
    out_ << "{\n";
    for (const auto& [key, value] : about.items())
      out_ << "  " << Json(key) << ": " << value << ",\n";
    out_ << "  " << Json(rowsKey) << ": [";
  }
  void Add(const Row& row) override {
    Json object = Json::object();
    for (std::size_t i = 0; i < row.size(); ++i) object[columns_[i].key] = CellJson(row[i]);
    out_ << (std::exchange(isFirst_, false) ? "\n    " : ",\n    ") << object;
  }
  void End() override { out_ << (isFirst_ ? "]\n}\n" : "\n  ]\n}\n"); }

 private:
  static Json CellJson(const ResultCell& cell) {
    const auto* text = std::get_if<std::string>(&cell);
    return text ? korvel::JsonText(*text) : korvel::JsonNumber(std::get<double>(cell));
  }

  Columns columns_;
  std::ostream& out_;
  bool isFirst_ = true;
};

}  // namespace

namespace korvel {

void AddResultFormat(CLI::App& verb, ResultFormat& format) {
  CLI::Option* csv = verb.add_flag("--csv", format.csv, "print CSV");
  verb.add_flag("--json", format.json, "print a JSON object")->excludes(csv);
}

std::unique_ptr<ResultWriter> ResultWriter::Make(const ResultFormat& format, Columns columns,
                                                 const Json& about, const std::string& rowsKey,
                                                 std::ostream& out) {
  if (format.csv) return std::make_unique<CsvWriter>(columns, out);
  if (format.json) return std::make_unique<JsonWriter>(std::move(columns), about, rowsKey, out);
  return std::make_unique<TableWriter>(std::move(columns), out);
}

}  // namespace korvel

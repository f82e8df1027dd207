#include "tools/korvel/TextTable.h"

#include <algorithm>
#include <ostream>

#include "korvelfile/outside/base/Text.h"
#include "tools/korvel/Printable.h"

namespace {

constexpr const char* kGap = "  ";

std::string Padded(const std::string& text, std::size_t width, korvel::TextTable::Align align) {
  const std::string blanks(width - std::min(width, korvel::CharacterCount(text)), ' ');
  return align == korvel::TextTable::Align::Left ? text + blanks : blanks + text;
}

}  // namespace

namespace korvel {

void TextTable::AddRow(const std::vector<std::string>& cells) {
  std::vector<std::string> row(columns_.size());
  std::transform(cells.begin(), cells.end(), row.begin(),
                 [](const std::string& cell) { return Printable(cell); });
  rows_.push_back(std::move(row));
}

std::vector<std::size_t> TextTable::ShownColumns() const {
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (std::any_of(rows_.begin(), rows_.end(), [&](const auto& row) { return !row[i].empty(); }))
      shown.push_back(i);
  return shown;
}

std::size_t TextTable::Width(std::size_t column) const {
  std::size_t width = CharacterCount(columns_[column].head);
  for (const auto& row : rows_) width = std::max(width, CharacterCount(row[column]));
  return width;
}

void TextTable::Print(std::ostream& out, const std::string& indent) const {
  const std::vector<std::size_t> shown = ShownColumns();
  std::vector<std::size_t> widths;
  for (const std::size_t i : shown) widths.push_back(Width(i));
  const auto printRow = [&](const auto& textOf) {
    std::string line = indent;
    for (std::size_t k = 0; k < shown.size(); ++k)
      line += (k ? kGap : "") + Padded(textOf(shown[k]), widths[k], columns_[shown[k]].align);
    out << TrimBlanksRight(line) << '\n';
  };
  const auto hasHead = [](const Column& column) { return !column.head.empty(); };
  if (std::any_of(columns_.begin(), columns_.end(), hasHead))
    printRow([&](std::size_t i) { return columns_[i].head; });
  for (const auto& row : rows_) printRow([&](std::size_t i) { return row[i]; });
}

}  // namespace korvel

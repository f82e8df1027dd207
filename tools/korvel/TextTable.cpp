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

std::vector<std::size_t> TextTable::Widths() const {
  std::vector<std::size_t> widths;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    std::size_t width = CharacterCount(columns_[i].head);
    for (const auto& row : rows_) width = std::max(width, CharacterCount(row[i]));
    widths.push_back(width);
  }
  return widths;
}

void TextTable::Print(std::ostream& out, const std::string& indent) const {
  const std::vector<std::size_t> widths = Widths();
  const auto printRow = [&](const auto& cellAt) {
    std::string line = indent;
    for (std::size_t i = 0; i < columns_.size(); ++i)
      line += (i ? kGap : "") + Padded(cellAt(i), widths[i], columns_[i].align);
    out << TrimBlanksRight(line) << '\n';
  };
  if (std::any_of(columns_.begin(), columns_.end(),
                  [](const Column& c) { return !c.head.empty(); }))
    printRow([&](std::size_t i) { return columns_[i].head; });
  for (const auto& row : rows_) printRow([&](std::size_t i) { return row[i]; });
}

}  // namespace korvel

/// @file
/// Tables of codes: numbers with their texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// One row of a table of codes. Several rows may share a number: the first gives its text, the
/// others are further spellings.
template <class Id>
struct CodeRow {
  Id id;
  const char* text;
};

/// The number of `text`, compared exactly, or `unknown`.
/// @param table any range of `CodeRow`
template <class Table, class Id>
constexpr Id FindCode(const Table& table, std::string_view text, Id unknown) {
  for (const auto& row : table) {
    if (text == row.text) return row.id;
  }
  return unknown;
}

/// The text of `id`, or "" if the table hasn't got it.
template <class Table, class Id>
constexpr const char* CodeText(const Table& table, Id id) {
  for (const auto& row : table) {
    if (row.id == id) return row.text;
  }
  return "";
}

/// The texts in the order of the table, without further spellings.
template <class Table>
std::vector<std::string> CodeTexts(const Table& table) {
  std::vector<std::string> texts;
  for (const auto& row : table) {
    if (std::string_view(CodeText(table, row.id)) == row.text) texts.emplace_back(row.text);
  }
  return texts;
}

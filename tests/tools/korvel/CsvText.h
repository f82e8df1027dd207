/// @file
/// CSV text that verbs write and tests compare.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "korvelfile/outside/base/NumberText.h"

inline std::vector<std::string> SplitAt(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, separator);) parts.push_back(part);
  return parts;
}

/// The numbers of a CSV text behind its first line.
inline std::vector<std::vector<double>> CsvNumbersOf(const std::string& text) {
  std::vector<std::vector<double>> rows;
  for (const std::string& line : SplitAt(text, '\n')) {
    rows.emplace_back();
    for (const std::string& field : SplitAt(line, ',')) rows.back().push_back(ParseDouble(field));
  }
  rows.erase(rows.begin());
  return rows;
}

#include "tools/korvel/SummaryText.h"

#include <algorithm>
#include <iostream>

#include "korvelfile/outside/base/NumberText.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/TextTable.h"

namespace {

using korvel::Json;
using korvel::TextTable;

constexpr std::size_t kMembersShown = 25;
constexpr int kDigits = 12;  // of coordinates, enough for 0.01 mm
constexpr const char* kIndent = "  ";

// "points in lines" of "points_in_lines".
std::string Title(std::string key) {
  std::replace(key.begin(), key.end(), '_', ' ');
  return key;
}

bool IsRange(const Json& value) { return value.is_object() && value.contains("max"); }

std::string ValueText(const Json& value);

std::string RangeText(const Json& range) {
  const auto missing = range.value("missing", std::size_t{0});
  if (range["min"].is_null()) return "none";
  return ValueText(range["min"]) + " to " + ValueText(range["max"]) +
         (missing > 0 ? ", " + std::to_string(missing) + " missing" : "");
}

// "ROAD 12, EDGE 7": the members, the most frequent first where they are counts.
std::string ObjectText(const Json& object) {
  std::vector<std::pair<std::string, Json>> members;
  for (const auto& [key, value] : object.items()) members.emplace_back(key, value);
  std::stable_sort(members.begin(), members.end(), [](const auto& a, const auto& b) {
    return a.second.is_number() && b.second.is_number() && a.second > b.second;
  });
  std::string text;
  for (std::size_t i = 0; i < std::min(members.size(), kMembersShown); ++i)
    text += (i ? ", " : "") + members[i].first + ' ' + ValueText(members[i].second);
  if (members.size() > kMembersShown)
    text += " and " + std::to_string(members.size() - kMembersShown) + " more";
  return text;
}

std::string ArrayText(const Json& array) {
  std::string text;
  for (const Json& value : array) text += (text.empty() ? "" : ", ") + ValueText(value);
  return text;
}

std::string ValueText(const Json& value) {
  if (value.is_null()) return "-";
  if (value.is_string()) return value.get<std::string>();
  if (value.is_number_float()) return GeneralText(value.get<double>(), kDigits);
  if (IsRange(value)) return RangeText(value);
  if (value.is_object()) return ObjectText(value);
  return value.is_array() ? ArrayText(value) : value.dump();
}

bool IsTable(const Json& value) {
  return value.is_array() && !value.empty() && value.front().is_object();
}

// Headers and contexts: a line for each member.
bool IsList(const std::string& key) { return key == "header" || key == "contexts"; }

void PrintTable(const Json& rows, std::ostream& out) {
  std::vector<std::string> keys;
  for (const Json& row : rows)
    for (const auto& [key, value] : row.items())
      if (std::find(keys.begin(), keys.end(), key) == keys.end()) keys.push_back(key);
  std::vector<TextTable::Column> columns;
  for (const std::string& key : keys) columns.push_back({Title(key), TextTable::Align::Left});
  TextTable table(columns);
  for (const Json& row : rows) {
    std::vector<std::string> cells;
    for (const std::string& key : keys)
      cells.push_back(row.contains(key) ? ValueText(row[key]) : "");
    table.AddRow(cells);
  }
  table.Print(out, kIndent);
}

}  // namespace

void korvel::PrintSummary(const Json& summary, std::ostream& out) {
  TextTable table({{"", TextTable::Align::Left}, {"", TextTable::Align::Left}});
  for (const auto& [key, value] : summary.items()) {
    if (key == "file" || IsTable(value) || value.empty()) continue;
    if (!IsList(key)) {
      table.AddRow({Title(key), ValueText(value)});
      continue;
    }
    for (const auto& [name, member] : value.items()) table.AddRow({name, ValueText(member)});
  }
  out << Printable(summary["file"].get<std::string>()) << '\n';
  table.Print(out, kIndent);
  for (const auto& [key, value] : summary.items())
    if (IsTable(value)) PrintTable(value, out << '\n');
  out << '\n';
}

int korvel::PrintSummaries(const std::vector<std::string>& files, bool isJson,
                           const std::function<Json(const std::string& path)>& summarize) {
  Json summaries = Json::array();
  int status = kDone;
  for (const std::string& path : files) {
    try {
      summaries.push_back(summarize(path));
      if (!isJson) PrintSummary(summaries.back(), std::cout);
    } catch (const InputError& error) {
      status = kBadInput;
      PrintError(error.what());
      summaries.push_back({{"file", JsonText(path)}, {"error", JsonText(error.what())}});
    }
  }
  if (isJson) PrintJson(summaries, std::cout);
  return status;
}

#include "tools/korvel/CsvNumbers.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <string_view>
#include <utility>

#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/NumberArgument.h"

namespace {

using Fields = std::vector<std::string>;

std::string LowerText(std::string text) {
  for (char& c : text) c = LowerCase(c);
  return text;
}

// "lat" of "lat_deg", "north" of "North [m]"; a name that ends in no unit stays.
std::string WithoutUnit(const std::string& name) {
  constexpr std::array<std::string_view, 4> kUnits{"m", "deg", "gon", "rad"};
  const std::size_t end = std::min(name.find_first_of("_ [("), name.size());
  std::string unit = name.substr(end);
  std::erase_if(unit, [](char c) { return c < 'a' || c > 'z'; });
  const bool isUnit = std::find(kUnits.begin(), kUnits.end(), unit) != kUnits.end();
  return isUnit ? std::string(TrimRight(name.substr(0, end))) : name;
}

// The field that has the best of `names`; a name without a unit behind it is better.
std::optional<std::size_t> FindField(const Fields& fields, const Fields& names) {
  for (const bool mayHaveUnit : {false, true})
    for (const std::string& name : names)
      for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::string field = LowerText(fields[i]);
        if ((mayHaveUnit ? WithoutUnit(field) : field) == name) return i;
      }
  return {};
}

}  // namespace

namespace korvel {

CsvColumn NorthColumn() { return {{"north", "northing", "n", "y", "latitude", "lat"}}; }

CsvColumn EastColumn() { return {{"east", "easting", "e", "x", "longitude", "long", "lon"}}; }

CsvNumbers::CsvNumbers(std::istream& in, const std::string& source, std::vector<CsvColumn> columns)
    : reader_(in, source), columns_(std::move(columns)), places_(columns_.size()) {}

void CsvNumbers::Fail(const std::string& what) const {
  throw InputError(reader_.Place() + ": " + what);
}

std::size_t CsvNumbers::Required() const {
  return static_cast<std::size_t>(
      std::count_if(columns_.begin(), columns_.end(), [](const auto& c) { return c.isRequired; }));
}

bool CsvNumbers::IsHeader(const Fields& fields) const {
  if (std::any_of(fields.begin(), fields.end(), [](const auto& f) { return ReadNumber(f); }))
    return false;
  return std::any_of(columns_.begin(), columns_.end(),
                     [&](const auto& c) { return FindField(fields, c.names); });
}

void CsvNumbers::ReadHeader(const Fields& fields) {
  hasHeader_ = true;
  name_ = FindField(fields, {"name", "point", "id"});
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    places_[i] = FindField(fields, columns_[i].names);
    if (!places_[i] && columns_[i].isRequired)
      Fail("the header names no column " + columns_[i].names.front());
  }
}

void CsvNumbers::PlaceWithoutHeader(std::size_t fieldCount) {
  const std::size_t first = fieldCount > Required() ? 1 : 0;
  if (fieldCount < Required() || fieldCount > columns_.size() + 1)
    Fail(std::to_string(fieldCount) + " fields; there must be " + std::to_string(Required()) +
         (columns_.size() > Required() ? " to " : " or ") + std::to_string(columns_.size() + 1));
  name_.reset();
  if (first > 0) name_ = 0;
  for (std::size_t i = 0; i < columns_.size(); ++i) places_[i] = first + i;
}

double CsvNumbers::NumberOf(const Fields& fields, std::size_t column) const {
  const bool isThere = places_[column] && *places_[column] < fields.size();
  const std::string text = isThere ? fields[*places_[column]] : std::string();
  const std::optional<double> number = ReadNumber(text);
  if (number) return *number;
  if (!text.empty()) Fail(columns_[column].names.front() + ": " + text + " is no number");
  if (columns_[column].isRequired) Fail("no " + columns_[column].names.front());
  return kUndefined;
}

bool CsvNumbers::Next(CsvRow& row) {
  Fields fields;
  if (!reader_.Next(fields)) return false;
  if (std::exchange(isFirst_, false) && IsHeader(fields)) {
    ReadHeader(fields);
    return Next(row);
  }
  if (!hasHeader_) PlaceWithoutHeader(fields.size());
  row.name = name_ && *name_ < fields.size() ? fields[*name_] : std::string();
  row.numbers.clear();
  for (std::size_t i = 0; i < columns_.size(); ++i) row.numbers.push_back(NumberOf(fields, i));
  return true;
}

void WithCsvText(const std::string& path,
                 const std::function<void(std::istream&, const std::string& source)>& visit) {
  if (path == "-") {
    visit(std::cin, "standard input");
    return;
  }
  RequireReadable(path);
  std::ifstream file(path, std::ios::binary);
  visit(file, path);
  if (file.bad()) throw InputError(path + ": can't be read");
}

}  // namespace korvel

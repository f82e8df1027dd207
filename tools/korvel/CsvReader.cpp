#include "tools/korvel/CsvReader.h"

#include <cstddef>
#include <istream>
#include <utility>

#include "korvelfile/outside/base/Text.h"

namespace {

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

char SeparatorOf(const std::string& text) {
  for (const char c : {';', '\t'})
    if (text.find(c) != std::string::npos) return c;
  return ',';
}

}  // namespace

namespace korvel {

CsvReader::CsvReader(std::istream& in, std::string source) : in_(in), source_(std::move(source)) {}

bool CsvReader::NextLine(std::string& text) {
  while (std::getline(in_, text)) {
    if (++line_ == 1 && text.starts_with(kByteOrderMark)) text.erase(0, 3);
    const std::string_view content = Trim(text);
    if (!content.empty() && !content.starts_with('#')) return true;
  }
  return false;
}

std::string CsvReader::TakeField(const std::string& text, std::size_t& at) const {
  std::string field;
  bool isQuoted = false;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (!isQuoted && c == separator_) break;
    if (c != '"') {
      field += c;
    } else if (isQuoted && at + 1 < text.size() && text[at + 1] == '"') {
      field += text[++at];
    } else {
      isQuoted = !isQuoted;
    }
  }
  return std::string(Trim(field));
}

bool CsvReader::Next(std::vector<std::string>& fields) {
  std::string text;
  if (!NextLine(text)) return false;
  if (separator_ == '\0') separator_ = SeparatorOf(text);
  fields.clear();
  std::size_t at = 0;
  fields.push_back(TakeField(text, at));
  while (at < text.size()) fields.push_back(TakeField(text, ++at));
  return true;
}

std::string CsvReader::Place() const { return source_ + ':' + std::to_string(line_); }

}  // namespace korvel

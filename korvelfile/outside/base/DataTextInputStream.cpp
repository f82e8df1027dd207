#include "korvelfile/outside/base/DataTextInputStream.h"

#include <algorithm>
#include <cstddef>

#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Text.h"

namespace {

// The number at the start of `text`, which moves forward, though not always to its end.
double TakeNumber(std::string_view& text, double absent) {
  if (text.empty() || text.front() == ',') return absent;
  return text.front() == '?' ? std::numeric_limits<double>::max() : TakeDouble(text);
}

}  // namespace

DataTextInputStream::DataTextInputStream(std::string_view fields) : rest_(fields) {}

void DataTextInputStream::SkipPastComma() {
  if (rest_.starts_with(',')) {  // as a rule it stands right here
    rest_.remove_prefix(1);
    return;
  }
  const std::size_t comma = rest_.find(',');
  rest_.remove_prefix(comma == std::string_view::npos ? rest_.size() : comma + 1);
}

DataTextInputStream::Field DataTextInputStream::TakeQuoted() {
  rest_.remove_prefix(1);
  bool isEscaped = false;
  std::size_t end = 0;
  for (; end < rest_.size() && rest_[end] != '"'; ++end) {
    if (rest_[end] != '\\') continue;
    isEscaped = true;
    ++end;
  }
  const std::string_view text = rest_.substr(0, end);
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  SkipPastComma();
  return {text, true, isEscaped};
}

DataTextInputStream::Field DataTextInputStream::TakeField() {
  rest_ = TrimLeft(rest_);
  if (!rest_.empty() && rest_.front() == '"') return TakeQuoted();
  const std::string_view text = rest_.substr(0, rest_.find(','));
  SkipPastComma();
  return {text, false, false};
}

void DataTextInputStream::Stream(std::string& value, std::string_view absent) {
  const Field field = TakeField();
  if (field.text.empty() && !field.isQuoted) {
    value = absent;
  } else if (field.isEscaped) {
    value = String::Unquote(field.text);
  } else {
    value = field.text;
  }
}

void DataTextInputStream::Stream(double& value, double absent) {
  rest_ = TrimLeft(rest_);
  if (rest_.starts_with('"')) {
    std::string_view text = TakeQuoted().text;
    value = TakeNumber(text, absent);
    return;
  }
  value = TakeNumber(rest_, absent);
  SkipPastComma();
}

long long DataTextInputStream::StreamInteger(long long /*value*/, long long absent,
                                             long long lowest, long long highest) {
  const Field field = TakeField();
  return field.text.empty() ? absent : ParseInteger(field.text, lowest, highest);
}

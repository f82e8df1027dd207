#include "korvelfile/alignments/internal/CommaRecord.h"

#include <algorithm>
#include <array>
#include <vector>

#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/NumberText.h"

namespace {

constexpr std::size_t kPaddedSize = 125;
// What a formatted text may hold: 130 bytes with the terminator.
constexpr std::size_t kTextLimit = 129;
constexpr int kEndWithin = -2;  // of a read that meets the end of the file

using commarecord::kElemNoSize;
using commarecord::kSize;

std::string Cut(std::string text) {
  if (text.size() > kTextLimit) text.resize(kTextLimit);
  return text;
}

std::string Close(std::string text) {
  text = Cut(std::move(text));
  if (text.size() < kPaddedSize) text.resize(kPaddedSize, ' ');
  return Cut(text + ",\r\n");
}

void AppendNumber(std::string& text, commarecord::NumberFormat format, double number) {
  const std::string digits = FixedText(number, format.decimals);
  const auto width = static_cast<std::size_t>(format.width);
  text += ',';
  text.append(width - std::min(width, digits.size()), ' ');
  text += digits;
}

// One record, cleared before it is read.
class Record {
 public:
  int Read(GeoFile& file) {
    bytes_.fill('\0');
    return _FileIO::ReadFile(file, bytes_.data(), bytes_.size());
  }

  std::string_view GetText() const {
    const std::string_view whole(bytes_.data(), bytes_.size());
    return whole.substr(0, whole.find('\0'));
  }

 private:
  std::array<char, kSize> bytes_;
};

bool ParseElement(std::string_view record, std::string& elemNo, std::span<double> numbers) {
  std::size_t comma = record.substr(0, kElemNoSize + 1).find(',');
  if (comma == std::string_view::npos) return false;
  elemNo = record.substr(0, comma);
  for (double& number : numbers) {
    if (comma == std::string_view::npos) return false;
    record.remove_prefix(comma + 1);
    number = ParseDouble(record);
    comma = record.find(',');
  }
  return true;
}

}  // namespace

std::string commarecord::HeaderRecord(std::size_t elements) {
  return Close(std::to_string(elements + 1));
}

std::string commarecord::ElementRecord(std::string_view elemNo,
                                       std::span<const NumberFormat> formats,
                                       std::span<const double> numbers, End end) {
  std::string text(elemNo.substr(0, std::min(elemNo.find('\0'), kElemNoSize)));
  for (std::size_t i = 0; i < formats.size(); ++i) AppendNumber(text, formats[i], numbers[i]);
  if (end == End::kComma) text += ',';
  return Close(std::move(text));
}

bool commarecord::ReadAll(GeoFile& file, std::size_t fields, LastRecord last, const Take& take) {
  Record record;
  if (record.Read(file) != 0) return false;
  const long long count = static_cast<long long>(ParseInt(record.GetText())) - 1;
  std::vector<double> numbers(fields);
  for (long long i = 1; i <= count; ++i) {
    const int result = record.Read(file);
    const bool mayBeShort = last == LastRecord::kMayBeShort && i == count;
    if (result != 0 && !(mayBeShort && result == kEndWithin)) return false;
    std::string elemNo;
    if (!ParseElement(record.GetText(), elemNo, numbers)) return false;
    take(std::move(elemNo), numbers);
  }
  return true;
}

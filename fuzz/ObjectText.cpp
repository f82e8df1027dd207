// Reads a row of fields of every kind, and a file header, and writes both back.
// Seeds: fuzz/seeds/objecttext

#include "korvelfile/data/ObjectText.h"

#include <limits>

#include "fuzz/support/Harness.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/FileHeaderRows.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/outside/base/DataStream.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"

namespace {

struct AllKinds final : Streamable {
  std::string text;
  double number = 0.0;
  int whole = 0;
  bool flag = false;
  signed char small = 0;
  unsigned char byte = 0;
  unsigned short word = 0;
  unsigned int large = 0;
  long long huge = 0;
  std::string lastText;

  int GetVersion() const override { return 0; }
  void Stream(DataStream& stream, int /*version*/) override {
    stream.Stream(text);
    stream.Stream(number, std::numeric_limits<double>::max());
    stream.Stream(whole, -1);
    stream.Stream(flag);
    stream.Stream(small);
    stream.Stream(byte);
    stream.Stream(word);
    stream.Stream(large);
    stream.Stream(huge);
    stream.Stream(lastText, "absent");
  }
};

std::string RowOf(AllKinds& object) {
  std::string row;
  WriteObjectRow(0, row, "Row", &object, 0);
  row.resize(row.size() - 2);
  return row;
}

void CheckRow(const std::string& row) {
  AllKinds object;
  ReadObjectRow("Row " + row, "Row", &object, 0);
  const std::string once = RowOf(object);
  if (once.find("1.79769313486232e+308") != std::string::npos) return;  // beyond the largest double
  AllKinds again;
  fuzz::Require(ReadObjectRow(once, "Row", &again, 0), "a written row can't be read");
  fuzz::Require(RowOf(again) == once, "a row changes when it is read and written");
  fuzz::Require(again.text == object.text && again.lastText == object.lastText, "a text changes");
}

std::string WrittenHeader(const std::string& path, DataItemListObject& list, int version) {
  GeoFile file;
  _FileIO::OpenFile(file, path, _FileIO::kReplace, false);
  fuzz::Require(WriteFileHeader(file, &list, version), "no header");
  fuzz::Require(_FileIO::CloseFile(file) == 0, "a header can't be written");
  return fuzz::ReadBytes(path);
}

bool ReadHeader(const std::string& path, DataItemListObject& list, int& version) {
  GeoFile file;
  _FileIO::OpenFile(file, path, _FileIO::kRead, true);
  GeoFileTextInputStream in(file);
  return ReadFileHeader(in, &list, version);
}

void CheckHeader(std::string_view input) {
  const std::string path = fuzz::PathInMemory("header.geo");
  fuzz::WriteBytes(path, input);
  DataItemListObject list;
  int version = 0;
  if (!ReadHeader(path, list, version)) return;
  const std::string once = WrittenHeader(path, list, version);
  DataItemListObject again;
  int versionAgain = 0;
  fuzz::Require(ReadHeader(path, again, versionAgain), "a written header can't be read");
  fuzz::Require(WrittenHeader(path, again, version) == once, "a header changes");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = fuzz::Input(data, size);
  CheckRow(std::string(input.substr(0, input.find('\n'))));
  CheckHeader(input);
  return 0;
}

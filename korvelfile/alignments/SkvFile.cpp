#include "korvelfile/alignments/SkvFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "korvelfile/data/FixedColumns.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/Time.h"

namespace {

constexpr int kProxyType = 3;
constexpr int kFailure = -9;
constexpr double kPercent = 100.0;

constexpr std::size_t kRecordSize = 77;
constexpr int kEndOffset = 74;  // of the comma, CR and LF that close every record
constexpr std::string_view kEnd = ",\r\n";
// An element whose numbers are too wide is cut here.
constexpr std::size_t kLongestRecord = 78;
// Room for a record with three numbers of any size.
using RecordBuffer = std::array<char, kRecordSize + 3 * kFixedNumberSize>;
using RecordBytes = std::array<char, kRecordSize>;

// One element as it stands in the file, its slopes in per cent.
struct Record {
  std::string_view elemNo;
  double section;
  double slope1;
  double slope2;
};

template <class Codec, class Fields>
void StreamRecord(Codec& codec, Fields& record) {
  codec.Stream(record.elemNo, Column{0, 12});
  codec.Stream(record.section, Column{14, 12, 4});
  codec.Stream(record.slope1, Column{26, 12, 4});
  codec.Stream(record.slope2, Column{38, 12, 4});
}

std::string Text(const RecordBuffer& buffer, ColumnWriter& writer) {
  writer.Close(kEnd, kEndOffset);
  const auto size = static_cast<std::size_t>(writer.End() - buffer.data());
  return {buffer.data(), std::min(size, kLongestRecord)};
}

std::string FirstHeader() {
  const GeoDate today = _Time::GetDateLocal();
  RecordBuffer buffer;
  ColumnWriter writer(buffer.data());
  writer.Close("XYZ-COORD-FILE", 0);
  writer.Close(",V1.00,", 16);
  writer.Close(SF::dformat("%i-%02i-%02i", today.year, today.month, today.day), 23);
  return Text(buffer, writer);
}

std::string SecondHeader() {
  RecordBuffer buffer;
  ColumnWriter writer(buffer.data());
  writer.Close(",", 40);
  return Text(buffer, writer);
}

std::string ElementRecord(const Record& record) {
  RecordBuffer buffer;
  ColumnWriter writer(buffer.data());
  StreamRecord(writer, record);
  return Text(buffer, writer);
}

Record ParseElement(const RecordBytes& bytes) {
  Record record{};
  const ColumnReader reader({bytes.data(), bytes.size()});
  StreamRecord(reader, record);
  record.elemNo = record.elemNo.substr(0, record.elemNo.find_first_of(std::string_view(" \0", 2)));
  return record;
}

bool ReadRecord(GeoFile& file, RecordBytes& bytes) {
  return _FileIO::ReadFile(file, bytes.data(), bytes.size()) == 0;
}

int FailedSave(const char* name) {
  _GHAL::SystemMessage("can't open skv-file!");
  _GHAL::SystemMessage(name ? name : "");
  return kFailure;
}

}  // namespace

SkvFile::SkvFile() = default;
SkvFile::~SkvFile() = default;
SkvFile::SkvFile(const SkvFile&) = default;
SkvFile::SkvFile(SkvFile&&) noexcept = default;
SkvFile& SkvFile::operator=(const SkvFile&) = default;
SkvFile& SkvFile::operator=(SkvFile&&) noexcept = default;

void* SkvFile::GetGraphicsObject() { return this; }
int SkvFile::GetProxyType() { return kProxyType; }
bool SkvFile::IsForReadOnly() { return false; }

int SkvFile::Open(const char* name) {
  GeoFile file;
  if (!name || _FileIO::OpenFile(file, name, _FileIO::kRead, false) != 0) return kFailure;
  RecordBytes bytes;
  if (!ReadRecord(file, bytes) || !ReadRecord(file, bytes)) {
    _GHAL::SystemMessage("Error Corrupted .skv file!");
    return kFailure;
  }
  while (ReadRecord(file, bytes)) {
    const Record record = ParseElement(bytes);
    elemNo_.Append(std::string(record.elemNo));
    section_.Append(record.section);
    slope1_.Append(record.slope1 / kPercent);
    slope2_.Append(record.slope2 / kPercent);
  }
  _FileIO::CloseFile(file);
  return 0;
}

int SkvFile::Save(const char* name) {
  GeoFile file;
  if (!name || _FileIO::OpenFile(file, name, _FileIO::kReplace, false) != 0)
    return FailedSave(name);
  WriteAll(file);
  return _FileIO::CloseFile(file) == 0 ? 0 : FailedSave(name);
}

void SkvFile::WriteAll(GeoFile& file) const {
  _FileIO::WriteFile(file, FirstHeader());
  _FileIO::WriteFile(file, SecondHeader());
  for (int i = 0; i < section_.GetCount(); ++i)
    _FileIO::WriteFile(file, ElementRecord({elemNo_[i].c_str(), section_[i], slope1_[i] * kPercent,
                                            slope2_[i] * kPercent}));
}

void SkvFile::GetTotalElements(int& count) const { count = section_.GetCount(); }

void SkvFile::GetElement(int index, String& elemNo, double& section, double& slope1,
                         double& slope2) const {
  if (index < 0 || index >= section_.GetCount()) return;
  elemNo = elemNo_[index];
  section = section_[index];
  slope1 = slope1_[index];
  slope2 = slope2_[index];
}

void SkvFile::SetElement(int index, String elemNo, double section, double slope1, double slope2,
                         bool& insert) {
  const int count = section_.GetCount();
  const int place = index > count || (insert && index < 0) ? count : index;
  if (place < 0) return;
  if (insert || place == count) MakeRoom(place);
  insert = false;
  elemNo_[place] = std::move(elemNo);
  section_[place] = section;
  slope1_[place] = slope1;
  slope2_[place] = slope2;
}

void SkvFile::MakeRoom(int index) {
  elemNo_.Insert(index, {});
  for (auto* array : {&section_, &slope1_, &slope2_}) array->Insert(index, 0.0);
}

void SkvFile::DeleteElement(int index) {
  if (index < 0 || index >= section_.GetCount()) return;
  elemNo_.Remove(index);
  for (auto* array : {&section_, &slope1_, &slope2_}) array->Remove(index);
}

void SkvFile::Delete() { *this = SkvFile(); }

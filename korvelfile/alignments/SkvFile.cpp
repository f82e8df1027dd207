#include "korvelfile/alignments/SkvFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "korvelfile/coordinates/internal/PxyRecord.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/Ghal.h"

namespace {

constexpr int kProxyType = 3;
constexpr int kFailure = -9;
constexpr double kPercent = 100.0;

// A record is that of a coordinate file, with the chainage for y and the slopes for x and z, in per
// cent, and no further texts.
using internal::PxyRecord;
using RecordBytes = std::array<char, internal::kPxyLineSize>;

// An element whose numbers are too wide is cut here.
constexpr std::size_t kLongestRecord = 78;

bool ReadRecord(GeoFile& file, RecordBytes& bytes) {
  return _FileIO::ReadFile(file, bytes.data(), bytes.size()) == 0;
}

PxyRecord ParseElement(const RecordBytes& bytes) {
  PxyRecord record;
  ColumnReader columns({bytes.data(), bytes.size()});
  internal::StreamPxyColumns(columns, record);
  constexpr std::string_view kNumberEnd(" \0", 2);
  record.name = record.name.substr(0, record.name.find_first_of(kNumberEnd));
  return record;
}

void WriteRecord(GeoFile& file, const PxyRecord& record) {
  std::array<char, internal::kPxyLongestLine> line;
  const char* const end = internal::PutPxyRecord(line.data(), record);
  const auto size = static_cast<std::size_t>(end - line.data());
  _FileIO::WriteFile(file, line.data(), std::min(size, kLongestRecord));
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
    const PxyRecord record = ParseElement(bytes);
    elemNo_.Append(std::string(record.name));
    section_.Append(record.y);
    slope1_.Append(record.x / kPercent);
    slope2_.Append(record.z / kPercent);
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
  internal::WritePxyHeader(file);
  for (int i = 0; i < section_.GetCount(); ++i) {
    const std::string_view elemNo = elemNo_[i].c_str();
    WriteRecord(file, {elemNo, section_[i], slope1_[i] * kPercent, slope2_[i] * kPercent});
  }
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

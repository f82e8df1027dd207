#include "korvelfile/measurements/LevFile.h"

#include <new>
#include <string_view>

#include "korvelfile/data/ObjectText.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/data/internal/ReadItem.h"
#include "korvelfile/measurements/LevRecordItem.h"
#include "korvelfile/outside/base/FilePath.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/Text.h"

namespace {

constexpr const char* kKeyword = "LevRec";
constexpr int kRowVersion = 0;

constexpr int kCannotWrite = -1;
constexpr int kBadRow = -5;
constexpr int kCannotOpen = -9;
constexpr int kWrongExtension = -9;
constexpr int kOutOfMemory = -10;

}  // namespace

void LevFile::SetFile(const std::wstring& path) { path_ = Narrow(path); }

std::wstring LevFile::GetFile() const { return Widen(path_); }

int LevFile::InitCollectorFileNoDisk() {
  const ScopedDataCollectionLock lock(*this);
  ClearListObject();
  return 0;
}

int LevFile::CreateCollectorFile() {
  const ScopedDataCollectionLock lock(*this);
  InitCollectorFileNoDisk();
  return WriteCollectorFile();
}

void LevFile::FreeCollector() { ClearListObject(); }

int LevFile::ReadCollectorFile() {
  try {
    return ReadLevFile();
  } catch (const std::bad_alloc&) {
    return kOutOfMemory;
  }
}

int LevFile::ReadLevFile() {
  _GHAL::SystemMessage("Read collector file begin...");
  ClearListObject();
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kRead, true) != 0) {
    _GHAL::SystemMessage("Can't open: " + path_);
    return kCannotOpen;
  }
  GeoFileTextInputStream in(file);
  const int result = ReadRecords(in);
  if (result != 0) return result;
  _GHAL::SystemMessage("Read collector file end.");
  return _FileIO::CloseFile(file);
}

int LevFile::ReadRecords(GeoFileTextInputStream& in) {
  while (in.CheckObjectName(kKeyword)) {
    if (internal::ReadItem<LevRecordItem>(in, *this, kKeyword, kRowVersion)) continue;
    SetFaultLine(in.GetLineNumber());
    _GHAL::SystemMessage("Failed to read Line in: " + path_);
    return kBadRow;
  }
  return 0;
}

int LevFile::WriteCollectorFile() {
  if (!EqualNoCase(Korvel::FilePathT(path_).GetExtension(), "lvt")) return kWrongExtension;
  return WriteLevFile();
}

int LevFile::WriteLevFile() {
  const ScopedDataCollectionLock lock(*this);
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kReplace, false) != 0) {
    _GHAL::SystemMessage("Can't create lev-file!");
    return kCannotWrite;
  }
  TypedItemCursor<LevRecordItem> cursor(*this);
  LevRecordItem* record = nullptr;
  std::string row;
  while (cursor.Next(record) == 0) {
    WriteObjectRow(0, row, kKeyword, record, kRowVersion);
    _FileIO::WriteFile(file, row);
  }
  _GHAL::SystemMessage("Wrote lev file.");
  return _FileIO::CloseFile(file);
}

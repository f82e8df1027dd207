#include "korvelfile/measurements/MeasurementFile.h"

#include <cstddef>
#include <new>
#include <string_view>

#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/FileHeaderRows.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/PlmTypes.h"
#include "korvelfile/measurements/PrecisionDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/measurements/internal/PlmReader.h"
#include "korvelfile/measurements/internal/PlmWriter.h"
#include "korvelfile/outside/base/FilePath.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Time.h"

namespace {

constexpr const char* kFileType = "Polar measurements";

constexpr int kWrongForm = -9;
constexpr int kOutOfMemory = -10;

// The two lines of the short form, of today.
std::string BackupHeader() {
  const GeoDate today = _Time::GetDateLocal();
  return SF::dformat("%s,V1.00,%d-%02d-%02d,%50s,\r\n", "SRV_POINT INMFIL", today.year, today.month,
                     today.day, "") +
         SF::dformat("%-40.40s,%43s,\r\n", "Marlin backup file", "");
}

}  // namespace

void MeasurementFile::ChooseFile(const char* path) {
  path_ = path ? path : "nofile.plm";
  fileName_ = Korvel::FileNameOf(path_);
}

PrecisionDataItem* MeasurementFile::GetPrecision() { return FindFirst<PrecisionDataItem>(*this); }

void MeasurementFile::AddFileInfo(const std::string& key, const std::string& value) {
  const Korvel::scoped_lock<DataItemListObject> lock(*this);
  if (empty()) return;
  if (auto* header = dynamic_cast<FileHeader*>(&front())) header->SetInfo(key, value);
}

void MeasurementFile::AddFileAttribute(const GeoAttrib& attribute) {
  if (auto* attributes = FindFirst<GeoAttribList>(*this)) {
    attributes->InsertItem(attribute.CreateCopy(), -1);
  }
}

void MeasurementFile::GenerateLines() {
  TypedItemCursor<StationDataItem> stations(*this);
  StationDataItem* station = nullptr;
  while (stations.Next(station) == 0) station->GenerateLines();
}

int MeasurementFile::InitCollectorFileNoDisk() {
  const ScopedDataCollectionLock lock(*this);
  ClearListObject();
  InsertItem(new FileHeader(kFileType, PlmTypes::kVersion), -1);
  InsertItem(new PrecisionDataItem, -1);
  InsertItem(new GeoAttribList, -1);
  return 0;
}

int MeasurementFile::CreateCollectorFile() {
  const ScopedDataCollectionLock lock(*this);
  InitCollectorFileNoDisk();
  return WriteCollectorFile();
}

int MeasurementFile::ReadCollectorFile() {
  ForgetExtent();
  try {
    return ReadPlmFile();
  } catch (const std::bad_alloc&) {
    return kOutOfMemory;
  }
}

int MeasurementFile::ReadPlmFile() {
  _GHAL::SystemMessage("Read collector file begin...");
  ClearListObject();
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kRead, true) != 0) {
    return Failure("can't open plm-file!");
  }
  GeoFileTextInputStream in(file);
  if (!internal::PlmReader(in).Read(*this)) {
    SetFaultLine(in.GetLineNumber());
    _GHAL::SystemMessage("Invalid Plm-file format");
    return kWrongForm;
  }
  _GHAL::SystemMessage("Read collector file end.");
  return _FileIO::CloseFile(file);
}

int MeasurementFile::WriteCollectorFile() {
  const std::size_t dot = path_.rfind('.');
  if (dot == std::string::npos) return kWrongForm;
  const std::string_view extension = std::string_view(path_).substr(dot + 1);
  const bool isBackup = EqualNoCase(extension, "inm") || EqualNoCase(extension, "bkp");
  return isBackup ? WriteInmFile() : WritePlmFile();
}

int MeasurementFile::WriteInmFile() {
  const ScopedDataCollectionLock lock(*this);
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kReplace, false) != 0) return kWrongForm;
  _FileIO::WriteFile(file, BackupHeader());
  return _FileIO::CloseFile(file);
}

// Whatever returns before the file is closed leaves the old one in place.
int MeasurementFile::WritePlmFile() {
  const ScopedDataCollectionLock lock(*this);
  ClearDirty();
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kReplace, false) != 0) {
    return Failure("can't create plm-file!");
  }
  if (!WriteFileHeader(file, this, PlmTypes::kVersion)) return Failure("File Header missing: ");
  internal::PlmWriter writer(file);
  if (!writer.WriteStations(*this)) return Failure("Lines are nested too deep: ");
  if (!writer.WritePrecision(*this)) return Failure("can't write precision to plm-file!");
  if (!writer.WriteFileAttributes(*this)) {
    _FileIO::CloseFile(file);
    return Failure("Failed to write Attributelist: ");
  }
  _GHAL::SystemMessage("Wrote PLM file.");
  return _FileIO::CloseFile(file);
}

int MeasurementFile::Failure(const char* message) const {
  _GHAL::SystemMessage(message);
  _GHAL::SystemMessage(path_);
  return kWrongForm;
}

#include "korvelfile/coordinates/PxyCoordinateFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/internal/PxyRecord.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/FileVersions.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/FilePath.h"
#include "korvelfile/outside/base/Ghal.h"
#include "korvelfile/outside/base/Text.h"

namespace {

constexpr int kWrongForm = -9;
constexpr int kNoMemory = -10;

// What follows the last "." of the path; false without one.
bool ExtensionOf(const std::string& path, std::string& extension) {
  const std::size_t dot = path.rfind('.');
  if (dot != std::string::npos) extension = path.substr(dot + 1);
  return dot != std::string::npos;
}

bool IsColumnText(const std::string& extension) {
  return EqualNoCase(extension, "pxy") || EqualNoCase(extension, "tun");
}

void RemoveLinksOfPoints(const DataItemListObject& list) {
  TypedItemCursor<PointDataItem> points(list);
  PointDataItem* point = nullptr;
  while (points.Next(point) == 0) point->SetLink(nullptr);
}

}  // namespace

PxyCoordinateFile::PxyCoordinateFile(bool readOnly) : isReadOnly_(readOnly) {}

PxyCoordinateFile::~PxyCoordinateFile() = default;

void PxyCoordinateFile::ChooseFile(const char* path) {
  path_ = path ? path : "nofile.pxy";
  fileName_ = Korvel::FileNameOf(path_);
}

FileHeader* PxyCoordinateFile::GetFileHeader() const {
  return dynamic_cast<FileHeader*>(GetItem(0));
}

LineDataItem* PxyCoordinateFile::CreateLine(const std::string& name, int /*unused*/) {
  auto* line = new LineDataItem;
  line->SetName(name);
  InsertItem(line, -1);
  return line;
}

void PxyCoordinateFile::RemoveLinks() {
  RemoveLinksOfPoints(*this);
  TypedItemCursor<LineDataItem> lines(*this);
  LineDataItem* line = nullptr;
  while (lines.Next(line) == 0) {
    line->SetLink(nullptr);
    RemoveLinksOfPoints(*line);
  }
}

int PxyCoordinateFile::GetProxyType() {
  if (isLlc_) return 11;
  return dataHolder_ ? 20 : 0;
}

void PxyCoordinateFile::FormatPxyRecord(char* buffer, int size, const char* name, double y,
                                        double x, double z, const char* pointCode,
                                        const char* specialCode, const char* remark) {
  if (size <= 0) return;
  std::array<char, internal::kPxyLongestLine> line;
  const char* end =
      internal::PutPxyRecord(line.data(), {name, y, x, z, pointCode, specialCode, remark});
  const auto length = std::min(end - line.data(), static_cast<std::ptrdiff_t>(size) - 1);
  *std::copy_n(line.data(), length, buffer) = '\0';
}

void PxyCoordinateFile::InitDataItems() {
  InsertItem(new FileHeader("Coordinate Document", giMarlinGeoFileVersion), -1);
  InsertItem(new GeoAttribList, -1);
}

int PxyCoordinateFile::InitCollectorFileNoDisk() {
  const ScopedDataCollectionLock lock(*this);
  ClearListObject();
  dataHolder_.reset();
  InitDataItems();
  return 0;
}

int PxyCoordinateFile::CreateCollectorFile() {
  const ScopedDataCollectionLock lock(*this);
  InitCollectorFileNoDisk();
  return WriteCollectorFile();
}

int PxyCoordinateFile::ReadCollectorFile() {
  ForgetExtent();
  std::string extension;
  if (!ExtensionOf(path_, extension)) return kWrongForm;
  ClearListObject();
  try {
    return ReadByExtension(extension);
  } catch (const std::bad_alloc&) {
    return kNoMemory;
  }
}

int PxyCoordinateFile::ReadByExtension(const std::string& extension) {
  isLlc_ = EqualNoCase(extension, "llc");
  dataHolder_.reset();
  if (IsColumnText(extension)) {
    InitDataItems();
    const bool isPxy = EqualNoCase(extension, "pxy");
    return isReadOnly_ ? ReadPxyFileSimple(isPxy) : ReadPxyFile(isPxy);
  }
  if (isLlc_) return ReadGeoFile();
  if (!EqualNoCase(extension, "geo")) return kWrongForm;
  return isReadOnly_ ? ReadGeoFileSimple() : ReadGeoFile();
}

int PxyCoordinateFile::WriteCollectorFile() {
  std::string extension;
  if (!ExtensionOf(path_, extension)) return kWrongForm;
  if (dataHolder_) {
    // The list lacks the points: writing it would empty the file.
    _GHAL::SystemMessage("File is open for reading only: ");
    _GHAL::SystemMessage(path_);
    return kWrongForm;
  }
  if (IsColumnText(extension)) return WritePxyFile();
  const bool isObjectText = EqualNoCase(extension, "geo") || EqualNoCase(extension, "llc");
  return isObjectText ? WriteGeoFile() : kWrongForm;
}

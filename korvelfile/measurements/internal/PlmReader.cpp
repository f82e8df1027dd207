#include "korvelfile/measurements/internal/PlmReader.h"

#include "korvelfile/data/AttributeRows.h"
#include "korvelfile/data/FileHeaderRows.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/data/internal/ReadItem.h"
#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/PlmTypes.h"
#include "korvelfile/measurements/PrecisionDataItem.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/measurements/internal/PlmKeywords.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"

namespace internal {

bool PlmReader::Read(DataItemListObject& file) {
  version_ = PlmTypes::kVersion;
  if (!ReadFileHeader(in_, &file, version_) || version_ > PlmTypes::kVersion) return false;
  if (!in_.CheckObjectName(plm::kStationList)) return false;
  in_.NextLine();
  return ReadStations(file) && ReadItem<PrecisionDataItem>(in_, file, plm::kPrecision, version_) &&
         ReadAttributeList(in_, &file, version_);
}

bool PlmReader::ReadStations(DataItemListObject& file) {
  if (!in_.TestForTag("begin")) return true;
  while (!EndsBlock(in_)) {
    auto* station = ReadItem<StationDataItem>(in_, file, plm::kStation, version_);
    if (!station || !ReadRecordBlock(*station, 0)) return false;
  }
  return true;
}

// The block of a station or a line; `depth` lines lie around what stands in it.
bool PlmReader::ReadRecordBlock(DataItemListObject& owner, int depth) {
  if (!in_.TestForTag("begin")) return true;
  while (!EndsBlock(in_)) {
    if (!ReadRecordList(owner, depth)) return false;
    if (!in_.CheckObjectName(plm::kAttributeList)) continue;
    if (!ReadAttributeList(in_, &owner, version_)) return false;
  }
  return true;
}

bool PlmReader::ReadRecordList(DataItemListObject& owner, int depth) {
  if (!in_.CheckObjectName(plm::kRecordList)) return false;
  in_.NextLine();
  if (!in_.TestForTag("begin")) return true;
  while (!EndsBlock(in_)) {
    const bool isRead =
        in_.CheckObjectName(plm::kRecord) ? ReadRecord(owner) : ReadLine(owner, depth + 1);
    if (!isRead) return false;
  }
  return true;
}

bool PlmReader::ReadRecord(DataItemListObject& owner) {
  auto* record = ReadItem<RecordDataItem>(in_, owner, plm::kRecord, version_);
  if (!record || !in_.TestForTag("begin")) return record;
  while (!EndsBlock(in_)) {
    if (!ReadAttributeList(in_, record, version_)) return false;
  }
  return true;
}

bool PlmReader::ReadLine(DataItemListObject& owner, int depth) {
  if (depth > plm::kDeepestLine || !in_.CheckObjectName(plm::kLine)) return false;
  auto* line = ReadItem<InmlineDataItem>(in_, owner, plm::kLine, version_);
  return line && ReadRecordBlock(*line, depth);
}

}  // namespace internal

#include "korvelfile/measurements/internal/PlmWriter.h"

#include "korvelfile/data/AttributeRows.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/PlmTypes.h"
#include "korvelfile/measurements/PrecisionDataItem.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/measurements/internal/PlmKeywords.h"
#include "korvelfile/outside/base/GeoFile.h"

namespace internal {

namespace {

// Tabs in front of the record block of a station, and how many more each line around it brings.
constexpr int kStationIndent = 1;
constexpr int kLineIndent = 2;

bool IsRecordOrLine(const DataItemInterface& item) {
  return dynamic_cast<const RecordDataItem*>(&item) || dynamic_cast<const InmlineDataItem*>(&item);
}

}  // namespace

void PlmWriter::WriteText(int indent, const char* text) {
  row_.clear();
  AppendIndent(row_, indent);
  row_ += text;
  row_ += "\r\n";
  _FileIO::WriteFile(file_, row_);
}

void PlmWriter::WriteRow(int indent, const char* keyword, Streamable& object) {
  WriteObjectRow(indent, row_, keyword, &object, PlmTypes::kVersion);
  _FileIO::WriteFile(file_, row_);
}

bool PlmWriter::WriteStations(const DataItemListObject& list) {
  WriteText(0, "InmStnList ");
  TypedItemCursor<StationDataItem> stations(list);
  StationDataItem* station = nullptr;
  bool hasStations = false;
  for (; stations.Next(station) == 0; hasStations = true) {
    if (!hasStations) WriteText(0, "begin");
    WriteRow(kStationIndent, plm::kStation, *station);
    if (!WriteRecordBlock(*station, 0)) return false;
  }
  if (hasStations) WriteText(0, "end");
  return true;
}

// The block of a station or a line; `depth` lines lie around what stands in it.
bool PlmWriter::WriteRecordBlock(DataItemListObject& owner, int depth) {
  if (depth > plm::kDeepestLine) return false;
  const int indent = kStationIndent + kLineIndent * depth;
  WriteText(indent, "begin");
  WriteText(indent + 1, "InmRecordList ");
  if (!WriteRecords(owner, depth)) return false;
  WriteAttributeList(file_, &owner, PlmTypes::kVersion, indent + 1);
  WriteText(indent, "end");
  return true;
}

bool PlmWriter::WriteRecords(const DataItemListObject& owner, int depth) {
  const int indent = kStationIndent + kLineIndent * depth + 1;
  TypedItemCursor<DataItemInterface> items(owner);
  DataItemInterface* item = nullptr;
  bool hasRecords = false;
  while (items.Next(item) == 0) {
    if (!IsRecordOrLine(*item)) continue;
    if (!hasRecords) WriteText(indent, "begin");
    hasRecords = true;
    if (!WriteItem(*item, depth)) return false;
  }
  if (hasRecords) WriteText(indent, "end");
  return true;
}

bool PlmWriter::WriteItem(DataItemInterface& item, int depth) {
  const int indent = kStationIndent + kLineIndent * (depth + 1);
  if (auto* record = dynamic_cast<RecordDataItem*>(&item)) {
    WriteRecord(*record, indent);
    return true;
  }
  auto& line = dynamic_cast<InmlineDataItem&>(item);
  WriteRow(indent, plm::kLine, line);
  return WriteRecordBlock(line, depth + 1);
}

void PlmWriter::WriteRecord(RecordDataItem& record, int indent) {
  WriteRow(indent, plm::kRecord, record);
  if (record.GetNumberOfItems() == 0) return;
  WriteText(indent, "begin");
  WriteAttributeList(file_, &record, PlmTypes::kVersion, indent + 1);
  WriteText(indent, "end");
}

bool PlmWriter::WritePrecision(const DataItemListObject& list) {
  auto* precision = FindFirst<PrecisionDataItem>(list);
  if (!precision) return false;
  WriteRow(0, plm::kPrecision, *precision);
  return true;
}

bool PlmWriter::WriteFileAttributes(DataItemListObject& list) {
  if (WriteAttributeList(file_, &list, PlmTypes::kVersion, 0)) return true;
  WriteText(0, "AttributeList ");
  return false;
}

}  // namespace internal

#include "tools/korvel/CollectorSummaries.h"

#include <map>
#include <set>
#include <string>

#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/data/AttributeFile.h"
#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/measurements/LevFile.h"
#include "korvelfile/measurements/LevRecordItem.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Text.h"
#include "tools/korvel/ItemWalk.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/SightedRecords.h"
#include "tools/korvel/ValueRange.h"

namespace {

using korvel::ForEach;
using korvel::Json;
using korvel::ValueRange;

using Counts = std::map<std::string, int>;

// As members "text": count; nothing is said of an empty text.
Json CountsJson(const Counts& counts) {
  Json json = Json::object();
  for (const auto& [text, count] : counts)
    if (!text.empty()) json[korvel::ToUtf8(text)] = count;
  return json;
}

int AttributeCount(const DataItemListObject& list) {
  int count = 0;
  ForEach<GeoAttribList>(list, [&](const GeoAttribList& l) { count += l.GetNumberOfItems(); });
  return count;
}

void AddHeader(const DataItemListObject& file, Json& summary) {
  const auto* header = FindFirst<FileHeader>(file);
  if (!header) return;
  const int version = header->GetVersion();
  if (header->IsValid())
    summary["version"] = SF::dformat("%d.%02d", version >> 16, version & 0xFFFF);
  if (!header->GetFileType().empty()) summary["type"] = korvel::JsonText(header->GetFileType());
  Json infos = Json::object();
  ForEach<FileInfo>(*header, [&](const FileInfo& info) {
    if (!info.GetValue().empty())
      infos[korvel::ToUtf8(info.GetName())] = korvel::JsonText(info.GetValue());
  });
  if (!infos.empty()) summary["header"] = infos;
}

// What the points of a coordinate file have in common.
struct PointStatistics {
  ValueRange east, north, height;
  Counts codes, specialCodes;
  int attributes = 0;

  int AddAll(const DataItemListObject& list) {
    int count = 0;
    ForEach<PointDataItem>(list, [&](const PointDataItem& point) {
      ++count;
      Add(point);
    });
    return count;
  }
  void Add(const PointDataItem& point) {
    east.Add(point.x);
    north.Add(point.y);
    height.Add(point.z);
    ++codes[point.GetPointCode()];
    ++specialCodes[point.GetSpecialCode()];
    attributes += AttributeCount(point);
  }
};

struct StationCounts {
  Counts types, codes;
  int records = 0;
  int lines = 0;
};

StationCounts CountRecords(const StationDataItem& station) {
  StationCounts counts;
  std::set<const InmlineDataItem*> lines;
  for (const korvel::SightedRecord& sighted : korvel::RecordsOf(station)) {
    ++counts.records;
    ++counts.types[std::to_string(sighted.record->Type)];
    ++counts.codes[sighted.record->PointCode];
    if (sighted.line) lines.insert(sighted.line);
  }
  counts.lines = static_cast<int>(lines.size());
  return counts;
}

Json StationJson(const StationDataItem& station, const StationCounts& counts) {
  Json json = {{"name", korvel::JsonText(station.NameText())},
               {"instrument_height", korvel::JsonNumber(station.InstrumentHeight)},
               {"records", counts.records},
               {"records_by_type", CountsJson(counts.types)}};
  if (counts.lines > 0) json["lines"] = counts.lines;
  if (korvel::IsKnown(station.Date) && station.Date > 0.0)
    json["date"] = korvel::JsonText(station.GetDateText());
  return json;
}

void AddAll(const Counts& from, Counts& to) {
  for (const auto& [text, count] : from) to[text] += count;
}

}  // namespace

void korvel::AddCoordinates(const PxyCoordinateFile& file, Json& summary) {
  AddHeader(file, summary);
  PointStatistics points;
  const int freePoints = points.AddAll(file);
  int lines = 0;
  int linePoints = 0;
  Counts lineCodes;
  ForEach<LineDataItem>(file, [&](const LineDataItem& line) {
    ++lines;
    ++lineCodes[line.CodeText()];
    linePoints += points.AddAll(line);
  });
  summary.update({{"points", freePoints},
                  {"lines", lines},
                  {"points_in_lines", linePoints},
                  {"attributes", AttributeCount(file) + points.attributes},
                  {"east", points.east.ToJson()},
                  {"north", points.north.ToJson()},
                  {"height", points.height.ToJson()},
                  {"codes", CountsJson(points.codes)},
                  {"special_codes", CountsJson(points.specialCodes)},
                  {"line_codes", CountsJson(lineCodes)}});
}

void korvel::AddMeasurements(const MeasurementFile& file, Json& summary) {
  AddHeader(file, summary);
  StationCounts all;
  Json stations = Json::array();
  ForEach<StationDataItem>(file, [&](const StationDataItem& station) {
    const StationCounts counts = CountRecords(station);
    stations.push_back(StationJson(station, counts));
    all.records += counts.records;
    AddAll(counts.types, all.types);
    AddAll(counts.codes, all.codes);
  });
  summary.update({{"stations", stations.size()},
                  {"records", all.records},
                  {"records_by_type", CountsJson(all.types)},
                  {"attributes", AttributeCount(file)},
                  {"codes", CountsJson(all.codes)},
                  {"station_list", std::move(stations)}});
}

void korvel::AddLevelling(const LevFile& file, Json& summary) {
  int readings = 0;
  ValueRange heights;
  Counts types, codes;
  std::set<std::wstring> points;
  ForEach<LevRecordItem>(file, [&](const LevRecordItem& record) {
    ++readings;
    points.insert(record.GetPointName());
    ++types[std::to_string(record.GetLevType())];
    ++codes[Narrow(record.GetCode())];
    heights.Add(record.GetHeight());
  });
  summary.update({{"readings", readings},
                  {"points", points.size()},
                  {"readings_by_type", CountsJson(types)},
                  {"height", heights.ToJson()},
                  {"codes", CountsJson(codes)}});
}

void korvel::AddAttributeDefinitions(const AttributeFile& file, Json& summary) {
  AddHeader(file, summary);
  Json contexts = Json::object();
  ForEach<GeoAttribContext>(file, [&](const GeoAttribContext& context) {
    Json names = Json::array();
    ForEach<GeoAttribType>(
        context, [&](const GeoAttribType& type) { names.push_back(JsonText(type.Name)); });
    contexts[ToUtf8(context.Name)] = std::move(names);
  });
  summary["contexts"] = std::move(contexts);
}

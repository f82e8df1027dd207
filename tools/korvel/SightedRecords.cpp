#include "tools/korvel/SightedRecords.h"

#include "korvelfile/measurements/InmlineDataItem.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"

namespace {

void Collect(const DataItemListObject& list, const InmlineDataItem* line,
             std::vector<korvel::SightedRecord>& records) {
  for (const DataItemInterface& item : list) {
    if (const auto* record = dynamic_cast<const RecordDataItem*>(&item)) {
      records.push_back({record, line});
    } else if (const auto* inner = dynamic_cast<const InmlineDataItem*>(&item)) {
      Collect(*inner, inner, records);
    }
  }
}

}  // namespace

std::string korvel::SightedRecord::LineName() const { return line ? line->NameText() : ""; }

std::vector<korvel::SightedRecord> korvel::RecordsOf(const StationDataItem& station) {
  std::vector<SightedRecord> records;
  Collect(station, nullptr, records);
  return records;
}

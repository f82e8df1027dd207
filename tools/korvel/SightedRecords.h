#pragma once

#include <string>
#include <vector>

class InmlineDataItem;
class RecordDataItem;
class StationDataItem;

namespace korvel {

/// A record of a station, with the line that it stands in.
struct SightedRecord {
  const RecordDataItem* record = nullptr;
  const InmlineDataItem* line = nullptr;  ///< null outside of lines; of nested ones the innermost

  /// Name of the line, or "".
  std::string LineName() const;
};

/// All records of a station in measuring order, those of its lines among them.
/// @return pointers that live as long as the station's list stays as it is
std::vector<SightedRecord> RecordsOf(const StationDataItem& station);

}  // namespace korvel

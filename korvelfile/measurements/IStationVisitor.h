#pragma once

#include "korvelfile/Export.h"

class InmlineDataItem;
class RecordDataItem;
class StationDataItem;

/// What an application does with each part of a station, see `StationDataItem::Accept`.
///
/// Each operation runs with the mutex of the list that it came from held by the calling thread.
class KORVELFILE_EXPORT IStationVisitor {
 public:
  /// First and once: the station itself.
  virtual void VisitStation(StationDataItem& station) = 0;

  /// A record directly in a direct line, after that line.
  virtual void VisitLineRecord(StationDataItem& station, InmlineDataItem& line,
                               RecordDataItem& record) = 0;

  /// A direct record of the station; all of them come before the first line.
  virtual void VisitRecord(StationDataItem& station, RecordDataItem& record) = 0;

  /// A direct line of the station. Lines within it are not visited.
  virtual void VisitLine(StationDataItem& station, InmlineDataItem& line) = 0;

  virtual ~IStationVisitor();
};

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
  virtual void VisitStation(StationDataItem& station) = 0;
  virtual void VisitLineRecord(StationDataItem& station, InmlineDataItem& line,
                               RecordDataItem& record) = 0;
  virtual void VisitRecord(StationDataItem& station, RecordDataItem& record) = 0;
  virtual void VisitLine(StationDataItem& station, InmlineDataItem& line) = 0;

  virtual ~IStationVisitor();
};

#pragma once

#include "korvelfile/outside/base/Export.h"

/// A date and time of day in the calendar, in the order of a broken-down time.
struct GeoDate {
  int second = 0;
  int minute = 0;
  int hour = 0;
  int day = 0;
  int month = 0;  ///< 1 to 12
  int year = 0;   ///< with its century

  friend bool operator==(const GeoDate&, const GeoDate&) = default;
};

class KORVELBASE_EXPORT _Time {
 public:
  /// Date and time of now in the local time zone.
  static GeoDate GetDateLocal();
};

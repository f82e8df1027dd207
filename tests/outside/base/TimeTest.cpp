#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Time.h"

namespace {

// Seconds since 1970 in the local time zone of now.
std::time_t SecondsOf(const GeoDate& date) {
  std::tm parts{};
  parts.tm_sec = date.second;
  parts.tm_min = date.minute;
  parts.tm_hour = date.hour;
  parts.tm_mday = date.day;
  parts.tm_mon = date.month - 1;
  parts.tm_year = date.year - 1900;
  parts.tm_isdst = -1;
  return std::mktime(&parts);
}

TEST(Time, LocalDateIsNow) {
  for (const char* zone : {"UTC0", "XXX-14", "XXX12"}) {  // both sides of the date line
    setenv("TZ", zone, 1);
    tzset();
    const std::time_t before = std::time(nullptr);
    const std::time_t told = SecondsOf(_Time::GetDateLocal());
    EXPECT_LE(before, told) << zone;
    EXPECT_LE(told, std::time(nullptr)) << zone;
  }
  unsetenv("TZ");
  tzset();
}

}  // namespace

#include "korvelfile/outside/base/Time.h"

#include <ctime>

GeoDate _Time::GetDateLocal() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_sec,  local.tm_min,     local.tm_hour,
          local.tm_mday, local.tm_mon + 1, local.tm_year + 1900};
}

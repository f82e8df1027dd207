#include "korvelfile/measurements/internal/FreeStnParts.h"

#include <algorithm>
#include <climits>
#include <utility>

namespace {

template <class Predicate>
bool IsCount(int count, const FreeStn& station, Predicate predicate) {
  return count == std::count_if(station.Backsights.begin(), station.Backsights.end(), predicate);
}

}  // namespace

bool FreeStnParts::CountersFit(const FreeStn& station) {
  const auto isGps = [](const CBacksight& b) { return b.IsGps; };
  const auto hasDistance = [](const CBacksight& b) { return b.HasDistance(); };
  const auto hasHeightDiff = [](const CBacksight& b) { return b.HasHeightDiff(); };
  return std::cmp_equal(station.BacksightCount, station.Backsights.size()) &&
         IsCount(station.GpsCount, station, isGps) &&
         IsCount(station.DistanceCount, station, hasDistance) &&
         IsCount(station.HeightCount, station, hasHeightDiff);
}

bool FreeStnParts::FitsNewmat(std::int64_t m, std::int64_t u) { return m * u <= INT_MAX; }

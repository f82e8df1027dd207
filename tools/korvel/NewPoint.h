#pragma once

#include <memory>
#include <string>

class InmlineDataItem;
class PointDataItem;

namespace korvel {

/// A point computed from an established station.
struct NewPoint {
  std::shared_ptr<PointDataItem> point;   ///< name, codes, attributes, (E, N, H)
  const InmlineDataItem* line = nullptr;  ///< that its record stands in, or null
};

}  // namespace korvel

#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>

#include "tools/korvel/JsonText.h"
#include "tools/korvel/NumberFormat.h"

namespace korvel {

/// Least, largest and mean of some numbers, and how many aren't known.
struct ValueRange {
  double least = std::numeric_limits<double>::max();
  double most = std::numeric_limits<double>::lowest();
  double sum = 0.0;
  std::size_t count = 0;
  std::size_t missing = 0;

  void Add(double value) {
    if (!IsKnown(value)) {
      ++missing;
      return;
    }
    ++count;
    sum += value;
    least = std::min(least, value);
    most = std::max(most, value);
  }

  /// Not to be asked for without numbers.
  double Mean() const { return sum / static_cast<double>(count); }

  /// Members "min", "max", null without numbers, and "missing".
  Json ToJson() const {
    return {{"min", count > 0 ? Json(least) : Json(nullptr)},
            {"max", count > 0 ? Json(most) : Json(nullptr)},
            {"missing", missing}};
  }
};

}  // namespace korvel

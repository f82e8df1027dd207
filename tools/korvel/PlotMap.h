#pragma once

#include <string>
#include <vector>

#include "korvelfile/outside/base/Vector.h"

namespace korvel {

/// The largest of 1, 2 and 5 times a power of ten that is not above `limit`.
/// @param limit > 0
double RoundLength(double limit);

/// The page and how the ground lies on it: north up, to a round scale.
class PlotMap {
 public:
  /// Chooses upright or oblong A4, whichever shows the places larger.
  /// @param places on the ground (E, N), metres, at least one
  explicit PlotMap(const std::vector<Vector>& places);

  double GetPageWidth() const { return page_.x; }
  double GetPageHeight() const { return page_.y; }

  /// Upper left corner and size of the map's frame, in points.
  const Vector& GetCorner() const { return corner_; }
  const Vector& GetSize() const { return size_; }

  /// Left edge of the panel beside the map, and its width, in points.
  double GetPanelLeft() const;
  double GetPanelWidth() const;

  /// The place on the page of one on the ground.
  Vector ToPage(const Vector& ground) const;
  /// The ground under a place on the page.
  Vector ToGround(const Vector& page) const;

  double GetPointsPerMetre() const { return scale_; }

  /// "1:500", or "20:1" where the page is larger than the ground.
  std::string GetScaleText() const;

 private:
  Vector page_;
  Vector corner_;
  Vector size_;
  Vector centre_;  ///< on the ground
  double scale_ = 1.0;
  double denominator_ = 1.0;
};

}  // namespace korvel

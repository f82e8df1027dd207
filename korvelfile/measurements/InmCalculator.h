#pragma once

#include "korvelfile/Export.h"

class PointDataItem;
class RecordDataItem;
class StationDataItem;

/// Computes points from an established station.
class KORVELFILE_EXPORT InmCalculator {
 public:
  InmCalculator() = default;
  InmCalculator(const InmCalculator& other) = default;
  InmCalculator& operator=(const InmCalculator& other) = default;
  virtual ~InmCalculator();

  /// Computes the point that `record` sights.
  ///
  /// `point` gets the record's name, point code and attributes, and its position (E, N, H) from the
  /// station's `Coordinates` and `ZeroAngle`, with the atmosphere applied where the instrument
  /// hasn't. Without a distance it lies on the station, without a height of the station or of the
  /// sight its z is undefined. A special code that the reductions know is an instruction to them:
  /// it leaves the point's special code and remark as they were; any other passes to the point with
  /// its remark.
  ///
  /// @param station    established before: an undefined `ZeroAngle` counts as the tiny number it is
  /// @param heightDiff receives the height difference from station mark to point, metres or
  ///   undefined; may be null
  void CalcPoint(const StationDataItem& station, const RecordDataItem& record, PointDataItem& point,
                 double* heightDiff) const;
};

#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/measurements/PlmTypes.h"
#include "korvelfile/outside/base/Undefined.h"

/// The a-priori accuracy of an instrument, as standard errors.
class KORVELFILE_EXPORT PrecisionDataItem : public DataItem<PrecisionDataItem>,
                                            public DataItemListObject,
                                            public Streamable {
 public:
  double AngleError = kUndefined;     ///< of a horizontal direction, radians
  double VerticalError = kUndefined;  ///< of a vertical angle, radians
  double DistanceError = kUndefined;  ///< of a distance, constant part, metres
  double DistancePpm = kUndefined;    ///< of a distance, part that grows with it, ppm
  double FifthError = kUndefined;     ///< carried for the application

  PrecisionDataItem() = default;
  PrecisionDataItem(const PrecisionDataItem& other) = default;
  PrecisionDataItem& operator=(PrecisionDataItem other);
  ~PrecisionDataItem() override = default;

  /// True if none of the first four fields is undefined.
  bool IsValid() const;

  int GetVersion() const override { return PlmTypes::kVersion; }
  void Stream(DataStream& stream, int version) override;
};

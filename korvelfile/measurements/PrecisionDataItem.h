#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/measurements/PlmTypes.h"
#include "korvelfile/outside/base/Undefined.h"

/// The a-priori accuracy of an instrument, as standard errors; undefined where nothing is known.
///
/// A measurement file holds one for all its stations. A station may hold its own for a free
/// station, see `StationDataItem::GetFreeStationAPriori`.
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

  /// The version of the `.plm` format.
  int GetVersion() const override { return PlmTypes::kVersion; }
  /// The fields in the order above; the fifth from `PlmTypes::kFifthError` on.
  void Stream(DataStream& stream, int version) override;
};

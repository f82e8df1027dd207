#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/measurements/PlmTypes.h"

/// The fields of a record, members of every `RecordDataItem`. Metres and radians.
struct RecordFields {
  PlmTypes::inm_rec_t Type = PlmTypes::RecordAny;
  std::string PointCode;
  std::string SpecialCode;      ///< one of `SpCode`, or any other text
  std::string Remark;           ///< holds a number with the codes "LL", "LH", "SM" and "Z+"
  double Distance = 0.0;        ///< as measured; 0.0 or undefined means that none was measured
  double HorAngle = 0.0;        ///< horizontal circle reading, clockwise
  double Vertical = 0.0;        ///< zenith angle, above pi in the second face; or a height
                                ///< difference, see `StationFields::VerticalIsHeightDiff`
  double TargetHeight = 0.0;    ///< of the target above the point
  double DistanceOffset = 0.0;  ///< constant of the target, added along the line of sight
};

/// One observed point. The item name is the point name; it can carry a line number in front, as in
/// "12.1004".
///
/// Its list holds its `GeoAttribList`. The attributes that the library knows: "FSBU", see
/// `BacksightUsage`; "GpsE", "GpsN", "GpsH", the point's position measured by satellite, with
/// "GpsPrismOffset", the height of the antenna above the prism; "sE", "sN", "sZ", "sR", standard
/// errors of that position in east, north, height and radially. All in metres.
class KORVELFILE_EXPORT RecordDataItem : public DataItem<RecordDataItem>,
                                         public DataItemListObject,
                                         public Streamable,
                                         public RecordFields {
 public:
  /// Bits of the attribute "FSBU" that tell to what use a free station puts a backsight. Their
  /// single meanings, and those of all other bits, are the application's.
  enum BacksightUsage : int {
    AnyBacksightUsage = 7  ///< as a mask: used in any way
  };

  RecordDataItem() = default;
  /// Copies all fields, and all items of the list.
  RecordDataItem(const RecordDataItem& other) = default;
  RecordDataItem& operator=(RecordDataItem other);
  ~RecordDataItem() override = default;

  /// Copies the name and all fields; the list stays as it is.
  void CopyShallow(const RecordDataItem& other);

  /// The name up to the first `separator`, or nothing if it has none.
  std::string GetLineNo(char separator) const;

  /// Cuts the name down to what follows the first `separator`, if it has one.
  void RemoveLineNo(char separator);

  /// True if this name and `otherName` have the same, non-empty line number before the first ".".
  bool ConnectedTo(const std::string& otherName) const;

  /// True if the attribute "FSBU" exists.
  bool IsBacksightUsageInitialized() const;

  /// True if "FSBU" exists and has a bit of `mask`. An empty value has none.
  bool IsUsingBacksight(BacksightUsage mask) const;

  /// Sets the bits of `usage` in "FSBU", which starts at 0.
  void AddBacksightUsage(BacksightUsage usage);

  /// Clears the bits of `usage` in "FSBU", which starts at 0.
  void RemoveBacksightUsage(BacksightUsage usage);

  /// The version of the `.plm` format.
  int GetVersion() const override { return PlmTypes::kVersion; }

  /// The fields of the row, in file order; a blank `Type` is `PlmTypes::RecordAny`.
  void Stream(DataStream& stream, int version) override;
};

#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/measurements/PlmTypes.h"

/// Records of a station that belong to one line or polygon.
///
/// The item name is the line number. The list holds records and further lines in measuring order,
/// and may hold a `GeoAttribList`; a file takes lines within lines up to 256 deep.
class KORVELFILE_EXPORT InmlineDataItem : public DataItem<InmlineDataItem>,
                                          public DataItemListObject,
                                          public Streamable {
 public:
  unsigned char Polygon = 0;  ///< not 0: the last point joins the first
  std::string Code;           ///< line code

  InmlineDataItem() = default;
  /// Copies all fields, and all items of the list.
  InmlineDataItem(const InmlineDataItem& other) = default;
  InmlineDataItem& operator=(InmlineDataItem other);
  ~InmlineDataItem() override = default;

  const std::string& GetCode() const { return Code; }
  /// @param code not null
  void SetCode(const char* code) { Code = code; }

  bool IsPolygon() const { return Polygon != 0; }
  void SetPolygon(bool isPolygon) { Polygon = isPolygon ? 1 : 0; }

  /// The version of the `.plm` format.
  int GetVersion() const override { return PlmTypes::kVersion; }
  /// Name, `Polygon`, code; the same in all versions.
  void Stream(DataStream& stream, int version) override;
};

#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/outside/base/Time.h"

class GeoAttribList;

/// One free attribute of an item: a name and a value, both text.
///
/// The attributes of an object hang in the first `GeoAttribList` of its child list, which the
/// static operations take. Names are compared without regard to case. An empty value means that
/// the attribute has none.
class KORVELFILE_EXPORT GeoAttrib : public DataItem<GeoAttrib>,
                                    public DataItemListObject,
                                    public virtual Streamable {
 public:
  std::string Name;
  std::string Value;

  GeoAttrib() = default;
  GeoAttrib(const std::string& name, const std::string& value);
  GeoAttrib(const GeoAttrib& other) = default;
  GeoAttrib& operator=(GeoAttrib other);
  ~GeoAttrib() override = default;

  /// The first attribute list in `list`, or null; null for a null `list`.
  static GeoAttribList* GetAttribList(const DataItemListObject* list);

  /// The first attribute of this name, or null; null for a null `list`.
  static GeoAttrib* GetAttribute(const DataItemListObject* list, const char* name);

  /// Puts an attribute with a text. The attribute list is made if there is none.
  /// @param append true adds one more, even of the same name; false replaces an existing value
  /// @return the attribute, owned by the list
  static GeoAttrib* PutAttribute(DataItemListObject* list, const char* name, const char* value,
                                 bool append);

  /// Puts a number as "%.*f", or as "%.15e" if `decimals` is 0; undefined gives an empty value.
  static GeoAttrib* PutAttribute(DataItemListObject* list, const char* name, double value,
                                 int decimals, bool append);

  /// Puts a whole number; `kUndefinedInt` gives an empty value.
  static GeoAttrib* PutIntAttribute(DataItemListObject* list, const char* name, int value,
                                    bool append);

  /// Puts a date and time, see `PutDateTimeValue`.
  static GeoAttrib* PutDateTimeAttribute(DataItemListObject* list, const char* name, double value,
                                         bool append);

  /// Puts a number in place of an existing one; undefined deletes the attribute.
  static void PutOrDeleteDoubleAttribute(DataItemListObject* list, const char* name, double value,
                                         int decimals);

  /// Deletes the first attribute of this name, and the attribute list with the last one.
  static void DeleteAttribute(DataItemListObject* list, const char* name);

  /// `DeleteAttribute` for each of the comma-separated `names`.
  static void DeleteAttributes(DataItemListObject* list, const std::string& names);

  /// The value as a number; 0 for other text, undefined for an empty value.
  double GetDoubleValue() const;

  /// The value as a number of the form YYYYMMDD.HHMMSS; undefined for an empty value.
  double GetDateTimeValue() const { return GetDoubleValue(); }

  /// The value as a whole number; 0 for other text, `kUndefinedInt` for an empty value.
  int GetIntValue() const;

  /// The date-and-time value taken apart; all 0 for an empty value or one beyond eight digits.
  GeoDate GetGeoDateValue() const;

  void PutDoubleValue(double value);
  void PutIntValue(int value);

  /// Stores a number of the form YYYYMMDD.HHMMSS with six decimals. Below 1000000 its year has two
  /// digits: from 80 they belong to the 20th century, else to the 21st. Undefined empties.
  void PutDateTimeValue(double value);

  /// Writes the row of object text into `buffer`, with a terminator.
  /// @param buffer room for the indentation, twice the length of both texts, and 20 bytes
  /// @return length of the row in bytes
  int SprintfStream(char* buffer, const char* indent);

  int GetVersion() const override;
  void Stream(DataStream& stream, int version) override;
};

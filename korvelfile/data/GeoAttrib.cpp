#include "korvelfile/data/GeoAttrib.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "korvelfile/data/FileVersions.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/DataStream.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

constexpr double kFirstFullDate = 1000000;  // below it a date has a two-digit year
constexpr double kFirstOfLastCentury = 800000;
constexpr double kLastCentury = 19000000;
constexpr double kThisCentury = 20000000;
constexpr double kMostDate = 1e9;

GeoAttribList& AttribListOf(DataItemListObject& list) {
  if (GeoAttribList* attributes = GeoAttrib::GetAttribList(&list)) return *attributes;
  auto* attributes = new GeoAttribList;
  list.InsertItem(attributes, -1);
  return *attributes;
}

GeoAttrib* PutEmpty(DataItemListObject* list, const char* name, bool append) {
  return GeoAttrib::PutAttribute(list, name, "", append);
}

}  // namespace

GeoAttrib::GeoAttrib(const std::string& name, const std::string& value)
    : Name(name), Value(value) {}

GeoAttrib& GeoAttrib::operator=(GeoAttrib other) {
  DataItem<GeoAttrib>::operator=(other);
  DataItemListObject::Swap(other);
  Name.swap(other.Name);
  Value.swap(other.Value);
  return *this;
}

GeoAttribList* GeoAttrib::GetAttribList(const DataItemListObject* list) {
  return list ? FindFirst<GeoAttribList>(*list) : nullptr;
}

GeoAttrib* GeoAttrib::GetAttribute(const DataItemListObject* list, const char* name) {
  const GeoAttribList* attributes = GetAttribList(list);
  if (!attributes) return nullptr;
  TypedItemCursor<GeoAttrib> cursor(*attributes);
  GeoAttrib* attribute = nullptr;
  while (cursor.Next(attribute) == 0) {
    if (EqualNoCase(attribute->Name, name)) return attribute;
  }
  return nullptr;
}

GeoAttrib* GeoAttrib::PutAttribute(DataItemListObject* list, const char* name, const char* value,
                                   bool append) {
  GeoAttrib* attribute = append ? nullptr : GetAttribute(list, name);
  if (attribute) {
    attribute->Value = value;
  } else {
    attribute = new GeoAttrib(name, value);
    AttribListOf(*list).InsertItem(attribute, -1);
  }
  return attribute;
}

GeoAttrib* GeoAttrib::PutAttribute(DataItemListObject* list, const char* name, double value,
                                   int decimals, bool append) {
  GeoAttrib* attribute = PutEmpty(list, name, append);
  if (decimals == 0) {
    attribute->PutDoubleValue(value);
  } else if (!IsUndefined(value)) {
    attribute->Value = FixedText(value, decimals);
  }
  return attribute;
}

GeoAttrib* GeoAttrib::PutIntAttribute(DataItemListObject* list, const char* name, int value,
                                      bool append) {
  GeoAttrib* attribute = PutEmpty(list, name, append);
  attribute->PutIntValue(value);
  return attribute;
}

GeoAttrib* GeoAttrib::PutDateTimeAttribute(DataItemListObject* list, const char* name, double value,
                                           bool append) {
  GeoAttrib* attribute = PutEmpty(list, name, append);
  attribute->PutDateTimeValue(value);
  return attribute;
}

void GeoAttrib::PutOrDeleteDoubleAttribute(DataItemListObject* list, const char* name, double value,
                                           int decimals) {
  if (IsUndefined(value)) {
    DeleteAttribute(list, name);
  } else {
    PutAttribute(list, name, value, decimals, false);
  }
}

void GeoAttrib::DeleteAttribute(DataItemListObject* list, const char* name) {
  GeoAttrib* attribute = GetAttribute(list, name);
  if (!attribute) return;
  GeoAttribList* attributes = GetAttribList(list);
  attributes->DeleteItem(attribute);
  if (attributes->empty()) list->DeleteItem(attributes);
}

void GeoAttrib::DeleteAttributes(DataItemListObject* list, const std::string& names) {
  std::size_t start = 0;
  while (start <= names.size()) {
    const std::size_t comma = std::min(names.find(',', start), names.size());
    DeleteAttribute(list, names.substr(start, comma - start).c_str());
    start = comma + 1;
  }
}

double GeoAttrib::GetDoubleValue() const { return Value.empty() ? kUndefined : ParseDouble(Value); }

int GeoAttrib::GetIntValue() const { return Value.empty() ? kUndefinedInt : ParseInt(Value); }

GeoDate GeoAttrib::GetGeoDateValue() const {
  const double number = GetDateTimeValue();
  if (IsUndefined(number) || !(std::fabs(number) < kMostDate)) return {};
  const int date = static_cast<int>(number);
  const int time = static_cast<int>(std::lround((number - date) * 1000000));
  return {time % 100, time / 100 % 100, time / 10000, date % 100, date / 100 % 100, date / 10000};
}

void GeoAttrib::PutDoubleValue(double value) {
  Value = IsUndefined(value) ? std::string() : ScientificText(value);
}

void GeoAttrib::PutIntValue(int value) {
  Value = value == kUndefinedInt ? std::string() : std::to_string(value);
}

void GeoAttrib::PutDateTimeValue(double value) {
  if (IsUndefined(value)) {
    Value.clear();
    return;
  }
  if (value < kFirstFullDate) {
    value += value >= kFirstOfLastCentury ? kLastCentury : kThisCentury;
  }
  Value = FixedText(value, 6);
}

int GeoAttrib::SprintfStream(char* buffer, const char* indent) {
  std::string row;
  WriteObjectRow(0, row, "Attribute", this, giAtrFileVersion);
  return CopyRow(buffer, indent + row);
}

int GeoAttrib::GetVersion() const { return giAtrFileVersion; }

void GeoAttrib::Stream(DataStream& stream, int /*version*/) {
  stream.Stream(Name);
  stream.Stream(Value);
}

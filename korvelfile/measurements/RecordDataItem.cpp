#include "korvelfile/measurements/RecordDataItem.h"

#include <cstdint>
#include <utility>

#include "korvelfile/coordinates/internal/LineNumber.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/measurements/internal/ItemFields.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

constexpr const char* kUsageAttribute = "FSBU";

// The bits of the attribute, 0 if it is absent or empty.
int UsageBits(const RecordDataItem& record) {
  const GeoAttrib* attribute = GeoAttrib::GetAttribute(&record, kUsageAttribute);
  if (!attribute || attribute->GetIntValue() == kUndefinedInt) return 0;
  return attribute->GetIntValue();
}

}  // namespace

RecordDataItem& RecordDataItem::operator=(RecordDataItem other) {
  DataItem::operator=(other);
  DataItemListObject::Swap(other);
  RecordFields::operator=(std::move(other));
  return *this;
}

void RecordDataItem::CopyShallow(const RecordDataItem& other) {
  SetName(other.NameText());
  RecordFields::operator=(other);
}

std::string RecordDataItem::GetLineNo(char separator) const {
  return internal::LineNumberOf(NameText(), separator);
}

void RecordDataItem::RemoveLineNo(char separator) {
  SetName(internal::WithoutLineNumber(NameText(), separator));
}

bool RecordDataItem::ConnectedTo(const std::string& otherName) const {
  return internal::HaveSameLineNumber(NameText(), otherName);
}

bool RecordDataItem::IsBacksightUsageInitialized() const {
  return GeoAttrib::GetAttribute(this, kUsageAttribute) != nullptr;
}

bool RecordDataItem::IsUsingBacksight(BacksightUsage mask) const {
  return (UsageBits(*this) & mask) != 0;
}

void RecordDataItem::AddBacksightUsage(BacksightUsage usage) {
  GeoAttrib::PutIntAttribute(this, kUsageAttribute, UsageBits(*this) | usage, false);
}

void RecordDataItem::RemoveBacksightUsage(BacksightUsage usage) {
  GeoAttrib::PutIntAttribute(this, kUsageAttribute, UsageBits(*this) & ~usage, false);
}

void RecordDataItem::Stream(DataStream& stream, int version) {
  internal::StreamAs<std::int16_t>(stream, Type, PlmTypes::RecordAny);
  internal::StreamName(stream, *this);
  stream.Stream(PointCode);
  stream.Stream(SpecialCode);
  stream.Stream(Remark);
  stream.Stream(Distance);
  stream.Stream(HorAngle);
  stream.Stream(Vertical);
  stream.Stream(TargetHeight);
  if (version >= PlmTypes::kDistanceOffset) stream.Stream(DistanceOffset);
}

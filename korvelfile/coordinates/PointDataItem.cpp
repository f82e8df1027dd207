#include "korvelfile/coordinates/PointDataItem.h"

#include <utility>

#include "korvelfile/coordinates/internal/LineNumber.h"
#include "korvelfile/coordinates/internal/PointRow.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/DataStream.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Text.h"
#include "korvelfile/outside/base/Undefined.h"

namespace {

constexpr std::size_t kNumberRemarkSize = 12;

// A storing stream takes texts by reference and changes nothing.
std::string& Unchanged(const std::string& text) { return const_cast<std::string&>(text); }

}  // namespace

PointDataItem::PointDataItem(const Vector3d& position, const std::string& name,
                             const std::string& pointCode, const std::string& specialCode,
                             const std::string& remark)
    : DataItem(name), Vector3d(position), codes_({pointCode, specialCode, remark}) {}

PointDataItem::PointDataItem(const Vector3d& position, const detail::SharedCodes& codes)
    : Vector3d(position), codes_(codes) {}

PointDataItem::PointDataItem(const PointDataItem& other)
    : DataItem(other),
      DataItemListObject(other),
      Vector3d(other),
      Streamable(other),
      type_(other.type_),
      codes_(other.codes_) {}

PointDataItem& PointDataItem::operator=(PointDataItem other) {
  DataItem::operator=(other);
  DataItemListObject::Swap(other);
  Vector3d::operator=(other);
  Swap(other);
  return *this;
}

PointDataItem& PointDataItem::operator=(const Vector3d& position) {
  Vector3d::operator=(position);
  return *this;
}

void PointDataItem::Swap(PointDataItem& other) {
  codes_.Swap(other.codes_);
  std::swap(type_, other.type_);
}

detail::PointCodeProxy PointDataItem::SetPointCode(const std::string& text) {
  return {codes_, text};
}

detail::SpecialCodeProxy PointDataItem::SetSpecialCode(const std::string& text) {
  if (text.starts_with('R')) type_ = PointDataItemType::Radius;
  return {codes_, text};
}

detail::RemarkProxy PointDataItem::SetRemark(const std::string& text) { return {codes_, text}; }

void PointDataItem::SetRemarkAsFloat(double value, int decimals) {
  SetRemark(FixedText(value, decimals).substr(0, kNumberRemarkSize));
}

void PointDataItem::MakeRemarkDecimal() { SetRemark(FirstCommaToPoint(GetRemark())); }

double PointDataItem::GetRadius() const {
  return GetSpecialCode() == "R" ? GetRemarkAsFloat() : 0.0;
}

bool PointDataItem::GetBearing(double& bearing) const {
  const bool hasBearing = GetSpecialCode() == "B";
  bearing = hasBearing ? GetRemarkAsFloat() * kRadiansPerGon : 0.0;
  return hasBearing;
}

double PointDataItem::GetBearing() const {
  double bearing = 0.0;
  return GetBearing(bearing) ? bearing : kUndefined;
}

std::string PointDataItem::GetLineNo(char separator) const {
  return internal::LineNumberOf(NameText(), separator);
}

void PointDataItem::RemoveLineNo(char separator) {
  SetName(internal::WithoutLineNumber(NameText(), separator));
}

bool PointDataItem::ConnectedTo(const std::string& otherName) const {
  return internal::HaveSameLineNumber(NameText(), otherName);
}

int PointDataItem::SprintfStream(char* buffer, const char* indent) const {
  std::string row = indent;
  internal::AppendPointRow(row, 0, *this);
  return CopyRow(buffer, row);
}

void PointDataItem::Stream(DataStream& stream, int /*version*/) {
  if (stream.IsStoring()) {
    internal::PointFields{
        Unchanged(NameText()), y, x, z, Unchanged(GetPointCode()), Unchanged(GetSpecialCode()),
        Unchanged(GetRemark())}
        .Stream(stream);
    return;
  }
  internal::PointRow row;
  row.Read(stream);
  SetName(row.name);
  *this = Vector3d(row.x, row.y, row.z);
  codes_ = detail::CodesAndRemark(row.pointCode, row.specialCode, row.remark);
}

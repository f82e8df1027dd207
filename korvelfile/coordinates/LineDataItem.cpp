#include "korvelfile/coordinates/LineDataItem.h"

#include <utility>

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/outside/base/DataStream.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/Text.h"

LineDataItem::LineDataItem(const LineDataItem& other)
    : DataItem(other),
      DataItemListObject(other),
      Streamable(other),
      LineType(other.LineType),
      code_(other.code_) {}

LineDataItem& LineDataItem::operator=(LineDataItem other) {
  DataItem::operator=(other);
  DataItemListObject::Swap(other);
  LineType = other.LineType;
  code_.swap(other.code_);
  return *this;
}

std::wstring LineDataItem::GetCode() const { return Widen(code_); }

void LineDataItem::SetCode(const std::wstring& code) { code_ = Narrow(code); }

void LineDataItem::AddPoint(const std::string& name, double x, double y, double z,
                            const std::string& pointCode, const std::string& specialCode,
                            const std::string& remark) {
  AddPoint(name, Vector3d(x, y, z), pointCode, specialCode, remark);
}

void LineDataItem::AddPoint(const std::string& name, const Vector3d& position,
                            const std::string& pointCode, const std::string& specialCode,
                            const std::string& remark) {
  InsertItem(new PointDataItem(position, name, pointCode, specialCode, remark), -1);
}

void LineDataItem::AddLine(const std::string& name, const Vector3d& from, const Vector3d& to,
                           const std::string& pointCode, const std::string& specialCode,
                           const std::string& remark) {
  AddPoint(name, from, pointCode, specialCode, remark);
  AddPoint(name, to, pointCode, specialCode, remark);
}

void LineDataItem::AddArc(const std::string& name, const Vector3d& from, const Vector3d& to,
                          double radius, const std::string& pointCode) {
  AddPoint(name, from, pointCode, "R", GeneralText(radius, 16));
  AddPoint(name, to, pointCode, "", "");
}

int LineDataItem::SprintfStream(char* buffer, const char* indent) {
  std::string row;
  WriteObjectRow(0, row, "Line", this, giMarlinGeoFileVersion);
  return CopyRow(buffer, indent + row);
}

void LineDataItem::Stream(DataStream& stream, int /*version*/) {
  std::string name = NameText();
  stream.Stream(name);
  stream.Stream(LineType);
  stream.Stream(code_);
  if (!stream.IsStoring()) SetName(name);
}

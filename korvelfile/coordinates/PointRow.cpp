#include "korvelfile/coordinates/internal/PointRow.h"

#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/outside/base/DataTextInputStream.h"
#include "korvelfile/outside/base/DataTextOutputStream.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "korvelfile/outside/base/Text.h"

namespace internal {

void PointFields::Stream(DataStream& stream) const {
  stream.Stream(name);
  stream.Stream(y);
  stream.Stream(x);
  stream.Stream(z);
  stream.Stream(pointCode);
  stream.Stream(specialCode);
  stream.Stream(remark);
}

void PointRow::Read(DataStream& stream) {
  PointFields{name, y, x, z, pointCode, specialCode, remark}.Stream(stream);
  if (specialCode == "R" || specialCode == "C") remark = FirstCommaToPoint(std::move(remark));
}

bool PointRow::Read(std::string_view row) {
  if (!HasKeyword(row, kPointKeyword)) return false;
  DataTextInputStream fields(row.substr(kPointKeyword.size()));
  Read(fields);
  return true;
}

void AppendPointRow(std::string& out, int indent, const PointDataItem& point) {
  AppendIndent(out, indent);
  out += kPointKeyword;
  out += ' ';
  DataTextOutputStream fields(out);
  // A storing stream changes nothing, so the point may stay const here.
  const_cast<PointDataItem&>(point).Stream(fields, giMarlinGeoFileVersion);
  out += "\r\n";
}

}  // namespace internal

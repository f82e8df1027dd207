#pragma once

#include "korvelfile/data/AttributeRows.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/FileHeaderRows.h"
#include "korvelfile/data/FileVersions.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"

namespace internal {

/// The grammar of a `.geo` file, whatever becomes of what is read.
///
/// A sink has these operations:
/// - `bool TakesVersion(int)`: whether a file of this version is read on;
/// - `DataItemListObject* Point(line, version)`: reads a point's row and gives the list that takes
///   its attributes, or null if the row is another one; `EndPoint()` follows its block;
/// - `DataItemListObject* Line(line, version)`: the same for a line, with `EndLine()`.
template <class Sink>
class GeoGrammar {
 public:
  /// @param list takes the header and the file's attributes
  GeoGrammar(GeoFileTextInputStream& in, DataItemListObject& list, Sink& sink)
      : in_(in), list_(list), sink_(sink) {}

  /// Reads the header; false where the form is wrong or the sink doesn't take the version.
  bool ReadHeader();

  /// Reads the lists of points and lines; false where the form is wrong.
  bool ReadLists();

  /// Reads the file's attribute list.
  /// @param isThere receives whether there is one
  bool ReadFileAttributes(bool& isThere);

 private:
  bool ReadPointList();
  bool ReadPoint();
  bool ReadLineList();
  bool ReadLine();
  bool ReadLineBlock(DataItemListObject& attributes);

  GeoFileTextInputStream& in_;
  DataItemListObject& list_;
  Sink& sink_;
  int version_ = giMarlinGeoFileVersion;
};

template <class Sink>
bool GeoGrammar<Sink>::ReadHeader() {
  return ReadFileHeader(in_, &list_, version_) && sink_.TakesVersion(version_);
}

template <class Sink>
bool GeoGrammar<Sink>::ReadLists() {
  return ReadPointList() && ReadLineList();
}

template <class Sink>
bool GeoGrammar<Sink>::ReadFileAttributes(bool& isThere) {
  isThere = in_.CheckObjectName("AttributeList");
  return !isThere || ReadAttributeList(in_, &list_, version_);
}

template <class Sink>
bool GeoGrammar<Sink>::ReadPointList() {
  if (!in_.CheckObjectName("PointList")) return false;
  in_.NextLine();
  if (!in_.TestForTag("begin")) return true;
  while (!EndsBlock(in_)) {
    if (!ReadPoint()) return false;
  }
  return true;
}

template <class Sink>
bool GeoGrammar<Sink>::ReadPoint() {
  DataItemListObject* attributes = sink_.Point(in_.GetLine(), version_);
  if (!attributes) return false;
  in_.NextLine();
  if (in_.TestForTag("begin")) {
    while (!EndsBlock(in_)) {
      if (!ReadAttributeList(in_, attributes, version_)) return false;
    }
  }
  sink_.EndPoint();
  return true;
}

template <class Sink>
bool GeoGrammar<Sink>::ReadLineList() {
  if (!in_.CheckObjectName("LineList")) return false;
  in_.NextLine();
  if (!in_.TestForTag("begin")) return true;
  while (!EndsBlock(in_)) {
    if (!ReadLine()) return false;
  }
  return true;
}

template <class Sink>
bool GeoGrammar<Sink>::ReadLine() {
  DataItemListObject* attributes = sink_.Line(in_.GetLine(), version_);
  if (!attributes) return false;
  in_.NextLine();
  if (in_.TestForTag("begin") && !ReadLineBlock(*attributes)) return false;
  sink_.EndLine();
  return true;
}

template <class Sink>
bool GeoGrammar<Sink>::ReadLineBlock(DataItemListObject& attributes) {
  while (!EndsBlock(in_)) {
    if (!ReadPointList()) return false;
    if (in_.CheckObjectName("AttributeList") && !ReadAttributeList(in_, &attributes, version_)) {
      return false;
    }
  }
  return true;
}

}  // namespace internal

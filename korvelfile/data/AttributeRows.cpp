#include "korvelfile/data/AttributeRows.h"

#include <string>

#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"

namespace {

constexpr const char* kListKeyword = "AttributeList";
constexpr const char* kAttributeKeyword = "Attribute";

void WriteTag(GeoFile& file, int indent, const char* tag) {
  std::string line;
  AppendIndent(line, indent);
  _FileIO::WriteFile(file, line + tag + "\r\n");
}

}  // namespace

bool WriteAttributeList(GeoFile& file, DataItemListObject* list, int version, int indent) {
  const GeoAttribList* attributes = GeoAttrib::GetAttribList(list);
  if (!attributes) return false;
  WriteTag(file, indent, "AttributeList ");
  TypedItemCursor<GeoAttrib> cursor(*attributes);
  GeoAttrib* attribute = nullptr;
  std::string row;
  bool hasAttributes = false;
  for (; cursor.Next(attribute) == 0; hasAttributes = true) {
    if (!hasAttributes) WriteTag(file, indent, "begin");
    WriteObjectRow(indent + 1, row, kAttributeKeyword, attribute, version);
    _FileIO::WriteFile(file, row);
  }
  if (hasAttributes) WriteTag(file, indent, "end");
  return true;
}

bool ReadAttributeList(GeoFileTextInputStream& in, DataItemListObject* list, int version) {
  auto* attributes = new GeoAttribList;
  list->InsertItem(attributes, -1);
  if (!in.CheckObjectName(kListKeyword)) return false;
  in.NextLine();
  if (!in.TestForTag("begin")) return true;
  while (!EndsBlock(in)) {
    auto* attribute = new GeoAttrib;
    attributes->InsertItem(attribute, -1);
    if (!ReadObjectRow(in.GetLine(), kAttributeKeyword, attribute, version)) return false;
    in.NextLine();
  }
  return true;
}

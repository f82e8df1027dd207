#include "korvelfile/data/AttributeFile.h"

#include <new>
#include <string_view>

#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/FileHeaderRows.h"
#include "korvelfile/data/FileVersions.h"
#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/data/internal/ReadItem.h"
#include "korvelfile/outside/base/FilePath.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"
#include "korvelfile/outside/base/Ghal.h"

namespace {

constexpr const char* kFileType = "Tarn Attribute Definition Document";
constexpr const char* kListKeyword = "GeoAttribContextList";
constexpr const char* kContextKeyword = "GeoAttribContext";
constexpr const char* kTypeKeyword = "GeoAttribType";
constexpr int kWrongForm = -9;
constexpr int kNoMemory = -10;

using internal::ReadItem;

bool ReadTypes(GeoFileTextInputStream& in, GeoAttribContext& context, int version) {
  if (!in.TestForTag("begin")) return true;
  while (!EndsBlock(in)) {
    if (!ReadItem<GeoAttribType>(in, context, kTypeKeyword, version)) return false;
  }
  return true;
}

bool ReadContexts(GeoFileTextInputStream& in, DataItemListObject& list, int version) {
  if (!in.TestForTag("begin")) return true;
  while (!EndsBlock(in)) {
    auto* context = ReadItem<GeoAttribContext>(in, list, kContextKeyword, version);
    if (!context || !ReadTypes(in, *context, version)) return false;
  }
  return true;
}

// Writes the items of the class `T` in a block, if there are any; `writeChildren` follows each.
template <class T, class WriteChildren>
void WriteBlock(GeoFile& file, const DataItemListObject& list, int indent, const char* keyword,
                WriteChildren writeChildren) {
  const std::string tabs = gszIndent[indent];
  TypedItemCursor<T> cursor(list);
  T* item = nullptr;
  std::string row;
  bool hasItems = false;
  for (; cursor.Next(item) == 0; hasItems = true) {
    if (!hasItems) _FileIO::WriteFile(file, tabs + "begin\r\n");
    WriteObjectRow(indent + 1, row, keyword, item, giAtrFileVersion);
    _FileIO::WriteFile(file, row);
    writeChildren(*item);
  }
  if (hasItems) _FileIO::WriteFile(file, tabs + "end\r\n");
}

}  // namespace

void AttributeFile::ChooseFile(const char* path) {
  path_ = path ? path : "nofile.atr";
  fileName_ = Korvel::FileNameOf(path_);
}

void AttributeFile::InitDataItems() { InsertItem(new FileHeader(kFileType, giAtrFileVersion), -1); }

int AttributeFile::InitCollectorFileNoDisk() {
  const ScopedDataCollectionLock lock(*this);
  ClearListObject();
  InitDataItems();
  return 0;
}

int AttributeFile::CreateCollectorFile() {
  const ScopedDataCollectionLock lock(*this);
  InitCollectorFileNoDisk();
  return WriteCollectorFile();
}

bool AttributeFile::ReadContent(GeoFileTextInputStream& in) {
  int version = giAtrFileVersion;
  if (!ReadFileHeader(in, this, version) || version > giAtrFileVersion) return false;
  if (!in.CheckObjectName(kListKeyword)) return false;
  in.NextLine();
  return ReadContexts(in, *this, version);
}

int AttributeFile::ReadCollectorFile() {
  try {
    return ReadAtrFile();
  } catch (const std::bad_alloc&) {
    return kNoMemory;
  }
}

int AttributeFile::ReadAtrFile() {
  ClearListObject();
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kRead, false) != 0) {
    _GHAL::SystemMessage("can't open pxy-file!");
    _GHAL::SystemMessage(path_);
    return kWrongForm;
  }
  GeoFileTextInputStream in(file);
  if (!ReadContent(in)) {
    SetFaultLine(in.GetLineNumber());
    _GHAL::SystemMessage("Invalid Atr-file format");
    return kWrongForm;
  }
  return _FileIO::CloseFile(file);
}

void AttributeFile::WriteContexts(GeoFile& file) {
  _FileIO::WriteFile(file, std::string(kListKeyword) + " \r\n");
  WriteBlock<GeoAttribContext>(file, *this, 0, kContextKeyword, [&](GeoAttribContext& context) {
    WriteBlock<GeoAttribType>(file, context, 1, kTypeKeyword, [](GeoAttribType&) {});
  });
}

int AttributeFile::WriteCollectorFile() {
  const ScopedDataCollectionLock lock(*this);
  GeoFile file;
  if (_FileIO::OpenFile(file, path_, _FileIO::kReplace, false) != 0) {
    _GHAL::SystemMessage("can't create atr-file!");
    _GHAL::SystemMessage(path_);
    return kWrongForm;
  }
  if (!WriteFileHeader(file, this, giAtrFileVersion)) {
    _GHAL::SystemMessage("File Header missing: ");
    _GHAL::SystemMessage(path_);
    return kWrongForm;
  }
  WriteContexts(file);
  return _FileIO::CloseFile(file);
}

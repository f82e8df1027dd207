#include "korvelfile/data/FileHeaderRows.h"

#include <string>

#include "korvelfile/data/FileHeader.h"
#include "korvelfile/data/FileInfo.h"
#include "korvelfile/data/ObjectText.h"
#include "korvelfile/data/TypedItemCursor.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/GeoFileTextInputStream.h"

namespace {

constexpr const char* kHeaderKeyword = "FileHeader";
constexpr const char* kInfoKeyword = "FileInfo";

void WriteInfos(GeoFile& file, const FileHeader& header, int version) {
  TypedItemCursor<FileInfo> infos(header);
  FileInfo* info = nullptr;
  std::string row;
  bool hasInfos = false;
  for (; infos.Next(info) == 0; hasInfos = true) {
    if (!hasInfos) _FileIO::WriteFile(file, "begin\r\n");
    WriteObjectRow(1, row, kInfoKeyword, info, version);
    _FileIO::WriteFile(file, row);
  }
  if (hasInfos) _FileIO::WriteFile(file, "end\r\n");
}

}  // namespace

bool WriteFileHeader(GeoFile& file, DataItemListObject* list, int version) {
  auto* header = FindFirst<FileHeader>(*list);
  if (!header) return false;
  header->SetFileVersion(version);
  std::string row;
  WriteObjectRow(0, row, kHeaderKeyword, header, version);
  _FileIO::WriteFile(file, row);
  WriteInfos(file, *header, version);
  return true;
}

bool ReadFileHeader(GeoFileTextInputStream& in, DataItemListObject* list, int& version) {
  if (!in.CheckObjectName(kHeaderKeyword)) return false;
  auto* header = new FileHeader;
  list->InsertItem(header, -1);
  ReadObjectRow(in.GetLine(), kHeaderKeyword, header, version);
  in.NextLine();
  if (!in.TestForTag("begin")) return false;
  while (!EndsBlock(in)) {
    if (!in.CheckObjectName(kInfoKeyword)) return false;
    auto* info = new FileInfo;
    header->InsertItem(info, -1);
    ReadObjectRow(in.GetLine(), kInfoKeyword, info, version);
    in.NextLine();
  }
  version = header->GetVersion();
  return true;
}

#include "korvelfile/data/FileHeader.h"

#include "korvelfile/data/TypedItemCursor.h"

namespace {

FileInfo* FindIn(const DataItemListObject& list, const std::string& name) {
  TypedItemCursor<FileInfo> infos(list);
  FileInfo* info = nullptr;
  while (infos.Next(info) == 0) {
    if (info->GetName() == name) return info;
  }
  return nullptr;
}

}  // namespace

FileHeader::FileHeader(const std::string& fileType, int version) {
  SetFileType(fileType);
  SetFileVersion(version);
  SetDescription("");
}

FileHeader& FileHeader::operator=(FileHeader other) {
  DataItem<FileHeader>::operator=(other);
  DataItemListObject::Swap(other);
  FileHeaderBase::Swap(other);
  return *this;
}

const FileInfo* FileHeader::FindInfo(const std::string& name) const { return FindIn(*this, name); }

bool FileHeader::GetInfo(const std::string& name, std::string& value) const {
  const FileInfo* info = FindInfo(name);
  if (info) value = info->GetValue();
  return info != nullptr;
}

void FileHeader::SetInfo(const std::string& name, const std::string& value) {
  if (FileInfo* info = FindIn(*this, name)) {
    info->SetValue(value);
  } else {
    InsertItem(new FileInfo(name, value), -1);
  }
}

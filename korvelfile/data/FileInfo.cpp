#include "korvelfile/data/FileInfo.h"

FileInfo::FileInfo(const std::string& name, const std::string& value) : FileInfoBase(name, value) {}

FileInfo& FileInfo::operator=(FileInfo other) {
  DataItem<FileInfo>::operator=(other);
  DataItemListObject::Swap(other);
  FileInfoBase::Swap(other);
  return *this;
}

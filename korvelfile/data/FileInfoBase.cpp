#include "korvelfile/data/FileInfoBase.h"

#include "korvelfile/outside/base/DataStream.h"

FileInfoBase::FileInfoBase(const std::string& name, const std::string& value)
    : name_(name), value_(value) {}

void FileInfoBase::Swap(FileInfoBase& other) {
  name_.swap(other.name_);
  value_.swap(other.value_);
}

void FileInfoBase::Stream(DataStream& stream, int /*version*/) {
  stream.Stream(name_);
  stream.Stream(value_);
}
